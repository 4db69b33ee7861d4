// Numbers in document text. Every reader takes any input and never throws; none depends on the
// process's locale, so that a host's comma never reaches a document.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

// Value of a hexadecimal digit of either case, -1 for any other character.
int HexDigit(char c) noexcept;

// Leading blanks, a sign, digits; stops at the first other character. Out of range is clamped,
// no digits is 0.   ParseInt(" -12x") == -12
int ParseInt(std::string_view text) noexcept;
std::int64_t ParseInt64(std::string_view text) noexcept;

// The longest decimal prefix, after leading blanks and a sign; 0 without one.
//   ParseDouble("1.5e2%") == 150
double ParseDouble(std::string_view text) noexcept;

// In decimal digits.   IntToString(-7) == "-7"
std::string IntToString(std::int64_t value);
std::string UintToString(std::uint64_t value);
void AppendInt(std::string& text, std::int64_t value);

// Six significant digits, as a stream with the classic locale writes a double.
//   DoubleToString(0.5) == "0.5", DoubleToString(1) == "1"
std::string DoubleToString(double value);

} // namespace XPJ
