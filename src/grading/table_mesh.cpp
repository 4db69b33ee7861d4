// Integer text of a 3D table.
//
//   3DMESH
//   Mesh 4 12            2^4 + 1 entries per axis, values up to 2^12 - 1
//   0 64 128 ... 1023    the levels of the grid, one per entry of an axis; not needed
//   0 0 17
//   0 0 250
//   ...                  one line per entry, blue running fastest
//   LUT8                 what follows is ignored
#include "grading/table_text.h"

#include "core/text.h"

namespace XPJ {

namespace {

constexpr std::uint32_t kMaxSizePower = 8;
constexpr std::uint32_t kMinDepth = 8;
constexpr std::uint32_t kMaxDepth = 16;

// Where a line of the file belongs: the file runs through blue first, the table through red.
std::size_t IndexOf(std::size_t line, std::size_t size)
{
    const std::size_t blue = line % size;
    const std::size_t green = line / size % size;
    const std::size_t red = line / (size * size);
    return red + size * (green + size * blue);
}

bool ReadHeader(TableText& text, CZv3DLUT& table, std::uint32_t& greatest)
{
    text.StartLine(); // the signature
    text.SkipLine();
    std::array<std::uint32_t, 2> powers{};
    if (!text.StartLine() || !text.Word("Mesh") || !text.LineOf(powers))
        return false;
    const auto [sizePower, depth] = powers;
    if (sizePower < 1 || sizePower > kMaxSizePower || depth < kMinDepth || depth > kMaxDepth)
        return false;
    table.is3d = true;
    table.size = (1U << sizePower) + 1;
    greatest = (1U << depth) - 1;
    return true;
}

bool ReadEntry(TableText& text, std::uint32_t greatest, LUTEntry& entry)
{
    std::array<std::uint32_t, 3> values{};
    if (!text.LineOf(values))
        return false;
    for (const std::uint32_t value : values) {
        if (value > greatest)
            return false;
    }
    const auto scale = static_cast<float>(greatest);
    entry = {static_cast<float>(values[0]) / scale, static_cast<float>(values[1]) / scale,
             static_cast<float>(values[2]) / scale};
    return true;
}

} // namespace

bool MatchesMesh(std::string_view bytes)
{
    TableSource source{bytes};
    TableText text(source, Hash::Comment);
    return text.StartLine() && EqualsIgnoreCase(bytes.substr(source.at, 4), "3DME");
}

bool ReadMesh(TableSource& source, CZv3DLUT& table)
{
    TableText text(source, Hash::Comment);
    std::uint32_t greatest = 0;
    if (!ReadHeader(text, table, greatest) || !text.StartLine())
        return false;
    text.SkipLine(); // the levels of the grid
    const std::size_t count = EntryCount(true, table.size);
    if (!HasRoom(source, count, 3))
        return false;
    table.entries.resize(count);
    for (std::size_t line = 0; line < count; ++line) {
        if (!text.StartLine() ||
            !ReadEntry(text, greatest, table.entries[IndexOf(line, table.size)]))
            return false;
    }
    return !text.StartLine() || !text.AtNumber();
}

} // namespace XPJ
