// Text of a 3D table that states its size and the number of its entries.
//
//   LUT_SIZE : 17 17 17
//   entries = 4913
//   0 0 0
//   0.06 0 0             one line per entry, red running fastest
//   ...
#include "grading/table_text.h"

namespace XPJ {

namespace {

bool ReadSize(TableText& text, std::uint32_t& size)
{
    std::array<std::uint32_t, 3> axes{};
    if (!text.Sign(':') || !text.LineOf(axes))
        return false;
    size = axes[0];
    return axes[1] == size && axes[2] == size && size >= kMinTableSize && size <= kMaxStatedSize3D;
}

// Both counts, in either order, up to the first line of data.
bool ReadHeader(TableText& text, CZv3DLUT& table)
{
    std::uint32_t count = 0;
    for (; text.StartLine() && !text.AtNumber(); text.SkipLine()) {
        if (text.Word("LUT_SIZE")) {
            if (!ReadSize(text, table.size))
                return false;
        } else if (text.Word("entries")) {
            if (!text.Sign('=') || !text.Integer(count) || !text.EndLine())
                return false;
        }
    }
    table.is3d = true;
    return table.size > 0 && count == EntryCount(true, table.size);
}

} // namespace

bool MatchesSized(std::string_view bytes)
{
    TableSource source{bytes};
    TableText text(source, Hash::Comment);
    for (; text.StartLine(); text.SkipLine()) {
        if (text.Word("LUT_SIZE"))
            return text.Sign(':');
    }
    return false;
}

bool ReadSized(TableSource& source, CZv3DLUT& table)
{
    TableText text(source, Hash::Comment);
    if (!ReadHeader(text, table))
        return false;
    const std::size_t count = EntryCount(true, table.size);
    if (!HasRoom(source, count, 3))
        return false;
    table.entries.reserve(count);
    while (text.StartLine()) {
        if (table.entries.size() == count || !text.LineOf(table.entries))
            return false;
    }
    return table.entries.size() == count;
}

} // namespace XPJ
