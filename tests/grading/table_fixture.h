// Valid files of the eight table formats, and what is done to them.
#pragma once

#include "grading/lookup_table.h"
#include "grading/table_bytes.h"

#include <bit>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

namespace XPJ {

// ---- Numbers as bytes

inline std::string U16(std::uint16_t value)
{
    std::string bytes;
    AppendLittleEndian(bytes, value);
    return bytes;
}

inline std::string U32(std::uint32_t value)
{
    std::string bytes;
    AppendLittleEndian(bytes, value);
    return bytes;
}

inline std::string F32(float value)
{
    return U32(std::bit_cast<std::uint32_t>(value));
}

inline std::string F64(double value)
{
    std::string bytes;
    AppendLittleEndian(bytes, std::bit_cast<std::uint64_t>(value));
    return bytes;
}

inline std::string Hex(std::string_view bytes)
{
    std::string digits;
    for (const char c : bytes)
        digits += fmt::format("{:02X}", static_cast<unsigned char>(c));
    return digits;
}

// ---- Files

// The table of all 3D samples: entry (r, g, b) of a cube of two is r/2, g, b/4.
inline std::vector<LUTEntry> SampleCube()
{
    std::vector<LUTEntry> entries;
    for (int i = 0; i < 8; ++i)
        entries.push_back({static_cast<float>(i & 1) / 2, static_cast<float>(i >> 1 & 1),
                           static_cast<float>(i >> 2) / 4});
    return entries;
}

inline std::string FloatBytes(const std::vector<LUTEntry>& entries)
{
    std::string bytes;
    for (const LUTEntry& entry : entries)
        bytes += F32(entry.red) + F32(entry.green) + F32(entry.blue);
    return bytes;
}

inline std::string FloatLines(const std::vector<LUTEntry>& entries)
{
    std::string text;
    for (const LUTEntry& entry : entries)
        text += fmt::format("{} {} {}\n", entry.red, entry.green, entry.blue);
    return text;
}

inline std::string NativeTable(std::string_view magic, std::uint32_t size, std::uint32_t dimension,
                               std::uint32_t flags, std::string_view data)
{
    return std::string(magic) + U32(size) + U32(dimension) + U32(flags) + std::string(data);
}

// A 3LUT of 2^n + 1 entries per axis, each 0 but for what `words` states.
inline std::string PackedTable(std::uint16_t n, std::uint32_t offset, const std::string& words)
{
    std::string bytes = "3LUT" + std::string(2, '\0') + U16(n) + U32(offset);
    bytes.resize(offset == 0 ? 808 : offset);
    return bytes + words;
}

inline std::string CubeText()
{
    return "TITLE \"Dusk\"\nLUT_3D_SIZE 2\nDOMAIN_MIN 0 0 0\nDOMAIN_MAX 1 1 1\n" +
           FloatLines(SampleCube());
}

inline std::string LineCubeText()
{
    return "LUT_1D_SIZE 3\nLUT_1D_INPUT_RANGE -1 2.5\n0 0 0\n.25 .5 .125\n1 1 1\n";
}

inline std::string XmlText()
{
    return "<?xml version=\"1.0\" ?>\n<look>\n  <LUT>\n    <size>\"2\"</size>\n"
           "    <domainmin>\"0 0 0\"</domainmin>\n    <domainmax>\"1,1,2\"</domainmax>\n"
           "    <data>\"" +
           Hex(FloatBytes(SampleCube())) + "\"</data>\n  </LUT>\n</look>\n";
}

inline std::string TruelightText()
{
    return "# Truelight Cube v2.0\n# iDims 3\n# oDims 3\n# width 2 2 2\n# lutLength 3\n"
           "# InputLUT\n0\n0.25\n1\n# Cube\n" +
           FloatLines(SampleCube()) + "# end\n";
}

inline std::string MeshText()
{
    std::string text = "3DMESH\nMesh 1 10\n0 511 1023\n";
    for (int red = 0; red < 3; ++red)
        for (int green = 0; green < 3; ++green)
            for (int blue = 0; blue < 3; ++blue)
                text += fmt::format("{} {} {}\n", red * 100, green * 10, blue == 2 ? 1023 : blue);
    return text + "LUT8\ngamma 1.0\n";
}

inline std::string IndexedText()
{
    return "0 0 0 0\n1 100 200 300\n2 1023 1020 1000\n";
}

inline std::string SizedText()
{
    return "LUT_SIZE : 2 2 2\nentries = 8\n" + FloatLines(SampleCube());
}

// `text` with the first `from` replaced; all of it must no longer be a valid file.
inline std::string Replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t at = text.find(from);
    return at == text.npos ? "no \"" + std::string(from) + "\" in the sample"
                           : text.replace(at, from.size(), to);
}

} // namespace XPJ
