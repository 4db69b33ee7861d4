#include "grading/timecode.h"

#include "core/numbers.h"
#include "core/text.h"
#include "core/ticks.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <vector>

namespace XPJ {

namespace {

// Drop frame skips numbers 0 and 1 of each minute that is no multiple of ten.
constexpr int kDropFrameRate = 30;
constexpr int kDroppedEachMinute = 2;
constexpr std::int64_t kFramesOfMinute = std::int64_t{60} * kDropFrameRate;
constexpr std::int64_t kFramesOfDropMinute = kFramesOfMinute - kDroppedEachMinute;
constexpr std::int64_t kFramesOfTenMinutes = 10 * kFramesOfDropMinute + kDroppedEachMinute;

constexpr std::string_view kBlanks = "\n\t \r";
constexpr std::string_view kSeparators = "(), \n\t\r";
constexpr std::string_view kFieldSeparators = ":;.";

constexpr std::string_view kInvalidText = "Invalid timecode format string: '";
constexpr std::string_view kInvalidField[] = {
    "Invalid timecode format string (hours): '",
    "Invalid timecode format string (minutes): '",
    "Invalid timecode format string (seconds): '",
    "Invalid timecode format string (frames): '",
};
constexpr std::size_t kFields = std::size(kInvalidField);
constexpr std::string_view kInvalidRate = "Invalid fps specification in timecode format string: '";
constexpr std::string_view kInvalidDropFrame =
    "Invalid drop frame specification in timecode format string - expected DropFrame instead of '";

constexpr std::string_view kNegativeAtFirst = "TimeCode's fps value is < 0 - invalid";
constexpr std::string_view kNegativeOnChange = "TimeCode's FPS value is < 0 - invalid";

int LimitedInt(std::int64_t value)
{
    return static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
}

int RoundedRate(double fps)
{
    return LimitedInt(std::max<std::int64_t>(1, ToTicks(std::floor(fps + 0.5))));
}

// Takes from `text` the piece before the next of `separators`, and the separator.
std::string_view TakePiece(std::string_view& text, std::string_view separators)
{
    const std::size_t end = std::min(text.find_first_of(separators), text.size());
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(std::min(text.find_first_not_of(separators, end), text.size()));
    return piece;
}

// Decimal digits only; beyond an int the largest.
bool ReadField(std::string_view text, int* value)
{
    if (text.empty() || text.find_first_not_of("0123456789") != text.npos)
        return false;
    *value = ParseInt(text);
    return true;
}

bool ReadRate(std::string_view text, double* rate)
{
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        return false;
    *rate = value;
    return true;
}

// The value of a text, and what of it could not be read.
struct ParsedText {
    int fields[kFields] = {};
    double fps = kDropFrameRate;
    bool dropFrame = false;
    bool negative = false;
    std::vector<std::string> errors;

    void Fault(std::string_view message, std::string_view piece)
    {
        errors.push_back(fmt::format("{}{}'", message, piece));
    }
};

void ReadFields(std::string_view text, ParsedText& result)
{
    std::string_view pieces[kFields];
    std::size_t count = 0;
    for (std::string_view rest = text;; ++count) {
        const std::size_t end = rest.find_first_of(kFieldSeparators);
        if (count == kFields)
            return result.Fault(kInvalidText, text);
        pieces[count] = rest.substr(0, end);
        if (end == rest.npos)
            break;
        rest.remove_prefix(end + 1);
    }
    if (count + 1 != kFields)
        return result.Fault(kInvalidText, text);
    for (std::size_t field = 0; field < kFields; ++field)
        if (!ReadField(pieces[field], &result.fields[field]))
            result.Fault(kInvalidField[field], pieces[field]);
}

// "29.97 fps" or "29.97fps".
void ReadRateAndUnit(std::string_view piece, std::string_view& rest, ParsedText& result)
{
    constexpr std::string_view kUnit = "fps";
    std::string_view number = piece;
    const std::size_t length = piece.size() - std::min(piece.size(), kUnit.size());
    if (EqualsIgnoreCase(piece.substr(length), kUnit)) {
        number = piece.substr(0, length);
    } else {
        std::string_view behind = rest;
        if (!EqualsIgnoreCase(TakePiece(behind, kSeparators), kUnit))
            return result.Fault(kInvalidRate, piece);
        rest = behind;
    }
    if (!ReadRate(number, &result.fps))
        result.Fault(kInvalidRate, piece);
}

ParsedText ParseTimeCode(std::string_view text)
{
    constexpr std::string_view kDropFrame = "DropFrame";
    ParsedText result;
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.starts_with('-')) {
        result.negative = true;
        text.remove_prefix(1);
    }
    ReadFields(TakePiece(text, kSeparators), result);
    std::string_view piece = TakePiece(text, kSeparators);
    if (!piece.empty() && !EqualsIgnoreCase(piece, kDropFrame)) {
        ReadRateAndUnit(piece, text, result);
        piece = TakePiece(text, kSeparators);
    }
    if (piece.empty())
        return result;
    result.dropFrame = EqualsIgnoreCase(piece, kDropFrame);
    if (!result.dropFrame)
        result.Fault(kInvalidDropFrame, piece);
    else if (!text.empty())
        result.Fault(kInvalidText, text);
    return result;
}

} // namespace

TimeCode::TimeCode() = default;

TimeCode::TimeCode(int hours, int minutes, int seconds, int frames, double rate, bool drops,
                   bool below)
    : hour(hours), minute(minutes), second(seconds), frame(frames), fps(rate),
      intFps(RoundedRate(rate)), dropFrame(drops), negative(below)
{
    Check(kNegativeAtFirst);
}

TimeCode TimeCode::Parse(std::string_view text)
{
    const ParsedText parsed = ParseTimeCode(text);
    const auto& [hours, minutes, seconds, frames] = parsed.fields;
    TimeCode result(hours, minutes, seconds, frames, parsed.fps, parsed.dropFrame, parsed.negative);
    const std::string rangeErrors = std::move(result.errorText);
    result.errorText.clear();
    for (const std::string& error : parsed.errors)
        result.AddError(error);
    result.errorText += rangeErrors;
    return result;
}

TimeCode TimeCode::FromFrames(std::int64_t frames, double fps, bool dropFrame)
{
    const int rate = RoundedRate(fps);
    // Also holds the magnitude of the lowest number.
    std::uint64_t count =
        frames < 0 ? 0 - static_cast<std::uint64_t>(frames) : static_cast<std::uint64_t>(frames);
    if (dropFrame && rate == kDropFrameRate) {
        const std::uint64_t tens = count / kFramesOfTenMinutes;
        const std::uint64_t rest = count % kFramesOfTenMinutes;
        count += tens * 9 * kDroppedEachMinute;
        if (rest >= kFramesOfMinute)
            count += kDroppedEachMinute * (1 + (rest - kFramesOfMinute) / kFramesOfDropMinute);
    }
    const std::uint64_t wholeRate = static_cast<std::uint64_t>(rate);
    const std::uint64_t seconds = count / wholeRate;
    return TimeCode(LimitedInt(static_cast<std::int64_t>(seconds / 3600)),
                    static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60),
                    static_cast<int>(count % wholeRate), fps, dropFrame, frames < 0);
}

void TimeCode::SetFps(double newFps)
{
    fps = newFps;
    intFps = RoundedRate(newFps);
    errorText.clear();
    hasError = false;
    Check(kNegativeOnChange);
}

std::int64_t TimeCode::Frames() const
{
    const std::int64_t minutes = std::int64_t{hour} * 60 + minute;
    std::int64_t frames = AddTicks(MultiplyTicks(minutes * 60 + second, intFps), frame);
    if (DropsFrames())
        frames -= kDroppedEachMinute * (minutes - minutes / 10);
    return negative ? MultiplyTicks(frames, -1) : frames;
}

std::string TimeCode::Text() const
{
    return fmt::format("{}{:02}:{:02}:{:02}:{:02}", negative ? "-" : "", hour, minute, second,
                       frame);
}

std::string TimeCode::LongText() const
{
    return fmt::format("{} ({} fps{})", Text(), DoubleToString(fps),
                       dropFrame ? ", DropFrame" : "");
}

bool TimeCode::DropsFrames() const
{
    return dropFrame && intFps == kDropFrameRate;
}

void TimeCode::Check(std::string_view negativeRateText)
{
    if (hour < 0 || hour > 23)
        AddError(fmt::format("TimeCode's Hour value exceeds 23 ({})", hour));
    if (minute < 0 || minute > 59)
        AddError(fmt::format("TimeCode's Minute value exceeds 59 ({})", minute));
    if (second < 0 || second > 59)
        AddError(fmt::format("TimeCode's Second value exceeds 59 ({})", second));
    if (frame < 0 || frame >= intFps)
        AddError(fmt::format("TimeCode's Frame value outside range 0..{} ({})", intFps - 1, frame));
    if (fps < 0)
        AddError(negativeRateText);
    if (dropFrame && !DropsFrames())
        AddError("Drop frame unspecified for FPS values other than 30");
    if (DropsFrames() && minute % 10 != 0 && second == 0 && frame >= 0 &&
        frame < kDroppedEachMinute)
        AddError(fmt::format(
            "TimeCode's Frame value outside range valid for drop frame TimeCode ({})", frame));
}

void TimeCode::AddError(std::string_view text)
{
    errorText += text;
    errorText += '\n';
    hasError = true;
}

} // namespace XPJ
