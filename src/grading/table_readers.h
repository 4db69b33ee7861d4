// Between ReadTable and the readers of the table formats; nobody else includes it.
//
// A new format is a unit table_FORMAT.cpp, two functions here, one row in the table of
// read_table.cpp.
#pragma once

#include "grading/lookup_table.h"

#include <cstddef>
#include <string_view>

namespace XPJ {

// Of a 3D table whose format states the size itself and not as a power of two.
constexpr std::uint32_t kMaxStatedSize3D = 256;

// The bytes of a table and how far they were read. Behind a failure `at` is where the fault lies.
struct TableSource {
    std::string_view bytes;
    std::size_t at = 0;
};

// `Matches` looks for the format's mark alone. `Read` fills shape, domain, entries and sub-tables
// and checks counts and sizes against the bytes before it reserves memory for them; whether the
// numbers are finite is the caller's to check. Readers of text may throw CZvError for its line and
// column.
bool MatchesNative(std::string_view bytes);
bool ReadNative(TableSource& source, CZv3DLUT& table);
bool Matches3LUT(std::string_view bytes);
bool Read3LUT(TableSource& source, CZv3DLUT& table);
bool MatchesXml(std::string_view bytes);
bool ReadXml(TableSource& source, CZv3DLUT& table);
bool MatchesCube(std::string_view bytes);
bool ReadCube(TableSource& source, CZv3DLUT& table);
bool MatchesTruelight(std::string_view bytes);
bool ReadTruelight(TableSource& source, CZv3DLUT& table);
bool MatchesMesh(std::string_view bytes);
bool ReadMesh(TableSource& source, CZv3DLUT& table);
bool MatchesIndexed(std::string_view bytes);
bool ReadIndexed(TableSource& source, CZv3DLUT& table);
bool MatchesSized(std::string_view bytes);
bool ReadSized(TableSource& source, CZv3DLUT& table);

} // namespace XPJ
