#include "grading/lookup_table.h"

#include "grading/look_messages.h"
#include "grading/table_bytes.h"
#include "grading/table_readers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <new>

namespace XPJ {

namespace {

// Line and column of an offset; CR LF, LF and CR end lines.
CZvError PlaceOf(const TableSource& source)
{
    const std::string_view text = source.bytes.substr(0, source.at);
    CZvError place;
    place.line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isFirstOfTwo = text[i] == '\r' && source.bytes.substr(i + 1).starts_with('\n');
        if (isFirstOfTwo || (text[i] != '\n' && text[i] != '\r'))
            continue;
        ++place.line;
        lineStart = i + 1;
    }
    place.column = static_cast<int>(text.size() - lineStart) + 1;
    return place;
}

// False with line and column in `place`, which stay 0 in binary formats.
bool ReadAs(const TableReader& reader, std::string_view bytes, CZv3DLUT& table, CZvError& place)
{
    TableSource source{bytes};
    try {
        if (reader.read(source, table) && IsSound(table))
            return true;
    } catch (const CZvError& fault) {
        place = fault;
        return false;
    }
    if (reader.isText)
        place = PlaceOf(source);
    return false;
}

void SetError(LookMessage message, std::string_view name, const CZvError& place, CZvError* error)
{
    if (error)
        *error = {GetMessage(message, name), std::string(name), place.line, place.column};
}

std::optional<CZv3DLUT> ReadAny(std::string_view bytes, CZvError& place)
{
    bool isMarked = false;
    for (const TableReader& reader : kTableReaders) {
        if (!reader.matches(bytes))
            continue;
        CZv3DLUT table;
        CZvError fault;
        if (ReadAs(reader, bytes, table, fault))
            return table;
        if (!isMarked)
            place = fault;
        isMarked = true;
    }
    return std::nullopt;
}

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

std::string_view TableFormat(std::string_view bytes)
{
    const auto* const reader = std::ranges::find_if(
        kTableReaders, [bytes](const TableReader& row) { return row.matches(bytes); });
    return reader == std::end(kTableReaders) ? std::string_view() : reader->name;
}

std::optional<CZv3DLUT> ReadTable(std::string_view bytes, std::string_view name, CZvError* error)
{
    CZvError place;
    try {
        if (std::optional<CZv3DLUT> table = ReadAny(bytes, place)) {
            table->hash = TableHash(*table);
            table->name = name.empty() ? "LUT: " + DigestText(table->hash) : std::string(name);
            return table;
        }
    } catch (const std::bad_alloc&) {
        SetError(LookMessage::LookUpTableCouldNotBeLoadedOutOfMemory, name, place, error);
        return std::nullopt;
    }
    SetError(LookMessage::LookUpTableCouldNotBeLoadedUnknownFormat, name, place, error);
    return std::nullopt;
}

} // namespace XPJ
