#include "effects/keyframes.h"

#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace XPJ {

namespace {

constexpr std::string_view kScalarStartTail = ",0,0,0.,0.,0.,0.";
constexpr std::string_view kPointTail = ",0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.";
constexpr std::string_view kHeldPointTail = ",4,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.";

// Interpolation codes, then speed and influence on either side of the keyframe.
constexpr std::string_view kOrdinaryCodes = ",0,0,";
constexpr std::string_view kHoldCodes = ",4,0,";
constexpr std::string_view kHoldCode = "4";
constexpr std::string_view kOrdinaryReals = "0,0.166667,0,0.166667;";
constexpr std::string_view kAudioReals =
    "0.0,0.166666666666666657414808,0.0,0.166666666666666657414808;";

// "1" is written "1."; an exponent, "true" and "false" all hold an "e".
std::string RecordValue(std::string_view text)
{
    std::string value = FieldText(text);
    if (value.find_first_of(".eE") == value.npos)
        value += '.';
    return value;
}

// The characters between records, their fields, and words.
bool IsSeparator(char character)
{
    return character == ',' || character == ';' || character == ' ' || character == '\t' ||
           character == '\r' || character == '\n';
}

// The record of a start keyframe, up to its tail.
std::string StartRecord(std::string_view value)
{
    constexpr std::size_t kUsualSize = 80;
    std::string record;
    record.reserve(kUsualSize);
    AppendInt(record, kStartKeyframeTime);
    record += ',';
    record += value;
    return record;
}

void AppendRecord(std::string& list, Ticks time, std::string_view value, std::string_view codes,
                  RecordReals reals)
{
    AppendInt(list, time);
    list += ',';
    list += RecordValue(value);
    list += codes;
    list += reals == RecordReals::Audio ? kAudioReals : kOrdinaryReals;
}

void AppendPointRecord(std::string& list, Ticks time, const Point& point, bool isHeld)
{
    AppendInt(list, time);
    list += ',';
    list += PointText(point);
    list += isHeld ? kHeldPointTail : kPointTail;
    list += ';';
}

bool IsHeld(ConstHandle keyframe)
{
    return keyframe.GetProperty("velaHold") == "start";
}

std::string_view CodesOf(ConstHandle keyframe)
{
    return IsHeld(keyframe) ? kHoldCodes : kOrdinaryCodes;
}

std::int64_t When(ConstHandle keyframe)
{
    return Int64Property(keyframe, "when");
}

// From the center of the frame to its top left corner as the origin.
Point ProjectPoint(const Point& point, double horizontalFactor, double verticalFactor)
{
    return {point.horiz * horizontalFactor + 0.5, point.vert * verticalFactor + 0.5};
}

// Calls `use(keyframe, its value)` for each `keyframe` that has a value of its own.
template <typename Use>
void ForEachKeyframe(ConstHandle parameter, const Use& use)
{
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (const std::string_view value = PlainValue(keyframe);
            !value.empty() && !IsRepeatedKeyframe(keyframe))
            use(keyframe, value);
}

// The children that take part in a walk in step. The name of an interpolation is a remark.
std::vector<ConstHandle> StepChildren(ConstHandle parameter)
{
    std::vector<ConstHandle> children;
    for (const ConstHandle child : parameter.GetChildren())
        if (!(child.GetName() == "interpolation") && !IsRepeatedKeyframe(child))
            children.push_back(child);
    return children;
}

bool IsPointKeyframe(ConstHandle child)
{
    return child.GetName() == "keyframe" && child.HasChild("value") && !IsRepeatedKeyframe(child);
}

std::size_t CountPointKeyframes(const std::vector<ConstHandle>& children)
{
    return static_cast<std::size_t>(std::ranges::count_if(children, IsPointKeyframe));
}

// Calls `use` for each record that is not empty.
template <typename Use>
void ForEachRecord(std::string_view text, const Use& use)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        if (const std::string_view record = text.substr(0, end); !record.empty())
            use(record);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace

std::string FieldText(std::string_view text)
{
    return std::ranges::none_of(text, IsSeparator) ? std::string(text)
                                                   : NumberText(ParseDouble(text));
}

bool IsRepeatedKeyframe(ConstHandle keyframe)
{
    return keyframe.GetProperty("velaHold") == "end";
}

std::string StartKeyframeText(std::string_view value)
{
    return StartRecord(FieldText(value)).append(kScalarStartTail);
}

std::string PointStartKeyframeText(std::string_view point)
{
    return StartRecord(point).append(kPointTail);
}

std::string KeyframeRecordText(Ticks time, std::string_view value, RecordReals reals)
{
    std::string record;
    AppendRecord(record, time, value, kOrdinaryCodes, reals);
    return record;
}

std::string ScalarKeyframes(ConstHandle parameter, Ticks frameTicks, double factor)
{
    std::string list;
    ForEachKeyframe(parameter, [&](ConstHandle keyframe, std::string_view value) {
        AppendRecord(list, MultiplyTicks(When(keyframe), frameTicks), ScaledText(value, factor),
                     CodesOf(keyframe), RecordReals::Ordinary);
    });
    return list;
}

std::string MappedKeyframes(ConstHandle parameter, Ticks frameTicks,
                            const std::function<double(double)>& map)
{
    std::string list;
    ForEachKeyframe(parameter, [&](ConstHandle keyframe, std::string_view value) {
        AppendRecord(list, MultiplyTicks(When(keyframe), frameTicks),
                     NumberText(map(ParseDouble(value))), CodesOf(keyframe), RecordReals::Ordinary);
    });
    return list;
}

double ClampedValue(double value, const Clamp& clamp, bool* clamped)
{
    const double scaled = (value + clamp.valueOffset) * clamp.valueFactor;
    if (clamped && scaled > clamp.upper)
        *clamped = true;
    // In this order of arguments not-a-number gives the lower bound.
    const double limited = std::min(clamp.upper, std::max(clamp.lower, scaled));
    return clamp.invert ? 1.0 - limited : limited;
}

std::string ClampedKeyframes(ConstHandle parameter, Ticks frameTicks, const Clamp& clamp,
                             bool* clamped)
{
    std::string list;
    bool held = false;
    ForEachKeyframe(parameter, [&](ConstHandle keyframe, std::string_view text) {
        const std::string value = NumberText(ClampedValue(ParseDouble(text), clamp, clamped));
        const std::int64_t frame = AddTicks(When(keyframe), clamp.offsetFrames);
        if (frame > clamp.cutFrame && !held) {
            AppendRecord(list, MultiplyTicks(clamp.cutFrame, frameTicks), value, kHoldCodes,
                         clamp.reals);
            held = true;
        }
        AppendRecord(list, MultiplyTicks(frame, frameTicks), value, CodesOf(keyframe), clamp.reals);
    });
    return list;
}

std::string PointKeyframes(ConstHandle parameter, Ticks frameTicks, double horizontalFactor,
                           double verticalFactor)
{
    std::string list;
    for (const ConstHandle keyframe : parameter.GetChildren("keyframe"))
        if (IsPointKeyframe(keyframe))
            AppendPointRecord(list, MultiplyTicks(When(keyframe), frameTicks),
                              ProjectPoint(PointValue(keyframe), horizontalFactor, verticalFactor),
                              IsHeld(keyframe));
    return list;
}

AnchorAndPosition PairedPointKeyframes(ConstHandle centerOffset, ConstHandle center,
                                       Ticks frameTicks, double horizontalFactor,
                                       double verticalFactor)
{
    AnchorAndPosition lists;
    if (!center) {
        lists.anchor = PointKeyframes(centerOffset, frameTicks);
        return lists;
    }
    const std::vector<ConstHandle> offsets = StepChildren(centerOffset);
    const std::vector<ConstHandle> centers = StepChildren(center);
    lists.unpaired = CountPointKeyframes(offsets) + CountPointKeyframes(centers);
    for (std::size_t i = 0; i < std::min(offsets.size(), centers.size()); ++i) {
        if (!IsPointKeyframe(offsets[i]) || !IsPointKeyframe(centers[i]))
            continue;
        const Point offset = PointValue(offsets[i]);
        const Point middle = PointValue(centers[i]);
        lists.unpaired -= When(offsets[i]) == When(centers[i]) ? 2 : 1;
        AppendPointRecord(lists.anchor, MultiplyTicks(When(offsets[i]), frameTicks),
                          ProjectPoint(offset, 1.0, 1.0), IsHeld(offsets[i]));
        AppendPointRecord(lists.position, MultiplyTicks(When(centers[i]), frameTicks),
                          ProjectPoint({middle.horiz + offset.horiz, middle.vert + offset.vert},
                                       horizontalFactor, verticalFactor),
                          IsHeld(centers[i]));
    }
    // A still anchor: the center moves alone.
    if (offsets.size() == 1 && lists.anchor.empty()) {
        lists.position = PointKeyframes(center, frameTicks, horizontalFactor, verticalFactor);
        lists.unpaired = CountPointKeyframes(offsets);
    }
    return lists;
}

std::string MediaSecondsText(std::string_view frames, Ticks frameTicks)
{
    return NumberText(ParseDouble(frames) * static_cast<double>(frameTicks) /
                      static_cast<double>(kTicksPerSecond));
}

std::string SpeedKeyframes(ConstHandle graphdict, Ticks frameTicks)
{
    std::string list;
    ForEachKeyframe(graphdict, [&](ConstHandle keyframe, std::string_view value) {
        const SpeedKind kind = IsTrue(keyframe, "velaRampStart") ? SpeedKind::RampStart
                               : IsTrue(keyframe, "velaRampEnd") ? SpeedKind::RampEnd
                                                                 : SpeedKind::Ordinary;
        AppendInt(list, MultiplyTicks(When(keyframe), frameTicks));
        list += ',';
        list += MediaSecondsText(value, frameTicks);
        list += ',';
        AppendInt(list, static_cast<int>(kind));
        list += ",0,0,0,0,0;";
    });
    return list;
}

std::string_view KeyframeField(std::string_view record, int index)
{
    record = record.substr(0, record.find(';'));
    std::size_t begin = 0;
    for (; index > 0; --index) {
        const std::size_t comma = record.find(',', begin);
        if (comma == record.npos)
            return {};
        begin = comma + 1;
    }
    return record.substr(begin, record.find(',', begin) - begin);
}

Point ParsePoint(std::string_view field, std::string_view nextField)
{
    const std::size_t colon = field.find(':');
    if (colon != field.npos)
        nextField = field.substr(colon + 1);
    return {ParseDouble(field.substr(0, colon)), ParseDouble(nextField)};
}

double KeyframeRecord::Number() const
{
    return ParseDouble(value);
}

std::vector<KeyframeRecord> ParseKeyframes(std::string_view text)
{
    std::vector<KeyframeRecord> records;
    ForEachRecord(text, [&](std::string_view record) {
        const std::string_view value = KeyframeField(record, 1);
        const std::string_view next = KeyframeField(record, 2);
        if (!value.empty())
            records.push_back({ParseInt64(record), value, next, next == kHoldCode});
    });
    return records;
}

std::vector<SpeedPoint> ParseSpeedKeyframes(std::string_view text)
{
    std::vector<SpeedPoint> points;
    for (const KeyframeRecord& record : ParseKeyframes(text))
        // Rounded: with six digits of seconds, truncation would often be a frame short.
        points.push_back(
            {record.time,
             ToTicks(std::round(record.Number() * static_cast<double>(kTicksPerSecond))),
             ParseInt(record.nextField)});
    return points;
}

void WriteKeyframes(Document& document, ObjectHandle parameter, std::string_view keyframes,
                    Ticks frameTicks, const std::function<double(double)>& map)
{
    for (const KeyframeRecord& record : ParseKeyframes(keyframes)) {
        const double number = record.Number();
        MarkHeld(record, AddKeyframe(document, parameter, DivTicks(record.time, frameTicks),
                                     NumberText(map ? map(number) : number)));
    }
}

void WritePointKeyframes(Document& document, ObjectHandle parameter, std::string_view keyframes,
                         Ticks frameTicks, const std::function<Point(const Point&)>& map)
{
    for (const KeyframeRecord& record : ParseKeyframes(keyframes)) {
        const Point point = record.GetPoint();
        MarkHeld(record, AddPointKeyframe(document, parameter, DivTicks(record.time, frameTicks),
                                          map ? map(point) : point));
    }
}

ObjectHandle AddKeyframe(Document& document, ObjectHandle parameter, std::int64_t when,
                         std::string_view value)
{
    const ObjectHandle keyframe = document.NewObject("keyframe");
    keyframe.SetProperty("when", IntToString(when));
    if (!value.empty())
        keyframe.SetProperty("value", value);
    parameter.AddChild(keyframe);
    return keyframe;
}

ObjectHandle AddPointKeyframe(Document& document, ObjectHandle parameter, std::int64_t when,
                              const Point& point)
{
    const ObjectHandle keyframe = AddKeyframe(document, parameter, when, "");
    AddPointValue(document, keyframe, point);
    return keyframe;
}

void MarkHeld(const KeyframeRecord& record, ObjectHandle keyframe)
{
    if (record.isHeld)
        keyframe.SetPropertyShared("isHeld", "TRUE");
}

} // namespace XPJ
