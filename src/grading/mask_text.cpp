// A point with eleven constant values is written with its numbers at their shortest; one that is
// animated in any of them keeps every value as it was read.
#include "grading/mask_text.h"

#include "core/text.h"
#include "grading/element_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <span>
#include <utility>

namespace XPJ {

namespace {

constexpr std::size_t kIndentStep = 2;
constexpr std::string_view kFieldTags[] = {"name",    "width",     "height",  "activecontour",
                                           "feather", "roundness", "midpoint"};
constexpr std::string_view kContourTags[] = {"positive", "nextset"};
constexpr std::string_view kWrapperTags[] = {"mask", "shadermask", "data"};

enum class PointValue { Pair, Number, Switch };

struct PointRow {
    std::string_view missing; // empty: the point is incomplete without it
    PointValue kind;
    bool isQuoted = true;
};

// In the order of `kMaskPointTags`.
constexpr PointRow kPointRows[] = {
    {"", PointValue::Pair},                          // inner
    {"", PointValue::Pair},                          // innerprevtangent
    {"", PointValue::Pair},                          // innernexttangent
    {"catmull-rom,value:1@0", PointValue::Number},   // falloffexponent
    {"catmull-rom,value:1@0", PointValue::Number},   // falloffweight
    {"linear,value:0@0", PointValue::Switch, false}, // detached
    {"", PointValue::Pair},                          // outer
    {"", PointValue::Pair},                          // outerprevtangent
    {"", PointValue::Pair},                          // outernexttangent
    {"linear,value:1@0", PointValue::Switch},        // spline
    {"linear,value:1@0", PointValue::Switch},        // smooth
};
static_assert(std::size(kPointRows) == kMaskPointTags.size());

constexpr std::string_view kCurve = "catmull-rom,value:";
constexpr std::string_view kLine = "linear,value:";
constexpr std::string_view kAtZero = "@0";

// The tag as the table spells it; empty if the table doesn't have it.
template <typename Tags>
std::string_view FindTag(const Tags& tags, std::string_view tag)
{
    const auto found = std::ranges::find_if(
        tags, [tag](std::string_view known) { return EqualsIgnoreCase(known, tag); });
    return found == std::end(tags) ? std::string_view() : *found;
}

// ---- Animation strings

// A text that is one finite number and nothing else.
template <typename Number>
std::optional<Number> ParseNumber(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(static_cast<double>(value)) ? std::optional(value)
                                                                : std::nullopt;
}

using Pair = std::pair<double, double>;

std::optional<Pair> ParsePair(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma == text.npos)
        return {};
    const std::optional<double> x = ParseNumber<double>(Trimmed(text.substr(0, comma)));
    const std::optional<double> y = ParseNumber<double>(Trimmed(text.substr(comma + 1)));
    return x && y ? std::optional(Pair(*x, *y)) : std::nullopt;
}

// The values of the first key: "linear,value:1,2@0;3,4@1" has "1,2".
std::string_view FirstKey(std::string_view animation)
{
    const std::string_view values = animation.substr(animation.find(':') + 1);
    return Trimmed(values.substr(0, values.find_first_of("@;")));
}

// The text between the two; nothing if either is missing.
std::optional<std::string_view> Between(std::string_view prefix, std::string_view text,
                                        std::string_view suffix)
{
    if (text.size() < prefix.size() + suffix.size() || !text.starts_with(prefix) ||
        !text.ends_with(suffix))
        return {};
    text.remove_prefix(prefix.size());
    text.remove_suffix(suffix.size());
    return text;
}

// The text of a constant value; nothing for an animated one.
std::optional<std::string> FixedText(PointValue kind, std::string_view animation)
{
    const bool isSwitch = kind == PointValue::Switch;
    const auto values = Between(isSwitch ? kLine : kCurve, animation, kAtZero);
    if (!values)
        return {};
    switch (kind) {
    case PointValue::Pair:
        if (const auto pair = ParsePair(*values))
            return fmt::format("{}{:g},{:g}{}", kCurve, pair->first, pair->second, kAtZero);
        break;
    case PointValue::Number:
        if (const auto number = ParseNumber<double>(*values))
            return fmt::format("{}{:g}{}", kCurve, *number, kAtZero);
        break;
    case PointValue::Switch:
        if (const auto number = ParseNumber<int>(*values))
            return fmt::format("{}{}{}", kLine, *number, kAtZero);
        break;
    }
    return {};
}

// ---- Reading

CWidget ReadPoint(CZvXMLFile& file)
{
    CWidget point;
    ReadElement(file, [&](std::string_view tag) {
        for (std::size_t i = 0; i < kMaskPointTags.size(); ++i)
            if (EqualsIgnoreCase(tag, kMaskPointTags[i])) {
                point.values[i] = ReadText(file);
                return true;
            }
        return false;
    });
    for (std::size_t i = 0; i < point.values.size(); ++i) {
        if (kPointRows[i].kind == PointValue::Pair && !ParsePair(FirstKey(point.values[i])))
            file.Fail(LookMessage::IncompleteMaskPointDefinition);
        if (point.values[i].empty())
            point.values[i] = kPointRows[i].missing;
    }
    return point;
}

CContour ReadContour(CZvXMLFile& file)
{
    CContour contour;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "point"))
            contour.points.push_back(ReadPoint(file));
        else if (const std::string_view field = FindTag(kContourTags, tag); !field.empty())
            SetText(contour.fields, field, ReadText(file));
        else
            return false;
        return true;
    });
    return contour;
}

void ReadMaskInto(CZvXMLFile& file, CZvShadingMask& mask)
{
    std::string ownName;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "contour"))
            mask.contours.push_back(ReadContour(file));
        else if (!FindTag(kWrapperTags, tag).empty())
            ReadMaskInto(file, mask);
        else if (EqualsIgnoreCase(tag, "name"))
            ownName = ReadText(file);
        else if (const std::string_view field = FindTag(kFieldTags, tag); !field.empty())
            SetText(mask.fields, field, ReadText(file));
        else
            return false;
        return true;
    });
    if (!ownName.empty())
        SetText(mask.fields, "name", std::move(ownName));
}

// ---- Writing

void WriteFields(ElementWriter& writer, std::size_t indent, std::span<const std::string_view> tags,
                 const CZvValues& fields)
{
    for (const std::string_view tag : tags)
        if (const std::string* text = FindText(fields, tag))
            writer.Quoted(indent, tag, *text);
}

// Nothing if any value is animated.
std::optional<CWidget> FixedPoint(const CWidget& point)
{
    CWidget fixed;
    for (std::size_t i = 0; i < point.values.size(); ++i) {
        std::optional<std::string> text = FixedText(kPointRows[i].kind, point.values[i]);
        if (!text)
            return {};
        fixed.values[i] = std::move(*text);
    }
    return fixed;
}

void WritePoint(ElementWriter& writer, std::size_t indent, const CWidget& point)
{
    const std::optional<CWidget> fixed = FixedPoint(point);
    const CWidget& written = fixed ? *fixed : point;
    writer.Open(indent, "point");
    for (std::size_t i = 0; i < written.values.size(); ++i)
        if (fixed && !kPointRows[i].isQuoted)
            writer.Bare(indent + kIndentStep, kMaskPointTags[i], written.values[i]);
        else
            writer.Quoted(indent + kIndentStep, kMaskPointTags[i], written.values[i]);
    writer.Close(indent, "point");
}

void WriteContour(ElementWriter& writer, std::size_t indent, const CContour& contour)
{
    writer.Open(indent, "contour");
    WriteFields(writer, indent + kIndentStep, kContourTags, contour.fields);
    for (const CWidget& point : contour.points)
        WritePoint(writer, indent + kIndentStep, point);
    writer.Close(indent, "contour");
}

} // namespace

std::string_view CZvShadingMask::Name() const
{
    const std::string* const name = FindText(fields, "name");
    return name ? std::string_view(*name) : std::string_view();
}

CZvShadingMask ReadMask(CZvXMLFile& file)
{
    CZvShadingMask mask;
    ReadMaskInto(file, mask);
    return mask;
}

void WriteMask(ElementWriter& writer, std::size_t indent, const CZvShadingMask& mask)
{
    writer.Open(indent, "Mask");
    WriteFields(writer, indent + kIndentStep, kFieldTags, mask.fields);
    for (const CContour& contour : mask.contours)
        WriteContour(writer, indent + kIndentStep, contour);
    writer.Close(indent, "Mask");
}

} // namespace XPJ
