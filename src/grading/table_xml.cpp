// The table inside a look written as XML, with the numbers as hexadecimal digits.
//
//   <?xml version="1.0" ?>
//   <look>
//     <LUT>
//       <size>"17"</size>
//       <domainmin>"0 0 0"</domainmin>      both optional
//       <domainmax>"1 1 1"</domainmax>
//       <data>"0000000000000000CDCC4C3E..."</data>
//     </LUT>
//   </look>
//
// Eight digits are one 32-bit float, lowest byte first; an entry has three or four. Whether the
// table is 1D or 3D is not stated: it follows from the number of digits.
#include "core/text.h"
#include "grading/element_reader.h"
#include "grading/table_bytes.h"
#include "grading/table_text.h"

#include <algorithm>
#include <utility>

namespace XPJ {

namespace {

constexpr std::string_view kBlanks = "\n\t \r";
constexpr std::size_t kFloatSize = 4;

[[noreturn]] void Fail(const CZvXMLFile& file)
{
    file.Fail(LookMessage::LookUpTableCouldNotBeLoadedUnknownFormat);
}

std::uint32_t ReadSize(CZvXMLFile& file)
{
    const std::string text = ReadText(file);
    TableSource source{text};
    TableText words(source, Hash::Blank);
    std::uint32_t size = 0;
    if (!words.StartLine() || !words.Integer(size) || !words.EndLine())
        Fail(file);
    return size;
}

// Three numbers, separated by blanks or commas.
void ReadCorner(CZvXMLFile& file, std::array<double, 3>& corner)
{
    std::string text = ReadText(file);
    std::ranges::replace_if(
        text, [](char c) { return c == ',' || kBlanks.find(c) != kBlanks.npos; }, ' ');
    TableSource source{text};
    TableText words(source, Hash::Blank);
    if (!words.StartLine() || !words.LineOf(corner))
        Fail(file);
}

std::string ReadBytes(CZvXMLFile& file)
{
    std::optional<std::string> bytes = BytesOfDigits(ReadText(file));
    if (!bytes)
        Fail(file);
    return std::move(*bytes);
}

bool SetEntries(std::string_view bytes, CZv3DLUT& table)
{
    for (const bool is3d : {true, false}) {
        const std::size_t count = EntryCount(is3d, table.size);
        if (count == 0 || (is3d && table.size > kMaxStatedSize3D))
            continue;
        const std::size_t entrySize = bytes.size() / count;
        if (bytes.size() % count != 0 ||
            (entrySize != 3 * kFloatSize && entrySize != 4 * kFloatSize))
            continue;
        table.is3d = is3d;
        table.entries.reserve(count);
        for (std::size_t at = 0; at < bytes.size(); at += entrySize)
            table.entries.push_back({FloatAt(bytes, at), FloatAt(bytes, at + kFloatSize),
                                     FloatAt(bytes, at + 2 * kFloatSize)});
        return true;
    }
    return false;
}

void ReadLut(CZvXMLFile& file, CZv3DLUT& table)
{
    std::string bytes;
    ReadElement(file, [&](std::string_view tag) {
        if (EqualsIgnoreCase(tag, "size"))
            table.size = ReadSize(file);
        else if (EqualsIgnoreCase(tag, "domainmin"))
            ReadCorner(file, table.min);
        else if (EqualsIgnoreCase(tag, "domainmax"))
            ReadCorner(file, table.max);
        else if (EqualsIgnoreCase(tag, "data"))
            bytes = ReadBytes(file);
        else
            return false;
        return true;
    });
    if (!SetEntries(bytes, table) || !IsSound(table))
        Fail(file);
}

} // namespace

bool MatchesXml(std::string_view bytes)
{
    constexpr std::string_view kRoot = "<look>";
    TableSource source{bytes};
    TableText text(source, Hash::Blank); // skips a byte-order mark
    bytes.remove_prefix(source.at);
    if (!bytes.starts_with("<?xml"))
        return false;
    for (std::size_t at = bytes.find('<'); at != bytes.npos; at = bytes.find('<', at + 1)) {
        if (EqualsIgnoreCase(bytes.substr(at, kRoot.size()), kRoot))
            return true;
    }
    return false;
}

// Faults are exceptions, since the XML reader knows the line and column.
bool ReadXml(TableSource& source, CZv3DLUT& table)
{
    CZvXMLFile file;
    file.Open(source.bytes);
    if (file.Next() != CZvXMLFile::Status::StartTag || !EqualsIgnoreCase(file.TagName(), "look"))
        Fail(file);
    bool hasTable = false;
    ReadElement(file, [&](std::string_view tag) {
        if (hasTable || !EqualsIgnoreCase(tag, "LUT"))
            return false;
        hasTable = true;
        ReadLut(file, table);
        return true;
    });
    return hasTable;
}

} // namespace XPJ
