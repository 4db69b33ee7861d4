// The engine's own binary format. All numbers are little-endian.
//
//   "ZVTX" | "ZTX2" | "ZTX3"     4 bytes
//   size, dimension, flags       32 bit each; the dimension is 1 or 3
//   entries                      size^dimension times red, green, blue as 32-bit floats
// and with flag 1, in "ZTX3" alone:
//   domain                       six doubles: the least of red, green, blue, then the greatest
//   count of sub-tables          32 bit; each is its length in 32 bit and a table of this format
// Flag 2 is set for enciphered tables, which are not read.
#include "grading/table_bytes.h"
#include "grading/table_readers.h"

namespace XPJ {

namespace {

constexpr std::size_t kHeaderSize = 16;
constexpr std::size_t kEntrySize = 12;
constexpr std::size_t kDomainSize = 48;
constexpr std::size_t kCountSize = 4;
constexpr std::uint32_t kSectionsFlag = 1;
constexpr int kMaxDepth = 4;

bool ReadLevel(std::string_view bytes, int depth, CZv3DLUT& table);

void ReadEntries(std::string_view bytes, CZv3DLUT& table)
{
    table.entries.reserve(bytes.size() / kEntrySize);
    for (std::size_t at = 0; at < bytes.size(); at += kEntrySize)
        table.entries.push_back(
            {FloatAt(bytes, at), FloatAt(bytes, at + 4), FloatAt(bytes, at + 8)});
}

bool ReadSubTables(std::string_view bytes, int depth, CZv3DLUT& table)
{
    if (bytes.size() < kCountSize)
        return false;
    const auto count = LittleEndian<std::uint32_t>(bytes);
    bytes.remove_prefix(kCountSize);
    for (std::uint32_t i = 0; i < count; ++i) {
        if (bytes.size() < kCountSize)
            return false;
        const auto length = LittleEndian<std::uint32_t>(bytes);
        bytes.remove_prefix(kCountSize);
        if (length > bytes.size() ||
            !ReadLevel(bytes.substr(0, length), depth + 1, table.subTables.emplace_back()))
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

bool ReadSections(std::string_view bytes, int depth, CZv3DLUT& table)
{
    if (bytes.size() < kDomainSize)
        return false;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        table.min[axis] = DoubleAt(bytes, 8 * axis);
        table.max[axis] = DoubleAt(bytes, 8 * (axis + 3));
    }
    return ReadSubTables(bytes.substr(kDomainSize), depth, table);
}

bool ReadLevel(std::string_view bytes, int depth, CZv3DLUT& table)
{
    if (depth > kMaxDepth || !MatchesNative(bytes))
        return false;
    table.size = LittleEndian<std::uint32_t>(bytes.substr(4));
    const auto dimension = LittleEndian<std::uint32_t>(bytes.substr(8));
    const auto flags = LittleEndian<std::uint32_t>(bytes.substr(12));
    if ((dimension != 1 && dimension != 3) || (dimension > 2 && table.size > kMaxStatedSize3D))
        return false;
    table.is3d = dimension == 3;
    const bool hasSections = flags == kSectionsFlag && bytes.starts_with("ZTX3");
    if (flags != 0 && !hasSections)
        return false;

    const std::string_view data = bytes.substr(kHeaderSize);
    const std::size_t dataSize = EntryCount(table.is3d, table.size) * kEntrySize;
    if (dataSize == 0 || dataSize > data.size())
        return false;
    ReadEntries(data.substr(0, dataSize), table);
    return !hasSections || ReadSections(data.substr(dataSize), depth, table);
}

} // namespace

bool MatchesNative(std::string_view bytes)
{
    return bytes.size() > kHeaderSize &&
           (bytes.starts_with("ZVTX") || bytes.starts_with("ZTX2") || bytes.starts_with("ZTX3"));
}

bool ReadNative(TableSource& source, CZv3DLUT& table)
{
    return ReadLevel(source.bytes, 0, table);
}

} // namespace XPJ
