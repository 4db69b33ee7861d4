#include "grading/table_bytes.h"

#include "core/numbers.h"

#include <utility>

namespace XPJ {

std::optional<std::string> BytesOfDigits(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    std::string bytes;
    bytes.reserve(text.size() / 2);
    int high = -1;
    for (const char c : text) {
        const int digit = HexDigit(c);
        if (digit < 0) {
            if (kBlanks.find(c) == kBlanks.npos)
                return {};
            continue;
        }
        if (high >= 0)
            bytes += static_cast<char>(high << 4 | digit);
        high = high < 0 ? digit : -1;
    }
    return high < 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace XPJ
