// Fader and meter of an audio track or of the master track.
#pragma once

#include "core/ticks.h"
#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

struct FaderForm {
    int channelType = 0; // 0 mono, 1 stereo, 2 5.1, 3 adaptive
    int channels = 1;
    Ticks sampleTicks = kSampleTicks48k;
};

// A new AudioComponentChain whose fader is at rest and not muted: a mute is the track's own.
ObjectHandle MakeFaderChain(Document& document, const FaderForm& form);

// Moves the fader of a chain as the level filter of `owner` says, a `track` or the `audio` of a
// sequence. Other filters of an owner act on nothing that a fader has.
void ApplyFaderLevel(const EffectContext& context, ObjectHandle owner, ObjectHandle chain);

} // namespace XPJ
