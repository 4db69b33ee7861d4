#include "platform/default_platform.h"

#include "core/text.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include <boost/uuid/random_generator.hpp>

namespace XPJ {

namespace {

constexpr char kDebugDatabaseVariable[] = "VELA_DEBUG_DATABASE";

std::mt19937_64 GeneratorFromEntropy()
{
    std::random_device entropy;
    std::seed_seq seed{entropy(), entropy(), entropy(), entropy(),
                       entropy(), entropy(), entropy(), entropy()};
    return std::mt19937_64(seed);
}

std::string Environment(const char* name)
{
    // This process never writes the environment.
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value ? value : "";
}

std::string WithSeparator(std::string folder)
{
    if (!folder.empty() && folder.back() != '/')
        folder += '/';
    return folder;
}

bool IsFolder(const std::string& path)
{
    std::error_code error;
    return !path.empty() && std::filesystem::is_directory(path, error);
}

// A path that goes into documents must not depend on the current folder.
std::string Absolute(const std::string& folder)
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(folder, error);
    return folder.empty() || error ? folder : path.string();
}

// Calls `take(key, value)` for each "key=value" line.
void ReadKeyValueFile(const std::string& path,
                      const std::function<void(std::string_view, std::string_view)>& take)
{
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        const std::string_view text = Trimmed(line);
        const std::size_t equals = text.find('=');
        if (text.empty() || text.front() == '#' || equals == text.npos)
            continue;
        take(Trimmed(text.substr(0, equals)), Trimmed(text.substr(equals + 1)));
    }
}

// The folder that the desktop's user-dirs.dirs states: XDG_DOCUMENTS_DIR="$HOME/Papers"
std::string UserDirsDocuments(const std::string& home)
{
    std::string config = Environment("XDG_CONFIG_HOME");
    if (config.empty() && !home.empty())
        config = home + "/.config";
    if (config.empty())
        return {};
    std::string result;
    ReadKeyValueFile(config + "/user-dirs.dirs", [&](std::string_view key, std::string_view value) {
        if (key != "XDG_DOCUMENTS_DIR")
            return;
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
            value = value.substr(1, value.size() - 2);
        constexpr std::string_view kHome = "$HOME";
        if (value.starts_with(kHome))
            result = home + std::string(value.substr(kHome.size()));
        else
            result = value;
    });
    return result;
}

// With a trailing separator; empty when there is none.
std::string UserDocumentsFolder()
{
    const std::string home = Environment("HOME");
    const std::string candidates[] = {
        Environment("XDG_DOCUMENTS_DIR"),
        UserDirsDocuments(home),
        home.empty() ? "" : home + "/Documents",
        home,
    };
    for (const std::string& candidate : candidates)
        if (IsFolder(candidate))
            return WithSeparator(Absolute(candidate));
    return {};
}

} // namespace

DefaultPlatform::DefaultPlatform() : random_(GeneratorFromEntropy()) {}

void DefaultPlatform::SeedGuids(std::uint64_t seed)
{
    const std::lock_guard guard(lock_);
    random_.seed(seed);
}

void DefaultPlatform::SetDebugEntry(std::string_view key, std::string_view value)
{
    const std::lock_guard guard(lock_);
    debugEntries_.insert_or_assign(std::string(key), std::string(value));
}

void DefaultPlatform::SetReportFolder(std::string_view folder)
{
    const std::lock_guard guard(lock_);
    reportFolder_ = WithSeparator(Absolute(std::string(folder)));
}

void DefaultPlatform::UseCatalog(const MessageCatalog& catalog)
{
    const std::lock_guard guard(lock_);
    catalog_ = &catalog;
}

std::u16string DefaultPlatform::Localize(std::string_view key)
{
    const std::lock_guard guard(lock_);
    const auto text = catalog_ ? catalog_->Find(key) : std::nullopt;
    return text ? ToUTF16(*text) : Platform::Localize(key);
}

Guid DefaultPlatform::CreateUniqueGuid()
{
    const std::lock_guard guard(lock_);
    return boost::uuids::basic_random_generator<std::mt19937_64>(random_)();
}

std::string DefaultPlatform::DocumentsFolder()
{
    const std::lock_guard guard(lock_);
    return reportFolder_.empty() ? UserDocumentsFolder() : reportFolder_;
}

std::optional<std::string> DefaultPlatform::DebugEntry(std::string_view key)
{
    const std::lock_guard guard(lock_);
    if (!debugFileRead_) {
        debugFileRead_ = true;
        const std::string path = Environment(kDebugDatabaseVariable);
        if (!path.empty())
            ReadKeyValueFile(path, [this](std::string_view name, std::string_view value) {
                debugEntries_.try_emplace(std::string(name), value);
            });
    }
    const auto entry = debugEntries_.find(key);
    if (entry == debugEntries_.end())
        return std::nullopt;
    return entry->second;
}

} // namespace XPJ
