#include "xmeml/subclips.h"

#include "core/ticks.h"
namespace XPJ {

namespace {

// The length of a clip's first item; where it states none that of the clip, of the file last.
std::int64_t DurationOf(const FileCatalog& files, ConstHandle clip, ConstHandle item)
{
    const ConstHandle file = FileOfItem(files, item);
    for (const ConstHandle& node : {item, clip, file, item.GetChild("sequence")})
        if (HasValue(node, "duration"))
            return Int64Property(node, "duration");
    return 0;
}

} // namespace

SubclipRange ReadSubclipInfo(const FileCatalog& files, ConstHandle element)
{
    if (element.GetName() == "sequence")
        return {};
    const ConstHandle inner = FirstClipItem(element.GetChild("media"));
    const ConstHandle soft = HasValue(element, "velaSoftStartOffset") ? element : inner;
    const ConstHandle info = element.HasChild("subclipinfo") ? element.GetChild("subclipinfo")
                                                             : inner.GetChild("subclipinfo");
    SubclipRange range;
    if (HasValue(soft, "velaSoftStartOffset")) {
        range.start = Int64Property(soft, "velaSoftStartOffset");
        range.hard = false;
    } else if (info) {
        range.start = Int64Property(info, "startoffset");
        range.tail = Int64Property(info, "endoffset");
    } else {
        return range;
    }
    range.end = AddTicks(range.start, DurationOf(files, element, inner ? inner : element));
    return range;
}

} // namespace XPJ
