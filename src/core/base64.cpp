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

// Decodes the four digits that `text` begins with to three bytes; false if it doesn't.
bool DecodeGroup(std::string_view text, char* bytes)
{
    std::uint32_t group = 0;
    std::uint8_t all = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::uint8_t digit = kDigits[static_cast<unsigned char>(text[i])];
        all |= digit;
        group = group << 6 | digit;
    }
    for (std::size_t i = 0; i < 3; ++i)
        bytes[i] = static_cast<char>(group >> (16 - 8 * i) & 0xFF);
    return all <= 63;
}

} // namespace

void AppendBase64(std::string_view bytes, std::string& text)
{
    std::size_t at = text.size();
    text.resize(at + (bytes.size() + 2) / 3 * 4, '=');
    for (std::size_t i = 0; i < bytes.size(); i += 3, at += 4) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0u);
        for (std::size_t k = 0; k <= count; ++k)
            text[at + k] = kAlphabet[group >> (18 - 6 * k) & 63];
    }
}

std::string EncodeBase64(std::string_view bytes)
{
    std::string text;
    AppendBase64(bytes, text);
    return text;
}

std::string DecodeBase64(std::string_view text)
{
    std::string bytes(text.size() / 4 * 3 + 3, '\0');
    char* next = bytes.data();
    // Most texts are whole groups up to their padding.
    for (; text.size() >= 4 && DecodeGroup(text, next); text.remove_prefix(4))
        next += 3;
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
            *next++ = static_cast<char>(bits >> count & 0xFF);
        }
    }
    bytes.resize(static_cast<std::size_t>(next - bytes.data()));
    return bytes;
}

// Every eighth step a byte of the register comes to its top and is replaced there by a new one, so
// the register is eight independent bytes.
std::uint32_t BlobChecksum(std::string_view bytes) noexcept
{
    constexpr std::size_t kLanes = 8;
    std::array<std::uint8_t, kLanes> lanes{};
    lanes.fill(0xFF);
    const auto step = [&](std::size_t i, std::size_t lane) {
        lanes[lane] = kChecksumTable[lanes[lane] ^ static_cast<unsigned char>(bytes[i])];
    };
    std::size_t i = 0;
    for (; i + kLanes <= bytes.size(); i += kLanes)
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            step(i + lane, lane);
    for (std::size_t lane = 0; i < bytes.size(); ++i, ++lane)
        step(i, lane);
    // The last four, the newest lowest.
    std::uint32_t checksum = 0;
    for (std::size_t last = kLanes - 4; last < kLanes; ++last)
        checksum = checksum << 8 | lanes[(bytes.size() + last) % kLanes];
    return checksum;
}

} // namespace XPJ
