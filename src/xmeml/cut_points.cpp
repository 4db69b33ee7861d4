#include "xmeml/cut_points.h"

#include "xmeml/speed.h"
#include "xmeml/tracks.h"

#include <unordered_map>
#include <utility>

namespace XPJ {

namespace {

constexpr TransitionAlignment kAlignments[] = {
    // clang-format off
    // name         cut                  outgoing incoming
    {"center",      CutPosition::Middle, true,    true},
    {"start",       CutPosition::Start,  true,    true},
    {"start-black", CutPosition::Start,  false,   true},
    {"end",         CutPosition::End,    true,    true},
    {"end-black",   CutPosition::End,    true,    false},
    // clang-format on
};

// | previous |==|==| next |    == `transitionitem`, from..to
//         from  ^  to          the cut, counted from `from`
struct Transition {
    ConstHandle node;
    Frames from = 0;
    Frames to = 0;

    explicit Transition(ConstHandle transition)
        : node(transition), from(Int64Property(transition, "start")),
          to(Int64Property(transition, "end"))
    {
    }
    Frames Length() const { return SubtractTicks(to, from); }
};

// A transition that states no alignment is centered.
const TransitionAlignment* AlignmentOf(const Transition& transition)
{
    return FindAlignment(HasValue(transition.node, "alignment")
                             ? transition.node.GetProperty("alignment")
                             : "center");
}

// A time in the source, in frames of the item and, where it is stated, exactly in ticks.
struct SourcePoint {
    StatedTime& frames;
    StatedTime& exact;
};

// The edges of a clip or generator beside a transition.
class ItemEdges {
public:
    ItemEdges(ClipItem& item, Ticks sequenceTicks, MediaType type)
        : item_(item), times_(item.times), rates_(RatesOfItem(item, sequenceTicks)), type_(type)
    {
    }

    StatedTimes& Times() const { return times_; }
    SourcePoint In() const { return {times_.in, times_.exactIn}; }
    SourcePoint Out() const { return {times_.out, times_.exactOut}; }

    // Moves a time in the source as far as the edge moves: by whole frames of the sequence, or
    // audio would slip against its cut.
    void Shift(SourcePoint point, Frames frames) const
    {
        const bool isRounded = IsRounded(point);
        if (point.exact.IsStated())
            point.exact.Set(WithoutNoise(AddTicks(point.exact.value, ExactLength(frames))));
        if (isRounded)
            point.frames.Set(FrameOfProduct(Played(point.exact.value), rates_.item));
        else if (point.frames.value != kNotStated)
            point.frames.Set(AddTicks(point.frames.value, rates_.ToItem(frames)));
    }
    // Sets a time in the source by its distance from the other one.
    void Place(SourcePoint point, SourcePoint from, Frames frames) const
    {
        if (point.frames.value != kNotStated && from.frames.value != kNotStated)
            point.frames.Set(AddTicks(from.frames.value, rates_.ToItem(frames)));
        if (point.exact.IsStated() && from.exact.IsStated())
            point.exact.Set(WithoutNoise(AddTicks(from.exact.value, SourceLength(frames))));
    }

    // This system's own documents count the edges of such items in the item's frames.
    void CountInSequence() const
    {
        if (!times_.exactIn.isPresent || rates_.item == rates_.sequence)
            return;
        CountInSequence(times_.start, "velaTicksStart");
        CountInSequence(times_.end, "velaTicksEnd");
    }

private:
    // True for the frame of an exact time that lies between frames of the item: it is off by a part
    // of a frame, and so would be each that is counted from it.
    bool IsRounded(SourcePoint point) const
    {
        if (rates_.item == rates_.sequence || !point.exact.IsStated() ||
            point.frames.value == kNotStated)
            return false;
        const Ticks off = SubtractTicks(Played(point.exact.value),
                                        MultiplyTicks(point.frames.value, rates_.item));
        return off > -rates_.item && off < rates_.item;
    }

    // A time in the source of a clip at another speed that is meant to be a whole frame.
    Ticks WithoutNoise(Ticks source) const
    {
        const Ticks frame = MultiplyTicks(NearestFrame(source, rates_.item), rates_.item);
        const Ticks off = SubtractTicks(source, frame);
        return SpeedOfItem(item_).speed != 1.0 && off >= -kSpeedNoise && off <= kSpeedNoise
                   ? frame
                   : source;
    }

    // A time in the source as the clip plays it, in which frames count.
    Ticks Played(Ticks source) const
    {
        const double speed = SpeedOfItem(item_).speed;
        return speed == 1.0 || type_ != MediaType::Video
                   ? source
                   : ToTicks(static_cast<double>(source) / speed);
    }

    // What plays in so many frames of the sequence.
    Ticks SourceLength(Frames frames) const
    {
        const Ticks ticks = MultiplyTicks(frames, rates_.sequence);
        const double speed = SpeedOfItem(item_).speed;
        return speed == 1.0 ? ticks : ToTicks(static_cast<double>(ticks) * speed);
    }
    // The same of a handle. The exact times of audio have theirs as if it were not stretched.
    Ticks ExactLength(Frames frames) const
    {
        return type_ == MediaType::Video ? SourceLength(frames)
                                         : MultiplyTicks(frames, rates_.sequence);
    }
    void CountInSequence(StatedTime& time, Name exactKey) const
    {
        if (!time.IsStated())
            return;
        const bool isExact =
            HasValue(item_, exactKey) && Int64Property(item_, exactKey) != kNotStated;
        time.Set(DivideUp(isExact ? Int64Property(item_, exactKey)
                                  : MultiplyTicks(time.value, rates_.item),
                          rates_.sequence));
    }
    static Frames DivideUp(Ticks ticks, Ticks frameTicks)
    {
        return ticks / frameTicks + (ticks % frameTicks > 0 ? 1 : 0);
    }

    const ClipItem& item_;
    StatedTimes& times_;
    ItemRates rates_;
    MediaType type_;
};

class TrackWalk {
public:
    TrackWalk(const EdgeRules& rules, MediaType type) : rules_(rules), type_(type) {}

    void AddTransition(ConstHandle node)
    {
        ++position_;
        transition_ = node;
        if (!items_.empty() && items_.back().times.end.value == kNotStated)
            EndItem(ItemEdges(items_.back(), rules_.sequenceTicks, type_), Transition(node));
    }
    void AddItem(ConstHandle node)
    {
        ClipItem& item = items_.emplace_back(node);
        item.position = ++position_;
        if (!seen_.Insert(node))
            item.times = TimesOfRepeated(node);
        if (!latest_.empty())
            latest_[node.UniqueId()] = items_.size() - 1;
        const ItemEdges edges(item, rules_.sequenceTicks, type_);
        edges.CountInSequence();
        if (transition_ && item.times.start.value == kNotStated)
            StartItem(edges, Transition(transition_));
    }
    std::vector<ClipItem> Take()
    {
        if (!latest_.empty())
            for (ClipItem& item : items_)
                item.times = items_[latest_.at(item.UniqueId())].times;
        return std::move(items_);
    }

private:
    // A reference repeats an item, which has one set of times wherever it is on the track.
    const StatedTimes& TimesOfRepeated(ConstHandle node)
    {
        if (latest_.empty())
            for (std::size_t i = 0; i + 1 < items_.size(); ++i)
                latest_[items_[i].UniqueId()] = i;
        return items_[latest_.at(node.UniqueId())].times;
    }

    // The cut that a transition states, if it is inside it.
    bool StatedCut(const Transition& transition, Frames& cut) const
    {
        cut =
            HasValue(transition.node, "cutPointTicks")
                ? DivTicksOr0(Int64Property(transition.node, "cutPointTicks"), rules_.sequenceTicks)
                : Int64Property(transition.node, "cutPoint");
        return cut > 0 && cut < transition.Length();
    }

    // The handle of the item before the cut: to the end of the transition. A cut that is stated
    // without an exact out point counts the same on both sides.
    static Frames HandleOf(const ItemEdges& item, const Transition& transition, Frames cut)
    {
        const bool isExact =
            item.Times().exactOut.IsStated() && HasValue(transition.node, "cutPointTicks");
        return isExact ? SubtractTicks(transition.Length(), cut) : cut;
    }

    static void EndAt(const ItemEdges& item, const Transition& transition, Frames cut,
                      Frames handle)
    {
        item.Times().end.Set(AddTicks(transition.from, cut));
        item.Shift(item.Out(), SubtractTicks(0, handle));
    }
    static void StartAt(const ItemEdges& item, const Transition& transition, Frames cut)
    {
        item.Times().start.Set(AddTicks(transition.from, cut));
        item.Shift(item.In(), cut);
    }

    // The item before a transition.
    void EndItem(const ItemEdges& item, const Transition& transition) const
    {
        Frames cut = 0;
        if (StatedCut(transition, cut))
            return EndAt(item, transition, cut, HandleOf(item, transition, cut));
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPosition::Middle:
            cut = transition.Length() / 2;
            return EndAt(item, transition, cut, SubtractTicks(transition.Length(), cut));
        case CutPosition::Start:
            return EndBefore(item, transition);
        case CutPosition::End:
            return item.Times().end.Set(transition.to);
        }
    }

    // The item after it.
    void StartItem(const ItemEdges& item, const Transition& transition) const
    {
        Frames cut = 0;
        if (StatedCut(transition, cut))
            return StartAt(item, transition, cut);
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPosition::Middle:
            return StartAt(item, transition, transition.Length() / 2);
        case CutPosition::Start:
            return item.Times().start.Set(transition.from);
        case CutPosition::End:
            return StartBehind(item, transition);
        }
    }

    // The item shows only what comes before the transition.
    void EndBefore(const ItemEdges& item, const Transition& transition) const
    {
        if (KeepsExact(item.Out()))
            return EndAt(item, transition, 0, transition.Length());
        item.Times().end.Set(transition.from);
        item.Place(item.Out(), item.In(), SubtractTicks(transition.from, item.Times().start.value));
    }

    // The item shows only what comes after it.
    void StartBehind(const ItemEdges& item, const Transition& transition) const
    {
        const StatedTime end = item.Times().end;
        if (!end.IsStated() || KeepsExact(item.In()))
            return StartAt(item, transition, transition.Length());
        item.Times().start.Set(transition.to);
        item.Place(item.In(), item.Out(), SubtractTicks(transition.to, end.value));
    }

    bool KeepsExact(SourcePoint point) const
    {
        return rules_.openInterchange && point.exact.IsStated();
    }

    EdgeRules rules_;
    MediaType type_;
    std::vector<ClipItem> items_;
    ConstHandle transition_; // the last one so far
    NodeSet seen_;
    // By `uniqueId` the last item of each node; empty while no item is repeated.
    std::unordered_map<std::uint64_t, std::size_t> latest_;
    int position_ = 0;
};

std::vector<std::vector<ClipItem>> ItemsOfTracks(ConstHandle group, const EdgeRules& rules,
                                                 MediaType type)
{
    std::vector<std::vector<ClipItem>> tracks;
    for (const ConstHandle& track : group.GetChildren("track"))
        tracks.push_back(ItemsOfTrack(track, rules, type));
    return tracks;
}

} // namespace

const TransitionAlignment* FindAlignment(std::string_view name)
{
    for (const TransitionAlignment& alignment : kAlignments)
        if (alignment.name == name)
            return &alignment;
    return nullptr;
}

std::vector<ClipItem> ItemsOfTrack(ConstHandle track, const EdgeRules& rules, MediaType type)
{
    TrackWalk walk(rules, type);
    for (const ConstHandle& child : track.GetChildren()) {
        if (child.GetName() == "transitionitem")
            walk.AddTransition(child);
        else if (IsTrackItem(child))
            walk.AddItem(child);
    }
    return walk.Take();
}

SequenceItems ItemsOfSequence(ConstHandle sequence, const EdgeRules& rules)
{
    const ConstHandle media = sequence.GetChild("media");
    return {ItemsOfTracks(media.GetChild("video"), rules, MediaType::Video),
            ItemsOfTracks(media.GetChild("audio"), rules, MediaType::Audio)};
}

} // namespace XPJ
