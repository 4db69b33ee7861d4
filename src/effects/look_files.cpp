#include "effects/look_files.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "grading/look.h"
#include "platform/files.h"

#include <optional>

namespace XPJ {

namespace {

// Enough for the text of a table with 256 entries an axis.
constexpr std::size_t kMaxFileSize = std::size_t{512} << 20;
// Nothing as short as that is a look.
constexpr std::size_t kMaxEmptySize = 10;

std::optional<CGrading> ReadLook(const std::string& path, const std::string& name,
                                 const std::string& bytes)
{
    if (bytes.size() <= kMaxEmptySize)
        return {};
    return EqualsIgnoreCase(ExtensionOf(path), "look") ? ReadLookDocument(bytes, name)
                                                       : ReadLookupTable(bytes, name);
}

} // namespace

std::string LookFiles::PathOf(std::string_view documentText) const
{
    return PathFromUrl(UnescapeXML(documentText), folder_);
}

const StoredLook* LookFiles::Open(const std::string& path, const std::string& name)
{
    const auto known = looks_.find({path, name});
    if (known != looks_.end())
        return &known->second;
    const std::optional<std::string> bytes = ReadRegularFile(path, kMaxFileSize);
    if (!bytes)
        return nullptr;
    StoredLook& look = looks_[{path, name}];
    if (const std::optional<CGrading> grading = ReadLook(path, name, *bytes)) {
        const std::string text = Serialize(*grading);
        look.base64 = document_.Adopt(EncodeBase64(text));
        look.checksum = document_.Adopt(UintToString(BlobChecksum(text)));
    }
    return &look;
}

} // namespace XPJ
