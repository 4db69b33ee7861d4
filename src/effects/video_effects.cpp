#include "effects/video_effects.h"

#include "core/numbers.h"
#include "effects/color_corrector.h"
#include "effects/distort.h"
#include "effects/effect_losses.h"
#include "effects/graphic_effects.h"
#include "effects/kept_params.h"
#include "effects/look_effect.h"
#include "effects/motion.h"
#include "effects/opacity.h"
#include "effects/param_losses.h"
#include "effects/time_remap.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace XPJ {

namespace {

// ---- Rules of effects that their rows can't state

// A project blurs all channels alike; a blur of single channels is not translated. To the letter
// it has to state that it blurs all, which is its default.
bool GaussianBlurToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                           Components& components)
{
    constexpr int kAllChannels = 1; // the first choice of the effect
    const std::string_view missing = context.openInterchange ? "1" : "0";
    return ParseInt(StaticValue(FindParameter(effect, "channel"), missing)) == kAllChannels &&
           ParamsToProject(context, row, effect, components);
}

// The threshold of a luma key, 0 to 100 in a project, on the bent scale of -100 to 100 of a
// document.
double LumaThreshold(double percent)
{
    constexpr double kBend = 0.75;
    return std::pow(std::max(percent, 0.0) / 100, kBend) * 200 - 100;
}

double PercentOfThreshold(double threshold)
{
    constexpr double kBend = 0.75;
    return std::pow(std::max(threshold + 100, 0.0) / 200, 1 / kBend) * 100;
}

// A threshold whose stated range is another one is on the scale of a project.
bool LumaKeyToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                      Components& components)
{
    // Where the two scales meet.
    constexpr ParamRow kHighest = XmemlOnly({.neutral = "100"});
    const ConstHandle threshold = FindParameter(effect, "threshold");
    EffectContext ofRange = context;
    if (!(DoubleProperty(threshold, "valuemin") < 0))
        ofRange.openInterchange = false;
    if (!ofRange.openInterchange && StatesValue(threshold) && !IsHarmless(&kHighest, threshold))
        context.AddRemark(RemarkKind::ScaleAssumed, effect, ParameterName(threshold));
    return ParamsToProject(ofRange, row, effect, components);
}

// A side that is no number is written as 0.
bool IsNumberText(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("+-.0123456789eE") == text.npos;
}

// A crop at its defaults becomes nothing.
bool CropToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components)
{
    const bool isDropped = IsNeutral(row.params, effect) && !IsReturning(context, effect);
    return isDropped || ParamsToProject(context, row, effect, components);
}

// The sides in the order of documents, with all the digits that the project has.
void CropToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect)
{
    WriteEffectHead(row.xmeml, effect);
    for (const std::string_view id : {"left", "right", "top", "bottom"}) {
        const ParamRow& side = *FindParamRow(row.params, id);
        const ObjectHandle parameter = AddRowParameter(context, side, component, effect);
        if (const std::string_view text = StartText(ParamOfRow(component, side));
            IsNumberText(text))
            parameter.SetProperty("value", text);
    }
    AddAllCarried(context, row, component, effect);
}

constexpr ComponentNames kHorizontalFlip = {"VX.ORRN Horizontal Flip", "Horizontal Flip"};
constexpr ComponentNames kVerticalFlip = {"VX.ORRN Vertical Flip", "Vertical Flip"};

constexpr int kFlopHorizontal = 1;
constexpr int kFlopVertical = 2;
constexpr int kFlopBoth = 3;

ObjectHandle MakeFlip(const EffectContext& context, const ComponentNames& names, ConstHandle effect)
{
    const ObjectHandle component = MakeFilterComponent(context.document, names, effect);
    component.SetPropertyShared("VideoFilterType", "1");
    if (!context.openInterchange) {
        if (IsTrue(effect, "velaBypass"))
            context.AddRemark(RemarkKind::BypassLost, effect);
        component.SetPropertyShared("Bypass", "false");
    }
    component.AddChild("Param", MakeEmptyBlob(context.document));
    return component;
}

bool FlopToProject(const EffectContext& context, const EffectRow& /*row*/, ConstHandle effect,
                   Components& components)
{
    const int flop = ParseInt(StaticValue(FindParameter(effect, "flop"), "0"));
    if (flop == kFlopVertical || flop == kFlopBoth)
        components.push_back(MakeFlip(context, kVerticalFlip, effect));
    if (flop == kFlopHorizontal || flop == kFlopBoth)
        components.push_back(MakeFlip(context, kHorizontalFlip, effect));
    return flop == kFlopVertical || flop == kFlopHorizontal || flop == kFlopBoth;
}

constexpr XmemlEffect kFlop = {"Flop", "Flop", "Perspective"};
constexpr XmemlParam kFlopDirection = {"flop", "Direction", "1", "3"};

// Two flips leave as two effects.
void FlipToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle /*component*/,
                 ObjectHandle effect)
{
    WriteEffectHead(kFlop, effect);
    const bool isVertical = row.project.match == kVerticalFlip.match;
    AddParameter(context.document, kFlopDirection,
                 IntToString(isVertical ? kFlopVertical : kFlopHorizontal), effect);
}

// ---- The rows

using K = ParamKind;

// clang-format off
constexpr int kPopUp = 7;
constexpr ParamRow kGaussianBlurParams[] = {
    // kind      name               value  lower upper     xmeml
    {1, K::Slider, "Blurriness",      "1.0", "0.", "30000.", {"radius", "Radius", "0", "100"}},
    {.id = 2, .kind = K::Choice, .name = "Blur Dimensions", .value = "0", .lower = "0", .upper = "2",
     .control = kPopUp, .loss = RemarkKind::BlurDirection},
    XmemlOnly({.id = "channel", .name = "Channel", .value = "1", .neutral = "1"}), // all alike, as projects blur
};

constexpr ParamRow kLumaKeyParams[] = {
    // The mode in which the key takes a threshold and a tolerance.
    XmemlOnly({"keymode", "Key Mode", "1", "4", "4", "4"}),
    {1, K::Scalar, "Threshold", "0.", "0.", "100.", {"threshold", "Threshold", "-100", "100"}, 0, true, LumaThreshold, PercentOfThreshold},
    {2, K::Scalar, "Cutoff",    "0.", "0.", "100.", {"tolerance", "Tolerance", "0", "100"}},
    XmemlOnly({.id = "softness", .neutral = "0"}),
};

constexpr ParamRow kLookParams[] = {
    {.id = 1, .name = "File Path", .xmeml = {.id = "path"}, .animates = false},
};

constexpr ParamRow kCropParams[] = {
    {1, K::Scalar,   "Left",   "0.", "0.", "100.", {"left",   "Left",   "0", "100", "", "0"}},
    {2, K::Scalar,   "Top",    "0.", "0.", "100.", {"top",    "Top",    "0", "100", "", "0"}},
    {3, K::Scalar,   "Right",  "0.", "0.", "100.", {"right",  "Right",  "0", "100", "", "0"}},
    {4, K::Scalar,   "Bottom", "0.", "0.", "100.", {"bottom", "Bottom", "0", "100", "", "0"}},
    {5, K::CheckBox, " ",      "false"},
    XmemlOnly({.id = "edgefeather", .neutral = "0"}),
};

constexpr ParamRow kFourPointMatteParams[] = {
    {1, K::Point, "Top Left",     "", "", "", {"p0", "Point 1"}},
    {2, K::Point, "Top Right",    "", "", "", {"p1", "Point 2"}},
    {3, K::Point, "Bottom Right", "", "", "", {"p2", "Point 3"}},
    {4, K::Point, "Bottom Left",  "", "", "", {"p3", "Point 4"}},
    XmemlOnly({.id = "smooth",  .neutral = "0"}),
    XmemlOnly({.id = "choke",   .neutral = "0"}),
    XmemlOnly({.id = "feather", .neutral = "0"}),
};

constexpr ParamRow kEightPointMatteParams[] = {
    {1, K::Point, "Top Left Vertex",       "", "", "", {"p0", "Point 1"}},
    {2, K::Point, "Top Center Tangent",    "", "", "", {"p1", "Point 2"}},
    {3, K::Point, "Right Top Vertex",      "", "", "", {"p2", "Point 3"}},
    {4, K::Point, "Right Center Tangent",  "", "", "", {"p3", "Point 4"}},
    {5, K::Point, "Bottom Right Vertex",   "", "", "", {"p4", "Point 5"}},
    {6, K::Point, "Bottom Center Tangent", "", "", "", {"p5", "Point 6"}},
    {7, K::Point, "Left Bottom Vertex",    "", "", "", {"p6", "Point 7"}},
    {8, K::Point, "Left Center Tangent",   "", "", "", {"p7", "Point 8"}},
    XmemlOnly({.id = "smooth",  .neutral = "0"}),
    XmemlOnly({.id = "choke",   .neutral = "0"}),
    XmemlOnly({.id = "feather", .neutral = "0"}),
};

constexpr ParamRow kMotionBlurParams[] = {
    XmemlOnly({.id = "duration", .neutral = "500"}),
    XmemlOnly({.id = "samples",  .neutral = "4"}),
};

constexpr ParamRow kDropShadowParams[] = {
    XmemlOnly({.id = "offset",   .neutral = "10 2"}),
    XmemlOnly({.id = "angle",    .neutral = "135"}),
    XmemlOnly({.id = "color",    .neutral = "0:0:0:0"}, K::Color),
    XmemlOnly({.id = "softness", .neutral = "10"}),
    XmemlOnly({.id = "opacity",  .neutral = "50"}),
};

constexpr ParamRow kFlopParams[] = {
    {.name = "Flop", .xmeml = kFlopDirection, .animates = false},
};
// clang-format on

using enum Outcome;

// Ids as documents spell them; a title, a shape or a look carries a user's name over its id.
constexpr EffectRow kVideoEffects[] = {
    kOpacity,
    kMotion,
    kDistort,
    kTimeRemap,
    kBasic3D,
    {.xmeml = {"Gaussian Blur", "Gaussian Blur", "Blur", "motion"},
     .project = {"KX.ORRN Gaussian Blur 2", "Gaussian Blur"},
     .onlyWhen = "it blurs all channels",
     .params = kGaussianBlurParams,
     .toProject = GaussianBlurToProject},
    {.xmeml = {"Color Corrector 3-way", "Color Corrector 3-way", "Color Correction"},
     .project = {"KX.ORRN Three-Way Color Corrector", "Three-Way Color Corrector"},
     .outcome = Approximated,
     .note = "listed in the report; limits, edges and keyframes are lost",
     .params = kColorCorrectorParams,
     .toProject = ColorCorrectorToProject,
     .toXmeml = ColorCorrectorToXmeml,
     .exported = Exported::WithIssue},
    {.xmeml = {"Luma Key", "Luma Key", "Key"},
     .project = {"KX.ORRN Legacy Key Luma", "Luma Key"},
     .outcome = Approximated,
     .note = "key mode and softness are lost",
     .params = kLumaKeyParams,
     .toProject = LumaKeyToProject},
    {.xmeml = {.id = "Gradiva"},
     .project = {"KX.ORRN Gradiva", "Gradiva"},
     .onlyWhen = "the look file or lookup table can be opened",
     .note = "it goes into the project",
     .params = kLookParams,
     .toProject = LookToProject,
     .toXmeml = LookToXmeml},
    kGraphicText,
    kGraphicShape,
    {.xmeml = {.id = "Transform"},
     .project = {"KX.ORRN Geometry", "Transform"},
     .toProject = TransformToProject,
     .toXmeml = TransformToXmeml,
     .exported = Exported::BehindSetting,
     .keepsParams = true},
    {.xmeml = {"crop", "Crop", "motion", "motion"},
     .project = {"KX.ORRN AECrop", "Crop"},
     .name = "Crop",
     .outcome = Approximated,
     .note = "edge feather is lost",
     .params = kCropParams,
     .toProject = CropToProject,
     .toXmeml = CropToXmeml},
    {.xmeml = {"Four-Point Garbage Matte", "Four-Point Garbage Matte", "Matte"},
     .project = {"KX.ORRN Garbage Matte", "Four-Point Garbage Matte"},
     .note = "smoothing, choking and feather are lost",
     .params = kFourPointMatteParams},
    {.xmeml = {"Eight-Point Garbage Matte", "Eight-Point Garbage Matte", "Matte"},
     .project = {"KX.ORRN Garbage Matte 8", "Eight-Point Garbage Matte"},
     .note = "smoothing, choking and feather are lost",
     .params = kEightPointMatteParams},
    {.xmeml = {.id = "motionblur"},
     .outcome = Dropped,
     .note = "nothing is lost at its default values",
     .params = kMotionBlurParams,
     .toProject = DropNeutral,
     .toXmeml = nullptr},
    {.xmeml = {.id = "dropshadow"},
     .outcome = Dropped,
     .note = "nothing is lost at its default values",
     .params = kDropShadowParams,
     .toProject = DropNeutral,
     .toXmeml = nullptr},
    {.xmeml = kFlop,
     .project = kHorizontalFlip,
     .name = "Flop",
     .onlyWhen = "its direction is horizontal, vertical or both",
     .note = "becomes one flip or two",
     .params = kFlopParams,
     .toProject = FlopToProject,
     .toXmeml = FlipToXmeml,
     .exported = Exported::InOpenInterchange},
    {.project = kVerticalFlip,
     .name = "Flop",
     .toProject = nullptr,
     .toXmeml = FlipToXmeml,
     .exported = Exported::InOpenInterchange},
};

const EffectRow* FindById(std::string_view effectId)
{
    if (effectId.empty())
        return nullptr;
    const auto* const row = std::ranges::find(
        kVideoEffects, effectId, [](const EffectRow& effect) { return effect.xmeml.id; });
    return row == std::end(kVideoEffects) ? nullptr : row;
}

// By its `effectid`, else by its `name`, which may be an id.
const EffectRow* RowOfFilter(ConstHandle effect)
{
    const EffectRow* const row = FindById(effect.GetProperty("effectid"));
    return row && row->toProject ? row : FindById(effect.GetProperty("name"));
}

// True for an effect of which the rows state what is carried. The others carry all parameters, or
// have an issue.
bool IsByRows(const EffectRow& row)
{
    return !row.keepsParams && row.toProject != LookToProject &&
           row.toProject != ColorCorrectorToProject;
}

// ---- To `xmeml`

bool IsWritten(const EffectContext& context, const EffectRow& row)
{
    if (!row.toXmeml)
        return false;
    if (row.exported == Exported::InOpenInterchange)
        return context.openInterchange;
    if (row.exported == Exported::BehindSetting)
        return context.exportTransformEffect || context.openInterchange;
    return true;
}

// The row by which a component is written; null for one that documents do not have.
const EffectRow* FindWritten(const EffectContext& context, std::string_view matchName)
{
    if (matchName.empty())
        return nullptr;
    for (const EffectRow& row : kVideoEffects)
        if (row.project.match == matchName)
            return IsWritten(context, row) ? &row : nullptr;
    return nullptr;
}

std::string_view DisplayName(ConstHandle component)
{
    return component.HasProperty("DisplayName") ? component.GetProperty("DisplayName")
                                                : ComponentMatchName(component);
}

// What the user called the effect, in open interchange, goes to the components that it became.
void NameComponents(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                    std::span<const ObjectHandle> components)
{
    const std::string_view name = effect.GetProperty("name");
    if (name.empty() || name == row.xmeml.name || name == row.project.display || components.empty())
        return;
    if (components.front().HasProperty("InstanceName"))
        return;
    if (!context.openInterchange)
        return context.AddRemark(RemarkKind::EffectRenamed,
                                 {.name = name, .id = effect.GetProperty("effectid")});
    for (const ObjectHandle& component : components)
        component.SetPropertyShared("InstanceName", name);
}

void ReportUnknown(const EffectContext& context, ConstHandle component)
{
    if (context.location.trackKind != kNoTrack) {
        context.AddIssue(ExportIssue::EffectNotTranslated, DisplayName(component), component);
        return;
    }
    EffectContext ofFile = context;
    ofFile.location.trackKind = 1;
    ofFile.AddIssue(ExportIssue::EffectNotTranslatedHeadless, DisplayName(component), component);
}

// What keeps all its parameters, or is an issue anyway, has nothing more to report.
bool IsWrittenByRows(const EffectRow& row)
{
    return row.exported != Exported::WithIssue &&
           (row.toXmeml == ParamsToXmeml || row.toXmeml == CropToXmeml);
}

void ComponentToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle element)
{
    const EffectRow* const row = FindWritten(context, ComponentMatchName(component));
    if (!row)
        return ReportUnknown(context, component);
    const ObjectHandle effect = AddEmptyFilter(context.document, element);
    row->toXmeml(context, *row, component, effect);
    if (context.openInterchange && HasOwnName(component))
        CopyProperty(component, "InstanceName", effect, "name");
    WriteSwitches(component, effect);
    if (IsWrittenByRows(*row))
        ReportParams(context, row->params, component);
    if (row->exported == Exported::WithIssue)
        context.AddIssue(ExportIssue::ThreeWayApproximation, DisplayName(component), component);
}

} // namespace

std::span<const EffectRow> VideoEffects()
{
    return kVideoEffects;
}

std::string_view ConditionOf(ConstHandle effect)
{
    const EffectRow* const row = RowOfFilter(effect);
    return row ? row->onlyWhen : std::string_view();
}

bool FilterToProject(const EffectContext& context, ConstHandle effect, Components& components)
{
    const EffectRow* const row = RowOfFilter(effect);
    const std::size_t first = components.size();
    if (!row || !row->toProject || !row->toProject(context, *row, effect, components))
        return false;
    NameComponents(context, *row, effect, std::span(components).subspan(first));
    if (IsByRows(*row))
        RemarkOnParameters(context, row->params, effect);
    return true;
}

bool IsNeutralFilter(ConstHandle effect)
{
    const EffectRow* const row = FindById(effect.GetProperty("effectid"));
    if (!row)
        return false;
    if (row->xmeml.id == kTimeRemap.xmeml.id)
        return IsNeutralSpeed(effect);
    for (const ConstHandle parameter : effect.GetChildren("parameter"))
        if (!IsHarmless(FindParamRow(row->params, parameter.GetProperty("parameterid")),
                        parameter) &&
            StatesValue(parameter))
            return false;
    return true;
}

void FiltersToXmeml(const EffectContext& context, ConstHandle chain, ObjectHandle element)
{
    for (const ConstHandle component : ComponentsOf(chain)) {
        const std::string_view matchName = ComponentMatchName(component);
        if (matchName != kMotion.project.match && matchName != kOpacity.project.match)
            ComponentToXmeml(context, component, element);
    }
}

} // namespace XPJ
