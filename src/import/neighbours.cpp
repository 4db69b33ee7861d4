#include "import/neighbours.h"

#include "import/item_place.h"
#include "import/item_times.h"

#include <algorithm>

namespace XPJ {

namespace {

std::pair<Ticks, std::uint64_t> KeyOf(ObjectHandle trackItem)
{
    return {Int64Property(trackItem, "Start"), trackItem.UniqueId()};
}

Ticks Move(ObjectHandle node, Name key, Ticks delta)
{
    const Ticks moved = AddTicks(Int64Property(node, key), delta);
    node.SetProperty(key, TickText(moved));
    return moved;
}

} // namespace

ItemsByStart ItemsOfTrack(ObjectHandle projectTrack)
{
    ItemsByStart items;
    for (const ObjectHandle& item : projectTrack.GetChildren("TrackItem"))
        items.emplace(KeyOf(item), item);
    return items;
}

void ExtendNeighbour(const TrackContext& context, ItemsByStart& items, ObjectHandle trackItem,
                     Ticks delta, std::string_view transitionName)
{
    if (delta == 0)
        return;
    ImportState& state = context.sequence.state;
    const Ticks unit = context.sequence.rates.edges;
    const ObjectHandle subClip = trackItem.GetChild("SubClip");
    const ObjectHandle clip = subClip.GetChild("Clip");
    const double speed =
        HasValue(clip, "PlaybackSpeed") ? DoubleProperty(clip, "PlaybackSpeed") : 1.0;
    const Ticks shift = ScaledTicks(delta / unit, unit, speed);

    Ticks edge = 0;
    if (delta < 0) {
        items.erase(KeyOf(trackItem));
        edge = Move(trackItem, "Start", delta);
        items.emplace(KeyOf(trackItem), trackItem);
        if (Move(clip, "InPoint", shift) < 0)
            clip.SetPropertyShared("InPoint", "0");
    } else {
        edge = Move(trackItem, "End", delta);
        Move(clip, "OutPoint", shift);
        context.sequence.end = std::max(context.sequence.end, edge);
    }
    ItemPlace place = PlaceOfItem(state, context.sequence.sequence, trackItem, context.type,
                                  context.index, edge / unit);
    place.clip = subClip.GetProperty("Name");
    AddItemIssue(state, place,
                 delta < 0 ? ImportIssue::StartOfClipExtended : ImportIssue::EndOfClipExtended,
                 transitionName);
}

} // namespace XPJ
