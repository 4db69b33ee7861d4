#include "core/numbers.h"

#include <fmt/compile.h>
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace XPJ {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view SkipBlanks(std::string_view text)
{
    std::size_t start = 0;
    while (start < text.size() && IsBlank(text[start]))
        ++start;
    return text.substr(start);
}

// std::from_chars knows no leading plus.
std::string_view SkipPlus(std::string_view text)
{
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

//   ThousandthsText(-1500) == "-1.5"
std::string ThousandthsText(int thousandths)
{
    std::string text(thousandths < 0 ? "-" : "");
    AppendInt(text, std::abs(thousandths / 1000));
    int rest = std::abs(thousandths % 1000);
    if (rest != 0)
        text += '.';
    for (int unit = 100; rest != 0; rest %= unit, unit /= 10)
        text += static_cast<char>('0' + rest / unit);
    return text;
}

} // namespace

std::int64_t ParseInt64(std::string_view text) noexcept
{
    text = SkipPlus(SkipBlanks(text));
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range)
        return text[0] == '-' ? std::numeric_limits<std::int64_t>::min()
                              : std::numeric_limits<std::int64_t>::max();
    return error == std::errc() ? value : 0;
}

int HexDigit(char c) noexcept
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

int ParseInt(std::string_view text) noexcept
{
    constexpr std::int64_t kMin = std::numeric_limits<int>::min();
    constexpr std::int64_t kMax = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(ParseInt64(text), kMin, kMax));
}

double ParseDouble(std::string_view text) noexcept
{
    text = SkipPlus(SkipBlanks(text));
    // "nan", "inf" and "0x1" are no numbers in documents.
    const std::size_t digit = !text.empty() && text[0] == '-' ? 1 : 0;
    if (digit >= text.size() || (text[digit] != '.' && (text[digit] < '0' || text[digit] > '9')))
        return 0;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too large or too small, depending on the exponent's sign.
        const std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
        if (number.find("e-") != number.npos || number.find("E-") != number.npos ||
            number.find_first_of("123456789") > number.find('.'))
            return 0;
        const double largest = std::numeric_limits<double>::max();
        return text[0] == '-' ? -largest : largest;
    }
    return error == std::errc() ? value : 0;
}

std::string IntToString(std::int64_t value)
{
    return fmt::format_int(value).str();
}

std::string UintToString(std::uint64_t value)
{
    return fmt::format_int(value).str();
}

void AppendInt(std::string& text, std::int64_t value)
{
    const fmt::format_int digits(value);
    text.append(digits.data(), digits.size());
}

std::string DoubleToString(double value)
{
    // Six digits are enough for a number of thousandths below a million, and most numbers are one.
    constexpr double kNoise = 1e-6; // of the product
    const double thousandths = std::round(value * 1000);
    if (thousandths != 0 && std::abs(thousandths) < 1e6 &&
        std::abs(value * 1000 - thousandths) < kNoise)
        return ThousandthsText(static_cast<int>(thousandths));
    return fmt::format(FMT_COMPILE("{:g}"), value);
}

} // namespace XPJ
