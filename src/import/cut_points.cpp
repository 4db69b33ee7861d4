#include "import/cut_points.h"

#include "core/numbers.h"
#include "import/item_times.h"

namespace XPJ {

namespace {

// | previous |==|==| next |    == `transitionitem`, from..to
//         from  ^  to          the cut, counted from `from`
struct Cut {
    Frames frames = 0;
    Ticks ticks = 0;
};

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

    // Moves a time in the source, and its exact form in ticks, by a length in the sequence.
    void Shift(Name key, Name exactKey, Frames frames, Ticks ticks) const
    {
        if (Get(key) != kNotStated)
            Set(key, AddTicks(Get(key), rates_.ToItem(frames)));
        if (IsStated(exactKey))
            Set(exactKey, AddTicks(Get(exactKey), ticks));
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
        for (const Name key : {Name("start"), Name("end")})
            if (IsStated(key)) {
                const Ticks ticks = MultiplyTicks(Get(key), rates_.item);
                const Ticks partOfFrame = ticks % rates_.sequence;
                Set(key, ticks / rates_.sequence + (partOfFrame > 0 ? 1 : 0));
            }
    }

private:
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
    bool StatedCut(const Transition& transition, Cut& cut) const
    {
        if (HasValue(transition.node, "cutPointTicks")) {
            cut.ticks = Int64Property(transition.node, "cutPointTicks");
            cut.frames = DivTicksOr0(cut.ticks, sequenceTicks_);
        } else {
            cut.frames = Int64Property(transition.node, "cutPoint");
            cut.ticks = MultiplyTicks(cut.frames, sequenceTicks_);
        }
        return cut.frames > 0 && cut.frames < transition.Length();
    }
    Cut Middle(const Transition& transition) const
    {
        const Frames half = transition.Length() / 2;
        return {half, MultiplyTicks(half, sequenceTicks_)};
    }

    void EndAt(const EdgeItem& item, const Transition& transition, const Cut& cut) const
    {
        item.Set("end", AddTicks(transition.from, cut.frames));
        item.Shift("out", "velaTicksOut", Minus(0, cut.frames), Minus(0, cut.ticks));
    }
    void StartAt(const EdgeItem& item, const Transition& transition, const Cut& cut) const
    {
        item.Set("start", AddTicks(transition.from, cut.frames));
        item.Shift("in", "velaTicksIn", cut.frames, cut.ticks);
    }

    // The item before a transition.
    void EndItem(const EdgeItem& item, const Transition& transition) const
    {
        Cut cut;
        if (StatedCut(transition, cut))
            return EndAt(item, transition, cut);
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPlace::Middle:
            return EndAt(item, transition, Middle(transition));
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
        Cut cut;
        if (StatedCut(transition, cut))
            return StartAt(item, transition, cut);
        const TransitionAlignment* const alignment = AlignmentOf(transition);
        if (!alignment)
            return;
        switch (alignment->cut) {
        case CutPlace::Middle:
            return StartAt(item, transition, Middle(transition));
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
            item.Shift("in", "velaTicksIn", length, MultiplyTicks(length, sequenceTicks_));
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
