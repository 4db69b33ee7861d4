// Integer text of a 1D table; nothing but its lines.
//
//   0 0 0 0              index, red, green, blue
//   1 4 4 5
//   ...
//   255 1023 1023 1020   the greatest value shows that 1023 means 1
#include "grading/table_text.h"

#include <algorithm>

namespace XPJ {

namespace {

using Row = std::array<std::uint32_t, 4>;

// The value that means 1, by the usual depths of 8, 10, 12 and 16 bits.
constexpr std::uint32_t kScales[] = {255, 1023, 4095, 65535};

// The least scale that reaches `greatest`; 0 if none does.
std::uint32_t ScaleFor(std::uint32_t greatest)
{
    const auto* const scale = std::ranges::lower_bound(kScales, greatest);
    return scale == std::end(kScales) ? 0 : *scale;
}

} // namespace

bool MatchesIndexed(std::string_view bytes)
{
    TableSource source{bytes};
    TableText text(source, Hash::Comment);
    Row row{};
    return text.StartLine() && text.LineOf(row);
}

bool ReadIndexed(TableSource& source, CZv3DLUT& table)
{
    TableText text(source, Hash::Comment);
    std::uint32_t greatest = 0;
    while (text.StartLine()) {
        const std::size_t lineAt = source.at;
        Row row{};
        if (!text.LineOf(row))
            return false;
        const auto [index, red, green, blue] = row;
        greatest = std::max({greatest, red, green, blue});
        if (index != table.entries.size() || index == kMaxTableSize1D || ScaleFor(greatest) == 0) {
            source.at = lineAt;
            return false;
        }
        table.entries.push_back(
            {static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue)});
    }
    table.size = static_cast<std::uint32_t>(table.entries.size());
    const auto scale = static_cast<float>(ScaleFor(greatest));
    for (LUTEntry& entry : table.entries)
        entry = {entry.red / scale, entry.green / scale, entry.blue / scale};
    return true;
}

} // namespace XPJ
