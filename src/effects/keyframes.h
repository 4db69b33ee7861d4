// Keyframes of both vocabularies and the way between them.
//
// A project holds the keyframes of a parameter in one text, records that each end in ";":
//   scalar   <ticks>,<value>,0,0,0,0.166667,0,0.166667;
//   point    <ticks>,<h>:<v>,0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.;
//   speed    <ticks>,<media seconds>,<kind>,0,0,0,0,0;
// `xmeml` holds them as `keyframe` elements with `when`, in frames, and `value`. Interpolation is
// carried in neither direction, but for values that are held to the next keyframe: in documents of
// this system `velaHold` is "start" at such a keyframe, and "end" at one that only repeats its
// value before the next, for readers that do not know the mark. Keyframes keep their order, equal
// and falling times included; one without a value is passed over.
#pragma once

#include "core/ticks.h"
#include "effects/values.h"
#include "tree/object.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// Text of a value as a field of a record may hold it: what would break the record up is reduced to
// the number that it starts with.
//   FieldText("62,5") == "62"
std::string FieldText(std::string_view text);

// ---- The keyframe that holds the value from before the first one

inline constexpr std::string_view kSpeedStartKeyframe =
    "-91445760000000000,0.000000000000000000000000,0,0,0,0,0,0";

//   StartKeyframeText("1.") == "-91445760000000000,1.,0,0,0.,0.,0.,0."
std::string StartKeyframeText(std::string_view value);
// `point` is PointText.
std::string PointStartKeyframeText(std::string_view point);

// True for a keyframe that only repeats the one before it.
bool IsRepeatedKeyframe(ConstHandle keyframe);

// ---- From `xmeml`: the `Keyframes` text of a `parameter`, empty without keyframes

// How the four reals of a record are written.
enum class RecordReals {
    Ordinary, // 0,0.166667,0,0.166667
    Audio,    // 0.0,0.166666666666666657414808,...
};

// One scalar record.
std::string KeyframeRecordText(Ticks time, std::string_view value,
                               RecordReals reals = RecordReals::Ordinary);

std::string ScalarKeyframes(ConstHandle parameter, Ticks frameTicks, double factor = 1.0);

// For values that a number mapping turns into the project's, such as a frequency.
std::string MappedKeyframes(ConstHandle parameter, Ticks frameTicks,
                            const std::function<double(double)>& map);

// (value + valueOffset) * valueFactor within lower..upper, after that turned round if `invert`.
struct Clamp {
    std::int64_t offsetFrames = 0;
    std::int64_t cutFrame =
        std::numeric_limits<std::int64_t>::max(); // where a hold record is inserted
    double valueOffset = 0;
    double valueFactor = 1;
    double lower = 0;
    double upper = 1;
    bool invert = false; // 1 - value
    RecordReals reals = RecordReals::Ordinary;
};

// `clamped`, where given, becomes true when a value lay above the upper bound.
double ClampedValue(double value, const Clamp& clamp, bool* clamped = nullptr);
std::string ClampedKeyframes(ConstHandle parameter, Ticks frameTicks, const Clamp& clamp,
                             bool* clamped = nullptr);

// The factors are those of EffectContext::HorizontalRatio and VerticalRatio.
std::string PointKeyframes(ConstHandle parameter, Ticks frameTicks, double horizontalFactor = 1.0,
                           double verticalFactor = 1.0);

struct AnchorAndPosition {
    std::string anchor;
    std::string position;
    std::size_t unpaired = 0; // keyframes without partner, and pairs at two times
};

// A center that moves with its anchor point: keyframes of `centerOffset` and `center` are taken
// pair by pair. `center` may be null.
AnchorAndPosition PairedPointKeyframes(ConstHandle centerOffset, ConstHandle center,
                                       Ticks frameTicks, double horizontalFactor,
                                       double verticalFactor);

// Speed records of a `graphdict`, and its time values as seconds of media.
std::string SpeedKeyframes(ConstHandle graphdict, Ticks frameTicks);
std::string MediaSecondsText(std::string_view frames, Ticks frameTicks);

// ---- From a project

// A field of a record, counted from 0; empty behind the last one.
std::string_view KeyframeField(std::string_view record, int index);

// "h:v"; where `field` holds no ":" the two coordinates are `field` and `nextField`.
Point ParsePoint(std::string_view field, std::string_view nextField);

// The views are parts of the text that was parsed.
struct KeyframeRecord {
    Ticks time = 0;
    std::string_view value;
    std::string_view nextField;
    bool isHeld = false; // its value, to the next record

    double Number() const;
    Point GetPoint() const { return ParsePoint(value, nextField); }
};

// The records that have a value.
std::vector<KeyframeRecord> ParseKeyframes(std::string_view text);

enum class SpeedKind : int { Ordinary = 6, RampStart = 7, RampEnd = 8 };

struct SpeedPoint {
    Ticks time = 0;
    Ticks mediaTime = 0;
    int kind = 0; // a SpeedKind, or what else the project states

    friend bool operator==(const SpeedPoint&, const SpeedPoint&) = default;
};

std::vector<SpeedPoint> ParseSpeedKeyframes(std::string_view text);

// Attach `keyframe`s to a `parameter`, one for each record of `keyframes`, its value passed through
// `map`. One whose value is held has the property `isHeld`, which documents do not have. A frame
// length of 1 keeps ticks; one of 0 throws DocumentFault.
void WriteKeyframes(Document& document, ObjectHandle parameter, std::string_view keyframes,
                    Ticks frameTicks, const std::function<double(double)>& map = {});
void WritePointKeyframes(Document& document, ObjectHandle parameter, std::string_view keyframes,
                         Ticks frameTicks, const std::function<Point(const Point&)>& map = {});

// Single ones, for lists that are walked with something else in step.
ObjectHandle AddKeyframe(Document& document, ObjectHandle parameter, std::int64_t when,
                         std::string_view value);
ObjectHandle AddPointKeyframe(Document& document, ObjectHandle parameter, std::int64_t when,
                              const Point& point);
void MarkHeld(const KeyframeRecord& record, ObjectHandle keyframe);

} // namespace XPJ
