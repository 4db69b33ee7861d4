// A color lookup table and its files. Eight file formats are told apart by their bytes; one unit
// each (table_*.cpp) reads them, and read_table.cpp lists them in the order they are tried.
#pragma once

#include "grading/digest.h"
#include "grading/error.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// One output color; 16 bytes, as a look document stores it.
struct LUTEntry {
    float red = 0;
    float green = 0;
    float blue = 0;
    float unused = 0; // always 0
};
static_assert(sizeof(LUTEntry) == 16);

constexpr std::uint32_t kMinTableSize = 2;
constexpr std::uint32_t kMaxTableSize1D = 65536;
// 2^8 + 1 entries per axis; most formats end one below.
constexpr std::uint32_t kMaxTableSize3D = 257;

struct CZv3DLUT {
    bool is3d = false;
    std::uint32_t size = 0;             // entries per axis
    std::array<double, 3> min{0, 0, 0}; // the domain of red, green and blue
    std::array<double, 3> max{1, 1, 1};
    std::vector<LUTEntry> entries; // size, or size^3 with red running fastest
    std::string name;
    Digest hash{};
    std::vector<CZv3DLUT> subTables;
};

// Reads a table of any of the formats; finite numbers only. An empty `name` becomes "LUT: " and
// the hash. Nothing on failure: `error` then has the message, and for a text the line and column
// at which the first format that knew its mark gave up. Memory stays in proportion to `bytes`.
std::optional<CZv3DLUT> ReadTable(std::string_view bytes, std::string_view name,
                                  CZvError* error = nullptr);

// The name of the format whose mark `bytes` bear (".cube", "3LUT"), empty without one. Their
// contents may still be faulty.
std::string_view TableFormat(std::string_view bytes);

// The digest of shape, domain, entries and sub-tables. Sub-tables need no hash of their own for it.
Digest TableHash(const CZv3DLUT& table);

// size, or size^3; 0 for a size out of bounds.
std::size_t EntryCount(bool is3d, std::uint64_t size);

// A finite domain with `min` below `max` on each axis, finite entries of the right count, and the
// same for all sub-tables.
bool IsSound(const CZv3DLUT& table);

} // namespace XPJ
