// What the translators of effects need of an export.
#pragma once

#include "effects/effect_context.h"
#include "export/track_context.h"

#include <string_view>

namespace XPJ::RVX {

// Of an item or a transition on the track. Keyframes count in `frameTicks`, 1 for ticks.
EffectContext EffectContextOf(ExportContext& context, const TrackContext& track, TrackItem item,
                              std::string_view clipName, Ticks frameTicks);

// The effects of the video of a master, on its `file`.
void TranslateMasterEffects(ExportContext& context, MasterClip masterClip, Ticks frameTicks,
                            ObjectHandle file);
// The effects of the audio of a master that documents have a term for, on an item of its clip.
void TranslateMasterAudioEffects(ExportContext& context, MasterClip masterClip, Ticks frameTicks,
                                 ObjectHandle item);
// Reports the effects of a master's audio that documents have no term for. A `file` can't hold any
// effect of its audio.
void ReportMasterAudioEffects(ExportContext& context, MasterClip masterClip);

} // namespace XPJ::RVX
