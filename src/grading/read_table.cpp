#include "grading/look_messages.h"
#include "grading/table_readers.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace XPJ {

namespace {

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

} // namespace

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
