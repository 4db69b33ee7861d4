#include "grading/table_text.h"

#include "core/numbers.h"
#include "core/text.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace XPJ {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsWordCharacter(char c)
{
    return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

template <typename Value, typename Take>
bool TakeLine(TableText& text, std::span<Value> values, Take take)
{
    for (Value& value : values) {
        if (!take(value))
            return false;
    }
    return text.EndLine();
}

} // namespace

TableText::TableText(TableSource& source, Hash hash) : source_(source), hash_(hash)
{
    if (source_.at == 0 && source_.bytes.starts_with(kByteOrderMark))
        source_.at = kByteOrderMark.size();
}

void TableText::SkipBlanks()
{
    while (source_.at < source_.bytes.size() && IsBlank(source_.bytes[source_.at]))
        ++source_.at;
}

void TableText::SkipLine()
{
    const std::size_t end = source_.bytes.find_first_of("\r\n", source_.at);
    source_.at = end == source_.bytes.npos ? source_.bytes.size() : end;
}

bool TableText::StartLine()
{
    const std::string_view bytes = source_.bytes;
    for (; source_.at < bytes.size(); ++source_.at) {
        const char c = bytes[source_.at];
        if (IsBlank(c) || IsLineEnd(c))
            continue;
        if (c != '#')
            return true;
        if (hash_ == Hash::Comment) {
            SkipLine();
            if (source_.at == bytes.size())
                break;
        }
    }
    return false;
}

bool TableText::EndLine()
{
    SkipBlanks();
    return source_.at == source_.bytes.size() || IsLineEnd(source_.bytes[source_.at]);
}

bool TableText::AtWordEnd(std::size_t offset) const
{
    return offset == source_.bytes.size() || IsBlank(source_.bytes[offset]) ||
           IsLineEnd(source_.bytes[offset]);
}

bool TableText::Word(std::string_view word)
{
    SkipBlanks();
    const std::string_view rest = source_.bytes.substr(source_.at);
    if (!EqualsIgnoreCase(rest.substr(0, word.size()), word))
        return false;
    if (rest.size() > word.size() && IsWordCharacter(rest[word.size()]))
        return false;
    source_.at += word.size();
    return true;
}

bool TableText::Sign(char sign)
{
    SkipBlanks();
    if (source_.at == source_.bytes.size() || source_.bytes[source_.at] != sign)
        return false;
    ++source_.at;
    return true;
}

bool TableText::AtNumber()
{
    SkipBlanks();
    if (source_.at == source_.bytes.size())
        return false;
    const char c = source_.bytes[source_.at];
    return IsDigit(c) || c == '+' || c == '-' || c == '.';
}

bool TableText::Integer(std::uint32_t& value)
{
    SkipBlanks();
    const char* const start = source_.bytes.data() + source_.at;
    const char* const end = source_.bytes.data() + source_.bytes.size();
    const auto [stop, error] = std::from_chars(start, end, value);
    const std::size_t offset = source_.at + static_cast<std::size_t>(stop - start);
    if (error != std::errc() || !AtWordEnd(offset))
        return false;
    source_.at = offset;
    return true;
}

template <typename T>
bool TableText::Float(T& value)
{
    if (!AtNumber()) // "nan" and "inf" are none
        return false;
    const char* start = source_.bytes.data() + source_.at;
    const char* const end = source_.bytes.data() + source_.bytes.size();
    if (*start == '+' && end - start > 1 && start[1] != '-')
        ++start;
    const auto [stop, error] = std::from_chars(start, end, value);
    const auto offset = static_cast<std::size_t>(stop - source_.bytes.data());
    if (!AtWordEnd(offset))
        return false;
    if (error == std::errc::result_out_of_range) { // as well for what is too small
        const double wide = ParseDouble({start, static_cast<std::size_t>(stop - start)});
        if (std::abs(wide) >= std::numeric_limits<T>::max())
            return false;
        value = static_cast<T>(wide);
    } else if (error != std::errc() || !std::isfinite(value)) { // "-inf"
        return false;
    }
    source_.at = offset;
    return true;
}

bool TableText::Number(float& value)
{
    return Float(value);
}

bool TableText::Number(double& value)
{
    return Float(value);
}

bool TableText::LineOf(std::span<float> values)
{
    return TakeLine(*this, values, [this](float& value) { return Number(value); });
}

bool TableText::LineOf(std::span<double> values)
{
    return TakeLine(*this, values, [this](double& value) { return Number(value); });
}

bool TableText::LineOf(std::span<std::uint32_t> values)
{
    return TakeLine(*this, values, [this](std::uint32_t& value) { return Integer(value); });
}

bool TableText::LineOf(std::vector<LUTEntry>& entries)
{
    LUTEntry entry;
    if (!Number(entry.red) || !Number(entry.green) || !Number(entry.blue) || !EndLine())
        return false;
    entries.push_back(entry);
    return true;
}

bool HasRoom(const TableSource& source, std::uint64_t lines, std::uint64_t numbers)
{
    // A number takes a digit and a separator; the last line may have no end.
    const std::uint64_t room = source.bytes.size() - source.at + 1;
    return lines <= room / (2 * numbers);
}

} // namespace XPJ
