#include "export/item_times.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "export/rates.h"
#include "project/accessors.h"

#include <cmath>
#include <limits>

namespace XPJ::RVX {

namespace {

constexpr std::int64_t kOpen = -1; // a time that is not stated

// A still shows ten seconds from one minute in.
constexpr std::int64_t kInfiniteIn = 60;
constexpr std::int64_t kInfiniteOut = 70;

Ticks Difference(Ticks a, Ticks b)
{
    constexpr Ticks kLowest = std::numeric_limits<Ticks>::min();
    return AddTicks(a, b == kLowest ? std::numeric_limits<Ticks>::max() : -b);
}

// True if an edge is lost in whole frames of the item: who reads them takes the sequence's first
// frame from there on.
bool IsLost(Ticks edge, const ItemTiming& timing)
{
    return timing.sequenceRate > 0 && timing.rate > timing.sequenceRate &&
           edge % timing.rate >= timing.sequenceRate;
}

// Gives how far the transition at this edge reaches beyond it; 0 without one.
//   |   item   |=====|      end -1, delta = end of the transition - End
Ticks WriteEdge(ExportContext& context, ConstHandle trackItem, ConstHandle transition,
                Name projectKey, Name key, Name exactKey, const ItemTiming& timing,
                ObjectHandle element)
{
    const Ticks edge = Int64Property(ItemEdges(trackItem), projectKey);
    if (TransitionCore(transition)) { // is written; a time that it doesn't state is 0
        element.SetPropertyShared(key, "-1");
        return Difference(Int64Property(TransitionEdges(transition), projectKey), edge);
    }
    element.SetProperty(key, TimeText(context, edge, timing.rate));
    if (!context.inTicks && IsLost(edge, timing))
        element.SetProperty(exactKey, TickText(edge));
    return 0;
}

// Gives the point in the form at hand, as far on in the source as `delta` is in the sequence; a
// clip that doesn't state it leaves it open.
std::int64_t WritePoint(ExportContext& context, ConstHandle core, Name projectKey, Ticks delta,
                        double speed, Ticks rate, Name ticksKey, ObjectHandle element)
{
    if (!core.HasProperty(projectKey) || Int64Property(core, projectKey) < 0)
        return kOpen;
    const Ticks sourceDelta = speed == 1.0 ? delta : ToTicks(static_cast<double>(delta) * speed);
    const Ticks point = AddTicks(Int64Property(core, projectKey), sourceDelta);
    element.SetProperty(ticksKey, TickText(point));
    const Ticks played = speed == 1.0 ? point : ToTicks(static_cast<double>(point) / speed);
    return TimeOf(context, played, rate);
}

// The length that the speed keyframes state, with the last of them, or else the source's.
std::int64_t PlayedLength(const ExportContext& context, ConstHandle clip, const ItemTiming& timing)
{
    const std::vector<SpeedPoint> points = ParseSpeedKeyframes(SpeedKeyframesOf(clip));
    if (points.empty())
        return timing.originalDuration;
    const Ticks last = points.back().mediaTime;
    if (context.inTicks)
        return last;
    return ToTicks(std::round(static_cast<double>(last) / static_cast<double>(timing.rate)));
}

} // namespace

void WriteEdges(ExportContext& context, ConstHandle trackItem, ItemTiming& timing,
                ObjectHandle element)
{
    timing.startDelta = WriteEdge(context, trackItem, HeadTransitionOf(trackItem), "Start", "start",
                                  "velaTicksStart", timing, element);
    timing.endDelta = WriteEdge(context, trackItem, TailTransitionOf(trackItem), "End", "end",
                                "velaTicksEnd", timing, element);
}

void ReadSpeed(const ExportContext& context, ConstHandle clip, ItemTiming& timing)
{
    const ConstHandle core = ClipCore(clip);
    const double speed = DoubleProperty(core, "PlaybackSpeed");
    timing.speed = speed > 0 ? speed : 1.0;
    timing.reverse = IsTrue(core, "PlayBackwards");
    timing.frameBlend = clip.HasProperty("TimeInterpolationType") &&
                        clip.GetProperty("TimeInterpolationType") != "0";
    const ConstHandle source = SourceOfClip(clip);
    if (source.HasProperty("OriginalDuration"))
        timing.originalDuration =
            TimeOf(context, Int64Property(source, "OriginalDuration"), timing.rate);
}

void WriteRange(ExportContext& context, ConstHandle clip, double speed, const ItemTiming& timing,
                ObjectHandle element)
{
    std::int64_t in = kOpen;
    std::int64_t out = kOpen;
    const ConstHandle core = ClipCore(clip);
    if (core) {
        in = WritePoint(context, core, "InPoint", timing.startDelta, speed, timing.rate,
                        "velaTicksIn", element);
        out = WritePoint(context, core, "OutPoint", timing.endDelta, speed, timing.rate,
                         "velaTicksOut", element);
    }
    const bool isOpenStill = timing.infinite && (in < 0 || out < 0);
    if (isOpenStill) {
        const std::int64_t perSecond = DivTicks(kTicksPerSecond, timing.rate);
        in = perSecond * kInfiniteIn;
        out = perSecond * kInfiniteOut;
    }
    if (core || isOpenStill) {
        element.SetProperty("in", IntToString(in));
        element.SetProperty("out", IntToString(out));
    }
}

void WriteDuration(ExportContext& context, ConstHandle clip, ItemTiming& timing,
                   ObjectHandle element)
{
    const std::int64_t length = PlayedLength(context, clip, timing);
    timing.duration =
        timing.speed == 1.0 ? length : ToTicks(static_cast<double>(length) / timing.speed);
    timing.ratio =
        timing.originalDuration == 0 || timing.duration == 0
            ? timing.speed
            : static_cast<double>(timing.originalDuration) / static_cast<double>(timing.duration);
    element.SetProperty("duration", IntToString(timing.duration));
}

} // namespace XPJ::RVX
