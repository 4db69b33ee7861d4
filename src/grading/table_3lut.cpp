// Packed 3D tables.
//
//   0    "3LUT"          all numbers little-endian, or "TUL3": big-endian
//   6    n               16 bit; 2^n + 1 entries per axis
//   8    data offset     32 bit; 0 means 808
//        entries         32 bit each: red in the ten highest bits, then green, then blue, two
//        unused
#include "grading/table_bytes.h"
#include "grading/table_readers.h"

namespace XPJ {

namespace {

constexpr std::size_t kHeaderSize = 808;
constexpr std::size_t kFieldsEnd = 12;
constexpr std::size_t kEntrySize = 4;
constexpr unsigned kMaxPower = 8;
constexpr std::string_view kSwappedMark = "TUL3";

template <std::unsigned_integral T>
T Field(std::string_view bytes, std::size_t offset, bool isSwapped)
{
    const std::string_view field = bytes.substr(offset, sizeof(T));
    return isSwapped ? BigEndian<T>(field) : LittleEndian<T>(field);
}

LUTEntry Unpacked(std::uint32_t word)
{
    const auto tenBits = [word](int shift) {
        return static_cast<float>(word >> shift & 0x3FF) / 1023.0F;
    };
    return {tenBits(22), tenBits(12), tenBits(2)};
}

} // namespace

bool Matches3LUT(std::string_view bytes)
{
    return bytes.size() > kHeaderSize &&
           (bytes.starts_with("3LUT") || bytes.starts_with(kSwappedMark));
}

bool Read3LUT(TableSource& source, CZv3DLUT& table)
{
    const std::string_view bytes = source.bytes;
    const bool isSwapped = bytes.starts_with(kSwappedMark);
    const unsigned power = Field<std::uint16_t>(bytes, 6, isSwapped);
    std::size_t offset = Field<std::uint32_t>(bytes, 8, isSwapped);
    if (offset == 0)
        offset = kHeaderSize;
    if (power > kMaxPower || offset < kFieldsEnd || offset > bytes.size())
        return false;
    table.is3d = true;
    table.size = (1U << power) + 1;
    const std::size_t count = EntryCount(true, table.size);
    if (count > (bytes.size() - offset) / kEntrySize)
        return false;
    table.entries.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        table.entries.push_back(
            Unpacked(Field<std::uint32_t>(bytes, offset + kEntrySize * i, isSwapped)));
    return true;
}

} // namespace XPJ
