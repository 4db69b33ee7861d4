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
#pragma once

namespace XPJ {

enum class AudioScale { None, Volume, VolumeInDecibels, Pan, Frequency, Q };

// `sampleRate` is in samples a second.
double AudioValueToXmeml(AudioScale scale, double value, double sampleRate);

// ---- Volume

double LevelOfVolume(double volume);
double DecibelsOfVolume(double volume);
double LevelOfFader(double volume);
// From -96 on, in single precision.
double DecibelsOfGain(double gain);

inline constexpr double kFaderTop = 2.0;
// From a level to a fader: the highest level is the top of the fader.
inline constexpr double kFaderFactor = 0.5023749777071104;

double PanOfProject(double pan);

// ---- Filters. `frequency` is in hertz.
//   FrequencyScale(0, 48000) == 0, QScale(20) == 1

double FrequencyScale(double frequency, double sampleRate);
double QScale(double q);
double FrequencyOfScale(double scaled, double sampleRate);
double QOfScale(double scaled);

} // namespace XPJ
