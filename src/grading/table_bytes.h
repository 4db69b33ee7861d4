// Numbers in the bytes of tables, whatever the order of this machine, and bytes as digits.
#pragma once

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// The integer at the start of `bytes`, its lowest byte first; the caller has made sure that they
// are long enough.
template <std::unsigned_integral T>
T LittleEndian(std::string_view bytes)
{
    T value = 0;
    for (std::size_t i = sizeof(T); i-- > 0;)
        value = static_cast<T>(static_cast<std::uint64_t>(value) << 8 |
                               static_cast<unsigned char>(bytes[i]));
    return value;
}

// The same, highest byte first.
template <std::unsigned_integral T>
T BigEndian(std::string_view bytes)
{
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i)
        value = static_cast<T>(static_cast<std::uint64_t>(value) << 8 |
                               static_cast<unsigned char>(bytes[i]));
    return value;
}

inline float FloatAt(std::string_view bytes, std::size_t offset)
{
    return std::bit_cast<float>(LittleEndian<std::uint32_t>(bytes.substr(offset, 4)));
}

inline double DoubleAt(std::string_view bytes, std::size_t offset)
{
    return std::bit_cast<double>(LittleEndian<std::uint64_t>(bytes.substr(offset, 8)));
}

template <std::unsigned_integral T>
void AppendLittleEndian(std::string& bytes, T value)
{
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

// The bytes of hexadecimal digits with blanks anywhere among them; nothing if another character is
// there or half a byte is left.
std::optional<std::string> BytesOfDigits(std::string_view text);

} // namespace XPJ
