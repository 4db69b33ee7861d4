#include "core/guid.h"

#include "core/numbers.h"

namespace XPJ {

namespace {

constexpr std::size_t kTextSize = 36;

bool IsDashPosition(std::size_t i)
{
    return i == 8 || i == 13 || i == 18 || i == 23;
}

} // namespace

Guid StringToGUID(std::string_view text) noexcept
{
    if (text.size() != kTextSize)
        return kZeroGuid;
    Guid guid{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < kTextSize; ++i) {
        if (IsDashPosition(i)) {
            if (text[i] != '-')
                return kZeroGuid;
            continue;
        }
        const int digit = HexDigit(text[i]);
        if (digit < 0)
            return kZeroGuid;
        std::uint8_t& byte = guid.data[digits / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | digit);
        ++digits;
    }
    return guid;
}

std::string AsString(const Guid& guid)
{
    constexpr char kHexDigits[] = "0123456789abcdef";
    std::string text(kTextSize, '-');
    std::size_t at = 0;
    for (const std::uint8_t byte : guid) {
        if (IsDashPosition(at))
            ++at;
        text[at++] = kHexDigits[byte >> 4];
        text[at++] = kHexDigits[byte & 15];
    }
    return text;
}

} // namespace XPJ
