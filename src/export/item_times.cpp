#include "export/item_times.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "export/rates.h"
#include "project/accessors.h"

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

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

// One edge of an item and how it is written.
struct EdgeKeys {
    Name projectKey;
    Name key;
    Name exactKey;
};

constexpr EdgeKeys kStart = {"Start", "start", "velaTicksStart"};
constexpr EdgeKeys kEnd = {"End", "end", "velaTicksEnd"};
constexpr EdgeKeys kIn = {"InPoint", "in", "velaTicksIn"};
constexpr EdgeKeys kOut = {"OutPoint", "out", "velaTicksOut"};

// Gives how far the transition at this edge extends beyond it; 0 without one.
//   |   item   |=====|      end -1, delta = end of the transition - End
Ticks WriteEdge(const EdgeKeys& keys, TrackItem item, ConstHandle transition,
                const ItemTiming& timing, ObjectHandle element)
{
    const Ticks edge = Int64Property(item, keys.projectKey);
    if (IsTransition(transition)) { // is written; a time that it doesn't state is 0
        element.SetPropertyShared(keys.key, "-1");
        return Difference(Int64Property(transition, keys.projectKey), edge);
    }
    if (timing.openInterchange) {
        const std::int64_t frame = DivTicks(edge, timing.sequenceRate);
        element.SetProperty(keys.key, IntToString(frame));
        if (timing.rate != timing.sequenceRate)
            element.SetProperty(keys.exactKey, TickText(MultiplyTicks(frame, timing.sequenceRate)));
        return 0;
    }
    element.SetProperty(keys.key, TimeText(timing.unit, edge, timing.rate));
    if (timing.unit == TimeUnit::Frames && IsLost(edge, timing))
        element.SetProperty(keys.exactKey, TickText(edge));
    return 0;
}

// A point of the source at the edge of an item, as far on in the source as `delta` is in the
// sequence.
struct SourcePoint {
    const EdgeKeys& keys;
    Ticks delta;
    double speed;      // of the frames
    double exactSpeed; // of the exact ticks
};

Ticks Scaled(Ticks ticks, double speed)
{
    return speed == 1.0 ? ticks : ToTicks(static_cast<double>(ticks) * speed);
}

// The frame of a point, in what plays. To the letter it is the one that has begun. Other programs
// get the nearest one at normal speed; at another one readers to the letter find the point again
// from the one that has begun.
std::int64_t FrameOfPoint(Ticks played, const ItemTiming& timing)
{
    if (!timing.openInterchange || timing.unit == TimeUnit::Ticks)
        return TimeOf(timing.unit, played, timing.rate);
    return timing.speed == 1.0 ? NearestFrame(played, timing.rate)
                               : FrameOfProduct(played, timing.rate);
}

// Writes the exact ticks of a point and gives its time in the item's unit; a clip that doesn't
// state it leaves it open.
std::int64_t WriteExactPoint(const SourcePoint& point, ConstHandle clip, const ItemTiming& timing,
                             ObjectHandle element)
{
    const Ticks stated = Int64Property(clip, point.keys.projectKey);
    if (!clip.HasProperty(point.keys.projectKey) || stated < 0)
        return kOpen;
    const Ticks begin = AddTicks(stated, timing.sourceOffset);
    element.SetProperty(point.keys.exactKey,
                        TickText(AddTicks(begin, Scaled(point.delta, point.exactSpeed))));
    const Ticks source = AddTicks(begin, Scaled(point.delta, point.speed));
    const Ticks played =
        point.speed == 1.0 ? source : ToTicks(static_cast<double>(source) / point.speed);
    return FrameOfPoint(played, timing);
}

// The length that the speed keyframes state, with the last of them, or else the source's.
std::int64_t PlayedLength(std::optional<Ticks> last, const ItemTiming& timing)
{
    if (!last)
        return timing.originalDuration;
    if (timing.unit == TimeUnit::Ticks)
        return *last;
    return ToTicks(std::round(static_cast<double>(*last) / static_cast<double>(timing.rate)));
}

std::optional<Ticks> LastMediaTime(ConstHandle clip)
{
    const std::vector<SpeedPoint> points = ParseSpeedKeyframes(SpeedKeyframesOf(clip));
    return points.empty() ? std::nullopt : std::optional(points.back().mediaTime);
}

// How much of the source plays for each part of the item, by the lengths that are written.
double WrittenRatio(const ItemTiming& timing)
{
    return timing.originalDuration == 0 || timing.duration == 0
               ? timing.speed
               : static_cast<double>(timing.originalDuration) /
                     static_cast<double>(timing.duration);
}

// The same by the exact lengths. A source whose length is not stated plays as a whole.
double ExactRatio(std::optional<Ticks> last, const ItemTiming& timing)
{
    return last && *last > 0 && timing.sourceLength > 0
               ? timing.speed * static_cast<double>(timing.sourceLength) /
                     static_cast<double>(*last)
               : timing.speed;
}

} // namespace

PlayedSpeed PlayedSpeedOf(const ItemTiming& timing)
{
    return {.frameTicks = timing.rate,
            .factor = timing.speed,
            .reverse = timing.reverse,
            .frameBlend = timing.frameBlend,
            .originalDuration = timing.originalDuration,
            .duration = timing.duration,
            .ratio = timing.ratio};
}

void WriteEdges(TrackItem item, ItemTiming& timing, ObjectHandle element)
{
    timing.startDelta = WriteEdge(kStart, item, HeadTransitionOf(item), timing, element);
    timing.endDelta = WriteEdge(kEnd, item, TailTransitionOf(item), timing, element);
}

Ticks LostBehindFrame(Ticks edge, const ItemTiming& timing)
{
    const bool isExact = timing.unit == TimeUnit::Ticks || timing.sequenceRate <= 0 ||
                         (!timing.openInterchange && IsLost(edge, timing));
    return isExact ? 0 : edge % timing.sequenceRate;
}

void ReadSpeed(ConstHandle clip, ConstHandle shownClip, ItemTiming& timing)
{
    const double speed = DoubleProperty(clip, "PlaybackSpeed");
    timing.speed = speed > 0 ? speed : 1.0;
    timing.reverse = IsTrue(clip, "PlayBackwards");
    timing.frameBlend = clip.HasProperty("TimeInterpolationType") &&
                        clip.GetProperty("TimeInterpolationType") != "0";
    const ConstHandle source = SourceOfClip(shownClip);
    timing.sourceLength = Int64Property(source, "OriginalDuration");
    if (source.HasProperty("OriginalDuration"))
        timing.originalDuration =
            TimeOf(timing.unit, Int64Property(source, "OriginalDuration"), timing.rate);
}

void WriteRange(ConstHandle clip, MediaType type, const ItemTiming& timing, ObjectHandle element)
{
    const bool isVideo = type == MediaType::Video;
    const double exactSpeed = isVideo ? timing.speed : 1.0;
    const double speed = timing.openInterchange ? timing.speed : exactSpeed;
    std::int64_t in = kOpen;
    std::int64_t out = kOpen;
    const bool isClip = IsClip(clip);
    if (isClip) {
        in = WriteExactPoint({kIn, timing.startDelta, speed, exactSpeed}, clip, timing, element);
        out = WriteExactPoint({kOut, timing.endDelta, speed, exactSpeed}, clip, timing, element);
    }
    const bool isOpenStill = timing.infinite && (in < 0 || out < 0);
    if (isOpenStill) {
        const std::int64_t perSecond = DivTicks(kTicksPerSecond, timing.rate);
        in = perSecond * kInfiniteIn;
        out = perSecond * kInfiniteOut;
    }
    if (isClip || isOpenStill) {
        element.SetProperty(kIn.key, IntToString(in));
        element.SetProperty(kOut.key, IntToString(out));
    }
}

void WriteDuration(ConstHandle clip, ItemTiming& timing, ObjectHandle element)
{
    const std::optional<Ticks> last = LastMediaTime(clip);
    const std::int64_t length = PlayedLength(last, timing);
    timing.duration =
        timing.speed == 1.0 ? length : ToTicks(static_cast<double>(length) / timing.speed);
    timing.ratio = timing.openInterchange ? ExactRatio(last, timing) : WrittenRatio(timing);
    element.SetProperty("duration", IntToString(timing.duration));
}

} // namespace XPJ::RVX
