// The text format that most programs write, for 1D tables, 3D tables, and a 1D before a 3D table.
//
//   TITLE "Dusk"
//   LUT_3D_SIZE 2
//   DOMAIN_MIN 0 0 0
//   DOMAIN_MAX 1 1 1
//   0 0 0
//   0.9 0 0.05
//   ...                 size^3 lines, red running fastest; size lines for LUT_1D_SIZE
//
// Keywords come in any order and case, unknown ones are skipped. DOMAIN_ is the
// domain of the file's first table; LUT_1D_INPUT_RANGE and LUT_3D_INPUT_RANGE give one
// pair for all axes of their table.
#include "grading/table_text.h"

#include <algorithm>
#include <utility>

namespace XPJ {

namespace {

struct Domain {
    std::array<double, 3> min{0, 0, 0};
    std::array<double, 3> max{1, 1, 1};
    bool isStated = false;
    std::size_t at = 0; // where it was stated
};

// One of the two tables; size 0 if the file has none of its kind.
struct Part {
    std::uint32_t size = 0;
    Domain range;
};

struct CubeFile {
    Part line; // the 1D table
    Part cube;
    Domain domain;
    std::vector<LUTEntry> entries; // of both, the 1D table's first

    std::size_t LineCount() const { return EntryCount(false, line.size); }
    std::size_t Count() const { return LineCount() + EntryCount(true, cube.size); }
};

bool ReadSize(TableText& text, std::uint32_t largest, std::uint32_t& size)
{
    return text.Integer(size) && size >= kMinTableSize && size <= largest && text.EndLine();
}

bool ReadRange(TableText& text, Domain& range)
{
    std::array<double, 2> ends{};
    if (!text.LineOf(ends))
        return false;
    range.min.fill(ends[0]);
    range.max.fill(ends[1]);
    return true;
}

bool ReadKeyword(TableText& text, std::size_t at, CubeFile& file)
{
    const auto stated = [at](Domain& domain) -> Domain& {
        domain.isStated = true;
        domain.at = at;
        return domain;
    };
    if (text.Word("LUT_1D_SIZE"))
        return ReadSize(text, kMaxTableSize1D, file.line.size);
    if (text.Word("LUT_3D_SIZE"))
        return ReadSize(text, kMaxStatedSize3D, file.cube.size);
    if (text.Word("LUT_1D_INPUT_RANGE"))
        return ReadRange(text, stated(file.line.range));
    if (text.Word("LUT_3D_INPUT_RANGE"))
        return ReadRange(text, stated(file.cube.range));
    if (text.Word("DOMAIN_MIN"))
        return text.LineOf(stated(file.domain).min);
    if (text.Word("DOMAIN_MAX"))
        return text.LineOf(stated(file.domain).max);
    text.SkipLine(); // TITLE, and unknown keywords
    return true;
}

// Lines after the last entry are ignored.
bool ReadData(const TableSource& source, TableText& text, CubeFile& file)
{
    const std::size_t count = file.Count();
    if (file.entries.empty() && count > 0) {
        if (!HasRoom(source, count, 3))
            return false;
        file.entries.reserve(count);
    }
    if (count > 0 && file.entries.size() >= count) {
        text.SkipLine();
        return true;
    }
    return text.LineOf(file.entries);
}

bool SetDomain(const Domain& domain, TableSource& source, CZv3DLUT& table)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (domain.min[axis] < domain.max[axis])
            continue;
        source.at = domain.at;
        return false;
    }
    table.min = domain.min;
    table.max = domain.max;
    return true;
}

bool Build(CubeFile& file, TableSource& source, CZv3DLUT& table)
{
    if (file.Count() == 0 || file.entries.size() < file.Count())
        return false;
    const bool hasBoth = file.line.size > 0 && file.cube.size > 0;
    const Part& first = file.line.size > 0 ? file.line : file.cube;
    table.is3d = file.line.size == 0;
    table.size = first.size;
    if (!SetDomain(first.range.isStated ? first.range : file.domain, source, table))
        return false;
    file.entries.resize(file.Count());
    if (hasBoth) {
        CZv3DLUT& cube = table.subTables.emplace_back();
        cube.is3d = true;
        cube.size = file.cube.size;
        const auto cubeBegin = file.entries.begin() + static_cast<std::ptrdiff_t>(file.LineCount());
        cube.entries.assign(cubeBegin, file.entries.end());
        file.entries.resize(file.LineCount());
        if (!SetDomain(file.cube.range, source, cube))
            return false;
    }
    table.entries = std::move(file.entries);
    return true;
}

} // namespace

bool MatchesCube(std::string_view bytes)
{
    TableSource source{bytes};
    TableText text(source, Hash::Comment);
    for (; text.StartLine(); text.SkipLine()) {
        if (text.Word("LUT_1D_SIZE") || text.Word("LUT_3D_SIZE"))
            return true;
    }
    return false;
}

bool ReadCube(TableSource& source, CZv3DLUT& table)
{
    TableText text(source, Hash::Comment);
    CubeFile file;
    while (text.StartLine()) {
        if (!(text.AtNumber() ? ReadData(source, text, file) : ReadKeyword(text, source.at, file)))
            return false;
    }
    return Build(file, source, table);
}

} // namespace XPJ
