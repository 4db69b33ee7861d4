#include "effects/keys_and_blur.h"

#include "effects/parameters.h"

#include <algorithm>
#include <cmath>

namespace XPJ::RVX {

namespace {

// 0..100 of a project on the bent scale of -100..100 of a document.
double LumaThreshold(double percent)
{
    constexpr double kBend = 0.75;
    return std::pow(std::max(percent, 0.0) / 100, kBend) * 200 - 100;
}

constexpr EffectHead kLumaKey = {"Luma Key", "Luma Key", "Key", "filter"};
// The mode in which the key takes a threshold and a tolerance.
constexpr ParameterFields kKeyMode = {"keymode", "Key Mode", "1", "4", "4"};
constexpr NumberRow kThreshold = {"1", "threshold", "Threshold", "-100", "100", 0, LumaThreshold};
constexpr NumberRow kCutoff = {"2", "tolerance", "Tolerance", "0", "100"};

constexpr EffectHead kGaussianBlur = {"Gaussian Blur", "Gaussian Blur", "Blur", "motion"};
constexpr NumberRow kBlurriness = {"1", "radius", "Radius", "0", "100", 1};
// All channels alike, as projects blur.
constexpr ParameterFields kChannel = {.id = "channel", .name = "Channel", .value = "1"};

} // namespace

void ExportLumaKey(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kLumaKey, effect);
    AddParameter(source.document, effect, kKeyMode);
    AddNumber(source, kThreshold, effect);
    AddNumber(source, kCutoff, effect);
}

void ExportGaussianBlur(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kGaussianBlur, effect);
    AddNumber(source, kBlurriness, effect);
    AddParameter(source.document, effect, kChannel);
}

} // namespace XPJ::RVX
