#include "core/frame_rate.h"

#include "core/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace XPJ {

namespace {

struct NtscRate {
    std::int64_t timebase;
    Ticks frameTicks;
};

// The exact frame at 48 would be 5297292000; documents and projects carry this one.
constexpr NtscRate kNtscRates[] = {
    {24, 10594584000},
    {30, kNtscFrameTicks},
    {48, 5297407770},
    {60, 4237833600},
};

constexpr int kNonDrop30 = 103;
constexpr int kNonDrop60 = 107;

// Frame numbers dropped at each minute that is no multiple of ten; 0: none at this base.
std::uint64_t DroppedNumbers(std::uint64_t base)
{
    return base == 30 ? 2 : base == 60 ? 4 : 0;
}

struct MinuteLengths {
    std::uint64_t perSecond;
    std::uint64_t dropped;    // numbers
    std::uint64_t fullMinute; // each tenth
    std::uint64_t minute;     // the others
    std::uint64_t tenMinutes;
};

// The upper limit keeps the products in range; no rate counts finer than ticks.
MinuteLengths MinutesOf(std::int64_t base, bool drop)
{
    const auto perSecond =
        static_cast<std::uint64_t>(std::clamp<std::int64_t>(base, 1, kTicksPerSecond));
    const std::uint64_t dropped = drop ? DroppedNumbers(perSecond) : 0;
    const std::uint64_t fullMinute = perSecond * 60;
    const std::uint64_t minute = fullMinute - dropped;
    return {perSecond, dropped, fullMinute, minute, fullMinute + 9 * minute};
}

// With two digits at least.
void AppendNumber(std::string& text, std::uint64_t number)
{
    if (number < 10)
        text += '0';
    const fmt::format_int digits(number);
    text.append(digits.data(), digits.size());
}

} // namespace

bool FrameTicks(std::int64_t timebase, bool ntsc, Ticks* ticks) noexcept
{
    if (timebase == 0)
        return false;
    *ticks = DivTicksOr0(kTicksPerSecond, timebase);
    if (ntsc)
        for (const NtscRate& rate : kNtscRates)
            if (rate.timebase == timebase)
                *ticks = rate.frameTicks;
    return true;
}

FrameRate RateOfFrame(Ticks frameTicks)
{
    for (const NtscRate& rate : kNtscRates)
        if (rate.frameTicks == frameTicks)
            return {rate.timebase, true};
    return {DivTicks(kTicksPerSecond, frameTicks), false};
}

TimecodeBase TimecodeBaseOf(Ticks frameTicks, int displayFormat)
{
    const FrameRate rate = RateOfFrame(frameTicks);
    // At 48 the count follows the true rate, 47 numbers a second.
    if (rate.timebase == 48 && rate.ntsc)
        return {DivTicks(kTicksPerSecond, frameTicks), false};
    const bool mayDrop = rate.ntsc && (rate.timebase == 30 || rate.timebase == 60);
    const bool nonDrop = displayFormat == kNonDrop30 || displayFormat == kNonDrop60;
    return {rate.timebase, mayDrop && !nonDrop};
}

std::string FormatTimecode(std::int64_t frame, std::int64_t base, bool drop)
{
    const auto [perSecond, dropped, fullMinute, minute, tenMinutes] = MinutesOf(base, drop);
    const auto bits = static_cast<std::uint64_t>(frame);
    std::uint64_t rest = frame < 0 ? 0 - bits : bits;
    const std::uint64_t hours = rest / (6 * tenMinutes);
    rest %= 6 * tenMinutes;
    std::uint64_t minutes = 10 * (rest / tenMinutes);
    rest %= tenMinutes;
    // Of ten minutes only the first has all its numbers.
    if (rest >= fullMinute) {
        minutes += 1 + (rest - fullMinute) / minute;
        rest = (rest - fullMinute) % minute + dropped;
    }
    const char mark = dropped > 0 ? ';' : ':';
    std::string text(frame < 0 ? "-" : "");
    AppendNumber(text, hours);
    for (const std::uint64_t number : {minutes, rest / perSecond, rest % perSecond}) {
        text += mark;
        AppendNumber(text, number);
    }
    return text;
}

std::string ClockTimecode(std::int64_t frame, std::int64_t base, bool drop)
{
    constexpr std::uint64_t kTensOfADay = std::uint64_t{24} * 6;
    const auto day = static_cast<std::int64_t>(kTensOfADay * MinutesOf(base, drop).tenMinutes);
    return FormatTimecode(frame % day, base, drop);
}

std::optional<std::int64_t> ParseTimecode(std::string_view text, std::int64_t base, bool drop)
{
    constexpr std::int64_t kMaxHours = 1000;
    text = Trimmed(text);
    std::array<std::int64_t, 4> numbers{};
    for (std::int64_t& number : numbers) {
        if (&number != numbers.data()) {
            if (text.empty() || std::string_view(":;.").find(text.front()) == text.npos)
                return std::nullopt;
            text.remove_prefix(1);
        }
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc() || number < 0)
            return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
    const auto [hours, minutes, seconds, frames] = numbers;
    const bool isTime = hours < kMaxHours && minutes < 60 && seconds < 60 && frames < base;
    if (!text.empty() || !isTime || base > kTicksPerSecond)
        return std::nullopt;
    const std::int64_t minute = hours * 60 + minutes;
    const auto dropped =
        drop ? static_cast<std::int64_t>(DroppedNumbers(static_cast<std::uint64_t>(base))) : 0;
    return (minute * 60 + seconds) * base + frames - dropped * (minute - minute / 10);
}

} // namespace XPJ
