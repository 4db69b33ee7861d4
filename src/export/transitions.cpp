#include "export/transitions.h"

#include "core/numbers.h"
#include "effects/transitions.h"
#include "export/effects.h"
#include "export/rates.h"

#include <string>

namespace XPJ::RVX {

namespace {

// |  outgoing  |=====|=====|  incoming  |      the cut by thirds of the transition's length
//            Start  cut   End
std::string_view TransitionAlignment(ConstHandle transition)
{
    if (!IsTrue(transition, "HasOutgoingClip"))
        return "start-black";
    if (!IsTrue(transition, "HasIncomingClip"))
        return "end-black";
    if (!transition.HasProperty("Start") && !transition.HasProperty("End"))
        return "center";
    const double length = static_cast<double>(Int64Property(transition, "End")) -
                          static_cast<double>(Int64Property(transition, "Start"));
    const auto cut = static_cast<double>(Int64Property(transition, "Alignment"));
    if (cut < length * 0.3333333333333333)
        return "start";
    return cut > length * 0.6666666666666667 ? "end" : "center";
}

void ReportEdge(const EffectContext& effects, const TrackContext& track, Name edge, Ticks time)
{
    const Ticks lost = BehindFrame(time, track);
    if (lost == 0)
        return;
    const std::string detail = std::string(edge == "Start" ? "start" : "end")
                                   .append(" by ")
                                   .append(FramesText(lost, track.sequence));
    effects.AddRemark(RemarkKind::EdgeRounded, {.detail = detail});
}

} // namespace

Ticks WrittenCut(ConstHandle transition)
{
    const Ticks start = Int64Property(transition, "Start");
    const Ticks length = SubtractTicks(Int64Property(transition, "End"), start);
    const Ticks cut = Int64Property(transition, "Alignment");
    if (cut > 0 && cut < length)
        return AddTicks(start, cut);
    const std::string_view alignment = TransitionAlignment(transition);
    if (alignment == "center")
        return AddTicks(start, length / 2);
    return alignment.starts_with("start") ? start : AddTicks(start, length);
}

void TranslateTransition(ExportContext& context, TrackContext& track, ConstHandle transition)
{
    if (!IsTransition(transition))
        return;
    const Ticks start = Int64Property(transition, "Start");
    const Ticks rate = track.sequence.frameTicks;

    const ObjectHandle result = context.document.NewObject("transitionitem");
    result.AddChild(WriteRate(context.document, rate, track.unit));
    result.SetProperty("start", TimeText(track.unit, start, rate));
    result.SetProperty("end", TimeText(track.unit, Int64Property(transition, "End"), rate));
    result.SetPropertyShared("alignment", TransitionAlignment(transition));
    if (HasValue(transition, "Alignment"))
        result.SetProperty("cutPointTicks", TickText(Int64Property(transition, "Alignment")));

    EffectContext effects = EffectContextOf(context, track, TrackItem(transition), {}, rate);
    effects.isRepeated = !context.remarkedNodes.Insert(transition);
    for (const Name edge : {Name("Start"), Name("End")})
        ReportEdge(effects, track, edge, Int64Property(transition, edge));
    result.AddChild(TransitionToXmeml(effects, track.type, transition));
    track.Add(result);
    track.lastTransition = transition;
}

} // namespace XPJ::RVX
