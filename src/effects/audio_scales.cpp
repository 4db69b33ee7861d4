#include "effects/audio_scales.h"

#include <algorithm>
#include <cmath>

namespace XPJ {

namespace {

constexpr double kHighestLevel = 3.98109;
constexpr double kSilence = -96.0;
constexpr double kLoudest = 96.0;
constexpr double kLowestGain = 1e-5; // below -96 dB

// The scale of a frequency is that of half the sample rate.
constexpr double kLowestFrequency = 0.00041666600736789405;
constexpr double kFrequencyRange = 0.9900000095367432;
constexpr double kLowestQ = 1.0;
constexpr double kHighestQ = 20.0;

double Decibels(double factor)
{
    const auto decibels = static_cast<float>(20 * std::log10(factor));
    return std::clamp(static_cast<double>(decibels), kSilence, kLoudest);
}

} // namespace

double AudioValueToXmeml(AudioScale scale, double value, double sampleRate)
{
    switch (scale) {
    case AudioScale::None:
        break;
    case AudioScale::Volume:
        return LevelOfVolume(value);
    case AudioScale::VolumeInDecibels:
        return DecibelsOfVolume(value);
    case AudioScale::Pan:
        return PanOfProject(value);
    case AudioScale::Frequency:
        return std::clamp(FrequencyOfScale(value, sampleRate), 0.0, 20000.0);
    case AudioScale::Q:
        return std::clamp(QOfScale(value), 0.7071, 20.0);
    }
    return value;
}

double LevelOfVolume(double volume)
{
    return std::clamp(2 * volume, 0.0, kHighestLevel);
}

double DecibelsOfVolume(double volume)
{
    return volume <= 0 ? kSilence : Decibels(2 * volume);
}

double LevelOfFader(double volume)
{
    return std::clamp(volume / kFaderFactor, 0.0, kHighestLevel);
}

double DecibelsOfGain(double gain)
{
    return gain < kLowestGain ? kSilence : Decibels(gain);
}

double PanOfProject(double pan)
{
    return std::clamp(2 * (pan - 0.5), -1.0, 1.0);
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

double FrequencyOfScale(double scaled, double sampleRate)
{
    return (scaled * scaled * kFrequencyRange + kLowestFrequency) * sampleRate / 2;
}

double QOfScale(double scaled)
{
    return scaled * scaled * (kHighestQ - kLowestQ) + kLowestQ;
}

} // namespace XPJ
