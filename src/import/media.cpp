#include "import/media.h"

#include "core/text.h"
#include "project/media.h"
#include "tree/blob.h"

#include <string>

namespace XPJ {

namespace {

// The host keeps these settings as UTF-16 text, escaped twice in the document.
void AddImporterPrefs(FileElement file, ObjectHandle media)
{
    const std::string_view data =
        FindPath(file, {"media", "video"}).GetProperty("MediaAssociationData");
    std::string bytes;
    for (const char16_t unit : ToUTF16(UnescapeXML(UnescapeXML(data)))) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", bytes);
}

} // namespace

ObjectHandle MakeMediaOfFile(const ImportState& state, FileElement file)
{
    const std::string path = PathOfFile(file, state.folder);
    const ObjectHandle media = MakeMedia(state.document, {.path = path, .title = file.Title()});
    AddImporterPrefs(file, media);
    return media;
}

} // namespace XPJ
