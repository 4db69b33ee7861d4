#include "grading/look_tables.h"

#include "core/numbers.h"
#include "core/text.h"
#include "grading/element_reader.h"
#include "grading/table_bytes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

constexpr std::size_t kSubTableIndent = 4;
constexpr std::size_t kDigitsPerEntry = 32;
constexpr std::size_t kWordSize = sizeof(std::uint32_t);

// ---- Entries as digits: four little-endian floats, the last one always 0

bool ReadEntries(std::string_view digits, CZv3DLUT& table)
{
    const std::size_t count = EntryCount(table.is3d, table.size);
    if (count == 0 || digits.size() / kDigitsPerEntry < count)
        return false;
    const std::optional<std::string> bytes = BytesOfDigits(digits);
    if (!bytes || bytes->size() != count * kDigitsPerEntry / 2)
        return false;
    table.entries.resize(count);
    std::size_t place = 0;
    for (LUTEntry& entry : table.entries) {
        entry.red = FloatAt(*bytes, place);
        entry.green = FloatAt(*bytes, place + kWordSize);
        entry.blue = FloatAt(*bytes, place + 2 * kWordSize);
        place += kDigitsPerEntry / 2;
        if (!std::isfinite(entry.red) || !std::isfinite(entry.green) || !std::isfinite(entry.blue))
            return false;
    }
    return true;
}

// Writes the eight digits of a float at `place`; gives the end of them.
char* PutFloat(float value, char* place)
{
    constexpr char kHex[] = "0123456789abcdef";
    std::uint32_t bits = std::bit_cast<std::uint32_t>(value);
    for (std::size_t i = 0; i < kWordSize; ++i, bits >>= 8) {
        *place++ = kHex[bits >> 4 & 15];
        *place++ = kHex[bits & 15];
    }
    return place;
}

void AppendEntries(std::string& text, const std::vector<LUTEntry>& entries)
{
    const std::size_t start = text.size();
    text.resize(start + entries.size() * kDigitsPerEntry);
    char* place = text.data() + start;
    for (const LUTEntry& entry : entries)
        for (const float value : {entry.red, entry.green, entry.blue, 0.0F})
            place = PutFloat(value, place);
}

// ---- The domain: three numbers

bool ReadCorner(std::string_view text, std::array<double, 3>& corner)
{
    for (std::size_t axis = 0; axis < corner.size(); ++axis) {
        const bool isLast = axis + 1 == corner.size();
        const std::size_t comma = text.find(',');
        if ((comma == text.npos) != isLast)
            return false;
        const std::string_view number = Trimmed(text.substr(0, comma));
        const auto [end, error] =
            std::from_chars(number.data(), number.data() + number.size(), corner[axis]);
        if (error != std::errc() || end != number.data() + number.size() ||
            !std::isfinite(corner[axis]))
            return false;
        text.remove_prefix(isLast ? text.size() : comma + 1);
    }
    return true;
}

std::string CornerText(const std::array<double, 3>& corner)
{
    return fmt::format("{:g},{:g},{:g}", corner[0], corner[1], corner[2]);
}

bool IsDigest(std::string_view text)
{
    if (text.size() != 2 * Digest().size())
        return false;
    for (const char c : text)
        if (HexDigit(c) < 0)
            return false;
    return true;
}

} // namespace

CZv3DLUT ReadInlineTable(CZvXMLFile& file)
{
    CZv3DLUT table;
    std::string digits;
    bool isAudio = true;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "filename"))
            table.name = ReadText(file);
        else if (EqualsIgnoreCase(tag, "is3d"))
            table.is3d = IsTrueText(ReadText(file));
        else if (EqualsIgnoreCase(tag, "size"))
            table.size = static_cast<std::uint32_t>(std::max(ParseInt(ReadText(file)), 0));
        else if (EqualsIgnoreCase(tag, "min"))
            isAudio &= ReadCorner(ReadText(file), table.min);
        else if (EqualsIgnoreCase(tag, "max"))
            isAudio &= ReadCorner(ReadText(file), table.max);
        else if (EqualsIgnoreCase(tag, "data"))
            digits = ReadText(file);
        else if (EqualsIgnoreCase(tag, "sublut"))
            table.subTables.push_back(ReadInlineTable(file));
        else
            return false;
        return true;
    });
    if (!isAudio || !ReadEntries(digits, table))
        file.Fail(LookMessage::LookUpTableCouldNotBeLoadedUnknownFormat, table.name);
    return table;
}

ExternalTable ReadExternalTable(CZvXMLFile& file)
{
    ExternalTable table;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "hash"))
            table.hash = ReadText(file);
        else if (EqualsIgnoreCase(tag, "filename"))
            table.fileName = ReadText(file);
        else
            return false;
        return true;
    });
    return table;
}

void ReadTableTail(std::string_view tail, CGrading& grading)
{
    constexpr std::size_t kHashSize = Digest().size();
    constexpr std::size_t kHeadSize = kHashSize + kWordSize;
    std::vector<ExternalTable>& references = grading.externalLUTs;
    // Positions of references, by the bytes of their hash and their file name.
    std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> wanted;
    for (std::size_t i = 0; i < references.size(); ++i) {
        const auto& [hash, fileName] = references[i];
        if (IsDigest(hash))
            wanted[{BytesOfDigits(hash).value_or(""), fileName}].push_back(i);
    }
    std::vector<bool> isFound(references.size());
    while (tail.size() >= kHeadSize) {
        const std::uint32_t size = LittleEndian<std::uint32_t>(tail.substr(kHashSize));
        if (size > tail.size() - kHeadSize)
            break;
        const std::string hash(tail.substr(0, kHashSize));
        const auto entry = wanted.lower_bound({hash, ""});
        const std::string_view bytes = tail.substr(kHeadSize, size);
        tail.remove_prefix(kHeadSize + size);
        if (entry == wanted.end() || entry->first.first != hash)
            continue;
        const auto& [key, places] = *entry;
        if (auto table = ReadTable(bytes, key.second)) {
            grading.embeddedLUTs.push_back(std::move(*table));
            for (const std::size_t place : places)
                isFound[place] = true;
            wanted.erase(entry);
        }
    }
    std::vector<ExternalTable> missing;
    for (std::size_t i = 0; i < references.size(); ++i)
        if (!isFound[i])
            missing.push_back(std::move(references[i]));
    references = std::move(missing);
}

void WriteInlineTable(ElementWriter& writer, std::size_t indent, const CZv3DLUT& table)
{
    writer.Quoted(indent, "filename", table.name);
    writer.Quoted(indent, "is3d", table.is3d ? "1" : "0");
    writer.Quoted(indent, "size", UintToString(table.size));
    writer.Quoted(indent, "min", CornerText(table.min));
    writer.Quoted(indent, "max", CornerText(table.max));
    writer.OpenQuote(indent, "data");
    AppendEntries(writer.Text(), table.entries);
    writer.CloseQuote("data");
    for (const CZv3DLUT& subTable : table.subTables) {
        writer.Open(indent, "sublut");
        WriteInlineTable(writer, indent + kSubTableIndent, subTable);
        writer.Close(indent, "sublut");
    }
}

void WriteExternalTable(ElementWriter& writer, std::size_t indent, const ExternalTable& table)
{
    constexpr std::size_t kIndentStep = 2;
    writer.Open(indent, "embeddedlut");
    writer.Bare(indent + kIndentStep, "hash", table.hash);
    writer.Bare(indent + kIndentStep, "filename", table.fileName);
    writer.Close(indent, "embeddedlut");
}

} // namespace XPJ
