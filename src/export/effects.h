// What the translators of effects need of an export.
#pragma once

#include "effects/effect_context.h"
#include "export/export_context.h"

namespace XPJ::RVX {

// Issues are entered at `place`; keyframes count in `frameTicks`, 1 for ticks.
EffectContext EffectContextAt(ExportContext& context, const ItemPlace& place, Ticks frameTicks);

// The effects of the video of a master, on its `file`.
void TranslateMasterEffects(ExportContext& context, ObjectHandle masterClip, Ticks frameTicks,
                            ObjectHandle file);
// Reports the effects of a master's audio that documents have no term for. A `file` can't hold any
// effect of its audio.
void ReportMasterAudioEffects(ExportContext& context, ObjectHandle masterClip);

} // namespace XPJ::RVX
