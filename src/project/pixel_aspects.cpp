#include "project/pixel_aspects.h"

namespace XPJ {

namespace {

constexpr PixelAspectRow kPixelAspects[] = {
    {"NTSC-601", "10,11", "40,33"},
    {"NTSC-CCIR-601", "10,11", "40,33"},
    {"PAL-601", "768,702", "1024,702"},
    {"PAL-CCIR-601", "768,702", "1024,702"},
    {"square", "1,1", "1,1"},
    {"Square", "1,1", "1,1"},
    {"DVCPROHD-720P", "1280,960", "1280,960"},
    {"HD-(960x720)", "1280,960", "1280,960"},
    {"DVCPROHD-1080i60", "1920,1280", "1920,1280"},
    {"HD-(1280x1080)", "1920,1280", "1920,1280"},
    {"DVCPROHD-1080i50", "1920,1440", "1920,1440"},
    {"HD-(1440x1080)", "1920,1440", "1920,1440"},
};

} // namespace

std::span<const PixelAspectRow> PixelAspects()
{
    return kPixelAspects;
}

std::string_view FieldTypeOf(std::string_view fieldDominance)
{
    return fieldDominance == "upper" ? "1" : fieldDominance == "lower" ? "2" : "0";
}

} // namespace XPJ
