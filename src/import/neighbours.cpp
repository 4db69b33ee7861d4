#include "import/neighbours.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace XPJ {

namespace {

std::pair<Ticks, std::uint64_t> KeyOf(ObjectHandle trackItem)
{
    return {Int64Property(trackItem, "Start"), trackItem.UniqueId()};
}

Ticks EndOf(ObjectHandle trackItem)
{
    return Int64Property(trackItem, "End");
}

// | outgoing |==|==| incoming |    == the transition, start..end
//                ^                 the cut
//
// Items of a track do not overlap: the last one that starts before a time covers it, or none does.
class NeighbourSearch {
public:
    NeighbourSearch(const ItemsByStart& items, Ticks start, Ticks end,
                    const TransitionAlignment& alignment)
        : items_(items), start_(start), end_(end), alignment_(alignment)
    {
    }

    Neighbours Find() const
    {
        Neighbours found;
        const auto outgoing = alignment_.hasOutgoing ? Outgoing() : items_.end();
        if (outgoing != items_.end()) {
            found.outgoing = outgoing->second;
            found.outgoingDelta = LackAtEnd(outgoing);
        }
        const auto incoming = alignment_.hasIncoming ? Incoming() : items_.end();
        if (incoming == items_.end() || incoming == outgoing)
            return found;
        found.incoming = incoming->second;
        if (!found.outgoing)
            found.incomingDelta = LackAtStart(incoming);
        return found;
    }

private:
    using Position = ItemsByStart::const_iterator;

    Position FirstFrom(Ticks time) const { return items_.lower_bound({time, 0}); }
    Position LastBefore(Ticks time) const
    {
        const Position next = FirstFrom(time);
        return next == items_.begin() ? items_.end() : std::prev(next);
    }

    // An item that starts with the transition goes out only where the cut can be at its end.
    bool GoesOut(ObjectHandle startingItem) const
    {
        if (alignment_.cut == CutPosition::Start)
            return false;
        return !alignment_.hasIncoming || EndOf(startingItem) <= end_;
    }
    Position Outgoing() const
    {
        const Position after =
            items_.upper_bound({start_, std::numeric_limits<std::uint64_t>::max()});
        if (after == items_.begin())
            return items_.end();
        Position found = std::prev(after);
        if (found->first.first == start_ && !GoesOut(found->second))
            found = LastBefore(start_);
        if (found == items_.end())
            return found;
        const Ticks end = EndOf(found->second);
        const bool touches = alignment_.cut == CutPosition::End ? end > start_ : end >= start_;
        return touches ? found : items_.end();
    }
    Position Incoming() const
    {
        if (alignment_.cut == CutPosition::End)
            if (const Position next = FirstFrom(end_);
                next != items_.end() && next->first.first == end_)
                return next;
        const Position found = LastBefore(end_);
        return found != items_.end() && EndOf(found->second) >= end_ ? found : items_.end();
    }

    // An item is not extended into the one beside it.
    Ticks LackAtEnd(Position outgoing) const
    {
        const Position next = std::next(outgoing);
        const Ticks limit = next == items_.end() ? end_ : std::min(end_, next->first.first);
        return std::max<Ticks>(SubtractTicks(limit, EndOf(outgoing->second)), 0);
    }
    Ticks LackAtStart(Position incoming) const
    {
        const Ticks limit = incoming == items_.begin()
                                ? start_
                                : std::max(start_, EndOf(std::prev(incoming)->second));
        return std::min<Ticks>(SubtractTicks(limit, incoming->first.first), 0);
    }

    const ItemsByStart& items_;
    Ticks start_;
    Ticks end_;
    const TransitionAlignment& alignment_;
};

Ticks Move(ObjectHandle node, Name key, Ticks delta)
{
    const Ticks moved = AddTicks(Int64Property(node, key), delta);
    node.SetProperty(key, TickText(moved));
    return moved;
}

// How far a clip could begin earlier, in whole frames of its sequence.
Ticks MediaBefore(ObjectHandle clip, Ticks unit, double speed)
{
    const auto in = static_cast<double>(std::max<Ticks>(Int64Property(clip, "InPoint"), 0));
    const double frames = in / (static_cast<double>(unit) * speed);
    return MultiplyTicks(ToTicks(frames), unit);
}

} // namespace

ItemsByStart ItemsByStartOf(ObjectHandle projectTrack)
{
    ItemsByStart items;
    for (const ObjectHandle& item : projectTrack.GetChildren("TrackItem"))
        items.emplace(KeyOf(item), item);
    return items;
}

Neighbours FindNeighbours(const ItemsByStart& items, Ticks start, Ticks end,
                          const TransitionAlignment& alignment)
{
    return NeighbourSearch(items, start, end, alignment).Find();
}

void ExtendNeighbour(const TrackContext& context, ItemsByStart& items, Extension extension,
                     std::string_view transitionName)
{
    const ObjectHandle trackItem = extension.trackItem;
    if (extension.delta == 0)
        return;
    SequenceContext& sequence = context.sequence;
    const Ticks unit = sequence.rates.edges;
    const ObjectHandle subClip = trackItem.GetChild("SubClip");
    const ObjectHandle clip = subClip.GetChild("Clip");
    const double speed =
        HasValue(clip, "PlaybackSpeed") ? DoubleProperty(clip, "PlaybackSpeed") : 1.0;
    const Ticks delta = std::max(extension.delta, -MediaBefore(clip, unit, speed));
    const Ticks shift = ScaledTicks(delta / unit, unit, speed);

    Ticks edge = 0;
    if (delta < 0) {
        items.erase(KeyOf(trackItem));
        edge = Move(trackItem, "Start", delta);
        items.emplace(KeyOf(trackItem), trackItem);
        Move(clip, "InPoint", shift);
    } else {
        edge = Move(trackItem, "End", delta);
        Move(clip, "OutPoint", shift);
        sequence.end = std::max(sequence.end, edge);
    }
    AddItemIssue(sequence.import, LocationOfItem(context, subClip.GetProperty("Name"), edge / unit),
                 delta < 0 ? ImportIssue::StartOfClipExtended : ImportIssue::EndOfClipExtended,
                 transitionName);
}

} // namespace XPJ
