#include "core/text.h"

#include "core/byte_scan.h"

#include <utf8.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>

namespace XPJ {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLead(char16_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrail(char16_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

struct Entity {
    std::string_view text;
    char character;
};

constexpr Entity kEntities[] = {
    {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''},
};

// Length of the numeric reference ("&#13;", "&#xE9;") at the start of `text`, its code point in
// `codePoint`; 0 when there is none.
std::size_t NumericReference(std::string_view text, char32_t* codePoint)
{
    if (text.substr(0, 2) != "&#")
        return 0;
    const bool isHex = text.size() > 2 && (text[2] == 'x' || text[2] == 'X');
    const char* const begin = text.data() + (isHex ? 3 : 2);
    const char* const end = text.data() + std::min<std::size_t>(text.size(), 12);
    unsigned value = 0;
    if (begin >= end)
        return 0;
    const auto [stop, error] = std::from_chars(begin, end, value, isHex ? 16 : 10);
    if (error != std::errc() || stop == end || *stop != ';')
        return 0;
    *codePoint = value;
    return static_cast<std::size_t>(stop + 1 - text.data());
}

const Entity* KnownEntity(std::string_view text)
{
    for (const Entity& entity : kEntities)
        if (text.substr(0, entity.text.size()) == entity.text)
            return &entity;
    return nullptr;
}

bool IsCharacter(char32_t codePoint)
{
    return codePoint != 0 && codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

// A reference that XML allows: small "x", a character that a document may have.
bool IsLegalReference(std::string_view text)
{
    char32_t codePoint = 0;
    if (text.substr(0, 3) == "&#X" || NumericReference(text, &codePoint) == 0)
        return false;
    const bool isBlank = codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
    return isBlank || (codePoint >= ' ' && IsCharacter(codePoint) && codePoint != 0xFFFE &&
                       codePoint != 0xFFFF);
}

} // namespace

std::string ToUTF8(std::u16string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t codePoint = text[i];
        if (IsLead(text[i]) && i + 1 < text.size() && IsTrail(text[i + 1])) {
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
            ++i;
        } else if (IsLead(text[i]) || IsTrail(text[i])) {
            codePoint = kReplacement;
        }
        utf8::unchecked::append(codePoint, std::back_inserter(result));
    }
    return result;
}

std::u16string ToUTF16(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
    std::u16string result;
    result.reserve(valid.size());
    utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(result));
    return result;
}

void ToUTF16(std::string_view text, char16_t* field, std::size_t capacity)
{
    if (capacity == 0)
        return;
    const std::u16string units = ToUTF16(text);
    std::size_t count = std::min(units.size(), capacity - 1);
    if (count > 0 && count < units.size() && IsLead(units[count - 1]))
        --count;
    std::copy_n(units.begin(), count, field);
    field[count] = 0;
}

std::string EscapeXML(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t unused = 0;
        const std::string_view rest = text.substr(i);
        if (text[i] == '<')
            result += "&lt;";
        else if (text[i] == '>')
            result += "&gt;";
        else if (text[i] == '&' && !KnownEntity(rest) && NumericReference(rest, &unused) == 0)
            result += "&amp;";
        else if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            result += "&#13;";
        else
            result += text[i];
    }
    return result;
}

std::string UnescapeXML(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    AppendUnescapedXML(text, result);
    return result;
}

void AppendUnescapedXML(std::string_view text, std::string& result)
{
    while (true) {
        const std::size_t ampersand = std::min(text.find('&'), text.size());
        result.append(text, 0, ampersand);
        text.remove_prefix(ampersand);
        if (text.empty())
            return;
        char32_t codePoint = 0;
        std::size_t size = 1;
        if (const Entity* const entity = KnownEntity(text)) {
            result += entity->character;
            size = entity->text.size();
        } else if (const std::size_t reference = NumericReference(text, &codePoint);
                   reference > 0 && IsCharacter(codePoint)) {
            utf8::unchecked::append(codePoint, std::back_inserter(result));
            size = reference;
        } else {
            result += '&';
        }
        text.remove_prefix(size);
    }
}

namespace {

// Above 0x7F, below a blank, or markup.
EightBytes UnplainBytes(EightBytes bytes)
{
    const EightBytes low = bytes & ~kHighBits;
    return (bytes & kHighBits) | BytesBelow(low, ' ') | BytesLike(low, '&') | AngleBrackets(low);
}

// All bytes of a text of less than eight, some of them more than once; blanks for none.
EightBytes LoadFewBytes(std::string_view text)
{
    const std::size_t size = text.size();
    if (size >= sizeof(std::uint32_t)) {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::memcpy(&first, text.data(), sizeof(first));
        std::memcpy(&last, text.data() + size - sizeof(last), sizeof(last));
        return EightBytes{first} << 32 | last;
    }
    EightBytes bytes = RepeatByte(' ');
    for (const char c : text)
        bytes = bytes << 8 | static_cast<unsigned char>(c);
    return bytes;
}

} // namespace

bool IsPlainText(std::string_view text) noexcept
{
    constexpr std::size_t kStep = sizeof(EightBytes);
    if (text.size() < kStep)
        return UnplainBytes(LoadFewBytes(text)) == 0;
    EightBytes unplain = UnplainBytes(LoadBytes(text.data() + text.size() - kStep));
    for (std::size_t i = 0; i + kStep < text.size(); i += kStep)
        unplain |= UnplainBytes(LoadBytes(text.data() + i));
    return unplain == 0;
}

std::string WellFormedText(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
    std::string result;
    result.reserve(valid.size());
    for (std::size_t i = 0; i < valid.size(); ++i) {
        const std::string_view rest = std::string_view(valid).substr(i);
        const char c = valid[i];
        if (c == '<')
            result += "&lt;";
        else if (c == '&' && !KnownEntity(rest) && !IsLegalReference(rest))
            result += "&amp;";
        else if (c == '>' && i >= 2 && valid[i - 1] == ']' && valid[i - 2] == ']')
            result += "&gt;";
        else if (c == '\xEF' &&
                 (rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF")))
            i += 2; // U+FFFE and U+FFFF are no characters
        else if (static_cast<unsigned char>(c) >= ' ' || c == '\t' || c == '\n' || c == '\r')
            result += c;
    }
    return result;
}

std::string_view Trimmed(std::string_view text) noexcept
{
    const auto isBlank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view TruncatedText(std::string_view text, std::size_t bytes) noexcept
{
    if (text.size() <= bytes)
        return text;
    while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80)
        --bytes;
    return text.substr(0, bytes);
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) noexcept
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return ToLower(x) == ToLower(y);
           });
}

} // namespace XPJ
