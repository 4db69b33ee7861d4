#include "text/key_table.h"

#include "core/json.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace XPJ::GVE {

namespace {

// Also the order of the values in an entry of a style sheet.
constexpr Key<StyleParam> kStyleKeys[] = {
    {"mFontName", &StyleParam::fontName},
    {"mFontSize", &StyleParam::fontSize},
    {"mFillRed", &StyleParam::fillRed},
    {"mFillGreen", &StyleParam::fillGreen},
    {"mFillBlue", &StyleParam::fillBlue},
    {"mFillVisible", &StyleParam::fillVisible},
    {"mStrokeRed", &StyleParam::strokeRed},
    {"mStrokeGreen", &StyleParam::strokeGreen},
    {"mStrokeBlue", &StyleParam::strokeBlue},
    {"mStrokeVisible", &StyleParam::strokeVisible},
    {"mStrokeWidth", &StyleParam::strokeWidth},
    {"mKerning", &StyleParam::kerning},
    {"mTracking", &StyleParam::tracking},
    {"mTsumi", &StyleParam::tsumi},
    {"mBaselineShift", &StyleParam::baselineShift},
    {"mFillOverStroke", &StyleParam::fillOverStroke},
};

// A compact run has a color as one packed number. Read, never written.
constexpr struct {
    std::string_view name;
    Channel StyleParam::*red, StyleParam::*green, StyleParam::*blue;
} kPackedColors[] = {
    {"mFillColor", &StyleParam::fillRed, &StyleParam::fillGreen, &StyleParam::fillBlue},
    {"mStrokeColor", &StyleParam::strokeRed, &StyleParam::strokeGreen, &StyleParam::strokeBlue},
};

constexpr std::string_view kText = "mText";
constexpr std::string_view kStyle = "mStyleParam";
constexpr std::string_view kStyleValues = "mParamValues";

// Channels beside a packed color win: a writer of both would have computed it from them.
void ReadStyle(const Json& object, StyleParam& style)
{
    for (const auto& color : kPackedColors) {
        const Json* const json = Find(object, color.name);
        if (!json || !json->is_number())
            continue;
        PackedColor packed;
        ReadValue(*json, packed);
        style.*color.red = {(packed.value & 0xff) / 255.0};
        style.*color.green = {(packed.value >> 8 & 0xff) / 255.0};
        style.*color.blue = {(packed.value >> 16 & 0xff) / 255.0};
    }
    ReadKeys<StyleParam>(object, kStyleKeys, style);
}

// Levels around a value where a run is written: root, envelope, parameters, runs, run and style.
// The compact style has one fewer.
constexpr int kMaxValueDepth = kMaxDepth - 6;

int Depth(const Json& json)
{
    if (!json.is_structured())
        return 0;
    int depth = 0;
    for (const Json& item : json)
        depth = std::max(depth, Depth(item));
    return depth + 1;
}

StyleParam StyleOfValues(const Json& values)
{
    StyleParam style;
    const std::size_t count = std::min(values.size(), std::size(kStyleKeys));
    for (std::size_t i = 0; i < count; ++i)
        std::visit([&](auto member) { ReadValue(values[i], style.*member); }, kStyleKeys[i].member);
    return style;
}

template <class Items, class Append>
void AppendArray(const Items& items, std::string& json, Append append)
{
    json += '[';
    bool first = true;
    for (const auto& item : items) {
        if (!first)
            json += ',';
        first = false;
        append(item);
    }
    json += ']';
}

// The whole number nearest to zero, or the end of the range.
template <class Integer>
Integer ToInteger(const Json& json)
{
    constexpr Integer kLow = std::numeric_limits<Integer>::min();
    constexpr Integer kHigh = std::numeric_limits<Integer>::max();
    const auto number = json.get<double>();
    if (!(number > kLow))
        return kLow;
    return number < kHigh ? static_cast<Integer>(number) : kHigh;
}

} // namespace

const Json* Find(const Json& object, std::string_view name)
{
    if (!object.is_object())
        return nullptr;
    const auto found = object.find(name);
    return found == object.end() ? nullptr : &*found;
}

void ReadValue(const Json& json, int& value)
{
    if (json.is_number())
        value = ToInteger<int>(json);
}

void ReadValue(const Json& json, double& value)
{
    if (json.is_number())
        value = json.get<double>();
}

void ReadValue(const Json& json, bool& value)
{
    if (json.is_boolean())
        value = json.get<bool>();
}

void ReadValue(const Json& json, std::string& value)
{
    if (json.is_string())
        value = json.get_ref<const std::string&>();
}

void ReadValue(const Json& json, Channel& value)
{
    if (!json.is_number())
        return;
    const auto number = json.get<double>();
    value.value = std::clamp(number > 1 ? number / 255 : number, 0.0, 1.0);
}

void ReadValue(const Json& json, PackedColor& value)
{
    if (json.is_number())
        value.value = ToInteger<std::uint32_t>(json);
}

void ReadValue(const Json& json, AnyValue& value)
{
    if (Depth(json) <= kMaxValueDepth)
        value.json = JsonText(json);
}

// The keys of the style are under a key of their own, or beside the text.
void ReadValue(const Json& json, TextRun& value)
{
    if (const Json* const text = Find(json, kText))
        ReadValue(*text, value.text);
    ReadStyle(json, value.style);
    if (const Json* const style = Find(json, kStyle))
        ReadStyle(*style, value.style);
}

void ReadValue(const Json& json, std::vector<TextRun>& value)
{
    if (!json.is_array())
        return;
    for (const Json& item : json)
        if (item.is_object())
            ReadValue(item, value.emplace_back());
}

void ReadValue(const Json& json, std::vector<StyleParam>& value)
{
    if (!json.is_array())
        return;
    for (const Json& item : json) {
        const Json* const values = Find(item, kStyleValues);
        if (values && values->is_array())
            value.push_back(StyleOfValues(*values));
    }
}

void AppendName(std::string_view name, std::string& json)
{
    json += fmt::format("\"{}\":", name);
}

void AppendValue(int value, std::string& json)
{
    json += fmt::format("{}", value);
}

void AppendValue(double value, std::string& json)
{
    AppendReal(value, json);
}

void AppendValue(bool value, std::string& json)
{
    json += value ? "true" : "false";
}

void AppendValue(const std::string& value, std::string& json)
{
    AppendString(value, json);
}

void AppendValue(const Channel& value, std::string& json)
{
    AppendReal(value.value, json);
}

void AppendValue(const PackedColor& value, std::string& json)
{
    json += fmt::format("{}", value.value);
}

void AppendValue(const AnyValue& value, std::string& json)
{
    json += value.json;
}

void AppendValue(const TextRun& value, std::string& json)
{
    json += '{';
    AppendName(kText, json);
    AppendString(value.text, json);
    json += ',';
    AppendName(kStyle, json);
    AppendKeys<StyleParam>(value.style, kStyleKeys, json);
    json += '}';
}

void AppendValue(const std::vector<TextRun>& value, std::string& json)
{
    AppendArray(value, json, [&](const TextRun& run) { AppendValue(run, json); });
}

void AppendValue(const std::vector<StyleParam>& value, std::string& json)
{
    AppendArray(value, json, [&](const StyleParam& style) {
        json += '{';
        AppendName(kStyleValues, json);
        AppendArray(kStyleKeys, json, [&](const Key<StyleParam>& key) {
            std::visit([&](auto member) { AppendValue(style.*member, json); }, key.member);
        });
        json += '}';
    });
}

} // namespace XPJ::GVE
