#include "effects/video_filters.h"

#include "core/numbers.h"
#include "effects/color_corrector.h"
#include "effects/graphic_effects.h"
#include "effects/look_effect.h"
#include "effects/no_op_tests.h"
#include "effects/values.h"
#include "effects/video_component.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace XPJ {

namespace {

using K = ParamKind;

constexpr ComponentNames kBasic3D = {"KX.ORRN Basic 3D", "Basic 3D"};
constexpr ComponentNames kCrop = {"KX.ORRN AECrop", "Crop"};
constexpr ComponentNames kFourPointMatte = {"KX.ORRN Garbage Matte", "Four-Point Garbage Matte"};
constexpr ComponentNames kEightPointMatte = {"KX.ORRN Garbage Matte 8",
                                             "Eight-Point Garbage Matte"};
constexpr ComponentNames kGaussianBlur = {"KX.ORRN Gaussian Blur 2", "Gaussian Blur"};
constexpr ComponentNames kLumaKey = {"KX.ORRN Legacy Key Luma", "Luma Key"};
constexpr ComponentNames kTransform = {"KX.ORRN Geometry", "Transform"};
constexpr ComponentNames kVerticalFlip = {"VX.ORRN Vertical Flip", "Vertical Flip"};
constexpr ComponentNames kHorizontalFlip = {"VX.ORRN Horizontal Flip", "Horizontal Flip"};

// clang-format off
constexpr ParamRow kBasic3DParams[] = {
    // kind          name                  from  value    lower      upper
    {1, K::Scalar,   "Swivel",             "ry", "0",     "-32768",  "32767"},
    {2, K::Scalar,   "Tilt",               "rx", "0",     "-32768",  "32767"},
    {3, K::Scalar,   "Distance to Image",  "",   "0.0",   "-30000.", "30000."},
    {4, K::CheckBox, "Specular Highlight", "",   "false"},
    {5, K::CheckBox, "Preview",            "",   "false"},
};

constexpr ParamRow kCropParams[] = {
    {1, K::Scalar,   "Left",   "left",   "0.", "0.", "100."},
    {2, K::Scalar,   "Top",    "top",    "0.", "0.", "100."},
    {3, K::Scalar,   "Right",  "right",  "0.", "0.", "100."},
    {4, K::Scalar,   "Bottom", "bottom", "0.", "0.", "100."},
    {5, K::CheckBox, " ",      "",       "false"},
};

constexpr ParamRow kFourPointMatteParams[] = {
    {1, K::Point, "Top Left",     "p0", ""},
    {2, K::Point, "Top Right",    "p1", ""},
    {3, K::Point, "Bottom Right", "p2", ""},
    {4, K::Point, "Bottom Left",  "p3", ""},
};

constexpr ParamRow kEightPointMatteParams[] = {
    {1, K::Point, "Top Left Vertex",       "p0", ""},
    {2, K::Point, "Top Center Tangent",    "p1", ""},
    {3, K::Point, "Right Top Vertex",      "p2", ""},
    {4, K::Point, "Right Center Tangent",  "p3", ""},
    {5, K::Point, "Bottom Right Vertex",   "p4", ""},
    {6, K::Point, "Bottom Center Tangent", "p5", ""},
    {7, K::Point, "Left Bottom Vertex",    "p6", ""},
    {8, K::Point, "Left Center Tangent",   "p7", ""},
};

constexpr int kPopUp = 7;
constexpr ParamRow kGaussianBlurParams[] = {
    {1, K::Slider, "Blurriness",      "radius", "1.0", "0.", "30000."},
    {2, K::Choice, "Blur Dimensions", "",       "0",   "0",  "2", kPopUp},
};

constexpr ParamRow kLumaKeyParams[] = {
    {1, K::Scalar, "Threshold", "threshold", "0.", "0.", "100."},
    {2, K::Scalar, "Cutoff",    "tolerance", "0.", "0.", "100."},
};
// clang-format on

// Classes of the parameters of a Transform, which only documents of this system hold. Points stand
// in scalar elements.
constexpr std::string_view kTransformClasses[] = {
    "", // ids count from 1
    kPointClass,  kPointClass,  kScalarClass, kScalarClass, kScalarClass, kScalarClass,
    kScalarClass, kScalarClass, kSwitchClass, kScalarClass, kSwitchClass,
};

template <const ComponentNames& names, const auto& rows>
bool TranslateByRows(const EffectContext& context, ObjectHandle effect, Components& components)
{
    components.push_back(MakeRowComponent(context, names, rows, effect));
    return true;
}

template <const auto& rows>
std::vector<ListedParameter> List()
{
    return ListRows(rows);
}

bool TranslateCrop(const EffectContext& context, ObjectHandle effect, Components& components)
{
    return IsNoOp("crop", effect) ||
           TranslateByRows<kCrop, kCropParams>(context, effect, components);
}

// A project blurs all channels alike; the effect's first choice is the same.
bool TranslateGaussianBlur(const EffectContext& context, ObjectHandle effect,
                           Components& components)
{
    constexpr int kAllChannels = 1;
    return ParseInt(StaticValue(FindParameter(effect, "channel"), "0")) == kAllChannels &&
           TranslateByRows<kGaussianBlur, kGaussianBlurParams>(context, effect, components);
}

bool TranslateTransform(const EffectContext& context, ObjectHandle effect, Components& components)
{
    std::array<ObjectHandle, std::size(kTransformClasses)> params;
    for (const ObjectHandle& parameter : effect.GetChildren("parameter")) {
        const int id = IntProperty(parameter, "parameterid");
        if (id < 1 || id >= static_cast<int>(params.size()) || PlainValue(parameter).empty())
            continue;
        const auto index = static_cast<std::size_t>(id);
        params[index] = CopyProjectParam(context.document, parameter, "VideoComponentParam",
                                         kTransformClasses[index]);
    }
    const ObjectHandle component = MakeFilterComponent(context.document, kTransform, effect);
    for (const ObjectHandle& param : params)
        component.AddChild("Param", param);
    components.push_back(component);
    return true;
}

bool TranslateLook(const EffectContext& context, ObjectHandle effect, Components& components)
{
    const ObjectHandle component = MakeLookComponent(context, effect);
    if (component)
        components.push_back(component);
    return static_cast<bool>(component);
}

ObjectHandle MakeFlip(Document& document, const ComponentNames& names, ObjectHandle effect)
{
    const ObjectHandle component = MakeFilterComponent(document, names, effect);
    component.SetPropertyShared("VideoFilterType", "1");
    component.SetPropertyShared("Bypass", "false");
    component.AddChild("Param", MakeEmptyBlob(document));
    return component;
}

bool TranslateFlop(const EffectContext& context, ObjectHandle effect, Components& components)
{
    constexpr int kHorizontal = 1;
    constexpr int kVertical = 2;
    constexpr int kBoth = 3;
    const int flop = ParseInt(StaticValue(FindParameter(effect, "flop"), "0"));
    if (flop == kVertical || flop == kBoth)
        components.push_back(MakeFlip(context.document, kVerticalFlip, effect));
    if (flop == kHorizontal || flop == kBoth)
        components.push_back(MakeFlip(context.document, kHorizontalFlip, effect));
    return flop == kVertical || flop == kHorizontal || flop == kBoth;
}

bool AddColorCorrector(const EffectContext& context, ObjectHandle effect, Components& components)
{
    components.push_back(TranslateColorCorrector(context, effect));
    return true;
}

template <ObjectHandle (*makeComponent)(Document&, ObjectHandle)>
bool TranslateGraphic(const EffectContext& context, ObjectHandle effect, Components& components)
{
    components.push_back(makeComponent(context.document, effect));
    return true;
}

template <const std::string_view& id>
bool DropAtRest(const EffectContext&, ObjectHandle effect, Components&)
{
    return IsNoOp(id, effect);
}

constexpr std::string_view kMotionBlur = "motionblur";
constexpr std::string_view kDropShadow = "dropshadow";

std::vector<ListedParameter> ListFlop()
{
    return {{"Flop", false}};
}

std::vector<ListedParameter> ListLook()
{
    return {{"File Path", false}};
}

std::vector<ListedParameter> ListAll()
{
    return {{"all", true}};
}

// An effect by its `effectid`, or by its `name` where the id is none of the table's, and what the
// list of effects says of it.
struct VideoFilter {
    std::string_view id;
    FilterTranslator translate; // null: known, not translated
    Outcome outcome;
    std::vector<ListedParameter> (*parameters)(); // null: none
    std::string_view note;
};

using enum Outcome;

// Ids as documents spell them; a title, a shape or a look carries a user's name over its id.
// clang-format off
constexpr VideoFilter kVideoFilters[] = {
    {"Gaussian Blur", TranslateGaussianBlur, CarriedOver, List<kGaussianBlurParams>,
     "when it blurs all channels, else dropped"},
    {"Color Corrector 3-way", AddColorCorrector, Approximated, ListColorCorrector,
     "listed in the report; limits, edges and keyframes are lost"},
    {"Luma Key", TranslateByRows<kLumaKey, kLumaKeyParams>, Approximated, List<kLumaKeyParams>,
     "key mode and softness are lost"},
    {"Gradiva", TranslateLook, CarriedOver, ListLook,
     "the look file or lookup table goes into the project; dropped when it can't be opened"},
    {"GraphicAndType", TranslateGraphic<MakeTextComponent>, CarriedOver, ListAll, ""},
    {"GraphicAndShape", TranslateGraphic<MakeShapeComponent>, CarriedOver, ListAll, ""},
    {"Transform", TranslateTransform, CarriedOver, ListAll, ""},
    {"crop", TranslateCrop, Approximated, List<kCropParams>, "edge feather is lost"},
    {"Four-Point Garbage Matte", TranslateByRows<kFourPointMatte, kFourPointMatteParams>,
     CarriedOver, List<kFourPointMatteParams>, "smoothing, choking and feather are lost"},
    {"Eight-Point Garbage Matte", TranslateByRows<kEightPointMatte, kEightPointMatteParams>,
     CarriedOver, List<kEightPointMatteParams>, "smoothing, choking and feather are lost"},
    {kMotionBlur, DropAtRest<kMotionBlur>, Dropped, nullptr, "without a finding at its defaults"},
    {kDropShadow, DropAtRest<kDropShadow>, Dropped, nullptr, "without a finding at its defaults"},
    {"Flop", TranslateFlop, CarriedOver, ListFlop, "becomes one flip or two"},
};
// clang-format on

bool HasParameter(ObjectHandle effect, std::string_view id)
{
    return static_cast<bool>(FindParameter(effect, id));
}

bool Turns(ObjectHandle effect, std::string_view id)
{
    const ObjectHandle parameter = FindParameter(effect, id);
    return HasKeyframes(parameter) || ParseDouble(PlainValue(parameter)) != 0;
}

const VideoFilter* FindVideoFilter(std::string_view id)
{
    const auto* const row = std::ranges::find(kVideoFilters, id, &VideoFilter::id);
    return row == std::end(kVideoFilters) ? nullptr : row;
}

} // namespace

bool DispatchFilter(const EffectContext& context, ObjectHandle effect, Components& components)
{
    const VideoFilter* filter = FindVideoFilter(effect.GetProperty("effectid"));
    if (!filter)
        filter = FindVideoFilter(effect.GetProperty("name"));
    return filter && filter->translate && filter->translate(context, effect, components);
}

Basic3D TranslateBasic3D(const EffectContext& context, ObjectHandle effect)
{
    Basic3D result;
    result.isMotionSource =
        HasParameter(effect, "s") || HasParameter(effect, "center") || HasParameter(effect, "rz");
    if (Turns(effect, "rx") || Turns(effect, "ry"))
        result.component = MakeRowComponent(context, kBasic3D, kBasic3DParams, effect);
    return result;
}

void AppendVideoFilters(std::vector<EffectListing>& list)
{
    constexpr std::string_view kFamily = "Video filter";
    list.push_back({.family = kFamily,
                    .name = kBasic3D.display,
                    .effectId = kBasic3D.display,
                    .parameters = ListRows(kBasic3DParams),
                    .note = "scale, centre and rotation go to Motion"});
    for (const VideoFilter& filter : kVideoFilters)
        list.push_back(
            {.family = kFamily,
             .name = filter.id,
             .effectId = filter.id,
             .outcome = filter.outcome,
             .parameters = filter.parameters ? filter.parameters() : std::vector<ListedParameter>(),
             .note = filter.note});
}

} // namespace XPJ
