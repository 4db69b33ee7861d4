#include "export/effects.h"

#include "effects/audio_chain.h"
#include "effects/param_losses.h"
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

EffectContext ContextOfAudio(ExportContext& context, const LocatedMaster& master)
{
    constexpr int kAudio = 2;
    ItemLocation location = master.location;
    location.trackKind = kAudio;
    return EffectContextAt(context, location, kNtscFrameTicks);
}

} // namespace

EffectContext EffectContextOf(ExportContext& context, const TrackContext& track, TrackItem item,
                              std::string_view clipName, Ticks frameTicks)
{
    const Ticks start = Int64Property(item, "Start");
    EffectContext effects =
        EffectContextAt(context, LocationOfItem(track, item, clipName), frameTicks);
    effects.time = [&track, start] { return FormatItemTime(track.sequence, start); };
    return effects;
}

void TranslateMasterEffects(ExportContext& context, const LocatedMaster& master, ObjectHandle file)
{
    EffectContext effects = EffectContextAt(context, master.location, master.frameTicks);
    effects.isRepeated = !context.remarkedNodes.Insert(master.masterClip);
    FiltersToXmeml(effects, VideoChainOfMaster(master.masterClip), file);
}

// What documents have no term for is reported with the file, as that of a master.
void TranslateMasterAudioEffects(ExportContext& context, const LocatedMaster& master, int channel,
                                 ObjectHandle item)
{
    Account ofItem;
    const EffectContext effects{.document = context.document,
                                .account = ofItem,
                                .location = master.location,
                                .frameTicks = master.frameTicks,
                                .openInterchange = true,
                                .isRepeated = channel > 1};
    AudioChainToXmeml(effects, AudioChainOfMaster(master.masterClip), item);
    for (const Remark& remark : ofItem.remarks)
        if (remark.kind != RemarkKind::EffectUnsupported)
            AddRemark(context.account, remark);
}

void ReportMasterAudioEffects(ExportContext& context, const LocatedMaster& master, bool written)
{
    const EffectContext effects = ContextOfAudio(context, master);
    const ConstHandle chain = AudioChainOfMaster(master.masterClip);
    ReportAudioChain(effects, chain, ExportIssue::EffectNotTranslatedHeadless);
    ReportAudioEffects(
        effects, chain,
        {.loss = RemarkKind::MasterClipEffect, .isWritten = written, .isReported = true});
}

void ReportSecondMaster(ExportContext& context, const LocatedMaster& master, bool written)
{
    ReportVideoEffects(context, RemarkKind::SecondClipEffect, master.location,
                       VideoChainOfMaster(master.masterClip));
    ReportAudioEffects(ContextOfAudio(context, master), AudioChainOfMaster(master.masterClip),
                       {.loss = RemarkKind::MasterClipEffect, .isWritten = written});
}

void ReportVideoEffects(ExportContext& context, RemarkKind kind, const ItemLocation& location,
                        ConstHandle chain)
{
    for (const ConstHandle component : ComponentsOf(chain))
        AddRemark(context.account, kind, location, SubjectOf(component));
}

} // namespace XPJ::RVX
