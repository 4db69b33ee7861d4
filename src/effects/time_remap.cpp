#include "effects/time_remap.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/keyframes.h"
#include "effects/values.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace XPJ {

namespace {

constexpr const ParamRow& kSpeedCurve = kTimeRemapParams[0];
constexpr const ParamRow& kReverse = kTimeRemapParams[1];
constexpr const ParamRow& kFrameBlending = kTimeRemapParams[2];
constexpr const ParamRow& kVariable = kTimeRemapParams[3];
constexpr const ParamRow& kConstantSpeed = kTimeRemapParams[4];

// ---- To a project

bool IsSwitchedOn(ConstHandle parameter)
{
    const std::string_view value = PlainValue(parameter);
    return ParseInt(value) > 0 || EqualsIgnoreCase(value, "true");
}

bool HasOwnPoint(ConstHandle graph)
{
    for (const ConstHandle keyframe : graph.GetChildren("keyframe"))
        if (!IsTrue(keyframe, "speedvirtualkf") && !IsTrue(keyframe, "speedkfin") &&
            !IsTrue(keyframe, "speedkfout"))
            return true;
    return false;
}

ObjectHandle MakeSpeedParam(Document& document, ConstHandle graph, Ticks frameTicks)
{
    const ObjectHandle param =
        MakeParam(document, kSpeedCurve.kind,
                  {.name = kSpeedCurve.name,
                   .id = kSpeedCurve.id,
                   .upper = MediaSecondsText(graph.GetProperty("valuemax"), frameTicks)});
    param.SetPropertyShared("IsTimeVarying", "true");
    SetKeyframes(param, SpeedKeyframes(graph, frameTicks));
    return param;
}

// ---- To `xmeml`

// A point of the graph: frames of the item across, frames of the source upwards.
struct GraphPoint {
    double x = 0;
    double y = 0;
};

GraphPoint operator+(const GraphPoint& a, const GraphPoint& b)
{
    return {a.x + b.x, a.y + b.y};
}

GraphPoint operator*(const GraphPoint& a, double factor)
{
    return {a.x * factor, a.y * factor};
}

struct GraphNode {
    std::int64_t when = 0;
    double value = 0;
    int kind = 0;
    ObjectHandle keyframe; // the written one

    GraphPoint Point() const { return {static_cast<double>(when), value}; }
};

using Graph = std::vector<GraphNode>;

// Whole numbers keep all their digits: lengths in ticks have more than other values.
std::string ValueText(double value)
{
    constexpr double kMostExact = 9007199254740992.0; // 2^53
    if (std::abs(value) <= kMostExact && value == std::trunc(value))
        return IntToString(ToTicks(value));
    return NumberText(value);
}

GraphNode MakeNode(Document& document, std::int64_t when, double value, int kind = 0)
{
    return {when, value, kind, AddKeyframe(document, {}, when, ValueText(value))};
}

Graph ReadGraph(Document& document, std::string_view keyframes, const PlayedSpeed& speed)
{
    Graph graph;
    for (const SpeedPoint& point : ParseSpeedKeyframes(keyframes)) {
        const Ticks played = speed.factor == 1.0
                                 ? point.time
                                 : ToTicks(static_cast<double>(point.time) / speed.factor);
        graph.push_back(
            MakeNode(document, DivTicks(played, speed.frameTicks),
                     static_cast<double>(point.mediaTime) / static_cast<double>(speed.frameTicks),
                     point.kind));
    }
    return graph;
}

double Slope(const GraphPoint& a, const GraphPoint& b)
{
    return a.x == b.x ? 0 : (b.y - a.y) / (b.x - a.x);
}

// Where the line through `b` with slope `before` meets that through `c` with slope `after`; half
// way for lines that don't meet.
GraphPoint MeetingPoint(const GraphPoint& b, double before, const GraphPoint& c, double after)
{
    constexpr double kParallel = 1e-9;
    if (!(std::abs(before - after) < kParallel)) {
        const double x = (before * b.x - after * c.x + c.y - b.y) / (before - after);
        const double y = b.y + before * (x - b.x);
        if (std::isfinite(x) && std::isfinite(y))
            return {x, y};
    }
    return (b + c) * 0.5;
}

// The handle of a Bezier curve from a node to its control point.
void AddHandle(Document& document, Name name, const GraphPoint& node, const GraphPoint& control,
               double speed, ObjectHandle keyframe)
{
    const GraphPoint vector = control + node * -1;
    const ObjectHandle handle = document.NewObject(name);
    handle.SetProperty("horiz", NumberText(std::hypot(vector.x, vector.y) * 0.5 / speed));
    handle.SetProperty("vert", NumberText(std::atan2(vector.y, vector.x)));
    keyframe.AddChild(handle);
}

bool IsRamp(const GraphNode& from, const GraphNode& to)
{
    const bool starts = from.kind == static_cast<int>(SpeedKind::Ordinary) ||
                        from.kind == static_cast<int>(SpeedKind::RampStart);
    return starts && to.kind == static_cast<int>(SpeedKind::RampEnd);
}

//        M           the segments around a ramp B C, drawn on to where they meet; the curve's
//       / \          control points are two thirds of the way there
//   A--B   C--D
void AddRamp(Document& document, const Graph& graph, std::size_t index, double speed)
{
    const GraphNode& start = graph[index];
    const GraphNode& end = graph[index + 1];
    const GraphPoint b = start.Point();
    const GraphPoint c = end.Point();
    const double own = Slope(b, c);
    const double before = index > 0 ? Slope(graph[index - 1].Point(), b) : own;
    const double after = index + 2 < graph.size() ? Slope(c, graph[index + 2].Point()) : own;
    const GraphPoint meeting = MeetingPoint(b, before, c, after);
    const auto control = [&meeting](const GraphPoint& node) {
        return (node + meeting * 2) * (1.0 / 3);
    };
    AddHandle(document, "outbez", b, control(b), speed, start.keyframe);
    start.keyframe.SetPropertyShared("velaRampStart", "TRUE");
    AddHandle(document, "inbez", c, control(c), speed, end.keyframe);
    end.keyframe.SetPropertyShared("velaRampEnd", "TRUE");
}

// Three points are the least that make a ramp.
void AddRamps(Document& document, const Graph& graph, double speed)
{
    constexpr std::size_t kLeastPoints = 3;
    if (graph.size() < kLeastPoints)
        return;
    for (std::size_t i = 0; i + 1 < graph.size(); ++i)
        if (IsRamp(graph[i], graph[i + 1]))
            AddRamp(document, graph, i, speed);
}

// The value at a frame between two nodes; nothing at a node itself, which would no longer count if
// it marked an edge.
std::optional<double> ValueBetween(const Graph& graph, std::int64_t when)
{
    for (std::size_t i = 0; i + 1 < graph.size(); ++i) {
        if (graph[i].when >= when || when >= graph[i + 1].when)
            continue;
        const GraphPoint a = graph[i].Point();
        return a.y + Slope(a, graph[i + 1].Point()) * (static_cast<double>(when) - a.x);
    }
    return std::nullopt;
}

// Marks where the item begins and ends on the graph.
void AddEdges(Document& document, ObjectHandle item, Graph& graph)
{
    Graph edges;
    const struct {
        Name edge;
        Name mark;
    } rows[] = {{"in", "speedkfin"}, {"out", "speedkfout"}};
    for (const auto& row : rows) {
        const std::int64_t when = Int64Property(item, row.edge);
        const std::optional<double> value = ValueBetween(graph, when);
        if (!HasValue(item, row.edge) || !value)
            continue;
        edges.push_back(MakeNode(document, when, *value));
        const ObjectHandle keyframe = edges.back().keyframe;
        keyframe.SetPropertyShared("speedvirtualkf", "TRUE");
        keyframe.SetPropertyShared(when == 0 ? Name("speedkfstart") : row.mark, "TRUE");
    }
    graph.insert(graph.end(), edges.begin(), edges.end());
}

// A source that plays evenly from its first frame to its last.
Graph EvenGraph(Document& document, std::int64_t duration, std::int64_t sourceLength)
{
    const auto value = static_cast<double>(sourceLength);
    return {MakeNode(document, 0, 0),
            {duration, value, 0, AddKeyframe(document, {}, duration, IntToString(sourceLength))}};
}

// How much of the source plays. A ratio that is that of the two lengths would give the first of
// them back but for its rounding.
std::int64_t SourceLength(const PlayedSpeed& speed)
{
    const auto duration = static_cast<double>(speed.duration);
    if (speed.duration != 0 &&
        speed.ratio == static_cast<double>(speed.originalDuration) / duration)
        return speed.originalDuration;
    return ToTicks(speed.ratio * duration);
}

std::string_view UpperTrue(bool value)
{
    return value ? "TRUE" : "FALSE";
}

} // namespace

bool IsVariableSpeed(ConstHandle effect)
{
    return HasSpeedCurve(effect) && EqualsIgnoreCase(effect.GetProperty("mediatype"), "video");
}

bool HasSpeedCurve(ConstHandle effect)
{
    return IsSwitchedOn(FindParameter(effect, kVariable.xmeml.id)) &&
           HasOwnPoint(SpeedGraph(effect));
}

bool IsNeutralSpeed(ConstHandle effect)
{
    constexpr double kFullSpeed = 100;
    const std::string_view speed = PlainValue(FindParameter(effect, kConstantSpeed.xmeml.id));
    return (speed.empty() || ParseDouble(speed) == kFullSpeed) && !HasSpeedCurve(effect) &&
           !IsSwitchedOn(FindParameter(effect, kReverse.xmeml.id));
}

ConstHandle SpeedGraph(ConstHandle effect)
{
    return FindParameter(effect, kSpeedCurve.xmeml.id);
}

bool AddTimeRemapping(Document& document, ConstHandle effect, Ticks frameTicks,
                      ObjectHandle subClip)
{
    const ObjectHandle clip = subClip.GetChild("Clip");
    if (!clip || !effect)
        return false;
    if (clip.HasChild("TimeRemapping"))
        return true;
    const ObjectHandle remapping = document.NewObject("TimeRemapping");
    remapping.AddChild("Keyframes", MakeSpeedParam(document, SpeedGraph(effect), frameTicks));
    clip.AddChild("TimeRemapping", remapping);
    return true;
}

// Behind the kind of a record are the handles of its curve.
bool HasSpeedCurves(std::string_view keyframes)
{
    constexpr int kFirstHandle = 3;
    constexpr int kLastHandle = 7;
    while (!keyframes.empty()) {
        for (int field = kFirstHandle; field <= kLastHandle; ++field)
            if (ParseDouble(KeyframeField(keyframes, field)) != 0)
                return true;
        keyframes.remove_prefix(std::min(keyframes.find(';'), keyframes.size() - 1) + 1);
    }
    return false;
}

void TimeRemapToXmeml(Document& document, const PlayedSpeed& speed, std::string_view keyframes,
                      MediaType type, ObjectHandle item)
{
    const std::int64_t length = SourceLength(speed);
    Graph graph = ReadGraph(document, keyframes, speed);
    const bool isVariable = !graph.empty();
    if (isVariable) {
        AddRamps(document, graph, speed.factor);
        AddEdges(document, item, graph);
    } else {
        graph = EvenGraph(document, speed.duration, length);
    }
    std::stable_sort(graph.begin(), graph.end(),
                     [](const GraphNode& a, const GraphNode& b) { return a.when < b.when; });

    const ObjectHandle effect = AddFilter(document, kTimeRemap.xmeml, item);
    effect.SetPropertyShared("mediatype", type == MediaType::Video ? "video" : "audio");
    const auto add = [&](const ParamRow& row, std::string_view value) {
        AddParameter(document, row.xmeml, value, effect);
    };
    add(kVariable, isVariable ? "1" : "0");
    add(kConstantSpeed, NumberText(speed.ratio * 100));
    add(kReverse, UpperTrue(speed.reverse));
    add(kFrameBlending, UpperTrue(speed.frameBlend));
    const ObjectHandle graphdict = AddParameter(document, effect,
                                                {.id = kSpeedCurve.xmeml.id,
                                                 .name = kSpeedCurve.xmeml.name,
                                                 .min = kSpeedCurve.xmeml.min,
                                                 .max = IntToString(length)});
    for (const GraphNode& node : graph)
        graphdict.AddChild(node.keyframe);
}

} // namespace XPJ
