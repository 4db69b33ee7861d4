#include "import/transitions.h"

#include "core/numbers.h"
#include "effects/effect_elements.h"
#include "effects/transitions.h"
#include "project/objects.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace XPJ {

namespace {

// ---- The items beside a transition

// The items of a project track by `Start`, in ticks; those that start together in the order in
// which they were made.
using ItemsByStart = std::map<std::pair<Ticks, std::uint64_t>, ObjectHandle>;

// The items that a transition leads from and to. A delta is what an item lacks to extend as far as
// the transition, in ticks: above 0 at the end of the outgoing one, below 0 at the start of the
// incoming one.
struct Neighbours {
    ObjectHandle outgoing;
    ObjectHandle incoming;
    Ticks outgoingDelta = 0;
    Ticks incomingDelta = 0;
};

std::pair<Ticks, std::uint64_t> KeyOf(ObjectHandle trackItem)
{
    return {Int64Property(trackItem, "Start"), trackItem.UniqueId()};
}

Ticks EndOf(ObjectHandle trackItem)
{
    return Int64Property(trackItem, "End");
}

ItemsByStart ItemsByStartOf(ObjectHandle projectTrack)
{
    ItemsByStart items;
    for (const ObjectHandle& item : projectTrack.GetChildren("TrackItem"))
        items.emplace(KeyOf(item), item);
    return items;
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

// ---- Items that end short of a transition

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

struct Extension {
    ObjectHandle trackItem;
    Ticks delta = 0;
};

// Lengthens an item to where a transition ends, with an issue: by a negative `delta` (ticks) at its
// start, by a positive one at its end. A start goes no further than there are media before it, so
// that video and audio stay in sync.
void ExtendNeighbour(const TrackContext& context, ItemsByStart& items, Extension extension,
                     std::string_view transitionName)
{
    const ObjectHandle trackItem = extension.trackItem;
    if (extension.delta == 0)
        return;
    const bool isAtStart = extension.delta < 0; // also where there are no media before it
    SequenceContext& sequence = context.sequence;
    const Ticks unit = sequence.rates.edges;
    const ObjectHandle subClip = trackItem.GetChild("SubClip");
    const ObjectHandle clip = subClip.GetChild("Clip");
    const double speed =
        HasValue(clip, "PlaybackSpeed") ? DoubleProperty(clip, "PlaybackSpeed") : 1.0;
    const Ticks delta = std::max(extension.delta, -MediaBefore(clip, unit, speed));
    const Ticks shift = ScaledTicks(delta / unit, unit, speed);
    ItemLocation location = LocationOfItem(context, subClip.GetProperty("Name"),
                                           Int64Property(trackItem, "Start") / unit,
                                           Int64Property(trackItem, "End") / unit);

    Ticks edge = 0;
    if (isAtStart) {
        items.erase(KeyOf(trackItem));
        edge = Move(trackItem, "Start", delta);
        items.emplace(KeyOf(trackItem), trackItem);
        Move(clip, "InPoint", shift);
    } else {
        edge = Move(trackItem, "End", delta);
        Move(clip, "OutPoint", shift);
        sequence.end = std::max(sequence.end, edge);
    }
    location.time = sequence.timecode.TextOf(edge / unit);
    AddItemIssue(sequence.state, location,
                 isAtStart ? ImportIssue::StartOfClipExtended : ImportIssue::EndOfClipExtended,
                 transitionName);
}

// ---- The transition

// An unknown alignment counts as centered.
const TransitionAlignment& AlignmentOf(ConstHandle item)
{
    const TransitionAlignment* const stated = FindAlignment(item.GetProperty("alignment"));
    return stated ? *stated : *FindAlignment("center");
}

// The transition of one `transitionitem`, with its times but without neighbours; null if they are
// not stated or it has no effect.
ObjectHandle MakeTransition(const TrackContext& context, ConstHandle item, int channelType)
{
    const SequenceContext& sequence = context.sequence;
    const Frames start = Int64Property(item, "start");
    const Frames end = Int64Property(item, "end");
    ItemLocation location = LocationOfIssue(context, item.GetProperty("name"), start, end);
    if (start < 0 || end < 0) {
        location.clip = "transitionitem";
        AddItemIssue(sequence.state, location, ImportIssue::InvalidStartEnd);
        return {};
    }
    const EffectContext effects{.document = sequence.state.document,
                                .account = sequence.state.account,
                                .location = std::move(location),
                                .frameTicks = sequence.rates.video,
                                .sampleTicks = sequence.rates.audio,
                                .openInterchange = IsOpen(sequence.state)};
    if (end <= start)
        effects.AddRemark(RemarkKind::EdgesInvalid);
    const bool isVideo = context.type == MediaType::Video;
    const ConstHandle effect = item.GetChild("effect");
    if (EffectName(effect).empty()) {
        effects.AddRemark(RemarkKind::TransitionWithoutEffect);
        return {};
    }
    const ObjectHandle result =
        isVideo ? MakeVideoTransition(effects, effect) : MakeAudioTransition(effects, effect);
    const Ticks unit = sequence.rates.edges;
    result.SetPropertyShared("MediaType", MediaTypeText(context.type));
    result.SetProperty("TrackIndex", IntToString(context.index));
    result.SetProperty("FrameRate",
                       TickText(isVideo ? sequence.rates.video : sequence.rates.audio));
    result.SetProperty("Start", TickText(MultiplyTicks(start, unit)));
    result.SetProperty("End", TickText(MultiplyTicks(end, unit)));
    if (!isVideo)
        result.SetProperty("ChannelType", IntToString(channelType));
    return result;
}

// The cut as ticks from the transition's start. A stated cut point is taken as it is, whatever its
// unit.
std::string CutText(ConstHandle item, const Neighbours& neighbours, CutPosition cut, Ticks length)
{
    for (const Name key : {Name("cutPointTicks"), Name("cutPoint")})
        if (HasValue(item, key))
            return std::string(item.GetProperty(key));
    if (!neighbours.outgoing || (neighbours.incoming && cut == CutPosition::Start))
        return TickText(0);
    return TickText(neighbours.incoming && cut == CutPosition::Middle ? length / 2 : length);
}

void RemarkOnNeighbours(const TrackContext& context, ConstHandle item, const Neighbours& found)
{
    const std::string_view alignment = item.GetProperty("alignment");
    const bool isAlone = !found.outgoing && !found.incoming;
    const bool isUnknown = !alignment.empty() && !FindAlignment(alignment);
    if (!isAlone && !isUnknown)
        return;
    const ConstHandle effect = item.GetChild("effect");
    const ItemLocation location =
        LocationOfItem(context, item.GetProperty("name"), Int64Property(item, "start"),
                       Int64Property(item, "end"));
    if (isUnknown)
        AddRemark(context.sequence.state.account, RemarkKind::TransitionAlignment, location,
                  {.name = EffectName(effect), .detail = alignment});
    if (isAlone)
        AddRemark(context.sequence.state.account, RemarkKind::TransitionAlone, location,
                  {.name = EffectName(effect)});
}

// On a cut inside a transition that is not the one of its neighbours.
void RemarkOnCut(const TrackContext& context, ConstHandle item, ObjectHandle transition,
                 const Neighbours& found)
{
    if (!found.outgoing || !found.incoming)
        return;
    const Ticks cut =
        AddTicks(Int64Property(transition, "Start"), Int64Property(transition, "Alignment"));
    const Ticks edge = EndOf(found.outgoing);
    const Ticks distance = SubtractTicks(std::max(cut, edge), std::min(cut, edge));
    if (found.outgoingDelta == 0 && distance >= context.sequence.rates.edges)
        AddRemark(context.sequence.state.account, RemarkKind::TransitionCut,
                  LocationOfItem(context, item.GetProperty("name"), Int64Property(item, "start"),
                                 Int64Property(item, "end")),
                  {.name = EffectName(item.GetChild("effect"))});
}

// Attaches a transition to its neighbours.
void Attach(const TrackContext& context, ConstHandle item, ObjectHandle transition,
            ItemsByStart& items)
{
    const Ticks start = Int64Property(transition, "Start");
    const Ticks end = Int64Property(transition, "End");
    const TransitionAlignment& alignment = AlignmentOf(item);
    const Neighbours found = NeighbourSearch(items, start, end, alignment).Find();
    RemarkOnNeighbours(context, item, found);

    found.outgoing.AddChild("TailTransition", transition);
    found.incoming.AddChild("HeadTransition", transition);
    transition.SetPropertyShared("HasOutgoingClip", BoolText(static_cast<bool>(found.outgoing)));
    transition.SetPropertyShared("HasIncomingClip", BoolText(static_cast<bool>(found.incoming)));
    transition.SetProperty("Alignment",
                           CutText(item, found, alignment.cut, SubtractTicks(end, start)));
    RemarkOnCut(context, item, transition, found);

    const std::string_view name = EffectName(item.GetChild("effect"));
    ExtendNeighbour(context, items, {found.outgoing, found.outgoingDelta}, name);
    ExtendNeighbour(context, items, {found.incoming, found.incomingDelta}, name);
}

} // namespace

void TranslateTransitions(const TrackContext& context, ConstHandle track, ObjectHandle projectTrack)
{
    if (!track.HasChild("transitionitem"))
        return;
    ItemsByStart items = ItemsByStartOf(projectTrack);
    const int channelType = IntProperty(projectTrack, "ChannelType");
    for (const ConstHandle& item : track.GetChildren("transitionitem"))
        if (const ObjectHandle transition = MakeTransition(context, item, channelType)) {
            projectTrack.AddChild("TransitionTrackItem", transition);
            Attach(context, item, transition, items);
        }
}

} // namespace XPJ
