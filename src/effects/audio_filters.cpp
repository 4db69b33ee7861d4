#include "effects/audio_filters.h"

#include "effects/effect_elements.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace XPJ {

namespace {

using K = ParamKind;
using enum Outcome;

constexpr AudioParamRow Bypass(std::string_view neutral = {})
{
    return {.param = {.kind = K::AudioBypass, .name = "Bypass", .neutral = neutral}};
}

constexpr AudioParamRow kLevelParams[] = {
    Bypass("false 0"),
    {.param = {.kind = K::Audio,
               .name = "Level",
               .value = "0.5",
               .xmeml = {"level", "Level", "0", "3.98109", "", "1"},
               .neutral = "0.5"},
     .scale = AudioScale::Volume,
     .units = "dB"},
};
// An import takes its value as a factor like that of a level, although it is named for decibels.
constexpr AudioParamRow kGainParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Level",
               .value = "0.5",
               .xmeml = {"Gain(dB)", "Gain(dB)", "-96", "96", "", "0"}},
     .scale = AudioScale::VolumeInDecibels,
     .units = "dB"},
};
constexpr AudioParamRow kPassParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Cutoff",
               .xmeml = {"Frequency", "Frequency", "0", "20000"}},
     .scale = AudioScale::Frequency,
     .units = "Hz",
     .specifier = "0:0:0"},
};
constexpr AudioParamRow kBandParams[] = {
    Bypass(),
    {.param = {.kind = K::Audio,
               .name = "Center",
               .xmeml = {"Frequency", "Frequency", "0", "20000"}},
     .scale = AudioScale::Frequency,
     .units = "Hz",
     .specifier = "0:0:0"},
    {.param = {.kind = K::Audio, .name = "Q", .xmeml = {"Q", "Q", "0.7071", "20"}},
     .scale = AudioScale::Q,
     .specifier = "1:0:0"},
};
constexpr AudioParamRow kPanParams[] = {
    {.param = {.kind = K::Audio,
               .name = "Pan",
               .xmeml = {"pan", "Pan", "-1", "1", "", "0"},
               .neutral = "0.5"},
     .scale = AudioScale::Pan},
};
constexpr AudioParamRow kFaderParams[] = {
    {.param = {.kind = K::Audio, .name = "Volume", .xmeml = {.id = "level"}}},
};

constexpr std::string_view kStatesFrequency = "its frequency is stated";

constexpr AudioFilterRow kAudioFilters[] = {
    {.xmeml = {"audiolevels", "Audio Levels", "audiolevels", "audiolevels", "audio"},
     .project = {{"Internal Volume Mono", "Internal Volume Stereo", "Internal Volume 5.1"}},
     .name = "Volume",
     .params = kLevelParams,
     .note = "levels above 6 dB are lowered to 6 dB",
     .exported = AudioExport::Ordinary},
    {.xmeml = {"{61756678, 4761696e, 4b657947}", "Gain", "", "filter", "audio"},
     .project = {{"Internal Volume Mono", "Internal Volume Stereo", "Internal Volume 5.1"}},
     .name = "Volume",
     .params = kGainParams,
     .onlyWhen = "its gain is stated",
     .note = "its decibels count as a factor",
     .outcome = Approximated,
     .exported = AudioExport::HandOff},
    {.xmeml = {"{61756678, 4c506173, 4b657947}", "Low Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Lowpass Mono", "Internal Lowpass Stereo", "Internal Lowpass 5.1"}},
     .name = "Low Pass",
     .params = kPassParams,
     .onlyWhen = kStatesFrequency,
     .note = "its Q is lost",
     .refusal = ImportIssue::InvalidLowPassFilterParameters},
    {.xmeml = {"{61756678, 48506173, 4b657947}", "High Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Highpass Mono", "Internal Highpass Stereo", "Internal Highpass 5.1"}},
     .name = "High Pass",
     .params = kPassParams,
     .onlyWhen = kStatesFrequency,
     .note = "its Q is lost",
     .refusal = ImportIssue::InvalidHighPassFilterParameters},
    {.xmeml = {"{61756678, 42506173, 4b657947}", "Band Pass Filter", "", "filter", "audio"},
     .project = {{"Internal Bandpass Mono", "Internal Bandpass Stereo", "Internal Bandpass 5.1"}},
     .name = "Band Pass",
     .params = kBandParams,
     .onlyWhen = "its frequency and its Q are stated",
     .refusal = ImportIssue::InvalidBandPassFilterParameters},
    {.xmeml = {"audiopan", "Audio Pan", "audiopan", "audiopan", "audio"},
     .name = "Pan",
     .params = kPanParams,
     .onlyWhen = "the clip is mono and its track stereo"},
    {.xmeml = {"audiolevels", "Audio Levels", "audiolevels", "audiolevels", "audio"},
     .params = kFaderParams,
     .note = "of tracks and of the sequence; their other filters are dropped",
     .isOfTrack = true},
};

// ---- Values

constexpr double kHighestLevel = 3.98109;
constexpr double kSilence = -96.0;
constexpr double kLoudest = 96.0;
constexpr double kLowestGain = 1e-5; // below -96 dB

// The scale of a frequency is that of half the sample rate.
constexpr double kLowestFrequency = 0.00041666600736789405;
constexpr double kFrequencyRange = 0.9900000095367432;

double Decibels(double factor)
{
    const auto decibels = static_cast<float>(20 * std::log10(factor));
    return std::clamp(static_cast<double>(decibels), kSilence, kLoudest);
}

double DecibelsOfVolume(double volume)
{
    return volume <= 0 ? kSilence : Decibels(2 * volume);
}

double PanOfProject(double pan)
{
    return 2 * (pan - 0.5);
}

double FrequencyOfScale(double scaled, double sampleRate)
{
    return (scaled * scaled * kFrequencyRange + kLowestFrequency) * sampleRate / 2;
}

double QOfScale(double scaled)
{
    return scaled * scaled * (kHighestQ - kLowestQ) + kLowestQ;
}

// What the parameters of documents state as their range.
struct Range {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
};

Range RangeOf(AudioScale scale)
{
    switch (scale) {
    case AudioScale::None:
        break;
    case AudioScale::Volume:
        return {0, kHighestLevel};
    case AudioScale::VolumeInDecibels:
        return {kSilence, kLoudest};
    case AudioScale::Pan:
        return {-1, 1};
    case AudioScale::Frequency:
        return {0, 20000};
    case AudioScale::Q:
        return {0.7071, 20};
    }
    return {};
}

double UnclampedValue(AudioScale scale, double value, double sampleRate)
{
    switch (scale) {
    case AudioScale::None:
        break;
    case AudioScale::Volume:
        return 2 * value;
    case AudioScale::VolumeInDecibels:
        return DecibelsOfVolume(value);
    case AudioScale::Pan:
        return PanOfProject(value);
    case AudioScale::Frequency:
        return FrequencyOfScale(value, sampleRate);
    case AudioScale::Q:
        return QOfScale(value);
    }
    return value;
}

} // namespace

const AudioFilterRow& kAudioLevels = kAudioFilters[0];
const AudioFilterRow& kAudioGain = kAudioFilters[1];
const AudioFilterRow& kAudioPan = kAudioFilters[5];

std::span<const AudioFilterRow> AudioFilters()
{
    return kAudioFilters;
}

const AudioFilterRow* FindAudioFilter(std::string_view effectId)
{
    if (effectId.empty())
        return nullptr;
    const auto* const row = std::ranges::find(
        kAudioFilters, effectId, [](const AudioFilterRow& filter) { return filter.xmeml.id; });
    return row != std::end(kAudioFilters) ? row : nullptr;
}

std::string_view AudioEffectId(ConstHandle effect)
{
    if (HasValue(effect, "effectid"))
        return effect.GetProperty("effectid");
    const auto* const row =
        std::ranges::find(kAudioFilters, effect.GetProperty("name"),
                          [](const AudioFilterRow& filter) { return filter.xmeml.name; });
    return row != std::end(kAudioFilters) ? row->xmeml.id : std::string_view();
}

ConstHandle FindAudioEffect(ConstHandle owner, std::string_view effectId)
{
    ConstHandle found;
    ForEachEffect(owner, [&](ConstHandle effect) {
        if (!found && AudioEffectId(effect) == effectId)
            found = effect;
    });
    return found;
}

double AudioValueToXmeml(AudioScale scale, double value, double sampleRate)
{
    const Range range = RangeOf(scale);
    return std::clamp(UnclampedValue(scale, value, sampleRate), range.low, range.high);
}

bool IsBeyondRange(AudioScale scale, double value, double sampleRate)
{
    constexpr double kNoise = 1e-4;
    const Range range = RangeOf(scale);
    const double unclamped = UnclampedValue(scale, value, sampleRate);
    return unclamped < range.low - kNoise || unclamped > range.high * (1 + kNoise);
}

double LevelOfVolume(double volume)
{
    return AudioValueToXmeml(AudioScale::Volume, volume, 0);
}

double LevelOfFader(double volume)
{
    return std::clamp(volume / kFaderFactor, 0.0, kHighestLevel);
}

double DecibelsOfGain(double gain)
{
    return gain < kLowestGain ? kSilence : Decibels(gain);
}

double FrequencyScale(double frequency, double sampleRate)
{
    const double scaled = (2 * frequency / sampleRate - kLowestFrequency) / kFrequencyRange;
    return std::sqrt(std::clamp(scaled, 0.0, 1.0));
}

double QScale(double q)
{
    return std::sqrt((std::clamp(q, kLowestQ, kHighestQ) - kLowestQ) / (kHighestQ - kLowestQ));
}

} // namespace XPJ
