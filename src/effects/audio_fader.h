// Fader and meter of an audio track or of the master track.
#pragma once

#include "core/ticks.h"
#include "effects/effect_context.h"
#include "tree/object.h"

namespace XPJ {

struct FaderFormat {
    int channelType = 0; // 0 mono, 1 stereo, 2 5.1, 3 adaptive
    int channels = 1;
    Ticks sampleTicks = kSampleTicks48k;
};

// A new AudioComponentChain whose fader is neutral and not muted: a mute is a field of the track.
ObjectHandle MakeFaderChain(Document& document, const FaderFormat& format);

// Moves the fader of a chain by the level filter of `owner`, a `track` or the `audio` of a
// sequence. Other filters of an owner act on nothing that a fader has.
void ApplyFaderLevel(const EffectContext& context, ConstHandle owner, ObjectHandle chain);

// On the filters of `owner` beside its level, which are not translated.
void RemarkOnTrackFilters(const EffectContext& context, ConstHandle owner);

// The filters of `owner` beside its level, as further components of a chain with a fader.
void AddTrackFilters(const EffectContext& context, ConstHandle owner, ObjectHandle chain);

// Puts the volume of a fader on a `track` or `audio`, unless it is neutral.
void FaderToXmeml(Document& document, ConstHandle volume, ObjectHandle owner);

// The same with the keyframes of the volume, and with the filters of the chain around the fader. A
// fader before filters is written also when it is neutral: the first level of an owner is its
// fader's.
void TrackEffectsToXmeml(const EffectContext& context, ConstHandle chain, ConstHandle volume,
                         ObjectHandle owner);

} // namespace XPJ
