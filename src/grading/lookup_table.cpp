#include "grading/lookup_table.h"

#include "grading/table_bytes.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace XPJ {

namespace {

bool IsFinite(const LUTEntry& entry)
{
    return std::isfinite(entry.red) && std::isfinite(entry.green) && std::isfinite(entry.blue);
}

void AddEntries(const std::vector<LUTEntry>& entries, DigestStream& digest)
{
    constexpr std::size_t kChunk = 4096;
    std::string bytes;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const LUTEntry& entry = entries[i];
        for (const float value : {entry.red, entry.green, entry.blue, entry.unused})
            AppendLittleEndian(bytes, std::bit_cast<std::uint32_t>(value));
        if (bytes.size() < kChunk * sizeof(LUTEntry) && i + 1 < entries.size())
            continue;
        digest.Add(bytes);
        bytes.clear();
    }
}

void AddTable(const CZv3DLUT& table, DigestStream& digest)
{
    std::string shape(1, table.is3d ? '\1' : '\0');
    AppendLittleEndian(shape, table.size);
    for (const std::array<double, 3>& corner : {table.min, table.max}) {
        for (const double value : corner)
            AppendLittleEndian(shape, std::bit_cast<std::uint64_t>(value));
    }
    digest.Add(shape);
    AddEntries(table.entries, digest);
    for (const CZv3DLUT& subTable : table.subTables)
        AddTable(subTable, digest);
}

} // namespace

std::size_t EntryCount(bool is3d, std::uint64_t size)
{
    if (size < kMinTableSize || size > (is3d ? kMaxTableSize3D : kMaxTableSize1D))
        return 0;
    return is3d ? size * size * size : size;
}

bool IsSound(const CZv3DLUT& table)
{
    for (std::size_t axis = 0; axis < table.min.size(); ++axis) {
        const double min = table.min[axis];
        const double max = table.max[axis];
        if (!std::isfinite(min) || !std::isfinite(max) || min >= max)
            return false;
    }
    return !table.entries.empty() && table.entries.size() == EntryCount(table.is3d, table.size) &&
           std::ranges::all_of(table.entries, IsFinite) &&
           std::ranges::all_of(table.subTables, IsSound);
}

Digest TableHash(const CZv3DLUT& table)
{
    DigestStream digest;
    AddTable(table, digest);
    return digest.Finish();
}

} // namespace XPJ
