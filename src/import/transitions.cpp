#include "import/transitions.h"

#include "core/numbers.h"
#include "effects/parameters.h"
#include "effects/transitions.h"
#include "xmeml/cut_points.h"
#include "import/item_issues.h"
#include "xmeml/item_times.h"
#include "import/neighbours.h"

#include <string>
#include <utility>

namespace XPJ {

namespace {

// An alignment that nobody knows counts as centred.
const TransitionAlignment& AlignmentOf(ObjectHandle item)
{
    const TransitionAlignment* const stated = FindAlignment(item.GetProperty("alignment"));
    return stated ? *stated : *FindAlignment("center");
}

// The transition of one `transitionitem`, with its place but without neighbours; null if it has no
// place or no effect.
ObjectHandle MakeTransition(const TrackContext& context, ObjectHandle item, int channelType)
{
    const SequenceContext& sequence = context.sequence;
    const Frames start = Int64Property(item, "start");
    const Frames end = Int64Property(item, "end");
    ItemPlace place = PlaceOfItem(sequence.clock, item, context.type, context.index, start);
    if (start < 0 || end < 0) {
        place.clip = "transitionitem";
        AddItemIssue(sequence.state, place, ImportIssue::InvalidStartEnd);
        return {};
    }
    const EffectContext effects{.document = sequence.state.document,
                                .issues = sequence.state.issues,
                                .place = std::move(place),
                                .frameTicks = sequence.rates.video,
                                .sampleTicks = sequence.rates.audio};
    const bool isVideo = context.type == MediaType::Video;
    const ObjectHandle effect = item.GetChild("effect");
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

// The cut as ticks from the transition's start. A stated cut point holds as it stands, whatever its
// unit.
std::string CutText(ObjectHandle item, const Neighbours& neighbours, CutPlace cut, Ticks length)
{
    for (const Name key : {Name("cutPointTicks"), Name("cutPoint")})
        if (HasValue(item, key))
            return std::string(item.GetProperty(key));
    if (!neighbours.outgoing || (neighbours.incoming && cut == CutPlace::Start))
        return TickText(0);
    return TickText(neighbours.incoming && cut == CutPlace::Middle ? length / 2 : length);
}

void SetFlag(ObjectHandle transition, Name key, bool value)
{
    transition.SetPropertyShared(key, value ? "true" : "false");
}

// Hangs a transition between its neighbours.
void Attach(const TrackContext& context, ObjectHandle item, ObjectHandle transition,
            ItemsByStart& items)
{
    const Ticks start = Int64Property(transition, "Start");
    const Ticks end = Int64Property(transition, "End");
    const TransitionAlignment& alignment = AlignmentOf(item);
    const Neighbours found = FindNeighbours(items, start, end, alignment);

    found.outgoing.AddChild("TailTransition", transition);
    found.incoming.AddChild("HeadTransition", transition);
    SetFlag(transition, "HasOutgoingClip", static_cast<bool>(found.outgoing));
    SetFlag(transition, "HasIncomingClip", static_cast<bool>(found.incoming));
    transition.SetProperty("Alignment", CutText(item, found, alignment.cut, Minus(end, start)));

    const std::string_view name = EffectName(item.GetChild("effect"));
    ExtendNeighbour(context, items, found.outgoing, found.outgoingDelta, name);
    ExtendNeighbour(context, items, found.incoming, found.incomingDelta, name);
}

} // namespace

void TranslateTransitions(const TrackContext& context, ObjectHandle track,
                          ObjectHandle projectTrack)
{
    if (!track.HasChild("transitionitem"))
        return;
    ItemsByStart items = ItemsOfTrack(projectTrack);
    const int channelType = IntProperty(projectTrack, "ChannelType");
    for (const ObjectHandle& item : track.GetChildren("transitionitem"))
        if (const ObjectHandle transition = MakeTransition(context, item, channelType)) {
            projectTrack.AddChild("TransitionTrackItem", transition);
            Attach(context, item, transition, items);
        }
}

} // namespace XPJ
