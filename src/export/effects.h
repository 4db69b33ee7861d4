// What the translators of effects need of an export.
#pragma once

#include "effects/effect_context.h"
#include "export/track_context.h"

#include <string_view>

namespace XPJ::RVX {

// Of an item or a transition on the track. Keyframes count in `frameTicks`, 1 for ticks.
EffectContext EffectContextOf(ExportContext& context, const TrackContext& track, TrackItem item,
                              std::string_view clipName, Ticks frameTicks);

// A master whose effects are written, and its location for issues and remarks.
struct LocatedMaster {
    MasterClip masterClip;
    ItemLocation location;
    Ticks frameTicks = kNtscFrameTicks; // the unit of its keyframes
};

// The effects of the video of a master, on its `file`.
void TranslateMasterEffects(ExportContext& context, const LocatedMaster& master, ObjectHandle file);
// The effects of the audio of a master that documents have a term for, on an item of its clip.
// Remarks about them are entered with the first channel.
void TranslateMasterAudioEffects(ExportContext& context, const LocatedMaster& master, int channel,
                                 ObjectHandle item);
// Reports the effects of a master's audio that documents have no term for, and the others unless
// they are `written` on the items of its clip. A `file` can't hold any effect of its audio.
void ReportMasterAudioEffects(ExportContext& context, const LocatedMaster& master, bool written);
// Reports that media has the effects of another master, so that those of this one are lost; of
// audio those that aren't `written` on the items of its clip.
void ReportSecondMaster(ExportContext& context, const LocatedMaster& master, bool written);

// A remark for each component of a chain of video.
void ReportVideoEffects(ExportContext& context, RemarkKind kind, const ItemLocation& location,
                        ConstHandle chain);

} // namespace XPJ::RVX
