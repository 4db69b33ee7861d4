#include "effects/motion_to_xmeml.h"

#include "effects/distort.h"
#include "effects/keyframes.h"
#include "effects/parameters.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

namespace XPJ::RVX {

namespace {

constexpr std::string_view kPosition = "1";
constexpr std::string_view kHeightScale = "2";
constexpr std::string_view kWidthScale = "3";
constexpr std::string_view kUniformScale = "4";
constexpr std::string_view kAnchorPoint = "6";

constexpr double kFullScale = 100;

constexpr NumberRow kRotation = {"5", "rotation", "Rotation", "-8640", "8640"};
constexpr PointRow kAnchor = {kAnchorPoint, "centerOffset", "Anchor Point"};
constexpr NumberRow kAntiFlicker = {"7", "antiflicker", "Anti-flicker Filter", "0.0", "1.0"};

struct Scale {
    double height = kFullScale;
    double width = kFullScale;
    std::string_view keyframes;

    bool IsStretched() const { return height != width && height > 0 && width > 0; }
};

Scale ReadScale(const EffectSource& source)
{
    const ConstHandle height = source.Param(kHeightScale);
    const ConstHandle width = source.Param(kWidthScale);
    Scale scale;
    scale.height = StartNumber(height, kFullScale);
    scale.width = StartSwitch(source.Param(kUniformScale), true) ? scale.height
                                                                 : StartNumber(width, kFullScale);
    // A document has one list: that of the larger scale, of the height where both are the same.
    const bool takesWidth = scale.width > scale.height ||
                            (scale.width == scale.height && !HasValue(height, "Keyframes"));
    scale.keyframes = (takesWidth ? width : height).GetProperty("Keyframes");
    return scale;
}

void AddScale(const EffectSource& source, const Scale& scale, ObjectHandle effect)
{
    const ObjectHandle parameter =
        AddScaleParameter(source.document, std::max(scale.height, scale.width), effect);
    WriteKeyframes(source.document, parameter, scale.keyframes, source.frameTicks);
}

// What is left of equal numbers is no position.
double Difference(double a, double b)
{
    constexpr double kNoise = 1e-9; // of a frame's width
    return std::abs(a - b) < kNoise ? 0 : a - b;
}

// A project states where the anchor point stands, a document where the picture's centre does.
void AddCenter(const EffectSource& source, const FrameFactors& factors, ObjectHandle effect)
{
    const ConstHandle position = source.Param(kPosition);
    const ConstHandle anchor = source.Param(kAnchorPoint);
    const Point offset = FromCentre(StartPoint(anchor, kFrameCentre));
    const auto center = [&factors](const Point& point, const Point& anchorOffset) {
        const Point moved = FromCentre(point);
        return Point{Difference(moved.horiz * factors.horizontal, anchorOffset.horiz),
                     Difference(moved.vert * factors.vertical, anchorOffset.vert)};
    };
    const ObjectHandle parameter =
        AddParameter(source.document, effect, {.id = "center", .name = "Center"});
    AddPointValue(source.document, parameter, center(StartPoint(position, kFrameCentre), offset));

    const std::vector<KeyframeRecord> moves = ParseKeyframes(position.GetProperty("Keyframes"));
    const std::vector<KeyframeRecord> anchors = ParseKeyframes(anchor.GetProperty("Keyframes"));
    const bool inStep = moves.size() == anchors.size();
    for (std::size_t i = 0; i < moves.size(); ++i)
        AddPointKeyframe(
            source.document, parameter, DivTicks(moves[i].time, source.frameTicks),
            center(moves[i].GetPoint(), inStep ? FromCentre(anchors[i].GetPoint()) : offset));
}

} // namespace

void ExportMotion(const EffectSource& source, const FrameFactors& factors, ObjectHandle item)
{
    const ObjectHandle effect = AddFilter(source.document, kBasicMotion, item);
    WriteSwitches(source.component, effect);
    const Scale scale = ReadScale(source);
    AddScale(source, scale, effect);
    AddNumber(source, kRotation, effect);
    AddPoint(source, kAnchor, effect);
    AddCenter(source, factors, effect);
    AddNumber(source, kAntiFlicker, effect);
    if (scale.IsStretched())
        ApplyAspect(source.document, item, AspectOfRatio(scale.width / scale.height));
}

} // namespace XPJ::RVX
