// The audio effects that projects know, a row each. Documents name them by the `effectid` of their
// `effect`, projects by a match name for each channel type.
#pragma once

#include "effects/audio_scales.h"
#include "effects/effect_row.h"
#include "tree/object.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

// ---- Rows

struct AudioParamRow {
    ParamRow param;
    AudioScale scale = AudioScale::None; // None: documents do not have it
    std::string_view units = {};
    std::string_view specifier = {}; // by which some editors name it instead of a `parameterid`
};

// Match names of mono, stereo and 5.1. Adaptive clips use those of mono.
struct AudioMatchNames {
    std::string_view names[3] = {};

    constexpr std::string_view Of(int channelType) const
    {
        return channelType == 1 || channelType == 2 ? names[channelType] : names[0];
    }
    // What the names of all channel types begin with.
    constexpr std::string_view Stem() const { return names[0].substr(0, names[0].rfind(' ')); }
};

// In which documents an export writes the effect.
enum class AudioExport { Always, Ordinary, HandOff };

struct AudioFilterRow {
    XmemlEffect xmeml;
    AudioMatchNames project = {};               // empty: not a part of a chain
    std::string_view name = {};                 // for people
    std::span<const AudioParamRow> params = {}; // in the order of the component
    std::string_view note = {};
    Outcome outcome = Outcome::CarriedOver;
    ImportIssue refusal = ImportIssue::EffectNotTranslated; // of an effect that lacks a parameter
    AudioExport exported = AudioExport::Always;
    bool isOfTrack = false; // a fader, not an effect of a clip
};

// In the order of the list of effects.
std::span<const AudioFilterRow> AudioFilters();

// The effect of documents for the volume of a clip, a track or a sequence.
extern const AudioFilterRow& kAudioLevels;
// The gain of a clip, in decibels.
extern const AudioFilterRow& kAudioGain;
// The pan of a clip, which is held by its panner.
extern const AudioFilterRow& kAudioPan;

// ---- Effects of documents

// The `effectid` of an audio effect; of one that states none that which belongs to its name, if
// that is known.
std::string_view AudioEffectId(ConstHandle effect);
// The first active effect of an owner that has the id; null without one.
ConstHandle FindAudioEffect(ConstHandle owner, std::string_view effectId);

// ---- To a project

// What the audio of an item is, beside what the context states of the item.
struct ItemAudio {
    int channelType = 0;          // 0 mono, 1 stereo, 2 5.1, 3 adaptive
    std::int64_t delayFrames = 0; // `mediadelay` of the item, with which its levels move
    bool stereoSource = false;    // its file holds stereo
};

// The AudioFilterComponent of a volume that changes nothing.
ObjectHandle MakeNeutralVolume(const EffectContext& context, const ItemAudio& audio);

// The AudioFilterComponent of one `effect`. Null for what is not translated or lacks a parameter,
// which is reported, and for what is not a part of a chain, such as the pan.
ObjectHandle TranslateAudioFilter(const EffectContext& context, const ItemAudio& audio,
                                  ConstHandle effect);

// ---- To `xmeml`. Keyframes count in `frameTicks` of the context.

// True for the chain of a track that has more than fader and meter.
bool HasAudioFilters(ConstHandle chain);

// Puts a `filter` on `element` for every component of a clip's chain; what documents have no term
// for is reported.
void AudioChainToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element);
// The same for the chain of a track, without its fader and its meter.
void TrackFiltersToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element);

// Reports the components that documents have no term for, for a chain that can't be written.
void ReportAudioChain(const EffectContext& context, ConstHandle chain, ExportIssue kind);

// The `Gain` of a clip that states one: a `filter` even where the gain changes nothing; its effect
// is then without a name. Bars and tone have a gain of their own, which projects do not state.
void GainToXmeml(const EffectContext& context, ConstHandle clip, bool isBarsAndTone,
                 ObjectHandle element);

// Attaches the `parameter` of a row, with value and keyframes of a project's parameter; nothing for
// one without a value, unless the row has one.
void AddAudioParameter(const EffectContext& context, const AudioParamRow& row, ConstHandle param,
                       ObjectHandle effect);

} // namespace XPJ
