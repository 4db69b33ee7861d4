// The sound filters that projects know, told by the `effectid` of their `effect`.
#pragma once

#include "effects/effect_context.h"
#include "tree/object.h"

#include <cstdint>
#include <string_view>

namespace XPJ {

// `effectid` of the level of a clip, a track or a sequence's sound, and of the pan of a clip.
inline constexpr std::string_view kAudioLevels = "audiolevels";
inline constexpr std::string_view kAudioPan = "audiopan";

// The `effectid` of a sound effect; of one that states none that which goes with its name, if that
// is known.
std::string_view AudioEffectId(ObjectHandle effect);
// The first active effect of an owner that has the id; null without one.
ObjectHandle FindAudioEffect(ObjectHandle owner, std::string_view effectId);

// What an item's sound is, beside what the context tells of the item.
struct ItemSound {
    int channelType = 0;          // 0 mono, 1 stereo, 2 5.1, 3 adaptive
    std::int64_t delayFrames = 0; // `mediadelay` of the item, with which its levels move
    bool stereoSource = false;    // its file holds stereo
};

// The AudioFilterComponent of a volume that changes nothing.
ObjectHandle MakeNeutralVolume(const EffectContext& context, const ItemSound& sound);

// The AudioFilterComponent of one `effect`. Null for what is not translated or lacks a parameter,
// which is reported, and for what is no part of a chain, such as the pan.
ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemSound& sound,
                                  ObjectHandle effect);

// Scales of cutoff and centre frequencies and of resonance, as the sliders of the host have them.
// `frequency` is in hertz, `sampleRate` in samples a second.
//   FrequencyScale(0, 48000) == 0, QScale(20) == 1
double FrequencyScale(double frequency, double sampleRate);
double QScale(double q);
// The way back. Scales are 0 to 1, but any number is taken.
double FrequencyOfScale(double scaled, double sampleRate);
double QOfScale(double scaled);

} // namespace XPJ
