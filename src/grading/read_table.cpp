#include "grading/look_messages.h"
#include "grading/table_readers.h"
#include "grading/text_place.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace XPJ {

namespace {

constexpr TextPlace kNoPlace = {0, 0};

struct TableReader {
    std::string_view name;
    bool isText;
    bool (*matches)(std::string_view bytes);
    bool (*read)(TableSource& source, CZv3DLUT& table);
};

// In the order they are tried; a format that fails passes on to the next.
constexpr TableReader kTableReaders[] = {
    {"native binary", false, MatchesNative, ReadNative},
    {"3LUT", false, Matches3LUT, Read3LUT},
    {"XML look table", true, MatchesXml, ReadXml},
    {".cube", true, MatchesCube, ReadCube},
    {"Truelight cube", true, MatchesTruelight, ReadTruelight},
    {"mesh", true, MatchesMesh, ReadMesh},
    {"indexed lines", true, MatchesIndexed, ReadIndexed},
    {"LUT_SIZE text", true, MatchesSized, ReadSized},
};

// False with the line and column of the fault, 0:0 in binary formats.
bool ReadAs(const TableReader& reader, std::string_view bytes, CZv3DLUT& table, TextPlace& place)
{
    TableSource source{bytes};
    try {
        if (reader.read(source, table) && IsSound(table))
            return true;
    } catch (const CZvError& fault) {
        place = {fault.line, fault.column};
        return false;
    }
    if (reader.isText)
        place = PlaceAt(source.bytes, source.at);
    return false;
}

void SetError(LookMessage message, std::string_view name, TextPlace place, CZvError* error)
{
    if (error)
        *error = {GetMessage(message, name), std::string(name), place.line, place.column};
}

std::optional<CZv3DLUT> ReadAny(std::string_view bytes, TextPlace& place)
{
    bool isMarked = false;
    for (const TableReader& reader : kTableReaders) {
        if (!reader.matches(bytes))
            continue;
        CZv3DLUT table;
        TextPlace fault = kNoPlace;
        if (ReadAs(reader, bytes, table, fault))
            return table;
        if (!isMarked)
            place = fault;
        isMarked = true;
    }
    return std::nullopt;
}

} // namespace

std::string_view TableFormat(std::string_view bytes)
{
    const auto* const reader = std::ranges::find_if(
        kTableReaders, [bytes](const TableReader& row) { return row.matches(bytes); });
    return reader == std::end(kTableReaders) ? std::string_view() : reader->name;
}

std::optional<CZv3DLUT> ReadTable(std::string_view bytes, std::string_view name, CZvError* error)
{
    TextPlace place = kNoPlace;
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
