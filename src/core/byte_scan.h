// Looks at eight bytes of a text at once.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace XPJ {

// Eight bytes; in an answer the highest bit of each byte counts.
using EightBytes = std::uint64_t;

constexpr EightBytes kEachByte = 0x0101010101010101;
constexpr EightBytes kHighBits = 0x80 * kEachByte;

constexpr EightBytes RepeatByte(char byte)
{
    return static_cast<unsigned char>(byte) * kEachByte;
}

inline EightBytes LoadBytes(const char* bytes)
{
    EightBytes loaded = 0;
    std::memcpy(&loaded, bytes, sizeof(loaded));
    return loaded;
}

// Which bytes are below `limit`, of bytes that are all below 0x80.
constexpr EightBytes BytesBelow(EightBytes bytes, char limit)
{
    return ~(bytes + kHighBits - RepeatByte(limit)) & kHighBits;
}

// Which bytes are `byte`, of bytes that are all below 0x80.
constexpr EightBytes BytesLike(EightBytes bytes, char byte)
{
    return BytesBelow(bytes ^ RepeatByte(byte), 1);
}

// Which bytes are "<" or ">", of bytes that are all below 0x80.
constexpr EightBytes AngleBrackets(EightBytes bytes)
{
    return BytesLike(bytes | RepeatByte('<' ^ '>'), '>');
}

// The index of the first byte of an answer that isn't zero.
inline std::size_t FirstByteOf(EightBytes answer)
{
    const int zeros = std::endian::native == std::endian::little ? std::countr_zero(answer)
                                                                 : std::countl_zero(answer);
    return static_cast<std::size_t>(zeros) / 8;
}

} // namespace XPJ
