// The filters of generated items: rows of parameters, and keyframes where a filter is animated.
#include "bench/elements.h"

#include <fmt/format.h>

#include <span>

namespace XPJ::Bench {

namespace {

struct Parameter {
    std::string_view id;
    std::string_view name;
    std::string_view low;
    std::string_view high;
    std::string_view value; // "x:y" is a point
    bool canMove = false;   // takes keyframes in an animated filter
};

struct Effect {
    std::string_view id;
    std::string_view name;
    std::string_view category;
    std::string_view type;
    std::span<const Parameter> parameters;
};

// id, name, low, high, value, can move
constexpr Parameter kMotion[] = {
    {"scale", "Scale", "0", "1000", "104.5", true},
    {"rotation", "Rotation", "-8640", "8640", "0"},
    {"center", "Center", "", "", "0.0125:-0.03", true},
    {"centerOffset", "Anchor Point", "", "", "0:0"},
};
constexpr Parameter kCrop[] = {
    {"left", "left", "0", "100", "0"},
    {"right", "right", "0", "100", "0"},
    {"top", "top", "0", "100", "12.5"},
    {"bottom", "bottom", "0", "100", "12.5"},
    {"edgefeather", "Edge Feather", "0", "100", "0"},
};
constexpr Parameter kOpacity[] = {{"opacity", "opacity", "0", "100", "85", true}};
constexpr Parameter kBlur[] = {
    {"amount", "Radius", "0", "100", "4", true},
    {"channels", "Channel", "1", "6", "1"},
};
constexpr Parameter kSpeed[] = {
    {"variablespeed", "variablespeed", "0", "1", "0"},
    {"speed", "speed", "-100000", "100000", "50"},
    {"reverse", "reverse", "", "", "FALSE"},
    {"frameblending", "frameblending", "", "", "TRUE"},
};
constexpr Parameter kLevels[] = {{"level", "Level", "0", "3.98109", "0.707946", true}};
constexpr Parameter kPan[] = {{"pan", "Pan", "-1", "1", "-1"}};

struct WeightedEffect {
    int oneIn;
    Effect effect;
};

constexpr WeightedEffect kVideoEffects[] = {
    {3, {"basic", "Basic Motion", "motion", "motion", kMotion}},
    {12, {"crop", "Crop", "motion", "motion", kCrop}},
    {6, {"opacity", "Opacity", "motion", "motion", kOpacity}},
    {10, {"Gaussian Blur", "Gaussian Blur", "Blur", "filter", kBlur}},
    {24, {"timeremap", "Time Remap", "motion", "motion", kSpeed}},
};
constexpr Effect kLevelsEffect = {"audiolevels", "Audio Levels", "audiolevels", "audiolevels",
                                  kLevels};
constexpr Effect kPanEffect = {"audiopan", "Audio Pan", "audiopan", "audiopan", kPan};

void WriteValue(XmlText& xml, std::string_view value)
{
    const std::size_t colon = value.find(':');
    if (colon == std::string_view::npos) {
        xml.Leaf("value", value);
        return;
    }
    xml.Block("value", [&] {
        xml.Leaf("horiz", value.substr(0, colon));
        xml.Leaf("vert", value.substr(colon + 1));
    });
}

void WriteKeyframes(XmlText& xml, Dice& dice, const Parameter& parameter, int duration)
{
    const int count = dice.Between(2, 4);
    for (int i = 0; i < count; ++i)
        xml.Block("keyframe", [&] {
            xml.Leaf("when", duration / 4 + i * 12);
            if (parameter.value.find(':') != std::string_view::npos)
                WriteValue(xml,
                           fmt::format("0.{:04}:-0.{:04}", dice.Below(5000), dice.Below(5000)));
            else
                xml.Leaf("value", fmt::format("{}.{:03}", dice.Below(2), dice.Below(1000)));
            xml.Block("interpolation", [&] { xml.Leaf("name", "FCPCurve"); });
        });
}

void WriteFilter(XmlText& xml, Dice& dice, const Effect& effect, bool isVideo, bool isAnimated,
                 int duration)
{
    xml.Block("filter", [&] {
        xml.Flag("enabled", true);
        xml.Leaf("start", -1);
        xml.Leaf("end", -1);
        xml.Block("effect", [&] {
            xml.Leaf("name", effect.name);
            xml.Leaf("effectid", effect.id);
            xml.Leaf("effectcategory", effect.category);
            xml.Leaf("effecttype", effect.type);
            xml.Leaf("mediatype", isVideo ? "video" : "audio");
            for (const Parameter& parameter : effect.parameters)
                xml.Block("parameter", [&] {
                    xml.Leaf("parameterid", parameter.id);
                    xml.Leaf("name", parameter.name);
                    if (!parameter.low.empty()) {
                        xml.Leaf("valuemin", parameter.low);
                        xml.Leaf("valuemax", parameter.high);
                    }
                    WriteValue(xml, parameter.value);
                    if (isAnimated && parameter.canMove)
                        WriteKeyframes(xml, dice, parameter, duration);
                });
        });
    });
}

} // namespace

void WriteVideoFilters(XmlText& xml, Dice& dice, int duration)
{
    for (const WeightedEffect& row : kVideoEffects)
        if (dice.OneIn(row.oneIn))
            WriteFilter(xml, dice, row.effect, true, dice.OneIn(3), duration);
}

void WriteAudioFilters(XmlText& xml, Dice& dice, int duration, int channel)
{
    if (dice.OneIn(4))
        WriteFilter(xml, dice, kLevelsEffect, false, dice.OneIn(2), duration);
    if (channel == 1 && dice.OneIn(4))
        WriteFilter(xml, dice, kPanEffect, false, false, duration);
}

void WriteTitle(XmlText& xml, const Rate& rate, std::string_view text, int start, int end)
{
    const Parameter parameters[] = {
        {"str", "Text", "", "", text},
        {"fontname", "Font", "", "", "Lucida Grande"},
        {"fontsize", "Size", "0", "1000", "36"},
        {"fontstyle", "Style", "1", "4", "1"},
        {"fontalign", "Alignment", "1", "3", "2"},
        {"origin", "Origin", "", "", "0:0.35"},
    };
    const int longest = 120 * rate.timebase; // what a generator offers
    xml.Block("generatoritem", [&] {
        xml.Leaf("name", "Text");
        xml.Leaf("duration", longest);
        WriteRate(xml, rate);
        xml.Leaf("in", 0);
        xml.Leaf("out", end - start);
        xml.Leaf("start", start);
        xml.Leaf("end", end);
        xml.Flag("enabled", true);
        xml.Flag("anamorphic", false);
        xml.Leaf("alphatype", "black");
        xml.Block("effect", [&] {
            xml.Leaf("name", "Text");
            xml.Leaf("effectid", "Text");
            xml.Leaf("effectcategory", "Text");
            xml.Leaf("effecttype", "generator");
            xml.Leaf("mediatype", "video");
            for (const Parameter& parameter : parameters)
                xml.Block("parameter", [&] {
                    xml.Leaf("parameterid", parameter.id);
                    xml.Leaf("name", parameter.name);
                    WriteValue(xml, parameter.value);
                });
        });
        WriteSourceTrack(xml, true, 1);
    });
}

} // namespace XPJ::Bench
