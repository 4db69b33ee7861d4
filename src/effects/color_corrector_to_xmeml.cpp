#include "effects/color_corrector_to_xmeml.h"

#include "effects/parameters.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace XPJ::RVX {

namespace {

constexpr EffectHead kHead = {"Color Corrector 3-way", "Color Corrector 3-way", "Color Correction",
                              "filter"};

// From fractions of the project's range.
double Magnitude(double x)
{
    return x * x * 200;
}
double BlackLevel(double x)
{
    return std::clamp(x * 450 - 196 + 110.5, -196.0, 254.0);
}
double MidLevel(double x)
{
    return std::clamp(x * 200 + 62, 0.0, 200.0);
}
double HighlightLevel(double x)
{
    return std::clamp(x * 445 + 64 + 106.45, 64.0, 509.0);
}
double Saturation(double x)
{
    return x * 200;
}
// From degrees.
double Hue(double angle)
{
    return std::fmod(angle, 180) - 33;
}

// The range of a project's values; one of no extent means that the value is taken as it is.
struct Range {
    double low = 0;
    double high = 0;
};
constexpr Range kGain = {1, 100};
constexpr Range kPercent = {0, 100};
constexpr Range kDoublePercent = {0, 200};
constexpr Range kDegrees = {};

struct CorrectorRow {
    std::string_view param; // `ParameterID`; empty for a parameter that is always the same
    ParameterFields fields;
    double missing = 0;
    Range range = {};
    double (*map)(double) = nullptr;
};

constexpr CorrectorRow Label(std::string_view id, std::string_view name)
{
    return {"", {.id = id, .name = name}};
}

constexpr CorrectorRow Switch(std::string_view id, std::string_view name)
{
    return {"", {.id = id, .name = name, .value = "FALSE"}};
}

// In the order of the document.
// clang-format off
constexpr CorrectorRow kRows[] = {
    Label("label1", "Blacks Controls"),
    {"26", {"blacklevel",  "Level",      "-196", "254"}, 20,  kGain,          BlackLevel},
    {"27", {"b_hue",       "Angle",      "-180", "180"}, 0,   kDegrees,       Hue},
    {"25", {"b_mag",       "Magnitude",  "0",    "200"}, 0,   kPercent,       Magnitude},
    Label("label2", "Midrange Controls"),
    {"30", {"mids",        "Level",      "0",    "200"}, 20,  kGain,          MidLevel},
    {"31", {"m_hue",       "Angle",      "-180", "180"}, 0,   kDegrees,       Hue},
    {"29", {"m_mag",       "Magnitude",  "0",    "200"}, 0,   kPercent,       Magnitude},
    Label("label3", "Highlight Controls"),
    {"34", {"highlights",  "Level",      "64",   "509"}, 20,  kGain,          HighlightLevel},
    {"35", {"h_hue",       "Angle",      "-180", "180"}, 0,   kDegrees,       Hue},
    {"33", {"h_mag",       "Magnitude",  "0",    "200"}, 0,   kPercent,       Magnitude},
    Label("label4", "Color Controls"),
    {"37", {"chroma",      "Saturation", "0",    "200"}, 100, kDoublePercent, Saturation},
    Label("label5", "Limit Effect Controls"),
    Switch("dochroma", "Limit on Chroma"),
    {"",   {"centerang",   "Chroma Center",   "-760", "760", "-110"}},
    {"",   {"chromawidth", "Chroma Width",    "0",    "360", "15"}},
    {"",   {"chromasoft",  "Chroma Softness", "0",    "180", "10"}},
    Switch("dosat", "Limit on Saturation"),
    {"",   {"satmin",      "Sat. Minimum",    "0",    "125", "35"}},
    {"",   {"satwidth",    "Sat. Width",      "0",    "125", "40"}},
    {"",   {"satsoft",     "Sat. Softness",   "0",    "125", "20"}},
    Switch("doluma", "Limit on Luma"),
    {"",   {"lumamin",     "Luma Minimum",    "0",    "120", "0"}},
    {"",   {"lumawidth",   "Luma Width",      "0",    "120", "40"}},
    {"",   {"lumasoft",    "Luma Softness",   "0",    "120", "20"}},
    Label("label6", "Edge Control"),
    {"",   {"edgethin",    "Thin/Spread",     "-100", "100", "0"}},
    {"",   {"edgefeather", "Softening",       "0",    "100", "0"}},
    Label("label7", "Mask Control"),
    Switch("invertsel", "Invert"),
    Switch("debugshow", "Show Stats"),
};
// clang-format on

constexpr ParameterFields kDisplayMode = {"dispmode", "Display Mode", "0", "3", "0"};
constexpr struct {
    std::string_view name;
    std::string_view value;
} kDisplayModes[] = {{"Final", "0"}, {"Matte", "2"}, {"Source", "3"}};

double Fraction(double value, const Range& range)
{
    return range.low == range.high
               ? value
               : std::clamp((value - range.low) / (range.high - range.low), 0.0, 1.0);
}

void AddDisplayMode(Document& document, ObjectHandle effect)
{
    const ObjectHandle list = document.NewObject("valuelist");
    for (const auto& mode : kDisplayModes) {
        const ObjectHandle entry = document.NewObject("valueentry");
        entry.SetPropertyShared("name", mode.name);
        entry.SetPropertyShared("value", mode.value);
        list.AddChild(entry);
    }
    AddParameter(document, effect, kDisplayMode).AddChild(list);
}

} // namespace

void ExportColorCorrector(const EffectSource& source, ObjectHandle effect)
{
    WriteEffectHead(kHead, effect);
    AddDisplayMode(source.document, effect);
    for (const CorrectorRow& row : kRows) {
        const ObjectHandle parameter = AddParameter(source.document, effect, row.fields);
        if (!row.map)
            continue;
        const double value = StartNumber(source.Param(row.param), row.missing);
        parameter.SetProperty("value", NumberText(row.map(Fraction(value, row.range))));
    }
}

} // namespace XPJ::RVX
