#include "grading/script_lexer.h"

#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace XPJ {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kOperatorCharacters = "*/%+<>=&^|?:";
constexpr std::size_t kLongestNumber = 255;
constexpr std::size_t kMostHexDigits = 16;

bool IsNameCharacter(int c)
{
    return IsScriptLetter(c) || IsScriptDigit(c) || c == '-';
}

bool IsOneOf(int c, std::string_view characters)
{
    return c != ScriptLexer::kEnd && characters.find(static_cast<char>(c)) != characters.npos;
}

} // namespace

bool IsScriptLetter(int c) noexcept
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsScriptDigit(int c) noexcept
{
    return c >= '0' && c <= '9';
}

int ScriptLexer::At(std::size_t place) const
{
    return place < text.size() ? static_cast<unsigned char>(text[place]) : kEnd;
}

int ScriptLexer::Next()
{
    position = std::min(text.find_first_not_of(kBlanks, position), text.size());
    return At(position);
}

bool ScriptLexer::AtDirective() const
{
    if (At(position) != '#')
        return false;
    const std::size_t before = text.substr(0, position).find_last_not_of(" \t");
    return before == text.npos || text[before] == '\n' || text[before] == '\r';
}

bool ScriptLexer::TakeKeyword(std::string_view word)
{
    const std::size_t end = position + word.size();
    if (text.substr(position, word.size()) != word || IsNameCharacter(At(end)) || At(end) == '.')
        return false;
    position = end;
    return true;
}

std::size_t ScriptLexer::NameEnd(std::size_t place) const
{
    while (IsNameCharacter(At(place)))
        ++place;
    return place;
}

// What the dots belong to depends on what follows the name.
ScriptError ScriptLexer::TooManyDots()
{
    while (IsNameCharacter(At(position)) || At(position) == '.')
        ++position;
    return Next() == '(' ? ScriptError::TooManyDotsInFunction : ScriptError::TooManyDotsInVariable;
}

ScriptError ScriptLexer::TakeName(std::string_view* name)
{
    std::size_t end = NameEnd(position);
    if (At(end) == '.') {
        if (!IsScriptLetter(At(end + 1)))
            return ScriptError::InvalidCharacterInName;
        end = NameEnd(end + 1);
        if (At(end) == '.')
            return TooManyDots();
    }
    *name = text.substr(position, end - position);
    position = end;
    return ScriptError::None;
}

ScriptError ScriptLexer::TakeHexNumber(double* value)
{
    std::uint64_t bits = 0;
    std::size_t digits = 0;
    position += 2; // "0x"
    for (; position < text.size() && HexDigit(text[position]) >= 0; ++position) {
        if (++digits > kMostHexDigits)
            return ScriptError::ValueTooLarge;
        bits = bits << 4 | static_cast<std::uint64_t>(HexDigit(text[position]));
    }
    *value = static_cast<double>(bits);
    return digits > 0 ? ScriptError::None : ScriptError::InvalidNumber;
}

ScriptError ScriptLexer::TakeNumber(double* value)
{
    if (At(position) == '0' && At(position + 1) == 'x')
        return TakeHexNumber(value);

    char number[kLongestNumber];
    std::size_t length = 0;
    bool exponent = false;
    for (;; ++position) {
        const int c = At(position);
        if (!IsScriptDigit(c) && !IsOneOf(c, ".ed") && !(exponent && IsOneOf(c, "+-")))
            break;
        if (length == kLongestNumber)
            return ScriptError::NumberTooLong;
        exponent = IsOneOf(c, "ed");
        number[length++] = exponent ? 'e' : static_cast<char>(c);
    }
    const auto [end, error] = std::from_chars(number, number + length, *value);
    if (error == std::errc::invalid_argument || end != number + length)
        return ScriptError::InvalidNumber;
    if (error == std::errc::result_out_of_range) {
        const bool tiny = ParseDouble({number, length}) == 0;
        *value = tiny ? 0 : std::numeric_limits<double>::infinity();
    }
    return ScriptError::None;
}

std::string_view ScriptLexer::TakeOperator()
{
    const std::size_t start = position;
    const int first = At(position);
    if (first == '-' || first == '~' || first == '!')
        ++position;
    if (first == '!' ? At(position) == '=' : position == start)
        while (IsOneOf(At(position), kOperatorCharacters) && (At(position) != '+' || first == '+'))
            ++position;
    return text.substr(start, position - start);
}

} // namespace XPJ
