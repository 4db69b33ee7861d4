#include "effects/audio_scales.h"

#include "effects/audio_filters.h"

#include <algorithm>
#include <cmath>

namespace XPJ::RVX {

namespace {

constexpr double kHighestLevel = 3.98109;
constexpr double kFaderFactor = 0.5023749777071104; // the fader's top, 2, is the highest level
constexpr double kSilence = -96.0;
constexpr double kLoudest = 96.0;
constexpr double kLowestGain = 1e-5; // below -96 dB

double Decibels(double factor)
{
    const auto decibels = static_cast<float>(20 * std::log10(factor));
    return std::clamp(static_cast<double>(decibels), kSilence, kLoudest);
}

} // namespace

double LevelOfVolume(double volume)
{
    return std::clamp(2 * volume, 0.0, kHighestLevel);
}

double LevelOfFader(double volume)
{
    return std::clamp(volume / kFaderFactor, 0.0, kHighestLevel);
}

double DecibelsOfGain(double gain)
{
    return gain < kLowestGain ? kSilence : Decibels(gain);
}

double DecibelsOfVolume(double volume)
{
    return volume <= 0 ? kSilence : Decibels(2 * volume);
}

double PanOfProject(double pan)
{
    return std::clamp(2 * (pan - 0.5), -1.0, 1.0);
}

double CutoffOfScale(double scaled, double sampleRate)
{
    return std::clamp(FrequencyOfScale(scaled, sampleRate), 0.0, 20000.0);
}

double ResonanceOfScale(double scaled)
{
    return std::clamp(QOfScale(scaled), 0.7071, 20.0);
}

} // namespace XPJ::RVX
