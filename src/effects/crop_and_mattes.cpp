#include "effects/crop_and_mattes.h"

#include "effects/parameters.h"
#include "effects/values.h"

#include <span>

namespace XPJ::RVX {

namespace {

constexpr EffectHead kCrop = {"Crop", "crop", "motion", "motion"};

// clang-format off
constexpr NumberRow kCropSides[] = {
    {"1", "left",   "Left",   "0", "100"},
    {"3", "right",  "Right",  "0", "100"},
    {"2", "top",    "Top",    "0", "100"},
    {"4", "bottom", "Bottom", "0", "100"},
};
// clang-format on

constexpr EffectHead kFourPointMatte = {"Four-Point Garbage Matte", "Four-Point Garbage Matte",
                                        "Matte", "filter"};
constexpr EffectHead kEightPointMatte = {"Eight-Point Garbage Matte", "Eight-Point Garbage Matte",
                                         "Matte", "filter"};
constexpr std::size_t kFourPoints = 4;
constexpr PointRow kCorners[] = {
    {"1", "p0", "Point 1"}, {"2", "p1", "Point 2"}, {"3", "p2", "Point 3"}, {"4", "p3", "Point 4"},
    {"5", "p4", "Point 5"}, {"6", "p5", "Point 6"}, {"7", "p6", "Point 7"}, {"8", "p7", "Point 8"},
};

void AddCorners(const EffectSource& source, std::span<const PointRow> corners, ObjectHandle effect)
{
    for (const PointRow& corner : corners)
        AddPoint(source, corner, effect);
}

// A side keeps all the digits that the project has; one that is no number is written as 0.
bool IsNumberText(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("+-.0123456789eE") == text.npos;
}

} // namespace

void ExportCrop(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kCrop, effect);
    for (const NumberRow& side : kCropSides) {
        const ObjectHandle parameter = AddNumber(source, side, effect);
        if (const std::string_view text = StartText(source.Param(side.param)); IsNumberText(text))
            parameter.SetProperty("value", text);
    }
}

void ExportFourPointMatte(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kFourPointMatte, effect);
    AddCorners(source, std::span(kCorners).first(kFourPoints), effect);
}

void ExportEightPointMatte(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kEightPointMatte, effect);
    AddCorners(source, kCorners, effect);
}

} // namespace XPJ::RVX
