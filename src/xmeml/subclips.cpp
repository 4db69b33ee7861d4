#include "xmeml/subclips.h"

#include "core/ticks.h"
#include "xmeml/files.h"

namespace XPJ {

namespace {

// The length of a clip's first item; where it states none that of the clip, of the medium last.
std::int64_t DurationOf(const ImportState& state, ObjectHandle clip, ObjectHandle item)
{
    for (const ObjectHandle& node :
         {item, clip, FileOfItem(state, item), item.GetChild("sequence")})
        if (HasValue(node, "duration"))
            return Int64Property(node, "duration");
    return 0;
}

} // namespace

SubclipRange ReadSubclipInfo(const ImportState& state, ObjectHandle element)
{
    if (element.GetName() == "sequence")
        return {};
    const ObjectHandle inner = FirstClipItem(element.GetChild("media"));
    const ObjectHandle soft = HasValue(element, "velaSoftStartOffset") ? element : inner;
    const ObjectHandle info = element.HasChild("subclipinfo") ? element.GetChild("subclipinfo")
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
    range.end = AddTicks(range.start, DurationOf(state, element, inner ? inner : element));
    return range;
}

} // namespace XPJ
