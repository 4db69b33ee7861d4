#include "effects/color_corrector.h"

#include "core/numbers.h"
#include "effects/values.h"
#include "effects/video_component.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace XPJ {

namespace {

constexpr ComponentNames kThreeWay = {"KX.ORRN Three-Way Color Corrector",
                                      "Three-Way Color Corrector"};

// How a source parameter becomes a value.
enum class Rule {
    None,
    Linear, // its fraction, over the row's range
    Root,   // the square root of its fraction, over the row's range
    Angle,  // its degrees, a quarter turn back
};

struct CorrectorRow { // NOLINT(clang-analyzer-optin.performance.Padding): in the order of reading
    int id;
    ParamKind kind;
    std::string_view name;
    std::string_view source = {}; // a `parameterid`; empty where the value is always the same
    Rule rule = Rule::None;
    std::string_view value = {}; // without a source; empty for that of the kind, as with the bounds
    std::string_view lower = {};
    std::string_view upper = {};
    int control = 0; // of a choice
};

// Opaque grays of 0, 128 and 255.
constexpr std::string_view kBlack = "18374686479671623680";
constexpr std::string_view kGray = "18374827219307495424";
constexpr std::string_view kWhite = "18374966859414961920";

// Single precision 0.1 and 9.97, as the host writes them.
constexpr std::string_view kGrayLow = "0.100000001490116119384766";
constexpr std::string_view kGrayHigh = "9.97000026702880859375";

using enum Rule;
using K = ParamKind;

// clang-format off
constexpr CorrectorRow kRows[] = {
    // kind             name                                 from         rule    value    lower     upper
    {1,  K::Choice,      "Output",                           "",          None,   "0",    "0",      "3",      7},
    {2,  K::CheckBox,    " "},
    {3,  K::Choice,      "Layout",                           "",          None,   "0",    "0",      "1",      7},
    {4,  K::Slider,      "Split View Percent",               "",          None,   "50.",  "0.",     "100."},
    {5,  K::Colour,      "Black Balance",                    "",          None,   kBlack},
    {6,  K::Colour,      "Gray Balance",                     "",          None,   kGray},
    {7,  K::Colour,      "White Balance",                    "",          None,   kWhite},
    {8,  K::Separator11, "Tonal Range Definition"},
    {9,  K::Separator11, "Tonal Range Definition"},
    {10, K::Slider,      "Shadow Threshold",                 "",          None,   "64.",  "0.",     "255."},
    {11, K::Slider,      "Shadow Softness",                  "",          None,   "10.",  "0.",     "255."},
    {12, K::Slider,      "Highlight Threshold",              "",          None,   "192.", "0.",     "255."},
    {13, K::Slider,      "Highlight Softness",               "",          None,   "10.",  "0.",     "255."},
    {14, K::Separator12, ""},
    {15, K::Separator12, ""},
    {16, K::Choice,      "Tonal Range",                      "",          None,   "0",    "0",      "3",      7},
    {17, K::Separator11, "Master Hue Balance and Angle"},
    {18, K::WideScalar,  "Master Hue Angle",                 "",          None,   "0."},
    {19, K::Slider,      "Master Balance Magnitude",         "",          None,   "0.",   "0.",     "100."},
    {20, K::Slider,      "Master Balance Gain",              "",          None,   "20.",  "1.",     "100."},
    {21, K::WideScalar,  "Master Balance Angle",             "",          None,   "0."},
    {22, K::Separator12, ""},
    {23, K::Separator11, "Three-Way Hue Balance and Angle"},
    {24, K::WideScalar,  "Shadow Hue Angle",                 "",          None,   "0."},
    {25, K::Slider,      "Shadow Balance Magnitude",         "b_mag",     Root,   "0.",   "0.",     "100."},
    {26, K::Slider,      "Shadow Balance Gain",              "blacklevel", Linear, "20.",  "1.",     "100."},
    {27, K::WideScalar,  "Shadow Balance Angle",             "b_hue",     Angle,  "0."},
    {28, K::WideScalar,  "Midtone Hue Angle",                "",          None,   "0."},
    {29, K::Slider,      "Midtone Balance Magnitude",        "m_mag",     Root,   "0.",   "0.",     "100."},
    {30, K::Slider,      "Midtone Balance Gain",             "mids",      Linear, "20.",  "1.",     "100."},
    {31, K::WideScalar,  "Midtone Balance Angle",            "m_hue",     Angle,  "0."},
    {32, K::WideScalar,  "Highlight Hue Angle",              "",          None,   "0."},
    {33, K::Slider,      "Highlight Balance Magnitude",      "h_mag",     Root,   "0.",   "0.",     "100."},
    {34, K::Slider,      "Highlight Balance Gain",           "highlights", Linear, "20.",  "1.",     "100."},
    {35, K::WideScalar,  "Highlight Balance Angle",          "h_hue",     Angle,  "0."},
    {36, K::Separator12, ""},
    {37, K::Slider,      "Master Saturation",                "chroma",    Linear, "100.", "0.",     "200."},
    {38, K::Slider,      "Shadow Saturation",                "",          None,   "100.", "0.",     "200."},
    {39, K::Slider,      "Midtone Saturation",               "",          None,   "100.", "0.",     "200."},
    {40, K::Slider,      "Highlight Saturation",             "",          None,   "100.", "0.",     "200."},
    {41, K::Separator11, " "},
    {42, K::CheckBox16,  " "},
    {43, K::CheckBox16,  " "},
    {44, K::CheckBox16,  " "},
    {45, K::Separator12, ""},
    {46, K::Separator11, " "},
    {47, K::CheckBox16,  " "},
    {48, K::CheckBox16,  " "},
    {49, K::CheckBox16,  " "},
    {50, K::Separator12, ""},
    {51, K::Separator11, " "},
    {52, K::CheckBox16,  " "},
    {53, K::CheckBox16,  " "},
    {54, K::CheckBox16,  " "},
    {55, K::Separator12, ""},
    {56, K::Separator11, " "},
    {57, K::CheckBox16,  " "},
    {58, K::CheckBox16,  " "},
    {59, K::CheckBox16,  " "},
    {60, K::Separator12, ""},
    {61, K::Separator11, " "},
    {62, K::Colour,      "Black Level",                      "",          None,   kBlack},
    {63, K::Colour,      "Gray Level",                       "",          None,   kGray},
    {64, K::Colour,      "White Level",                      "",          None,   kWhite},
    {65, K::Slider,      "Master Input Black Level",         "",          None,   "0.",   "0.",     "253."},
    {66, K::Slider,      "Master Input Gray Level",          "",          None,   "1.",   kGrayLow, kGrayHigh},
    {67, K::Slider,      "Master Input White Level",         "",          None,   "255.", "2.",     "255."},
    {68, K::Slider,      "Master Output Black Level",        "",          None,   "0.",   "0.",     "255."},
    {69, K::Slider,      "Master Output White Level",        "",          None,   "255.", "0.",     "255."},
    {70, K::Separator12, ""},
    {71, K::Separator11, " "},
    {72, K::Colour,      "Black Level",                      "",          None,   kBlack},
    {73, K::Colour,      "Gray Level",                       "",          None,   kGray},
    {74, K::Colour,      "White Level",                      "",          None,   kWhite},
    {75, K::Slider,      "Shadow Input Black Level",         "",          None,   "0.",   "0.",     "253."},
    {76, K::Slider,      "Shadow Input Gray Level",          "",          None,   "1.",   kGrayLow, kGrayHigh},
    {77, K::Slider,      "Shadow Input White Level",         "",          None,   "255.", "2.",     "255."},
    {78, K::Slider,      "Shadow Output Black Level",        "",          None,   "0.",   "0.",     "255."},
    {79, K::Slider,      "Shadow Output White Level",        "",          None,   "255.", "0.",     "255."},
    {80, K::Separator12, ""},
    {81, K::Separator11, " "},
    {82, K::Colour,      "Black Level",                      "",          None,   kBlack},
    {83, K::Colour,      "Gray Level",                       "",          None,   kGray},
    {84, K::Colour,      "White Level",                      "",          None,   kWhite},
    {85, K::Slider,      "Midtone Input Black Level",        "",          None,   "0.",   "0.",     "253."},
    {86, K::Slider,      "Midtone Input Gray Level",         "",          None,   "1.",   kGrayLow, kGrayHigh},
    {87, K::Slider,      "Midtone Input White Level",        "",          None,   "255.", "2.",     "255."},
    {88, K::Slider,      "Midtone Output Black Level",       "",          None,   "0.",   "0.",     "255."},
    {89, K::Slider,      "Midtone Output White Level",       "",          None,   "255.", "0.",     "255."},
    {90, K::Separator12, ""},
    {91, K::Separator11, " "},
    {92, K::Colour,      "Black Level",                      "",          None,   kBlack},
    {93, K::Colour,      "Gray Level",                       "",          None,   kGray},
    {94, K::Colour,      "White Level",                      "",          None,   kWhite},
    {95, K::Slider,      "Highlight Input Black Level",      "",          None,   "0.",   "0.",     "253."},
    {96, K::Slider,      "Highlight Input Gray Level",       "",          None,   "1.",   kGrayLow, kGrayHigh},
    {97, K::Slider,      "Highlight Input White Level",      "",          None,   "255.", "2.",     "255."},
    {98, K::Slider,      "Highlight Output Black Level",     "",          None,   "0.",   "0.",     "255."},
    {99, K::Slider,      "Highlight Output White Level",     "",          None,   "255.", "0.",     "255."},
    {100, K::Separator12, ""},
    {101, K::Separator11, "Secondary Color Correction"},
    {102, K::Separator11, " "},
    {103, K::Separator11, "Center"},
    {104, K::Separator12, ""},
    {105, K::Separator11, "Hue"},
    {106, K::Separator11, "Hue"},
    {107, K::Slider,      " ",                                "",          None,   "0.5",  "0.",     "1."},
    {108, K::Slider,      "Start Threshold",                  "",          None,   "0.",   "0.",     "100."},
    {109, K::Slider,      "Start Softness",                   "",          None,   "0.",   "0.",     "100."},
    {110, K::Slider,      "End Threshold",                    "",          None,   "0.",   "0.",     "100."},
    {111, K::Slider,      "End Softness",                     "",          None,   "0.",   "0.",     "100."},
    {112, K::Separator12, ""},
    {113, K::Separator12, ""},
    {114, K::Separator11, "Saturation"},
    {115, K::Separator11, "Saturation"},
    {116, K::Slider,      "Start Threshold",                  "",          None,   "0.",   "0.",     "100."},
    {117, K::Slider,      "Start Softness",                   "",          None,   "0.",   "0.",     "100."},
    {118, K::Slider,      "End Threshold",                    "",          None,   "0.",   "0.",     "100."},
    {119, K::Slider,      "End Softness",                     "",          None,   "0.",   "0.",     "100."},
    {120, K::Separator12, ""},
    {121, K::Separator12, ""},
    {122, K::Separator11, "Luma"},
    {123, K::Separator11, "Luma"},
    {124, K::Slider,      "Start Threshold",                  "",          None,   "0.",   "0.",     "100."},
    {125, K::Slider,      "Start Softness",                   "",          None,   "0.",   "0.",     "100."},
    {126, K::Slider,      "End Threshold",                    "",          None,   "0.",   "0.",     "100."},
    {127, K::Slider,      "End Softness",                     "",          None,   "0.",   "0.",     "100."},
    {128, K::Separator12, ""},
    {129, K::Separator12, ""},
    {130, K::Slider,      "Soften",                           "",          None,   "0.",   "0.",     "50."},
    {131, K::Slider,      "Edge Thinning",                    "",          None,   "0.",   "-100.",  "100."},
    {132, K::CheckBox,    "Invert Limit Color"},
    {133, K::Separator12, ""},
    {134, K::Separator12, ""},
};
// clang-format on

// Ids count from 1, each group that is opened is closed, and every source has a rule.
constexpr bool RowsAreSound()
{
    int id = 0;
    int open = 0;
    for (const CorrectorRow& row : kRows) {
        open += row.kind == K::Separator11 ? 1 : 0;
        open -= row.kind == K::Separator12 ? 1 : 0;
        if (row.id != ++id || open < 0 || row.source.empty() != (row.rule == None))
            return false;
    }
    return id == 134 && open == 0;
}
static_assert(RowsAreSound());

// Of the maximum alone, not of the range, whatever the minimum is.
double Fraction(ObjectHandle parameter, std::string_view value)
{
    const double most = ParseDouble(parameter.GetProperty("valuemax"));
    const double least = ParseDouble(parameter.GetProperty("valuemin"));
    return most < 1 ? 0 : (ParseDouble(value) - least) / most;
}

std::string Lerp(double x, const CorrectorRow& row)
{
    const double low = ParseDouble(row.lower);
    const double high = ParseDouble(row.upper);
    return NumberText(x * (high - low) + low);
}

// The row's value from `parameter`, which may be null. It may lie beyond the bounds.
std::string DerivedValue(const CorrectorRow& row, ObjectHandle parameter)
{
    constexpr double kQuarterTurn = 90;
    const std::string_view value = StaticValue(parameter, {});
    if (value.empty())
        return std::string(row.value);
    switch (row.rule) {
    case Linear:
        return Lerp(Fraction(parameter, value), row);
    case Root:
        return Lerp(std::sqrt(std::max(0.0, Fraction(parameter, value))), row);
    case Angle:
        return NumberText(ParseDouble(value) - kQuarterTurn);
    case None:
        break;
    }
    return std::string(row.value);
}

} // namespace

ObjectHandle TranslateColorCorrector(const EffectContext& context, ObjectHandle effect)
{
    Document& document = context.document;
    const ObjectHandle component = MakeFilterComponent(document, kThreeWay, effect);
    for (const CorrectorRow& row : kRows) {
        const ObjectHandle parameter =
            row.source.empty() ? ObjectHandle() : FindParameter(effect, row.source);
        component.AddChild("Param", MakeParam(document, row.kind,
                                              {.name = row.name,
                                               .id = row.id,
                                               .value = DerivedValue(row, parameter),
                                               .lower = row.lower,
                                               .upper = row.upper,
                                               .control = row.control}));
    }
    context.AddIssue(ImportIssue::ThreeWayApproximation, EffectName(effect));
    return component;
}

std::vector<ListedParameter> ListColorCorrector()
{
    std::vector<ListedParameter> list;
    for (const CorrectorRow& row : kRows)
        if (!row.source.empty())
            list.push_back({row.name, false});
    return list;
}

} // namespace XPJ
