#include "effects/motion.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "effects/values.h"
#include "effects/video_component.h"

#include <cmath>
#include <string>

namespace XPJ {

namespace {

constexpr ComponentNames kNames = {"KX.ORRN Motion", "Motion"};

// A Basic 3D names three of them in its own way.
struct MotionRow {
    ParamRow param; // its value stands where the parameter is there without one
    std::string_view basic3DSource;
    std::string_view missing; // where the parameter itself is not there
};

// In the order of the project.
// clang-format off
constexpr MotionRow kPosition =
    {{1, ParamKind::Point, "Position", "center", ""}, "center", "0.5:0.5"};
constexpr MotionRow kScale =
    {{2, ParamKind::Scalar, "Scale", "scale", "1.0", "0.", "600."}, "s", "100"};
constexpr MotionRow kScaleWidth =
    {{3, ParamKind::Scalar, "Scale Width", "scale", "1.0", "0.", "600."}, "s", "100"};
constexpr ParamRow kUniformScale = {4, ParamKind::CheckBox, " ", "", ""};
constexpr MotionRow kRotation =
    {{5, ParamKind::Scalar, "Rotation", "rotation", "0", "-32768.", "32767."}, "rz", "0."};
constexpr MotionRow kAnchorPoint =
    {{6, ParamKind::Point, "Anchor Point", "centerOffset", ""}, "centerOffset", "0.5:0.5"};
constexpr MotionRow kAntiFlicker =
    {{7, ParamKind::Slider, "Anti-flicker Filter", "antiflicker", "0.", "0.", "1."}, "antiflicker", "0."};
// clang-format on

ObjectHandle SourceOf(const MotionRow& row, ObjectHandle effect)
{
    const ObjectHandle parameter = FindParameter(effect, row.param.source);
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
ObjectHandle MakeNumber(const EffectContext& context, const MotionRow& row, ObjectHandle effect,
                        double factor = 1.0, bool takesKeyframes = true)
{
    const ObjectHandle parameter = SourceOf(row, effect);
    const std::string_view value =
        parameter ? StaticValue(parameter, row.param.value) : row.missing;
    return MakeMotionParam(context.document, row.param, ScaledText(value, factor),
                           takesKeyframes ? ScalarKeyframes(parameter, context.frameTicks, factor)
                                          : std::string());
}

// Position and anchor point. A document states the position of the frame's centre, a project that
// of the anchor point.
struct Place {
    std::string position{kPosition.missing};
    std::string anchor{kAnchorPoint.missing};
    AnchorAndPosition keyframes;
};

Place PlaceOf(const EffectContext& context, ObjectHandle effect)
{
    const double horizontal = context.HorizontalRatio();
    const double vertical = context.VerticalRatio();
    const ObjectHandle center = SourceOf(kPosition, effect);
    const ObjectHandle centerOffset = SourceOf(kAnchorPoint, effect);
    const Point offset = StaticPoint(centerOffset);
    Place place;
    if (center) {
        const Point point = StaticPoint(center);
        place.position = PointText({(point.horiz + offset.horiz) * horizontal + 0.5,
                                    (point.vert + offset.vert) * vertical + 0.5});
    }
    if (centerOffset) {
        place.anchor = PointText({offset.horiz + 0.5, offset.vert + 0.5});
        place.keyframes =
            PairedPointKeyframes(centerOffset, center, context.frameTicks, horizontal, vertical);
    } else {
        place.keyframes.position = PointKeyframes(center, context.frameTicks, horizontal, vertical);
    }
    return place;
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

} // namespace

ScaleFactors ScaleFactorsOf(const EffectContext& context, ObjectHandle distort)
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
    SnapToOne(factors.x);
    SnapToOne(factors.y);
    if (ratio > 1) {
        factors.x /= ratio;
        factors.y /= ratio;
    }
    return factors;
}

ObjectHandle TranslateMotion(const EffectContext& context, ObjectHandle source,
                             ObjectHandle distort)
{
    const ScaleFactors factors = ScaleFactorsOf(context, distort);
    if (!source && factors.x == 1.0 && factors.y == 1.0)
        return {};
    Document& document = context.document;
    const ObjectHandle component = MakeIntrinsicComponent(document, kNames);
    const Place place = PlaceOf(context, source);
    const bool uniform = IsUniform(factors, static_cast<bool>(SourceOf(kScale, source)));
    const auto add = [component](ObjectHandle param) { component.AddChild("Param", param); };
    add(MakeMotionParam(document, kPosition.param, place.position, place.keyframes.position));
    add(MakeNumber(context, kScale, source, factors.y));
    add(MakeNumber(context, kScaleWidth, source, factors.x, !uniform));
    add(MakeCheckBox(document, kUniformScale.name, kUniformScale.id, uniform));
    add(MakeNumber(context, kRotation, source));
    add(MakeMotionParam(document, kAnchorPoint.param, place.anchor, place.keyframes.anchor));
    add(MakeNumber(context, kAntiFlicker, source));
    return component;
}

EffectListing ListMotion()
{
    EffectListing listing{.family = "Intrinsic", .name = kNames.display, .effectId = "basic"};
    for (const MotionRow& row :
         {kPosition, kScale, kScaleWidth, kRotation, kAnchorPoint, kAntiFlicker})
        listing.parameters.push_back({row.param.name, true});
    listing.note = "keyframe interpolation is not carried";
    return listing;
}

} // namespace XPJ
