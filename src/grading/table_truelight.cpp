// Text with a cube and, before it, an optional 1D table. A "#" may precede any line.
//
//   # Truelight Cube v2.0
//   # iDims 3
//   # oDims 3
//   # width 17 17 17
//   # lutLength 1024
//   # InputLUT            lutLength numbers, or three times as many; from 0 to width - 1
//   0
//   ...
//   # Cube                width^3 lines of three numbers, red running fastest
//   0 0 0
//   ...
//   # end
//
// The table is the cube, the 1D table a sub-table of it.
#include "grading/table_text.h"

#include <utility>

namespace XPJ {

namespace {

enum class Section { Header, InputLUT, Cube };

struct TruelightFile {
    Section section = Section::Header;
    std::uint32_t width = 0;
    std::uint32_t lutLength = 0;
    std::vector<float> input;
    std::vector<LUTEntry> cube;
};

// Both counts of dimensions have to be 3.
bool ReadDimensions(TableText& text)
{
    std::uint32_t dimensions = 0;
    return text.Integer(dimensions) && dimensions == 3 && text.EndLine();
}

bool ReadWidth(TableText& text, std::uint32_t& width)
{
    std::array<std::uint32_t, 3> axes{};
    if (!text.LineOf(axes))
        return false;
    width = axes[0];
    return axes[1] == width && axes[2] == width && width >= kMinTableSize &&
           width <= kMaxStatedSize3D;
}

bool ReadHeader(TableText& text, TruelightFile& file)
{
    if (text.Word("iDims") || text.Word("oDims"))
        return ReadDimensions(text);
    if (text.Word("width"))
        return ReadWidth(text, file.width);
    if (text.Word("lutLength"))
        return text.Integer(file.lutLength) && text.EndLine();
    if (text.Word("InputLUT"))
        file.section = Section::InputLUT;
    else if (text.Word("Cube"))
        file.section = Section::Cube;
    text.SkipLine();
    return true;
}

bool ReadData(TableText& text, TruelightFile& file)
{
    if (file.section == Section::Cube)
        return text.LineOf(file.cube);
    if (file.section == Section::Header)
        return false;
    while (!text.EndLine()) {
        if (!text.Number(file.input.emplace_back()))
            return false;
    }
    return true;
}

// The numbers count steps of the cube; the sub-table has them from 0 to 1.
bool BuildInput(const TruelightFile& file, CZv3DLUT& table)
{
    table.size = file.lutLength;
    const std::size_t count = EntryCount(false, table.size);
    const bool isGray = file.input.size() == count;
    if (count == 0 || (!isGray && file.input.size() != 3 * count))
        return false;
    const auto steps = static_cast<float>(file.width - 1);
    table.entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t red = isGray ? i : 3 * i;
        const std::size_t step = isGray ? 0 : 1;
        table.entries.push_back({file.input[red] / steps, file.input[red + step] / steps,
                                 file.input[red + 2 * step] / steps});
    }
    return true;
}

bool Build(TruelightFile& file, CZv3DLUT& table)
{
    if (file.width == 0 || file.cube.size() != EntryCount(true, file.width))
        return false;
    table.is3d = true;
    table.size = file.width;
    table.entries = std::move(file.cube);
    return file.input.empty() || BuildInput(file, table.subTables.emplace_back());
}

} // namespace

bool MatchesTruelight(std::string_view bytes)
{
    TableSource source{bytes};
    TableText text(source, Hash::Blank);
    return text.StartLine() && text.Word("Truelight") && text.Word("Cube");
}

bool ReadTruelight(TableSource& source, CZv3DLUT& table)
{
    TableText text(source, Hash::Blank);
    TruelightFile file;
    text.StartLine(); // the signature
    text.SkipLine();
    while (text.StartLine() && !text.Word("End")) {
        if (!(text.AtNumber() ? ReadData(text, file) : ReadHeader(text, file)))
            return false;
    }
    return Build(file, table);
}

} // namespace XPJ
