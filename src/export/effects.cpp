#include "export/effects.h"

#include "effects/audio_chain.h"
#include "effects/video_effects.h"
#include "project/accessors.h"

namespace XPJ::RVX {

namespace {

EffectContext EffectContextAt(ExportContext& context, const ItemLocation& location,
                              Ticks frameTicks)
{
    return {.document = context.document,
            .account = context.account,
            .location = location,
            .frameTicks = frameTicks,
            .openInterchange = context.options.settings.openInterchange && !context.IsHandOff(),
            .isHandOff = context.IsHandOff(),
            .exportTransformEffect = context.options.exportTransformEffect};
}

} // namespace

EffectContext EffectContextOf(ExportContext& context, const TrackContext& track, TrackItem item,
                              std::string_view clipName, Ticks frameTicks)
{
    const Ticks start = Int64Property(item, "Start");
    EffectContext effects =
        EffectContextAt(context,
                        {.sequence = track.sequence.sequence.GetProperty("Name"),
                         .clip = clipName,
                         .trackKind = track.type == MediaType::Video ? 1 : 2,
                         .trackIndex = track.index,
                         .span = SpanOf(track.sequence, start, Int64Property(item, "End"))},
                        frameTicks);
    effects.time = [&track, start] { return FormatItemTime(track.sequence, start); };
    return effects;
}

void TranslateMasterEffects(ExportContext& context, MasterClip masterClip, Ticks frameTicks,
                            ObjectHandle file)
{
    FiltersToXmeml(EffectContextAt(context, {.clip = masterClip.GetProperty("Name")}, frameTicks),
                   VideoChainOfMaster(masterClip), file);
}

void TranslateMasterAudioEffects(ExportContext& context, MasterClip masterClip, Ticks frameTicks,
                                 ObjectHandle item)
{
    Account reported; // with the file, as those of a master
    const EffectContext effects{
        .document = context.document, .account = reported, .frameTicks = frameTicks};
    AudioChainToXmeml(effects, AudioChainOfMaster(masterClip), item);
}

void ReportMasterAudioEffects(ExportContext& context, MasterClip masterClip)
{
    constexpr int kAudio = 2;
    const ItemLocation location = {.clip = masterClip.GetProperty("Name"), .trackKind = kAudio};
    ReportAudioChain(EffectContextAt(context, location, kNtscFrameTicks),
                     AudioChainOfMaster(masterClip), ExportIssue::EffectNotTranslatedHeadless);
}

} // namespace XPJ::RVX
