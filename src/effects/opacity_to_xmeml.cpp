#include "effects/opacity_to_xmeml.h"

#include "effects/parameters.h"

namespace XPJ::RVX {

namespace {

constexpr EffectHead kOpacityEffect = {"Opacity", "opacity", "motion", "motion"};
constexpr NumberRow kOpacity = {"1", "opacity", "opacity", "0", "100", 100};

constexpr std::string_view kBlendMode = "2";
constexpr int kNormal = 18;

struct CompositeMode {
    int blendMode;
    std::string_view name;
};

constexpr CompositeMode kCompositeModes[] = {
    {3, "darken"},    {5, "difference"}, {8, "hardlight"}, {11, "lighten"},   {14, "add"},
    {17, "multiply"}, {19, "texturize"}, {22, "screen"},   {23, "softlight"},
};

} // namespace

void ExportOpacity(const EffectSource& source, ObjectHandle item)
{
    const ObjectHandle effect = AddFilter(source.document, kOpacityEffect, item);
    WriteSwitches(source.component, effect);
    AddNumber(source, kOpacity, effect);
}

std::optional<std::string_view> CompositeModeOf(const EffectSource& source)
{
    const int mode = StartInteger(source.Param(kBlendMode), kNormal);
    if (mode == kNormal)
        return std::nullopt;
    for (const CompositeMode& row : kCompositeModes)
        if (row.blendMode == mode)
            return row.name;
    return "";
}

} // namespace XPJ::RVX
