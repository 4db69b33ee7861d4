// Text: UTF-8 inside, UTF-16 only at the host's boundary, entity-escaped in both document trees.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace XPJ {

// Ill-formed input becomes U+FFFD, in both directions.
std::string ToUTF8(std::u16string_view text);
std::u16string ToUTF16(std::string_view text);

// Writes at most `capacity` - 1 units and a zero into `field`; never half a surrogate pair. Units
// behind the zero stay as they are. Does nothing for a capacity of 0.
void ToUTF16(std::string_view text, char16_t* field, std::size_t capacity);

// "<", ">", and "&" unless it starts a known entity or a numeric reference already; a carriage
// return before a line feed becomes "&#13;".
std::string EscapeXML(std::string_view text);
// The five named entities, and decimal and hexadecimal references; anything else stays.
std::string UnescapeXML(std::string_view text);
void AppendUnescapedXML(std::string_view text, std::string& result);

// What a well-formed document may hold as character data: entity-escaped text comes out as it is;
// bare "&" and "<", "]]>", control characters and ill-formed UTF-8 are escaped, dropped, replaced.
std::string WellFormedText(std::string_view text);
// True for text that `WellFormedText` leaves alone at a glance: ASCII without "&", "<" and ">".
bool IsPlainText(std::string_view text) noexcept;

// Without the blanks at both ends.
std::string_view Trimmed(std::string_view text) noexcept;

// At most that many bytes of the start, without half a character.
std::string_view TruncatedText(std::string_view text, std::size_t bytes) noexcept;

// ASCII letters compare without regard to case, all other bytes as they are.
bool EqualsIgnoreCase(std::string_view a, std::string_view b) noexcept;

} // namespace XPJ
