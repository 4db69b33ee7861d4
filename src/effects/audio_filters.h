// The audio effects that projects know, a row each. Documents name them by the `effectid` of their
// `effect`, projects by a match name for each channel type.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <span>
#include <string_view>

namespace XPJ {

// ---- Rows

enum class AudioScale { None, Volume, VolumeInDecibels, Pan, Frequency, Q };

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
    std::string_view onlyWhen = {};             // as of an EffectRow
    std::string_view note = {};
    Outcome outcome = Outcome::CarriedOver;
    ImportIssue refusal = ImportIssue::EffectNotTranslated; // of an effect that lacks a parameter
    AudioExport exported = AudioExport::Always;
    bool isOfTrack = false; // a fader, not an effect of a clip

    bool IsInChain() const { return !project.names[0].empty(); }
};

// In the order of the list of effects.
std::span<const AudioFilterRow> AudioFilters();

// The row of an `effectid`; null for an empty or an unknown one.
const AudioFilterRow* FindAudioFilter(std::string_view effectId);

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

// ---- Values

// How the values of audio parameters count in the two documents.
//
//            project                                       document
//   volume   0.5 leaves the audio as it is, 1 doubles it   a factor, to 3.98109 (12 dB); decibels
//   fader    1 leaves it as it is, 2 is the top            a factor, to 3.98109
//   pan      0 left, 1 right                               -1 left, 1 right
//   cutoff   0 to 1 of the host's slider                   hertz
//   Q        0 to 1 of the host's slider                   Q
//
// All functions take any number, infinite ones included; the values of documents stay within the
// bounds that their parameters state.

// `sampleRate` is in samples a second.
double AudioValueToXmeml(AudioScale scale, double value, double sampleRate);
// True for a value of which a document takes the nearest in its range.
bool IsBeyondRange(AudioScale scale, double value, double sampleRate);

double LevelOfVolume(double volume);
double LevelOfFader(double volume);
// From -96 on, in single precision.
double DecibelsOfGain(double gain);

inline constexpr double kLowestQ = 1.0;
inline constexpr double kHighestQ = 20.0;

inline constexpr double kFaderTop = 2.0;
// From a level to a fader: the highest level is the top of the fader.
inline constexpr double kFaderFactor = 0.5023749777071104;

// To the scales of a project; `frequency` is in hertz.
//   FrequencyScale(0, 48000) == 0, QScale(20) == 1
double FrequencyScale(double frequency, double sampleRate);
double QScale(double q);

} // namespace XPJ
