// Values of sound as documents state them, made from the project's. They take any number, infinite
// ones included, and stay within the bounds that their parameters state.
#pragma once

namespace XPJ::RVX {

// Factors: a volume of 0.5 leaves the sound as it is, a level of 1 does, and 3.98109 is 12 dB.
double LevelOfVolume(double volume);
// Of the fader of a track, which is at rest at 1.
double LevelOfFader(double volume);

// In single precision, from -96 on.
double DecibelsOfGain(double gain);
double DecibelsOfVolume(double volume);

// From -1, left, to 1, right; the project has 0 to 1.
double PanOfProject(double pan);

// Hertz and resonance of a filter, from the scales of the host's sliders.
double CutoffOfScale(double scaled, double sampleRate);
double ResonanceOfScale(double scaled);

} // namespace XPJ::RVX
