#include "import/project_items.h"

#include "xmeml/formats.h"
#include "import/logging.h"
#include "import/master_builder.h"
#include "xmeml/files.h"
#include "xmeml/subclips.h"

namespace XPJ {

namespace {

// Frame length in which a subclip counts; 0 for pictures that have none.
Ticks SubclipTicksOf(ObjectHandle element, ObjectHandle master)
{
    const ObjectHandle picture = VideoClipOf(master).GetChild("Source");
    const Ticks ticks =
        picture ? Int64Property(picture, "FrameRate") : TicksOfRate(element.GetChild("rate"));
    return ticks == kAnyFrameTicks ? 0 : ticks;
}

void SetTicks(ObjectHandle source, Name key, Ticks ticks)
{
    if (!HasValue(source, key) || Int64Property(source, key) != ticks)
        source.SetProperty(key, TickText(ticks));
}

// A master that was built for another part of its medium takes the limits of this one.
void LimitToSubclip(const ImportState& state, ObjectHandle element, ObjectHandle master)
{
    const Ticks unit = SubclipTicksOf(element, master);
    const SubclipRange part = ReadSubclipInfo(state, element);
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

bool IsPartOfMergedClip(const ImportState& state, ObjectHandle clip, ObjectHandle master)
{
    if (state.mergedClipIds.Contains(MergeIdOf(clip)))
        return true;
    return clip.HasChild("subclipinfo") && HasValue(master, "FCPMergedMasterClipID");
}

void PlaceClipItem(ImportState& state, ObjectHandle clip, ObjectHandle master,
                   std::string_view fileId, ObjectHandle parentItem)
{
    MakeClipProjectItem(state, clip, master, parentItem).SetProperty("id", fileId);
}

} // namespace

std::string_view MergeIdOf(ObjectHandle clip)
{
    const std::string_view masterClipId = clip.GetProperty("masterclipid");
    return masterClipId.empty() ? clip.GetProperty("id") : masterClipId;
}

ObjectHandle MakeClipProjectItem(ImportState& state, ObjectHandle element, ObjectHandle master,
                                 ObjectHandle parentItem)
{
    const ObjectHandle item = state.document.NewObject("ClipProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", element.GetProperty("name"));
    CopyItemLabel(state, element, item);
    LimitToSubclip(state, element, master);
    item.AddChild("MasterClip", master);
    CopyComments(element, item);
    CopyGoodFlag(element, item);
    CopyGoodFlag(element, master);
    parentItem.AddChild("ProjectItem", item);
    return item;
}

void AddClipItem(ImportState& state, ObjectHandle clip, ObjectHandle master,
                 std::string_view fileId, ObjectHandle parentItem)
{
    if (HasValue(clip, "name"))
        master.SetPropertyShared("Name", clip.GetProperty("name"));
    if (IsPartOfMergedClip(state, clip, master)) {
        const std::string_view ofMaster = master.GetProperty("FCPMergedMasterClipID");
        state.heldBackItems[ofMaster.empty() ? MergeIdOf(clip) : ofMaster].push_back(
            {clip, master, parentItem, fileId});
        return;
    }
    PlaceClipItem(state, clip, master, fileId, parentItem);
}

void PlaceHeldBackItems(ImportState& state, std::string_view mergeId)
{
    const auto held = state.heldBackItems.find(mergeId);
    if (held == state.heldBackItems.end())
        return;
    for (const HeldBackItem& item : held->second)
        if (!HasValue(item.master, "MZ.MergeClip.ParentGUID"))
            PlaceClipItem(state, item.clip, item.master, item.fileId, item.parentItem);
}

} // namespace XPJ
