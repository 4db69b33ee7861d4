#include "core/video_formats.h"

#include <charconv>
#include <cstdint>
#include <system_error>

namespace XPJ {

namespace {

constexpr std::string_view kSquareName = "square";
constexpr std::string_view kSquareRatio = "1,1";

// Whether a name is written, or only known from other writers.
enum class Use : std::uint8_t { Known, Written };

struct AspectRow {
    std::string_view name;
    std::string_view ratio;
    std::string_view anamorphicRatio;
    Use use = Use::Known;
    int frameHeights[2] = {}; // for which it is written; 0: for any
};

// The first row counts, in both directions.
constexpr AspectRow kAspects[] = {
    {"HD-(1280x1080)", "1920,1280", "1920,1280", Use::Written},
    {"NTSC-601", "10,11", "40,33", Use::Written},
    {"PAL-601", "768,702", "1024,702", Use::Written},
    {"HD-(960x720)", "1280,960", "1280,960", Use::Written, {720, 960}},
    {"HD-(1440x1080)", "1920,1440", "1920,1440", Use::Written},
    {"NTSC-CCIR-601", "10,11", "40,33"},
    {"PAL-CCIR-601", "768,702", "1024,702"},
    {"square", kSquareRatio, kSquareRatio},
    {"Square", kSquareRatio, kSquareRatio},
    {"DVCPROHD-720P", "1280,960", "1280,960"},
    {"DVCPROHD-1080i60", "1920,1280", "1920,1280"},
    {"DVCPROHD-1080i50", "1920,1440", "1920,1440"},
};

struct Ratio {
    std::int64_t width = 0; // 0: no ratio
    std::int64_t height = 0;

    bool IsSameAs(const Ratio& other) const { return width * other.height == height * other.width; }
};

// 0 unless the whole text is a number above 0, of 32 bits so that products stay in range.
std::int64_t ReadPart(std::string_view text)
{
    const char* const end = text.data() + text.size();
    std::int32_t part = 0;
    const auto read = std::from_chars(text.data(), end, part);
    return read.ec == std::errc() && read.ptr == end && part > 0 ? part : 0;
}

Ratio ReadRatio(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma == text.npos)
        return {};
    return {ReadPart(text.substr(0, comma)), ReadPart(text.substr(comma + 1))};
}

bool IsWrittenAt(const AspectRow& row, int frameHeight)
{
    return row.use == Use::Written &&
           (row.frameHeights[0] == 0 || row.frameHeights[0] == frameHeight ||
            row.frameHeights[1] == frameHeight);
}

struct FieldRow {
    std::string_view type;
    std::string_view dominance;
};

constexpr FieldRow kNoFields = {"0", "none"};
constexpr FieldRow kUpperFirst = {"1", "upper"};
constexpr FieldRow kLowerFirst = {"2", "lower"};

} // namespace

PixelAspect PixelAspectName(std::string_view ratio, int frameHeight)
{
    const Ratio stated = ReadRatio(ratio);
    if (stated.width == 0 || stated.height == 0)
        return {kSquareName};
    for (const AspectRow& row : kAspects) {
        if (!IsWrittenAt(row, frameHeight))
            continue;
        if (stated.IsSameAs(ReadRatio(row.ratio)))
            return {row.name};
        if (stated.IsSameAs(ReadRatio(row.anamorphicRatio)))
            return {row.name, true};
    }
    return {kSquareName};
}

std::string_view PixelAspectRatio(const PixelAspect& aspect)
{
    for (const AspectRow& row : kAspects)
        if (row.name == aspect.name)
            return aspect.anamorphic ? row.anamorphicRatio : row.ratio;
    return kSquareRatio;
}

// A project knows no third order: what is neither of the first two has its lower field first.
std::string_view FieldDominanceOf(std::string_view fieldType)
{
    if (fieldType == kNoFields.type)
        return kNoFields.dominance;
    return fieldType == kUpperFirst.type ? kUpperFirst.dominance : kLowerFirst.dominance;
}

std::string_view FieldTypeOfDominance(std::string_view fieldDominance)
{
    for (const FieldRow& row : {kUpperFirst, kLowerFirst})
        if (row.dominance == fieldDominance)
            return row.type;
    return kNoFields.type;
}

} // namespace XPJ
