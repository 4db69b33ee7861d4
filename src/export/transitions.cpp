#include "export/transitions.h"

#include "core/numbers.h"
#include "effects/transitions.h"
#include "export/effects.h"
#include "export/rates.h"

namespace XPJ::RVX {

namespace {

// |  outgoing  |=====|=====|  incoming  |      the cut by thirds of the transition's length
//            Start  cut   End
std::string_view TransitionAlignment(ConstHandle transition)
{
    const ConstHandle core = TransitionCore(transition);
    if (!IsTrue(core, "HasOutgoingClip"))
        return "start-black";
    if (!IsTrue(core, "HasIncomingClip"))
        return "end-black";
    const ConstHandle edges = TransitionEdges(transition);
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

void TranslateTransition(ExportContext& context, TrackContext& track, ConstHandle transition)
{
    const ConstHandle core = TransitionCore(transition);
    if (!core)
        return;
    const ConstHandle edges = TransitionEdges(transition);
    const Ticks start = Int64Property(edges, "Start");
    const Ticks rate = track.sequence.frameTicks;

    const ObjectHandle result = context.document.NewObject("transitionitem");
    result.AddChild(WriteRate(context.document, rate, track.unit));
    result.SetProperty("start", TimeText(track.unit, start, rate));
    result.SetProperty("end", TimeText(track.unit, Int64Property(edges, "End"), rate));
    result.SetPropertyShared("alignment", TransitionAlignment(transition));
    if (HasValue(core, "Alignment"))
        result.SetProperty("cutPointTicks", TickText(Int64Property(core, "Alignment")));

    result.AddChild(TransitionToXmeml(EffectContextOf(context, track, start, {}, rate), track.type,
                                      transition));
    track.Add(result);
    track.lastTransition = transition;
}

} // namespace XPJ::RVX
