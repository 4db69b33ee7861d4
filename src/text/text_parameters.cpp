#include "text/text_parameters.h"

#include <cmath>

namespace XPJ::GVE {

namespace {

constexpr std::string_view kAlignmentNames[] = {
    "Left Align",         "Right Align",         "Center Align", "Justify Last Left",
    "Justify Last Right", "Justify Last Center", "Justify All",
};
static_assert(std::size(kAlignmentNames) == kAlignments);

std::uint32_t Byte(Channel channel)
{
    return static_cast<std::uint32_t>(std::lround(channel.value * 255));
}

PackedColor Pack(Channel red, Channel green, Channel blue)
{
    return {Byte(blue) << 16 | Byte(green) << 8 | Byte(red)};
}

} // namespace

PackedColor FillColor(const StyleParam& style)
{
    return Pack(style.fillRed, style.fillGreen, style.fillBlue);
}

PackedColor StrokeColor(const StyleParam& style)
{
    return Pack(style.strokeRed, style.strokeGreen, style.strokeBlue);
}

std::string_view AlignmentName(int alignment) noexcept
{
    return alignment >= 0 && alignment < kAlignments ? kAlignmentNames[alignment]
                                                     : std::string_view();
}

} // namespace XPJ::GVE
