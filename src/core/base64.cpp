#include "core/base64.h"

#include <algorithm>
#include <array>

namespace XPJ {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeDigits()
{
    std::array<std::uint8_t, 256> digits{};
    digits.fill(kNoDigit);
    for (std::uint8_t i = 0; i < 64; ++i)
        digits[static_cast<unsigned char>(kAlphabet[i])] = i;
    return digits;
}

constexpr std::array<std::uint8_t, 256> MakeChecksumTable()
{
    std::array<std::uint8_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit)
            value = (value >> 1) ^ ((value & 1) != 0 ? 0xEDB88320u : 0u);
        table[i] = static_cast<std::uint8_t>(value);
    }
    return table;
}

constexpr std::array<std::uint8_t, 256> kDigits = MakeDigits();
constexpr std::array<std::uint8_t, 256> kChecksumTable = MakeChecksumTable();

} // namespace

void AppendBase64(std::string_view bytes, std::string& text)
{
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? kAlphabet[group >> (18 - 6 * k) & 63] : '=';
    }
}

std::string EncodeBase64(std::string_view bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    AppendBase64(bytes, text);
    return text;
}

std::string DecodeBase64(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        if (c == '=')
            break;
        const std::uint8_t digit = kDigits[static_cast<unsigned char>(c)];
        if (digit == kNoDigit)
            continue;
        bits = bits << 6 | digit;
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 0xFF);
        }
    }
    return bytes;
}

std::uint32_t BlobChecksum(std::string_view bytes) noexcept
{
    std::uint64_t state = ~std::uint64_t{0};
    for (const char c : bytes)
        state = kChecksumTable[(state >> 56 ^ static_cast<unsigned char>(c)) & 0xFF] ^ state << 8;
    return static_cast<std::uint32_t>(state);
}

} // namespace XPJ
