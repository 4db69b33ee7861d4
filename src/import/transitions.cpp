#include "import/transitions.h"

#include "core/numbers.h"
#include "effects/parameters.h"
#include "effects/transitions.h"
#include "import/neighbours.h"
#include "project/objects.h"

#include <string>
#include <utility>

namespace XPJ {

namespace {

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
    ItemLocation location = LocationOfItem(context, item.GetProperty("name"), start);
    if (start < 0 || end < 0) {
        location.clip = "transitionitem";
        AddItemIssue(sequence.import, location, ImportIssue::InvalidStartEnd);
        return {};
    }
    const EffectContext effects{.document = sequence.import.document,
                                .issues = sequence.import.issues,
                                .location = std::move(location),
                                .frameTicks = sequence.rates.video,
                                .sampleTicks = sequence.rates.audio};
    const bool isVideo = context.type == MediaType::Video;
    const ConstHandle effect = item.GetChild("effect");
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

// Attaches a transition to its neighbours.
void Attach(const TrackContext& context, ConstHandle item, ObjectHandle transition,
            ItemsByStart& items)
{
    const Ticks start = Int64Property(transition, "Start");
    const Ticks end = Int64Property(transition, "End");
    const TransitionAlignment& alignment = AlignmentOf(item);
    const Neighbours found = FindNeighbours(items, start, end, alignment);

    found.outgoing.AddChild("TailTransition", transition);
    found.incoming.AddChild("HeadTransition", transition);
    transition.SetPropertyShared("HasOutgoingClip", BoolText(static_cast<bool>(found.outgoing)));
    transition.SetPropertyShared("HasIncomingClip", BoolText(static_cast<bool>(found.incoming)));
    transition.SetProperty("Alignment",
                           CutText(item, found, alignment.cut, SubtractTicks(end, start)));

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
