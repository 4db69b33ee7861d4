#include "effects/color_corrector.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace XPJ {

namespace {

// Opaque grays of 0, 128 and 255.
constexpr std::string_view kBlack = "18374686479671623680";
constexpr std::string_view kGray = "18374827219307495424";
constexpr std::string_view kWhite = "18374966859414961920";

// Single precision 0.1 and 9.97, as the host writes them.
constexpr std::string_view kGrayLow = "0.100000001490116119384766";
constexpr std::string_view kGrayHigh = "9.97000026702880859375";

using K = ParamKind;

// ---- Open interchange: the two directions are inverses of each other
//
// A level moves its part of the tonal range, as a gain does. The lowest, the neutral and the
// highest value of the one correspond to those of the other, and what is between them in
// proportion:
//
//   gain          1     10.5    20     60    100
//   blacklevel   -196   -98     0     127    254
//
// A balance is an angle and a magnitude. The angles of the two have axes that are a quarter turn
// apart.

struct Scale {
    double low;
    double neutral;
    double high;
};

constexpr Scale kGain = {1, 20, 100};
constexpr Scale kBlacks = {-196, 0, 254};
constexpr Scale kMids = {0, 100, 200};
constexpr Scale kHighlights = {64, 255, 509};

double Convert(double value, const Scale& from, const Scale& to)
{
    const double inside = std::clamp(value, from.low, from.high);
    if (inside < from.neutral)
        return to.low + (inside - from.low) / (from.neutral - from.low) * (to.neutral - to.low);
    return to.neutral +
           (inside - from.neutral) / (from.high - from.neutral) * (to.high - to.neutral);
}

template <const Scale& levels>
double LevelOfGain(double gain)
{
    return Convert(gain, kGain, levels);
}

template <const Scale& levels>
double GainOfLevel(double level)
{
    return Convert(level, levels, kGain);
}

// 0 to 100 of a project, 0 to 200 of a document.
double SquareOfMagnitude(double magnitude)
{
    const double fraction = std::clamp(magnitude / 100, 0.0, 1.0);
    return fraction * fraction * 200;
}
double MagnitudeOfSquare(double square)
{
    return std::sqrt(std::clamp(square / 200, 0.0, 1.0)) * 100;
}

constexpr double kQuarterTurn = 90;

double HueOfAngle(double angle)
{
    return angle + kQuarterTurn;
}
double AngleOfHue(double hue)
{
    return hue - kQuarterTurn;
}

constexpr double kTurn = 360;

// The row of an angle without keyframes, which is within half a turn. Keyframes keep the turns over
// which they move.
ParamRow InHalfATurn(const ParamRow& angle)
{
    ParamRow row = angle;
    row.toXmeml = [](double value) { return std::remainder(HueOfAngle(value), kTurn); };
    row.fromXmeml = [](double hue) { return std::remainder(AngleOfHue(hue), kTurn); };
    return row;
}

bool IsStillAngle(const ParamRow& row, bool hasKeyframes)
{
    return row.fromXmeml == AngleOfHue && !hasKeyframes;
}

} // namespace

// clang-format off
constexpr ParamRow kColorCorrectorParams[kColorCorrectorParamCount] = {
    // kind             name                                 value   lower      upper
    {1,   K::Choice,        "Output",                            "0",    "0",       "3",     {}, 7},
    {2,   K::CheckBox,      " "},
    {3,   K::Choice,        "Layout",                            "0",    "0",       "1",     {}, 7},
    {4,   K::Slider,        "Split View Percent",                "50.",  "0.",      "100."},
    {5,   K::Color,        "Black Balance",                     kBlack},
    {6,   K::Color,        "Gray Balance",                      kGray},
    {7,   K::Color,        "White Balance",                     kWhite},
    {8,   K::Separator11,   "Tonal Range Definition"},
    {9,   K::Separator11,   "Tonal Range Definition"},
    {10,  K::Slider,        "Shadow Threshold",                  "64.",  "0.",      "255."},
    {11,  K::Slider,        "Shadow Softness",                   "10.",  "0.",      "255."},
    {12,  K::Slider,        "Highlight Threshold",               "192.", "0.",      "255."},
    {13,  K::Slider,        "Highlight Softness",                "10.",  "0.",      "255."},
    {14,  K::Separator12,   ""},
    {15,  K::Separator12,   ""},
    {16,  K::Choice,        "Tonal Range",                       "0",    "0",       "3",     {}, 7},
    {17,  K::Separator11,   "Master Hue Balance and Angle"},
    {18,  K::WideScalar,    "Master Hue Angle",                  "0."},
    {19,  K::Slider,        "Master Balance Magnitude",          "0.",   "0.",      "100."},
    {20,  K::Slider,        "Master Balance Gain",               "20.",  "1.",      "100."},
    {21,  K::WideScalar,    "Master Balance Angle",              "0."},
    {22,  K::Separator12,   ""},
    {23,  K::Separator11,   "Three-Way Hue Balance and Angle"},
    {24,  K::WideScalar,    "Shadow Hue Angle",                  "0."},
    {25,  K::Slider,        "Shadow Balance Magnitude",          "0.",   "0.",      "100.",  {"b_mag", "Magnitude", "0", "200"}, 0, false, SquareOfMagnitude, MagnitudeOfSquare},
    {26,  K::Slider,        "Shadow Balance Gain",               "20.",  "1.",      "100.",  {"blacklevel", "Level", "-196", "254"}, 0, false, LevelOfGain<kBlacks>, GainOfLevel<kBlacks>},
    {27,  K::WideScalar,    "Shadow Balance Angle",              "0.",   "",       "",  {"b_hue", "Angle", "-180", "180"}, 0, false, HueOfAngle, AngleOfHue},
    {28,  K::WideScalar,    "Midtone Hue Angle",                 "0."},
    {29,  K::Slider,        "Midtone Balance Magnitude",         "0.",   "0.",      "100.",  {"m_mag", "Magnitude", "0", "200"}, 0, false, SquareOfMagnitude, MagnitudeOfSquare},
    {30,  K::Slider,        "Midtone Balance Gain",              "20.",  "1.",      "100.",  {"mids", "Level", "0", "200"}, 0, false, LevelOfGain<kMids>, GainOfLevel<kMids>},
    {31,  K::WideScalar,    "Midtone Balance Angle",             "0.",   "",       "",  {"m_hue", "Angle", "-180", "180"}, 0, false, HueOfAngle, AngleOfHue},
    {32,  K::WideScalar,    "Highlight Hue Angle",               "0."},
    {33,  K::Slider,        "Highlight Balance Magnitude",       "0.",   "0.",      "100.",  {"h_mag", "Magnitude", "0", "200"}, 0, false, SquareOfMagnitude, MagnitudeOfSquare},
    {34,  K::Slider,        "Highlight Balance Gain",            "20.",  "1.",      "100.",  {"highlights", "Level", "64", "509"}, 0, false, LevelOfGain<kHighlights>, GainOfLevel<kHighlights>},
    {35,  K::WideScalar,    "Highlight Balance Angle",           "0.",   "",       "",  {"h_hue", "Angle", "-180", "180"}, 0, false, HueOfAngle, AngleOfHue},
    {36,  K::Separator12,   ""},
    {37,  K::Slider,        "Master Saturation",                 "100.", "0.",      "200.",  {"chroma", "Saturation", "0", "200"}, 0, false},
    {38,  K::Slider,        "Shadow Saturation",                 "100.", "0.",      "200."},
    {39,  K::Slider,        "Midtone Saturation",                "100.", "0.",      "200."},
    {40,  K::Slider,        "Highlight Saturation",              "100.", "0.",      "200."},
    {41,  K::Separator11,   " "},
    {42,  K::CheckBox16,    " "},
    {43,  K::CheckBox16,    " "},
    {44,  K::CheckBox16,    " "},
    {45,  K::Separator12,   ""},
    {46,  K::Separator11,   " "},
    {47,  K::CheckBox16,    " "},
    {48,  K::CheckBox16,    " "},
    {49,  K::CheckBox16,    " "},
    {50,  K::Separator12,   ""},
    {51,  K::Separator11,   " "},
    {52,  K::CheckBox16,    " "},
    {53,  K::CheckBox16,    " "},
    {54,  K::CheckBox16,    " "},
    {55,  K::Separator12,   ""},
    {56,  K::Separator11,   " "},
    {57,  K::CheckBox16,    " "},
    {58,  K::CheckBox16,    " "},
    {59,  K::CheckBox16,    " "},
    {60,  K::Separator12,   ""},
    {61,  K::Separator11,   " "},
    {62,  K::Color,        "Black Level",                       kBlack},
    {63,  K::Color,        "Gray Level",                        kGray},
    {64,  K::Color,        "White Level",                       kWhite},
    {65,  K::Slider,        "Master Input Black Level",          "0.",   "0.",      "253."},
    {66,  K::Slider,        "Master Input Gray Level",           "1.",   kGrayLow,  kGrayHigh},
    {67,  K::Slider,        "Master Input White Level",          "255.", "2.",      "255."},
    {68,  K::Slider,        "Master Output Black Level",         "0.",   "0.",      "255."},
    {69,  K::Slider,        "Master Output White Level",         "255.", "0.",      "255."},
    {70,  K::Separator12,   ""},
    {71,  K::Separator11,   " "},
    {72,  K::Color,        "Black Level",                       kBlack},
    {73,  K::Color,        "Gray Level",                        kGray},
    {74,  K::Color,        "White Level",                       kWhite},
    {75,  K::Slider,        "Shadow Input Black Level",          "0.",   "0.",      "253."},
    {76,  K::Slider,        "Shadow Input Gray Level",           "1.",   kGrayLow,  kGrayHigh},
    {77,  K::Slider,        "Shadow Input White Level",          "255.", "2.",      "255."},
    {78,  K::Slider,        "Shadow Output Black Level",         "0.",   "0.",      "255."},
    {79,  K::Slider,        "Shadow Output White Level",         "255.", "0.",      "255."},
    {80,  K::Separator12,   ""},
    {81,  K::Separator11,   " "},
    {82,  K::Color,        "Black Level",                       kBlack},
    {83,  K::Color,        "Gray Level",                        kGray},
    {84,  K::Color,        "White Level",                       kWhite},
    {85,  K::Slider,        "Midtone Input Black Level",         "0.",   "0.",      "253."},
    {86,  K::Slider,        "Midtone Input Gray Level",          "1.",   kGrayLow,  kGrayHigh},
    {87,  K::Slider,        "Midtone Input White Level",         "255.", "2.",      "255."},
    {88,  K::Slider,        "Midtone Output Black Level",        "0.",   "0.",      "255."},
    {89,  K::Slider,        "Midtone Output White Level",        "255.", "0.",      "255."},
    {90,  K::Separator12,   ""},
    {91,  K::Separator11,   " "},
    {92,  K::Color,        "Black Level",                       kBlack},
    {93,  K::Color,        "Gray Level",                        kGray},
    {94,  K::Color,        "White Level",                       kWhite},
    {95,  K::Slider,        "Highlight Input Black Level",       "0.",   "0.",      "253."},
    {96,  K::Slider,        "Highlight Input Gray Level",        "1.",   kGrayLow,  kGrayHigh},
    {97,  K::Slider,        "Highlight Input White Level",       "255.", "2.",      "255."},
    {98,  K::Slider,        "Highlight Output Black Level",      "0.",   "0.",      "255."},
    {99,  K::Slider,        "Highlight Output White Level",      "255.", "0.",      "255."},
    {100, K::Separator12,   ""},
    {101, K::Separator11,   "Secondary Color Correction"},
    {102, K::Separator11,   " "},
    {103, K::Separator11,   "Center"},
    {104, K::Separator12,   ""},
    {105, K::Separator11,   "Hue"},
    {106, K::Separator11,   "Hue"},
    {107, K::Slider,        " ",                                 "0.5",  "0.",      "1."},
    {108, K::Slider,        "Start Threshold",                   "0.",   "0.",      "100."},
    {109, K::Slider,        "Start Softness",                    "0.",   "0.",      "100."},
    {110, K::Slider,        "End Threshold",                     "0.",   "0.",      "100."},
    {111, K::Slider,        "End Softness",                      "0.",   "0.",      "100."},
    {112, K::Separator12,   ""},
    {113, K::Separator12,   ""},
    {114, K::Separator11,   "Saturation"},
    {115, K::Separator11,   "Saturation"},
    {116, K::Slider,        "Start Threshold",                   "0.",   "0.",      "100."},
    {117, K::Slider,        "Start Softness",                    "0.",   "0.",      "100."},
    {118, K::Slider,        "End Threshold",                     "0.",   "0.",      "100."},
    {119, K::Slider,        "End Softness",                      "0.",   "0.",      "100."},
    {120, K::Separator12,   ""},
    {121, K::Separator12,   ""},
    {122, K::Separator11,   "Luma"},
    {123, K::Separator11,   "Luma"},
    {124, K::Slider,        "Start Threshold",                   "0.",   "0.",      "100."},
    {125, K::Slider,        "Start Softness",                    "0.",   "0.",      "100."},
    {126, K::Slider,        "End Threshold",                     "0.",   "0.",      "100."},
    {127, K::Slider,        "End Softness",                      "0.",   "0.",      "100."},
    {128, K::Separator12,   ""},
    {129, K::Separator12,   ""},
    {130, K::Slider,        "Soften",                            "0.",   "0.",      "50."},
    {131, K::Slider,        "Edge Thinning",                     "0.",   "-100.",   "100."},
    {132, K::CheckBox,      "Invert Limit Color"},
    {133, K::Separator12,   ""},
    {134, K::Separator12,   ""},
};
// clang-format on

namespace {

// ---- To the letter, where the two directions are not inverses

// How a parameter of a document becomes that of a project.
enum class Rule {
    None,
    Linear, // its fraction, over the range of the row
    Root,   // the square root of its fraction, over the range of the row
    Angle,  // its degrees, a quarter turn back
};

// The other direction: from fractions of the project's range.
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

// A parameter in the order of documents: one of a project, or one that is always the same.
struct DocumentRow {
    int id = 0; // `ParameterID`
    Rule toProject = Rule::None;
    double (*toXmeml)(double) = nullptr;
    XmemlParam constant = {};
};

constexpr DocumentRow Constant(const XmemlParam& param)
{
    return {.constant = param};
}

constexpr DocumentRow Label(std::string_view id, std::string_view name)
{
    return Constant({.id = id, .name = name});
}

constexpr DocumentRow Switch(std::string_view id, std::string_view name)
{
    return Constant({.id = id, .name = name, .value = "FALSE"});
}

using enum Rule;

constexpr DocumentRow kDocumentRows[] = {
    Label("label1", "Blacks Controls"),
    {26, Linear, BlackLevel},
    {27, Angle, Hue},
    {25, Root, Magnitude},
    Label("label2", "Midrange Controls"),
    {30, Linear, MidLevel},
    {31, Angle, Hue},
    {29, Root, Magnitude},
    Label("label3", "Highlight Controls"),
    {34, Linear, HighlightLevel},
    {35, Angle, Hue},
    {33, Root, Magnitude},
    Label("label4", "Color Controls"),
    {37, Linear, Saturation},
    Label("label5", "Limit Effect Controls"),
    Switch("dochroma", "Limit on Chroma"),
    Constant({"centerang", "Chroma Center", "-760", "760", "-110"}),
    Constant({"chromawidth", "Chroma Width", "0", "360", "15"}),
    Constant({"chromasoft", "Chroma Softness", "0", "180", "10"}),
    Switch("dosat", "Limit on Saturation"),
    Constant({"satmin", "Sat. Minimum", "0", "125", "35"}),
    Constant({"satwidth", "Sat. Width", "0", "125", "40"}),
    Constant({"satsoft", "Sat. Softness", "0", "125", "20"}),
    Switch("doluma", "Limit on Luma"),
    Constant({"lumamin", "Luma Minimum", "0", "120", "0"}),
    Constant({"lumawidth", "Luma Width", "0", "120", "40"}),
    Constant({"lumasoft", "Luma Softness", "0", "120", "20"}),
    Label("label6", "Edge Control"),
    Constant({"edgethin", "Thin/Spread", "-100", "100", "0"}),
    Constant({"edgefeather", "Softening", "0", "100", "0"}),
    Label("label7", "Mask Control"),
    Switch("invertsel", "Invert"),
    Switch("debugshow", "Show Stats"),
};

constexpr XmemlParam kDisplayMode = {"dispmode", "Display Mode", "0", "3", "0"};
constexpr struct {
    std::string_view name;
    std::string_view value;
} kDisplayModes[] = {{"Final", "0"}, {"Matte", "2"}, {"Source", "3"}};

constexpr Rule RuleOf(int id)
{
    for (const DocumentRow& row : kDocumentRows)
        if (row.id == id)
            return row.toProject;
    return None;
}

// Ids count from 1, each group that is opened is closed, and every parameter that documents have
// has a rule.
constexpr bool RowsAreConsistent()
{
    int id = 0;
    int open = 0;
    for (const ParamRow& row : kColorCorrectorParams) {
        open += row.kind == K::Separator11 ? 1 : 0;
        open -= row.kind == K::Separator12 ? 1 : 0;
        if (row.id != ++id || open < 0 || row.xmeml.id.empty() != (RuleOf(row.id) == None))
            return false;
    }
    return open == 0;
}
static_assert(RowsAreConsistent());

// Of the maximum alone, not of the range, whatever the minimum is.
double FractionInDocument(ConstHandle parameter, std::string_view value)
{
    const double most = ParseDouble(parameter.GetProperty("valuemax"));
    const double least = ParseDouble(parameter.GetProperty("valuemin"));
    return most < 1 ? 0 : (ParseDouble(value) - least) / most;
}

// A row without bounds takes the value as it is.
double FractionInProject(const ParamRow& row, double value)
{
    const double low = ParseDouble(row.lower);
    const double high = ParseDouble(row.upper);
    return low == high ? value : std::clamp((value - low) / (high - low), 0.0, 1.0);
}

std::string Lerp(double x, const ParamRow& row)
{
    const double low = ParseDouble(row.lower);
    const double high = ParseDouble(row.upper);
    return NumberText(x * (high - low) + low);
}

// The row's value from `parameter`, which may be null. It may lie beyond the bounds.
std::string DerivedValue(const ParamRow& row, ConstHandle parameter)
{
    const std::string_view value = StaticValue(parameter, {});
    if (value.empty())
        return std::string(row.value);
    switch (RuleOf(row.id)) {
    case Linear:
        return Lerp(FractionInDocument(parameter, value), row);
    case Root:
        return Lerp(std::sqrt(std::max(0.0, FractionInDocument(parameter, value))), row);
    case Angle:
        return NumberText(ParseDouble(value) - kQuarterTurn);
    case None:
        break;
    }
    return std::string(row.value);
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
    AddParameter(document, kDisplayMode, kDisplayMode.value, effect).AddChild(list);
}

// In open interchange.
ObjectHandle MakeOpenParam(const EffectContext& context, const ParamRow& row, ConstHandle effect)
{
    const ConstHandle parameter = row.xmeml.id.empty() ? FindCarried(context, row, effect)
                                                       : FindParameter(effect, row.xmeml.id);
    const bool isStill = IsStillAngle(row, HasKeyframes(parameter));
    return MakeRowParam(context, isStill ? InHalfATurn(row) : row, parameter);
}

void AddOpenParameter(const EffectContext& context, const ParamRow& row, ConstHandle component,
                      ObjectHandle effect)
{
    const bool isStill = IsStillAngle(row, HasValue(ParamOfRow(component, row), "Keyframes"));
    AddRowParameter(context, isStill ? InHalfATurn(row) : row, component, effect);
}

void AddDocumentRow(const EffectContext& context, const DocumentRow& row, ConstHandle component,
                    ObjectHandle effect)
{
    Document& document = context.document;
    if (row.id == 0) {
        AddParameter(document, row.constant, row.constant.value, effect);
        return;
    }
    const ParamRow& param = kColorCorrectorParams[row.id - 1];
    if (context.openInterchange)
        return AddOpenParameter(context, param, component, effect);
    const double value = StartNumber(ParamOfRow(component, param), ParseDouble(param.value));
    AddParameter(document, param.xmeml, NumberText(row.toXmeml(FractionInProject(param, value))),
                 effect);
}

} // namespace

std::vector<XmemlParam> ColorCorrectorConstants()
{
    std::vector<XmemlParam> constants{kDisplayMode};
    for (const DocumentRow& row : kDocumentRows)
        if (row.id == 0)
            constants.push_back(row.constant);
    return constants;
}

bool ColorCorrectorToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                             Components& components)
{
    context.AddIssue(ImportIssue::ThreeWayApproximation, effect);
    const ObjectHandle component = MakeFilterComponent(context.document, row.project, effect);
    for (const ParamRow& param : kColorCorrectorParams) {
        if (context.openInterchange) {
            component.AddChild("Param", MakeOpenParam(context, param, effect));
            continue;
        }
        const ConstHandle parameter =
            param.xmeml.id.empty() ? ConstHandle() : FindParameter(effect, param.xmeml.id);
        component.AddChild("Param", MakeParam(context.document, param.kind,
                                              {.name = param.name,
                                               .id = param.id,
                                               .value = DerivedValue(param, parameter),
                                               .lower = param.lower,
                                               .upper = param.upper,
                                               .control = param.control}));
    }
    components.push_back(component);
    return true;
}

void ColorCorrectorToXmeml(const EffectContext& context, const EffectRow& row,
                           ConstHandle component, ObjectHandle effect)
{
    WriteEffectHead(row.xmeml, effect);
    AddDisplayMode(context.document, effect);
    for (const DocumentRow& param : kDocumentRows)
        AddDocumentRow(context, param, component, effect);
    AddAllCarried(context, row, component, effect);
}

} // namespace XPJ
