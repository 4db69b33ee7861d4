#include "export/transitions.h"

#include "core/numbers.h"
#include "effects/transitions.h"
#include "export/effects.h"
#include "export/rates.h"

namespace XPJ::RVX {

namespace {

// |  outgoing  |=====|=====|  incoming  |      the cut by thirds of the transition's length
//            Start  cut   End
std::string_view TransitionAlignment(ObjectHandle transition)
{
    const ObjectHandle core = TransitionCore(transition);
    if (!IsTrue(core, "HasOutgoingClip"))
        return "start-black";
    if (!IsTrue(core, "HasIncomingClip"))
        return "end-black";
    const ObjectHandle edges = TransitionEdges(transition);
    if (!edges)
        return "center";
    const double length = static_cast<double>(Int64Property(edges, "End")) -
                          static_cast<double>(Int64Property(edges, "Start"));
    const auto cut = static_cast<double>(Int64Property(core, "Alignment"));
    if (cut < length * 0.3333333333333333)
        return "start";
    return cut > length * 0.6666666666666667 ? "end" : "center";
}

} // namespace

// The form at hand is that of the track's times: frames for picture, the document's for sound.
void TranslateTransition(ExportContext& context, TrackPlace& track, ObjectHandle transition)
{
    const ObjectHandle core = TransitionCore(transition);
    if (!core)
        return;
    const ObjectHandle edges = TransitionEdges(transition);
    const Ticks start = Int64Property(edges, "Start");
    const Ticks rate = track.sequence.frameTicks;

    const ObjectHandle result = context.document.NewObject("transitionitem");
    result.AddChild(WriteRate(context, rate, context.inTicks));
    result.SetProperty("start", TimeText(context, start, rate));
    result.SetProperty("end", TimeText(context, Int64Property(edges, "End"), rate));
    result.SetPropertyShared("alignment", TransitionAlignment(transition));
    if (HasValue(core, "Alignment"))
        result.SetProperty("cutPointTicks", TickText(Int64Property(core, "Alignment")));

    result.AddChild(TransitionToXmeml(EffectContextOf(context, track, start, {}, rate), track.kind,
                                      transition));
    track.Add(result);
    track.lastTransition = transition;
}

} // namespace XPJ::RVX
