#include "export/effects.h"

#include "effects/audio_filters.h"
#include "effects/video_effects.h"
#include "project/accessors.h"

namespace XPJ::RVX {

EffectContext EffectContextAt(ExportContext& context, const ItemPlace& place, Ticks frameTicks)
{
    return {.document = context.document,
            .issues = context.issues,
            .place = place,
            .frameTicks = frameTicks,
            .isHandOff = context.IsHandOff(),
            .exportTransformEffect = context.options.exportTransformEffect};
}

void TranslateMasterEffects(ExportContext& context, ObjectHandle masterClip, Ticks frameTicks,
                            ObjectHandle file)
{
    FiltersToXmeml(EffectContextAt(context, {.clip = masterClip.GetProperty("Name")}, frameTicks),
                   VideoChainOfMaster(masterClip), file);
}

void ReportMasterAudioEffects(ExportContext& context, ObjectHandle masterClip)
{
    constexpr int kAudio = 2;
    const ItemPlace place = {.clip = masterClip.GetProperty("Name"), .trackKind = kAudio};
    ReportAudioChain(EffectContextAt(context, place, kNtscFrameTicks),
                     AudioChainOfMaster(masterClip), ExportIssue::EffectNotTranslatedHeadless);
}

} // namespace XPJ::RVX
