// One fault in a valid file: no table, the message, and where it is in a text.
#include "grading/lookup_table.h"

#include "core/numbers.h"
#include "grading/table_fixture.h"
#include "support/rows.h"

#include <limits>
#include <map>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr std::string_view kUnknownFormat =
    "Lookup table \"dusk.cube\" could not be loaded: unknown format.";

void ExpectFault(std::string_view bytes, int line, int column, std::string_view what)
{
    CZvError error;
    EXPECT_FALSE(ReadTable(bytes, "dusk.cube", &error)) << what;
    EXPECT_EQ(error.message, kUnknownFormat) << what;
    EXPECT_EQ(error.file, "dusk.cube") << what;
    EXPECT_EQ(error.line, line) << what;
    EXPECT_EQ(error.column, column) << what;
    EXPECT_FALSE(ReadTable(bytes, "dusk.cube")) << what;
}

TEST(TableFaults, InOneSpotOfAValidText)
{
    const std::map<std::string, std::string> samples = {
        {"Cube", CubeText()}, {"LineCube", LineCubeText()}, {"Truelight", TruelightText()},
        {"Mesh", MeshText()}, {"Indexed", IndexedText()},   {"Sized", SizedText()},
        {"Xml", XmlText()},
    };
    for (const auto& [name, text] : samples)
        EXPECT_TRUE(ReadTable(text, "")) << text;
    for (const auto& row : ReadRows("grading/table_faults.txt", 4)) {
        const std::string text = Replaced(samples.at(row[0]), row[1], row[2]);
        ASSERT_NE(text.substr(0, 4), "no \"") << row[1];
        ExpectFault(text, ParseInt(row[3]), ParseInt(row[3].substr(row[3].find(':') + 1)), row[2]);
    }
}

TEST(TableFaults, BehindOtherLines)
{
    ExpectFault("\xEF\xBB\xBFLUT_3D_SIZE 1\n", 1, 14, "behind a byte-order mark");
    // The second table's range counts, too.
    ExpectFault("LUT_1D_SIZE 2\r\nLUT_3D_SIZE 2\r\n LUT_3D_INPUT_RANGE 1 0\r\n0 0 0\r\n1 1 1\r\n" +
                    FloatLines(SampleCube()),
                3, 2, "range of the cube");
    ExpectFault("LUT_1D_SIZE 2\rLUT_3D_SIZE 2\r0 0 0\r1 1 1\r0 0 0\r", 3, 1, "no cube");
}

TEST(TableFaults, Binary)
{
    const std::string data = FloatBytes(SampleCube());
    const std::string line = FloatBytes({{0, 0, 0}, {1, 1, 1}});
    const std::string domain = F64(0) + F64(0) + F64(0) + F64(1) + F64(1) + F64(1);
    const std::string sub = NativeTable("ZVTX", 2, 1, 0, line);
    const std::string subLength = U32(static_cast<std::uint32_t>(sub.size()));
    const auto sections = [&line](const std::string& tail) {
        return NativeTable("ZTX3", 2, 1, 1, line + tail);
    };
    const std::string valid[] = {NativeTable("ZVTX", 2, 3, 0, data), sections(domain + U32(0)),
                                 sections(domain + U32(1) + subLength + sub),
                                 PackedTable(6, 0, std::string(65 * 65 * 65 * 4, '\0'))};
    for (const std::string& bytes : valid)
        EXPECT_TRUE(ReadTable(bytes, ""));

    const struct {
        std::string_view what;
        std::string bytes;
    } kCases[] = {
        {"empty", ""},
        {"16 bytes", NativeTable("ZVTX", 2, 1, 0, "")},
        {"other mark", NativeTable("ZTX4", 2, 3, 0, data)},
        {"size 1", NativeTable("ZVTX", 1, 3, 0, data)},
        {"size above 65536", NativeTable("ZVTX", 65537, 1, 0, std::string(65537 * 12, '\0'))},
        {"2 GB", NativeTable("ZVTX", 0x7FFFFFFF, 1, 0, data)},
        {"4 GB", NativeTable("ZVTX", 0xFFFFFFFF, 3, 0, data)},
        {"size 257 in 3D", NativeTable("ZVTX", 257, 3, 0, data)},
        {"dimension 2", NativeTable("ZVTX", 2, 2, 0, data)},
        {"dimension 0", NativeTable("ZVTX", 2, 0, 0, data)},
        {"flags of an old version", NativeTable("ZTX2", 2, 3, 1, data + domain + U32(0))},
        {"enciphered", NativeTable("ZTX3", 2, 3, 2, data)},
        {"enciphered, with sections", NativeTable("ZTX3", 2, 3, 3, data + domain + U32(0))},
        {"an entry too few", NativeTable("ZVTX", 2, 3, 0, data.substr(12))},
        {"nan", NativeTable("ZVTX", 2, 3, 0, U32(0x7FC00000) + data.substr(4))},
        {"inf", NativeTable("ZVTX", 2, 3, 0, U32(0xFF800000) + data.substr(4))},
        {"no domain", sections("")},
        {"domain upside down", sections(F64(2) + domain.substr(8) + U32(0))},
        {"domain without an end",
         sections(domain.substr(0, 24) + F64(std::numeric_limits<double>::infinity()) +
                  domain.substr(32) + U32(0))},
        {"4 billion sub-tables", sections(domain + U32(0xFFFFFFFF) + subLength + sub)},
        {"long sub-table", sections(domain + U32(1) + U32(0xFFFFFFFF) + sub)},
        {"foreign sub-table", sections(domain + U32(1) + U32(20) + "LUT_1D_SIZE 2 0 0 0 ")},
        {"faulty sub-table",
         sections(domain + U32(1) + subLength +
                  NativeTable("ZVTX", 2, 1, 0, U32(0x7FC00000) + line.substr(4)))},
        {"808 bytes", PackedTable(0, 700, std::string(108, '\0'))},
        {"n of 9", PackedTable(9, 0, std::string(4096, '\0'))},
        {"data behind the end", PackedTable(0, 0, "1234567")},
        {"offset of 4 GB",
         Replaced(PackedTable(0, 0, std::string(32, '\0')), std::string_view("\0\0\0\0\0\0\0\0", 8),
                  std::string_view("\0\0\0\0\xFF\xFF\xFF\xFF", 8))},
        {"offset in the head", PackedTable(0, 11, std::string(900, '\0'))},
    };
    for (const auto& row : kCases)
        ExpectFault(row.bytes, 0, 0, row.what);
}

// No part of a file is a table, but for what may be missing at the end.
TEST(TableFaults, CutAnywhere)
{
    const std::string data = FloatBytes(SampleCube());
    const std::string domain = F64(0) + F64(0) + F64(0) + F64(1) + F64(1) + F64(1);
    const std::string sub = NativeTable("ZTX2", 2, 3, 0, data);
    const struct {
        std::string bytes;
        std::size_t spare; // bytes at the end that don't count
    } kCases[] = {
        {sub, 0},
        {NativeTable("ZTX3", 2, 3, 1,
                     data + domain + U32(1) + U32(static_cast<std::uint32_t>(sub.size())) + sub),
         0},
        {PackedTable(0, 0, std::string(32, '\x55')), 0},
        {XmlText(), 1},
        {CubeText(), 4},
        {LineCubeText(), 1},
        {TruelightText(), 10},
        {MeshText(), 19},
        {SizedText(), 4},
    };
    for (const auto& row : kCases) {
        EXPECT_TRUE(ReadTable(row.bytes.substr(0, row.bytes.size() - row.spare), "")) << row.bytes;
        for (std::size_t size = 0; size + row.spare < row.bytes.size(); ++size)
            EXPECT_FALSE(ReadTable(row.bytes.substr(0, size), "")) << size << " bytes of\n"
                                                                   << row.bytes;
    }
}

} // namespace
} // namespace XPJ
