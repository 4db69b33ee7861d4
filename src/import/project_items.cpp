#include "import/project_items.h"

#include "import/logging.h"
#include "project/media.h"
#include "project/objects.h"
#include "xmeml/rates.h"
#include "xmeml/subclips.h"

namespace XPJ {

namespace {

// Frame length in which a subclip counts; 0 for video that has none.
Ticks SubclipTicksOf(ConstHandle element, MasterClipHandle master)
{
    const ObjectHandle video = master.VideoClip().GetChild("Source");
    const Ticks ticks =
        video ? Int64Property(video, "FrameRate") : TicksOfRate(element.GetChild("rate"));
    return ticks == kAnyFrameTicks ? 0 : ticks;
}

void SetTicks(ObjectHandle source, Name key, Ticks ticks)
{
    if (!HasValue(source, key) || Int64Property(source, key) != ticks)
        source.SetProperty(key, TickText(ticks));
}

// A master that was built for another part of its media takes the limits of this one.
void LimitToSubclip(const FileCatalog& files, ConstHandle element, MasterClipHandle master)
{
    const Ticks unit = SubclipTicksOf(element, master);
    const SubclipRange part = ReadSubclipInfo(files, element);
    if (unit == 0 || !part.IsKnown() || !part.hard)
        return;
    const Ticks start = MultiplyTicks(part.start, unit);
    const Ticks end = MultiplyTicks(part.end, unit);
    const Ticks total = AddTicks(end, MultiplyTicks(part.tail, unit));
    for (const ObjectHandle& clip : master.GetChildren("Clip")) {
        const ObjectHandle source = clip.GetChild("Source");
        SetTicks(source, "StartBoundary", start);
        SetTicks(source, "EndBoundary", end);
        SetTicks(source, "OriginalDuration", total);
    }
}

} // namespace

ObjectHandle MakeClipProjectItem(ImportState& state, ConstHandle element, MasterClipHandle master,
                                 ObjectHandle parentItem)
{
    const ObjectHandle item = state.document.NewObject("ClipProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", element.GetProperty("name"));
    CopyItemLabel(state, element, item);
    LimitToSubclip(state.files, element, master);
    item.AddChild("MasterClip", master);
    CopyComments(element, item);
    CopyGoodFlag(element, item);
    CopyGoodFlag(element, master);
    parentItem.AddChild("Item", item);
    return item;
}

void AddClipItem(ImportState& state, ConstHandle clip, MasterClipHandle master,
                 ObjectHandle parentItem)
{
    if (HasValue(clip, "name"))
        master.SetPropertyShared("Name", clip.GetProperty("name"));
    const std::string_view mergeId = MergeIdOf(clip);
    const MergeComponent* const component = state.masters.ComponentOf(master);
    if (state.masters.IsMergeId(mergeId) || (component && clip.HasChild("subclipinfo")))
        state.masters.Defer(component ? component->mergeId : mergeId,
                            {clip, master, parentItem, state.bin});
    else
        MakeClipProjectItem(state, clip, master, parentItem);
}

void AddDeferredItems(ImportState& state, std::string_view mergeId, const NodeSet& merged)
{
    for (const DeferredItem& item : state.masters.DeferredItems(mergeId))
        if (!merged.Contains(item.master))
            MakeClipProjectItem(state, item.clip, item.master, item.parentItem);
}

} // namespace XPJ
