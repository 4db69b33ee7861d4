// One fault in a sound file: no table, the message, and the place in a text.
#include "grading/lookup_table.h"

#include "grading/table_fixture.h"

#include <limits>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr std::string_view kUnknownFormat =
    "Lookup table \"dusk.cube\" could not be loaded: unknown format.";

struct Fault {
    std::string_view from, to; // in the sound file
    int line, column;          // 0 where no format knows the file, or a binary one does
};

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

void ExpectFaults(const std::string& sound, std::initializer_list<Fault> faults)
{
    EXPECT_TRUE(ReadTable(sound, "")) << sound;
    for (const Fault& fault : faults) {
        const std::string text = Replaced(sound, fault.from, fault.to);
        ASSERT_NE(text.substr(0, 4), "no \"") << fault.from;
        ExpectFault(text, fault.line, fault.column, fault.to);
    }
}

TEST(TableFaults, Cube)
{
    ExpectFaults(CubeText(), {
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 1", 2, 14},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 2.0", 2, 13},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 2 2", 2, 15},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE -2", 2, 13},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 257", 2, 16},
                                 {"LUT_3D_SIZE 2", "LUT_1D_SIZE 65537", 2, 18},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 4294967298", 2, 13},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 256", 5, 1},
                                 {"LUT_3D_SIZE 2", "LUT_3D_SIZE 3", 5, 1},
                                 {"LUT_3D_SIZE 2", "LUT_SIZE 2", 0, 0},
                                 {"MIN 0 0 0", "MIN 0 0", 3, 15},
                                 {"MIN 0 0 0", "MIN 0 0 nan", 3, 16},
                                 {"MIN 0 0 0", "MIN 0 0 -1e999", 3, 16},
                                 {"MIN 0 0 0", "MIN 0 0 0 0", 3, 18},
                                 {"MAX 1 1 1", "MAX 1 0 1", 4, 1},
                                 {"0.5 0 0", "0.5 0", 6, 6},
                                 {"0.5 0 0", "0.5 0 0 0", 6, 9},
                                 {"0.5 0 0", "0.5 0 nan", 6, 7},
                                 {"0.5 0 0", "0.5 0 -inf", 6, 7},
                                 {"0.5 0 0", "0.5 0 1e39", 6, 7},
                                 {"0.5 0 0", "0.5 0,0 0", 6, 5},
                                 {"0.5 0 0", "0.5 0 0x", 6, 7},
                                 {"0.5 0 0", "0.5 0 --1", 6, 7},
                                 {"0.5 0 0", "nan 0 0", 13, 1},
                                 {"0.5 0 0\n", "", 12, 1},
                             });
    ExpectFaults(LineCubeText(), {
                                     {"-1 2.5", "2.5 -1", 2, 1},
                                     {"-1 2.5", "1 1", 2, 1},
                                     {"-1 2.5", "-1", 2, 22},
                                     {"LUT_1D_SIZE 3", "LUT_1D_SIZE 4", 6, 1},
                                 });
    ExpectFault("\xEF\xBB\xBFLUT_3D_SIZE 1\n", 1, 14, "behind a byte-order mark");
    // The second table's range counts, too.
    ExpectFault("LUT_1D_SIZE 2\r\nLUT_3D_SIZE 2\r\n LUT_3D_INPUT_RANGE 1 0\r\n0 0 0\r\n1 1 1\r\n" +
                    FloatLines(SampleCube()),
                3, 2, "range of the cube");
    ExpectFault("LUT_1D_SIZE 2\rLUT_3D_SIZE 2\r0 0 0\r1 1 1\r0 0 0\r", 3, 1, "no cube");
}

TEST(TableFaults, OtherTexts)
{
    ExpectFaults(TruelightText(), {
                                      {"iDims 3", "iDims 1", 2, 10},
                                      {"oDims 3", "oDims three", 3, 9},
                                      {"width 2 2 2", "width 2 2 3", 4, 14},
                                      {"width 2 2 2", "width 2 2", 4, 12},
                                      {"width 2 2 2", "width 257 257 257", 4, 20},
                                      {"width 2 2 2", "width 3 3 3", 19, 6},
                                      {"width 2 2 2", "depth 2 2 2", 19, 6},
                                      {"lutLength 3", "lutLength 4", 19, 6},
                                      {"lutLength 3", "lutLength 4294967295", 19, 6},
                                      {"0.25", "0.25 x", 8, 6},
                                      {"0.25\n1\n", "1e39\n", 8, 1},
                                      {"0.25\n", "", 18, 6},
                                      {"0.5 0 0\n", "0.5 0 0\n0 0 0\n", 20, 6},
                                      {"0.5 0 0\n", "", 18, 6},
                                      {"# Cube", "# Other", 19, 6},
                                      {"# InputLUT", "#", 7, 1},
                                      {"Truelight Cube", "Truelight", 0, 0},
                                  });
    ExpectFaults(MeshText(), {
                                 {"Mesh 1 10", "Mesh 0 10", 2, 10},
                                 {"Mesh 1 10", "Mesh 9 10", 2, 10},
                                 {"Mesh 1 10", "Mesh 1 7", 2, 9},
                                 {"Mesh 1 10", "Mesh 1 17", 2, 10},
                                 {"Mesh 1 10", "Mesh 8 16", 3, 11},
                                 {"Mesh 1 10", "Mash 1 10", 2, 1},
                                 {"Mesh 1 10", "Mesh 1 9", 6, 9},
                                 {"0 10 1\n", "0 10 -1\n", 8, 6},
                                 {"0 10 1\n", "0 10 0.5\n", 8, 6},
                                 {"0 10 1\n", "", 30, 1},
                                 {"0 10 1\n", "0 10 1\n0 10 1\n", 31, 1},
                                 {"3DMESH", "3DM", 0, 0},
                             });
    ExpectFaults(IndexedText(), {
                                    {"1 100", "2 100", 2, 1},
                                    {"1023", "65536", 3, 1},
                                    {"1 100 200 300", "1 100 200", 2, 10},
                                    {"1 100 200 300", "1 100 200 3.5", 2, 11},
                                    {"0 0 0 0\n", "0 0 0 0\nTITLE\n", 2, 1},
                                    {"0 0 0 0\n1 100 200 300\n2", "0", 2, 1},
                                    {"0 0 0 0", "0 0 0", 0, 0},
                                });
    ExpectFaults(SizedText(), {
                                  {"2 2 2", "2 2 3", 1, 17},
                                  {"2 2 2", "1 1 1", 1, 17},
                                  {"2 2 2", "257 257 257", 1, 23},
                                  {": 2 2 2", "2 2 2", 0, 0},
                                  {"= 8", "= 9", 3, 1},
                                  {"= 8", ": 8", 2, 9},
                                  {"entries = 8\n", "", 2, 1},
                                  {"0.5 0 0", "0.5 0 inf", 4, 7},
                                  {"0.5 0 0\n", "", 10, 1},
                                  {"0.5 0 0\n", "0.5 0 0\n0 0 0\n", 11, 1},
                              });
}

TEST(TableFaults, XmlLook)
{
    ExpectFaults(XmlText(), {
                                {"<look>", "<looks>", 0, 0},
                                {"<?xml", "<!xml", 0, 0},
                                {"<look>", "<a><look>", 2, 1},
                                {"\"2\"", "\"3\"", 8, 3},
                                {"\"2\"", "\"two\"", 4, 16},
                                {"\"2\"", "\"257\"", 8, 3},
                                {"<size>\"2\"</size>", "", 8, 3},
                                {"\"0 0 0\"", "\"0 0\"", 5, 21},
                                {"\"1,1,2\"", "\"1,1,0\"", 8, 3},
                                {"<data>\"00", "<data>\"0", 7, 204},
                                {"<data>\"00", "<data>\"0x", 7, 205},
                                {"<data>\"00000000", "<data>\"0000C07F", 8, 3},
                                {"</LUT>", "</LOT>", 8, 3},
                                {"<LUT>", "<LUT >", 3, 7},
                                {"</look>", "", 10, 1},
                            });
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
    const std::string sound[] = {NativeTable("ZVTX", 2, 3, 0, data), sections(domain + U32(0)),
                                 sections(domain + U32(1) + subLength + sub),
                                 PackedTable(6, 0, std::string(65 * 65 * 65 * 4, '\0'))};
    for (const std::string& bytes : sound)
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
