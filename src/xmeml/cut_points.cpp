#include "xmeml/cut_points.h"

#include "core/numbers.h"
#include "xmeml/item_times.h"

namespace XPJ {

namespace {

// | previous |==|==| next |    == `transitionitem`, from..to
//         from  ^  to          the cut, counted from `from`
struct Transition {
    ObjectHandle node;
    Frames from = 0;
    Frames to = 0;

    explicit Transition(ObjectHandle transition)
        : node(transition), from(Int64Property(transition, "start")),
          to(Int64Property(transition, "end"))
    {
    }
    Frames Length() const { return Minus(to, from); }
};

constexpr TransitionAlignment kAlignments[] = {
    // clang-format off
    // name         cut               outgoing incoming
    {"center",      CutPlace::Middle, true,    true},
    {"start",       CutPlace::Start,  true,    true},
    {"start-black", CutPlace::Start,  false,   true},
    {"end",         CutPlace::End,    true,    true},
    {"end-black",   CutPlace::End,    true,    false},
    // clang-format on
};

// A transition that states no alignment is centred, also for who reads it later.
const TransitionAlignment* AlignmentOf(const Transition& transition)
{
    if (!HasValue(transition.node, "alignment"))
        transition.node.SetPropertyShared("alignment", "center");
    return FindAlignment(transition.node.GetProperty("alignment"));
}

// A clip or generator beside a transition.
class EdgeItem {
public:
    EdgeItem(ObjectHandle item, Ticks sequenceTicks)
        : item_(item), rates_(RatesOfItem(item, sequenceTicks))
    {
    }

    Frames Get(Name key) const { return Int64Property(item_, key); }
    void Set(Name key, Frames value) const { item_.SetProperty(key, IntToString(value)); }
    bool IsStated(Name key) const { return HasValue(item_, key) && Get(key) != kNotStated; }

    // Moves a time in the source, and its exact form in ticks, as far as the edge moves: by whole
    // frames of the sequence, or sound would slip against its place. Where the exact form is stated
    // the other was cut down from it to a frame of the item.
    void Shift(Name key, Name exactKey, Frames frames) const
    {
        const bool wasCutDown = IsStated(exactKey) && rates_.item != rates_.sequence;
        if (Get(key) != kNotStated)
            Set(key,
                AddTicks(Get(key),
                         wasCutDown ? DivideUp(MultiplyTicks(frames, rates_.sequence), rates_.item)
                                    : rates_.ToItem(frames)));
        if (IsStated(exactKey))
            Set(exactKey, AddTicks(Get(exactKey), MultiplyTicks(frames, rates_.sequence)));
    }
    // Sets a time in the source by its distance from the other one.
    void Place(Name key, Name exactKey, Name fromKey, Name exactFromKey, Frames frames) const
    {
        if (Get(key) != kNotStated && Get(fromKey) != kNotStated)
            Set(key, AddTicks(Get(fromKey), rates_.ToItem(frames)));
        if (IsStated(exactKey) && IsStated(exactFromKey))
            Set(exactKey, AddTicks(Get(exactFromKey), MultiplyTicks(frames, rates_.sequence)));
    }

    // This system's own documents count the edges of such items in the item's frames.
    void CountEdgesInSequence() const
    {
        if (!HasValue(item_, "velaTicksIn") || rates_.item == rates_.sequence)
            return;
        CountInSequence("start", "velaTicksStart");
        CountInSequence("end", "velaTicksEnd");
    }

private:
    void CountInSequence(Name key, Name exactKey) const
    {
        if (IsStated(key))
            Set(key,
                DivideUp(IsStated(exactKey) ? Get(exactKey) : MultiplyTicks(Get(key), rates_.item),
                         rates_.sequence));
    }
    static Frames DivideUp(Ticks ticks, Ticks frameTicks)
    {
        return ticks / frameTicks + (ticks % frameTicks > 0 ? 1 : 0);
    }

    ObjectHandle item_;
    ItemRates rates_;
};

class TrackNormaliser {
public:
    explicit TrackNormaliser(Ticks sequenceTicks) : sequenceTicks_(sequenceTicks) {}

    void AddTransition(ObjectHandle node)
    {
        pending_ = node;
        if (previous_ && EdgeItem(previous_, sequenceTicks_).Get("end") == kNotStated)
            EndItem(EdgeItem(previous_, sequenceTicks_), Transition(node));
    }
    void AddItem(ObjectHandle node)
    {
        const EdgeItem item(node, sequenceTicks_);
        item.CountEdgesInSequence();
        if (pending_ && item.Get("start") == kNotStated)
            StartItem(item, Transition(pending_));
        previous_ = node;
    }

private:
    // The cut that a transition states, if it is inside it.
    bool StatedCut(const Transition& transition, Frames& cut) const
    {
        cut = HasValue(transition.node, "cutPointTicks")
                  ? DivTicksOr0(Int64Property(transition.node, "cutPointTicks"), sequenceTicks_)
                  : Int64Property(transition.node, "cutPoint");
        return cut > 0 && cut < transition.Length();
    }

    // How far the item before the cut reaches beyond it: to the end of the transition. A cut that
    // is stated without an exact out point counts as far on both sides.
    static Frames Handle(const EdgeItem& item, const Transition& transition, Frames cut)
    {
        const bool isExact =
            item.IsStated("velaTicksOut") && HasValue(transition.node, "cutPointTicks");
        return isExact ? Minus(transition.Length(), cut) : cut;
    }

    void EndAt(const EdgeItem& item, const Transition& transition, Frames cut, Frames handle) const
    {
        item.Set("end", AddTicks(transition.from, cut));
        item.Shift("out", "velaTicksOut", Minus(0, handle));
    }
    void StartAt(const EdgeItem& item, const Transition& transition, Frames cut) const
    {
        item.Set("start", AddTicks(transition.from, cut));
        item.Shift("in", "velaTicksIn", cut);
    }

    // The item before a transition.
    void EndItem(const EdgeItem& item, const Transition& transition) const
    {
        Frames cut = 0;
        if (StatedCut(transition, cut))
            return EndAt(item, transition, cut, Handle(item, transition, cut));
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPlace::Middle:
            cut = transition.Length() / 2;
            return EndAt(item, transition, cut, Minus(transition.Length(), cut));
        case CutPlace::Start:
            item.Set("end", transition.from);
            return item.Place("out", "velaTicksOut", "in", "velaTicksIn",
                              Minus(transition.from, item.Get("start")));
        case CutPlace::End:
            return item.Set("end", transition.to);
        }
    }

    // The item after it.
    void StartItem(const EdgeItem& item, const Transition& transition) const
    {
        Frames cut = 0;
        if (StatedCut(transition, cut))
            return StartAt(item, transition, cut);
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPlace::Middle:
            return StartAt(item, transition, transition.Length() / 2);
        case CutPlace::Start:
            return item.Set("start", transition.from);
        case CutPlace::End:
            item.Set("start", transition.to);
            return StartBehind(item, transition);
        }
    }

    // The item shows only what comes after the transition.
    void StartBehind(const EdgeItem& item, const Transition& transition) const
    {
        const Frames length = transition.Length();
        if (!item.IsStated("end"))
            item.Shift("in", "velaTicksIn", length);
        else
            item.Place("in", "velaTicksIn", "out", "velaTicksOut",
                       Minus(transition.to, item.Get("end")));
    }

    Ticks sequenceTicks_;
    ObjectHandle previous_;
    ObjectHandle pending_;
};

} // namespace

const TransitionAlignment* FindAlignment(std::string_view name)
{
    for (const TransitionAlignment& alignment : kAlignments)
        if (alignment.name == name)
            return &alignment;
    return nullptr;
}

void NormaliseTrack(ObjectHandle track, Ticks sequenceTicks)
{
    TrackNormaliser normaliser(sequenceTicks);
    for (const ObjectHandle& child : track.GetChildren()) {
        if (child.GetName() == "transitionitem")
            normaliser.AddTransition(child);
        else if (child.GetName() == "clipitem" || child.GetName() == "generatoritem")
            normaliser.AddItem(child);
    }
}

void NormaliseSequence(ObjectHandle sequence, Ticks sequenceTicks)
{
    const ObjectHandle media = sequence.GetChild("media");
    for (const ObjectHandle& medium : {media.GetChild("video"), media.GetChild("audio")})
        for (const ObjectHandle& track : medium.GetChildren("track"))
            NormaliseTrack(track, sequenceTicks);
}

} // namespace XPJ
