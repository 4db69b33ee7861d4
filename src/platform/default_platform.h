// The platform of a process without a host: texts of a catalog, random GUIDs, a debug database from
// a file, the user's documents folder, and no window system.
#pragma once

#include "platform/message_catalog.h"
#include "platform/platform_interface.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <random>

namespace XPJ {

// Safe for use from two threads at once.
class DefaultPlatform : public Platform {
public:
    DefaultPlatform();

    // From here on GUIDs follow from `seed` alone, so that two runs give the same bytes.
    void SeedGuids(std::uint64_t seed);
    // Sets a flag of the debug database; it wins over the database's file.
    void SetDebugEntry(std::string_view key, std::string_view value);
    // Replaces the documents folder, into which reports go. It is made absolute, with
    // a last separator; the empty text means the user's folder again.
    void SetReportFolder(std::string_view folder);

    // Texts come from here, as far as it has them; the catalog must live as long as the platform.
    void UseCatalog(const MessageCatalog& catalog);

    std::u16string Localize(std::string_view key) override;
    // Random, version 4.
    Guid CreateUniqueGuid() override;
    // XDG_DOCUMENTS_DIR, then user-dirs.dirs, then ~/Documents, then ~: the first that exists.
    std::string DocumentsFolder() override;
    // From `SetDebugEntry`, else from the file that VELA_DEBUG_DATABASE names: lines "Key=Value",
    // "#" in front of a comment. The file is read at the first look-up.
    std::optional<std::string> DebugEntry(std::string_view key) override;

private:
    std::mutex lock_;
    const MessageCatalog* catalog_ = nullptr;
    std::mt19937_64 random_;
    std::string reportFolder_;
    std::map<std::string, std::string, std::less<>> debugEntries_;
    bool debugFileRead_ = false;
};

} // namespace XPJ
