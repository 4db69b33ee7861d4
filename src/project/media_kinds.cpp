#include "project/media_kinds.h"

#include "core/numbers.h"

namespace XPJ {

namespace {

struct KindRow {
    MediaKind kind;
    std::string_view path;
};

constexpr KindRow kKinds[] = {
    {MediaKind::BarsAndTone, "1111577171"},      // "BARS"
    {MediaKind::BlackVideo, "1112293707"},       // "BLAK"
    {MediaKind::ColorMatte, "1129270354"},       // "COLR"
    {MediaKind::Graphic, "1196574294"},          // "GRFV"
    {MediaKind::Title, "1414091852"},            // "TITL"
    {MediaKind::TransparentVideo, "1414680150"}, // "TRNV"
};

} // namespace

std::string_view MediaPath(Media media)
{
    return media.GetProperty(media.HasProperty("FilePath") ? Name("FilePath")
                                                           : Name("ActualMediaFilePath"));
}

MediaKind MediaKindOf(Media media)
{
    const std::string_view path = MediaPath(media);
    if (path.find_first_of("/\\") != path.npos)
        return MediaKind::File;
    for (const KindRow& row : kKinds)
        if (ParseInt64(path) == ParseInt64(row.path))
            return row.kind;
    return MediaKind::Other;
}

std::string_view GeneratedPath(MediaKind kind)
{
    for (const KindRow& row : kKinds)
        if (row.kind == kind)
            return row.path;
    return {};
}

} // namespace XPJ
