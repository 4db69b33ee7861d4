#include "effects/motion.h"

#include "core/numbers.h"
#include "effects/effect_losses.h"
#include "effects/keyframes.h"
#include "effects/param_losses.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

// A Basic 3D names three of the parameters in its own way.
struct MotionRow {
    const ParamRow& param; // its value is used where the parameter is there without one
    std::string_view basic3DSource;
    std::string_view missing; // where the parameter itself is not there
};

constexpr MotionRow kPosition = {kMotionParams[0], "center", "0.5:0.5"};
constexpr MotionRow kScale = {kMotionParams[1], "s", "100"};
constexpr MotionRow kScaleWidth = {kMotionParams[2], "s", "100"};
constexpr const ParamRow& kUniformScale = kMotionParams[3];
constexpr MotionRow kRotation = {kMotionParams[4], "rz", "0."};
constexpr MotionRow kAnchorPoint = {kMotionParams[5], "centerOffset", "0.5:0.5"};
constexpr MotionRow kAntiFlicker = {kMotionParams[6], "antiflicker", "0."};

// ---- To a project

ConstHandle SourceOf(const MotionRow& row, ConstHandle effect)
{
    const ConstHandle parameter = FindParameter(effect, row.param.xmeml.id);
    return parameter ? parameter : FindParameter(effect, row.basic3DSource);
}

ObjectHandle MakeMotionParam(Document& document, const ParamRow& row, std::string_view value,
                             std::string_view keyframes)
{
    const ObjectHandle param = MakeParam(
        document, row.kind,
        {.name = row.name, .id = row.id, .value = value, .lower = row.lower, .upper = row.upper});
    SetKeyframes(param, keyframes);
    return param;
}

// A number; `factor` is that of a scale.
ObjectHandle MakeNumber(const EffectContext& context, const MotionRow& row, ConstHandle effect,
                        double factor = 1.0, bool takesKeyframes = true)
{
    const ConstHandle parameter = SourceOf(row, effect);
    const std::string_view value =
        parameter ? StaticValue(parameter, row.param.value) : row.missing;
    return MakeMotionParam(context.document, row.param, ScaledText(value, factor),
                           takesKeyframes ? ScalarKeyframes(parameter, context.frameTicks, factor)
                                          : std::string());
}

// Position and anchor point. A document states the position of the center of the clip, a project
// that of the anchor point.
struct Position {
    std::string position{kPosition.missing};
    std::string anchor{kAnchorPoint.missing};
    AnchorAndPosition keyframes;
};

// A point without keyframes, with one beside each keyframe of the other: the clip moves with its
// anchor, or about it.
ObjectHandle HeldBeside(const EffectContext& context, ConstHandle parameter, ConstHandle other)
{
    const Point point = StaticPoint(parameter);
    const ObjectHandle held = context.document.NewObject("parameter");
    for (const ConstHandle child : other.GetChildren())
        if (child.GetName() == "keyframe")
            AddPointKeyframe(context.document, held, Int64Property(child, "when"), point);
        else if (child.GetName() == "value")
            AddPointValue(context.document, held, point);
    return held;
}

// True for keyframes that all are at one position, but for what six digits lose.
bool AreAllAt(std::string_view position, std::string_view keyframes)
{
    constexpr double kNoise = 1e-5;
    const Point point = ParsePoint(position, {});
    return std::ranges::all_of(ParseKeyframes(keyframes), [&](const KeyframeRecord& record) {
        return std::abs(record.GetPoint().horiz - point.horiz) < kNoise &&
               std::abs(record.GetPoint().vert - point.vert) < kNoise;
    });
}

Position PositionOf(const EffectContext& context, ConstHandle effect)
{
    const double horizontal = context.HorizontalRatio();
    const double vertical = context.VerticalRatio();
    const ConstHandle center = SourceOf(kPosition, effect);
    const ConstHandle centerOffset = SourceOf(kAnchorPoint, effect);
    const Point offset = StaticPoint(centerOffset);
    Position result;
    if (center || (context.openInterchange && centerOffset)) {
        const Point point = StaticPoint(center);
        result.position = PointText({(point.horiz + offset.horiz) * horizontal + kFrameCenter.horiz,
                                     (point.vert + offset.vert) * vertical + kFrameCenter.vert});
    }
    if (centerOffset) {
        result.anchor =
            PointText({offset.horiz + kFrameCenter.horiz, offset.vert + kFrameCenter.vert});
        const bool mayHold =
            context.openInterchange && center && HasKeyframes(centerOffset) != HasKeyframes(center);
        const bool holdsAnchor = mayHold && HasKeyframes(center);
        const bool holdsCenter = mayHold && !holdsAnchor;
        result.keyframes = PairedPointKeyframes(
            holdsAnchor ? HeldBeside(context, centerOffset, center) : centerOffset,
            holdsCenter ? HeldBeside(context, center, centerOffset) : center, context.frameTicks,
            horizontal, vertical);
        if (holdsAnchor)
            result.keyframes.anchor.clear();
        if (result.keyframes.unpaired > 0)
            context.AddRemark(RemarkKind::KeyframeUnpaired, effect, ParameterName(centerOffset),
                              result.keyframes.unpaired);
        if (context.openInterchange && !result.keyframes.anchor.empty() &&
            AreAllAt(result.position, result.keyframes.position))
            result.keyframes.position.clear();
    } else {
        result.keyframes.position =
            PointKeyframes(center, context.frameTicks, horizontal, vertical);
    }
    return result;
}

// A stated scale is uniform at factors that are about equal, the scale of an item without one only
// at factors that are the same.
bool IsUniform(const ScaleFactors& factors, bool hasScale)
{
    constexpr double kAboutEqual = 0.0001;
    return hasScale ? std::abs(factors.x - factors.y) < kAboutEqual : factors.x == factors.y;
}

void SnapToOne(double& factor)
{
    constexpr double kNearOne = 0.026;
    if (std::abs(factor - 1.0) < kNearOne)
        factor = 1.0;
}

// ---- To `xmeml`

constexpr double kFullScale = 100;

struct Scale {
    double height = kFullScale;
    double width = kFullScale;
    std::string_view keyframes;

    bool IsStretched() const { return height != width && height > 0 && width > 0; }
};

Scale ReadScale(ConstHandle component)
{
    const ConstHandle height = ParamOfRow(component, kScale.param);
    const ConstHandle width = ParamOfRow(component, kScaleWidth.param);
    Scale scale;
    scale.height = StartNumber(height, kFullScale);
    scale.width = StartSwitch(ParamOfRow(component, kUniformScale), true)
                      ? scale.height
                      : StartNumber(width, kFullScale);
    // A document has one list: that of the larger scale, of the height where both are the same.
    const bool takesWidth = scale.width > scale.height ||
                            (scale.width == scale.height && !HasValue(height, "Keyframes"));
    scale.keyframes = (takesWidth ? width : height).GetProperty("Keyframes");
    return scale;
}

// The factors from fractions of the sequence's frame to those of the clip's.
struct FrameFactors {
    double horizontal = 1.0;
    double vertical = 1.0;
};

double Factor(int sequence, int clip)
{
    return sequence > 0 && clip > 0 ? static_cast<double>(sequence) / clip : 1.0;
}

FrameFactors FrameFactorsOf(const EffectContext& context)
{
    return {Factor(context.sequenceFrame.width, context.clipFrame.width),
            Factor(context.sequenceFrame.height, context.clipFrame.height)};
}

// What remains of equal numbers is no position.
double Difference(double a, double b)
{
    constexpr double kNoise = 1e-9; // of a frame's width
    return std::abs(a - b) < kNoise ? 0 : a - b;
}

// A project states the position of the anchor point, a document that of the center of the clip.
void AddCenter(const EffectContext& context, ConstHandle component, const FrameFactors& factors,
               ObjectHandle effect)
{
    const ConstHandle position = ParamOfRow(component, kPosition.param);
    const ConstHandle anchor = ParamOfRow(component, kAnchorPoint.param);
    const Point offset = FromCenter(StartPoint(anchor, kFrameCenter));
    const auto center = [&factors](const Point& point, const Point& anchorOffset) {
        const Point moved = FromCenter(point);
        return Point{Difference(moved.horiz * factors.horizontal, anchorOffset.horiz),
                     Difference(moved.vert * factors.vertical, anchorOffset.vert)};
    };
    const ObjectHandle parameter =
        AddParameter(context.document, kPosition.param.xmeml, {}, effect);
    AddPointValue(context.document, parameter, center(StartPoint(position, kFrameCenter), offset));

    const std::vector<KeyframeRecord> moves = ParseKeyframes(position.GetProperty("Keyframes"));
    const std::vector<KeyframeRecord> anchors = ParseKeyframes(anchor.GetProperty("Keyframes"));
    if (context.openInterchange && moves.empty())
        for (const KeyframeRecord& record : anchors)
            AddPointKeyframe(
                context.document, parameter, DivTicks(record.time, context.frameTicks),
                center(StartPoint(position, kFrameCenter), FromCenter(record.GetPoint())));
    const bool inStep = moves.size() == anchors.size();
    for (std::size_t i = 0; i < moves.size(); ++i)
        MarkHeld(moves[i],
                 AddPointKeyframe(context.document, parameter,
                                  DivTicks(moves[i].time, context.frameTicks),
                                  center(moves[i].GetPoint(),
                                         inStep ? FromCenter(anchors[i].GetPoint()) : offset)));
}

bool AreInStep(std::span<const KeyframeRecord> a, std::span<const KeyframeRecord> b)
{
    return std::ranges::equal(a, b, {}, &KeyframeRecord::time, &KeyframeRecord::time);
}

// True where one list of keyframes and a stretch state both scales.
bool AreInProportion(ConstHandle height, ConstHandle width)
{
    constexpr double kAboutEqual = 1e-3; // of a percent
    const std::vector<KeyframeRecord> heights = ParseKeyframes(height.GetProperty("Keyframes"));
    const std::vector<KeyframeRecord> widths = ParseKeyframes(width.GetProperty("Keyframes"));
    const double stretch = StartNumber(width, kFullScale) / StartNumber(height, kFullScale);
    return AreInStep(heights, widths) &&
           std::ranges::equal(heights, widths, [stretch](const auto& a, const auto& b) {
               return std::abs(a.Number() * stretch - b.Number()) < kAboutEqual;
           });
}

// A document has one scale, and one center that its anchor point moves.
void ReportMovement(const EffectContext& context, ConstHandle component)
{
    if (!StartSwitch(ParamOfRow(component, kUniformScale), true) &&
        !AreInProportion(ParamOfRow(component, kScale.param),
                         ParamOfRow(component, kScaleWidth.param)))
        context.AddRemark(RemarkKind::ScaleOfTwo, SubjectOf(component));
    const ConstHandle anchor = ParamOfRow(component, kAnchorPoint.param);
    if (!HasValue(anchor, "Keyframes"))
        return;
    const ConstHandle position = ParamOfRow(component, kPosition.param);
    const std::vector<KeyframeRecord> moves = ParseKeyframes(position.GetProperty("Keyframes"));
    const bool isHeld = moves.empty() && context.openInterchange;
    if (!isHeld && !AreInStep(moves, ParseKeyframes(anchor.GetProperty("Keyframes"))))
        context.AddRemark(RemarkKind::AnchorOutOfStep, SubjectOf(component));
}

// ---- Basic 3D

bool Turns(ConstHandle effect, std::string_view id)
{
    const ConstHandle parameter = FindParameter(effect, id);
    return HasKeyframes(parameter) || ParseDouble(PlainValue(parameter)) != 0;
}

} // namespace

ScaleFactors ScaleFactorsOf(const EffectContext& context, ConstHandle distort)
{
    ScaleFactors factors;
    const double percent = ParseDouble(StaticValue(FindParameter(distort, "aspect"), "0"));
    if (percent < 0)
        factors.y = 1.0 / (1.0 - percent / 100);
    if (percent > 0)
        factors.x = 1.0 / (1.0 + percent / 100);
    const double ratio = context.AspectRatio();
    if (ratio < 1)
        factors.x /= ratio;
    if (ratio > 1)
        factors.y *= ratio;
    factors.x *= context.decodedWidthRatio;
    factors.y *= context.decodedHeightRatio;
    // Between equal pixels a stretch is meant as it is stated.
    if (!context.openInterchange || ratio != 1) {
        SnapToOne(factors.x);
        SnapToOne(factors.y);
    }
    if (ratio > 1) {
        factors.x /= ratio;
        factors.y /= ratio;
    }
    return factors;
}

ObjectHandle TranslateMotion(const EffectContext& context, ConstHandle source, ConstHandle distort)
{
    const ScaleFactors factors = ScaleFactorsOf(context, distort);
    if (!source && factors.x == 1.0 && factors.y == 1.0)
        return {};
    Document& document = context.document;
    const ObjectHandle component = MakeIntrinsicComponent(document, kMotion.project);
    if (context.openInterchange) {
        CopyBypass(source, component);
        CopyExpanded(source, component);
    } else if (IsTrue(source, "velaBypass")) {
        context.AddRemark(RemarkKind::BypassLost, source);
    }
    const Position position = PositionOf(context, source);
    const bool uniform = IsUniform(factors, static_cast<bool>(SourceOf(kScale, source)));
    const auto add = [component](ObjectHandle param) { component.AddChild("Param", param); };
    add(MakeMotionParam(document, kPosition.param, position.position, position.keyframes.position));
    add(MakeNumber(context, kScale, source, factors.y));
    add(MakeNumber(context, kScaleWidth, source, factors.x, !uniform));
    add(MakeCheckBox(document, kUniformScale.name, kUniformScale.id, uniform));
    add(MakeNumber(context, kRotation, source));
    add(MakeMotionParam(document, kAnchorPoint.param, position.anchor, position.keyframes.anchor));
    add(MakeNumber(context, kAntiFlicker, source));
    return component;
}

ObjectHandle AddScaleParameter(Document& document, double percent, ObjectHandle effect)
{
    return AddParameter(document, kScale.param.xmeml, NumberText(percent), effect);
}

double MotionToXmeml(const EffectContext& context, ConstHandle component, ObjectHandle item)
{
    const ObjectHandle effect = AddFilter(context.document, kMotion.xmeml, item);
    WriteSwitches(component, effect);
    const Scale scale = ReadScale(component);
    const ObjectHandle parameter =
        AddScaleParameter(context.document, std::max(scale.height, scale.width), effect);
    WriteKeyframes(context.document, parameter, scale.keyframes, context.frameTicks);
    AddRowParameter(context, kRotation.param, component, effect);
    AddRowParameter(context, kAnchorPoint.param, component, effect);
    AddCenter(context, component, FrameFactorsOf(context), effect);
    AddRowParameter(context, kAntiFlicker.param, component, effect);
    ReportParams(context, kMotionParams, component, kUniformScale.id);
    ReportMovement(context, component);
    return scale.IsStretched() ? scale.width / scale.height : 1.0;
}

Basic3D TranslateBasic3D(const EffectContext& context, ConstHandle effect)
{
    Basic3D result;
    for (const std::string_view id : {"s", "center", "rz"})
        result.isMotionSource |= static_cast<bool>(FindParameter(effect, id));
    Components components;
    if (Turns(effect, "rx") || Turns(effect, "ry") || IsReturning(context, effect)) {
        ParamsToProject(context, kBasic3D, effect, components);
        result.component = components.front();
    }
    return result;
}

} // namespace XPJ
