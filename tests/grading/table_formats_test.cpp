// What valid files of each format give.
#include "grading/lookup_table.h"
#include "grading/transfer_curves.h"

#include "grading/table_fixture.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

CZv3DLUT Read(std::string_view bytes)
{
    CZvError error;
    const std::optional<CZv3DLUT> table = ReadTable(bytes, "sample", &error);
    EXPECT_TRUE(table) << error.message << ' ' << error.line << ':' << error.column << "\n"
                       << bytes.substr(0, 400);
    return table.value_or(CZv3DLUT());
}

std::string Text(const std::vector<LUTEntry>& entries)
{
    return FloatLines(entries);
}

TEST(TableFormats, EveryFormatGivesRedFastestFloats)
{
    std::string packed;
    for (const LUTEntry& entry : SampleCube())
        packed += U32(static_cast<std::uint32_t>(entry.red * 2) << 22 |
                      static_cast<std::uint32_t>(entry.green) << 12 |
                      static_cast<std::uint32_t>(entry.blue * 4) << 2);
    std::vector<LUTEntry> steps = SampleCube(); // of 1/1023
    for (LUTEntry& entry : steps)
        entry = {entry.red * 2 / 1023, entry.green / 1023, entry.blue * 4 / 1023};
    std::string swapped = PackedTable(0, 820, packed);
    swapped.replace(0, 4, "TUL3");
    std::reverse(swapped.begin() + 6, swapped.begin() + 8);
    std::reverse(swapped.begin() + 8, swapped.begin() + 12);
    for (std::size_t at = 820; at < swapped.size(); at += 4)
        std::reverse(swapped.begin() + static_cast<std::ptrdiff_t>(at),
                     swapped.begin() + static_cast<std::ptrdiff_t>(at + 4));

    const std::string floats = FloatBytes(SampleCube());
    const struct {
        std::string_view format;
        std::string bytes;
        std::vector<LUTEntry> entries;
    } kCases[] = {
        {"native binary", NativeTable("ZVTX", 2, 3, 0, floats), SampleCube()},
        {"native binary", NativeTable("ZTX2", 2, 3, 0, floats), SampleCube()},
        {"native binary", NativeTable("ZTX3", 2, 3, 0, floats + "behind"), SampleCube()},
        {"3LUT", PackedTable(0, 0, packed), steps},
        {"3LUT", PackedTable(0, 900, packed), steps},
        {"3LUT", swapped, steps},
        {"XML look table", XmlText(), SampleCube()},
        {".cube", CubeText(), SampleCube()},
        {"Truelight cube", TruelightText(), SampleCube()},
        {"LUT_SIZE text", SizedText(), SampleCube()},
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(row.format);
        EXPECT_EQ(TableFormat(row.bytes), row.format);
        const CZv3DLUT table = Read(row.bytes);
        EXPECT_TRUE(table.is3d);
        EXPECT_EQ(table.size, 2u);
        EXPECT_EQ(Text(table.entries), Text(row.entries));
        EXPECT_EQ(table.name, "sample");
    }
}

TEST(TableFormats, LinesOfOneDimension)
{
    const CZv3DLUT cube = Read(LineCubeText());
    EXPECT_FALSE(cube.is3d);
    EXPECT_EQ(Text(cube.entries), "0 0 0\n0.25 0.5 0.125\n1 1 1\n");
    EXPECT_EQ(cube.min, (std::array<double, 3>{-1, -1, -1}));
    EXPECT_EQ(cube.max, (std::array<double, 3>{2.5, 2.5, 2.5}));

    const CZv3DLUT indexed = Read("# depth of 10 bits\n" + IndexedText());
    EXPECT_EQ(TableFormat(IndexedText()), "indexed lines");
    EXPECT_FALSE(indexed.is3d);
    EXPECT_EQ(indexed.size, 3u);
    EXPECT_FLOAT_EQ(indexed.entries[1].green, 200.0F / 1023);
    EXPECT_EQ(indexed.entries[2].red, 1.0F);

    const CZv3DLUT native =
        Read(NativeTable("ZTX3", 2, 1, 0, F32(0) + F32(0) + F32(0) + F32(1) + F32(-2) + F32(3)));
    EXPECT_FALSE(native.is3d);
    EXPECT_EQ(Text(native.entries), "0 0 0\n1 -2 3\n");
}

// The greatest value decides which number is 1.
TEST(TableFormats, IndexedLinesFindTheirDepth)
{
    const struct {
        int greatest;
        float scale;
    } kCases[] = {{0, 255},     {255, 255},   {256, 1023},   {1023, 1023},
                  {1024, 4095}, {4095, 4095}, {4096, 65535}, {65535, 65535}};
    for (const auto& row : kCases) {
        const CZv3DLUT table = Read(fmt::format("0 0 0 0\n1 0 {} 0\n", row.greatest));
        ASSERT_EQ(table.entries.size(), 2u);
        EXPECT_FLOAT_EQ(table.entries[1].green, static_cast<float>(row.greatest) / row.scale)
            << row.greatest;
    }
}

TEST(TableFormats, MeshRunsThroughBlueFirst)
{
    const CZv3DLUT table = Read(MeshText());
    EXPECT_EQ(TableFormat(MeshText()), "mesh");
    EXPECT_EQ(table.size, 3u);
    ASSERT_EQ(table.entries.size(), 27u);
    const LUTEntry& entry = table.entries[1 + 3 * (2 + 3 * 2)]; // red 1, green 2, blue 2
    EXPECT_FLOAT_EQ(entry.red, 100.0F / 1023);
    EXPECT_FLOAT_EQ(entry.green, 20.0F / 1023);
    EXPECT_FLOAT_EQ(entry.blue, 1.0F);
}

TEST(TableFormats, SubTables)
{
    const CZv3DLUT cube = Read("LUT_1D_SIZE 2\nLUT_3D_SIZE 2\nDOMAIN_MAX 4 4 4\n"
                               "LUT_3D_INPUT_RANGE 0 2\n0 0 0\n.5 .5 .5\n" +
                               FloatLines(SampleCube()) + "9 9 9\n");
    EXPECT_FALSE(cube.is3d);
    EXPECT_EQ(Text(cube.entries), "0 0 0\n0.5 0.5 0.5\n");
    EXPECT_EQ(cube.max[2], 4);
    ASSERT_EQ(cube.subTables.size(), 1u);
    EXPECT_TRUE(cube.subTables[0].is3d);
    EXPECT_EQ(cube.subTables[0].max[0], 2);
    EXPECT_EQ(Text(cube.subTables[0].entries), Text(SampleCube()));

    const std::string gray = TruelightText();
    for (const std::string& text :
         {gray, Replaced(gray, "0\n0.25\n1\n", "0 .25 1\n"),
          Replaced(gray, "0\n0.25\n1\n", "0 0 0\n.25 .25 .25\n1 1 1\n")}) {
        const CZv3DLUT truelight = Read(text);
        EXPECT_TRUE(truelight.is3d);
        ASSERT_EQ(truelight.subTables.size(), 1u) << text;
        EXPECT_FALSE(truelight.subTables[0].is3d);
        EXPECT_EQ(Text(truelight.subTables[0].entries), "0 0 0\n0.25 0.25 0.25\n1 1 1\n") << text;
    }
    // The numbers count steps of the cube: of a width of 3 there are two.
    const CZv3DLUT wide = Read("Truelight Cube v2.1\nwidth 3 3 3\nlutLength 2\nInputLUT\n0\n2\n"
                               "Cube\n" +
                               Text(std::vector<LUTEntry>(27)));
    ASSERT_EQ(wide.subTables.size(), 1u);
    EXPECT_EQ(Text(wide.subTables[0].entries), "0 0 0\n1 1 1\n");
}

// A native table holds sub-tables four levels deep.
TEST(TableFormats, NativeSections)
{
    const std::string domain = F64(-1) + F64(0) + F64(0) + F64(2) + F64(1) + F64(1);
    const std::string data = FloatBytes({{0, 0, 0}, {1, 1, 1}});
    std::string bytes = NativeTable("ZTX2", 2, 1, 0, data);
    for (int level = 0; level < 4; ++level)
        bytes = NativeTable("ZTX3", 2, 1, 1,
                            data + domain + U32(1) + U32(static_cast<std::uint32_t>(bytes.size())) +
                                bytes);
    CZv3DLUT table = Read(bytes);
    EXPECT_EQ(table.min[0], -1);
    EXPECT_EQ(table.max[0], 2);
    for (int level = 0; level < 4; ++level) {
        ASSERT_EQ(table.subTables.size(), 1u);
        table = CZv3DLUT(table.subTables[0]);
    }
    bytes =
        NativeTable("ZTX3", 2, 1, 1,
                    data + domain + U32(1) + U32(static_cast<std::uint32_t>(bytes.size())) + bytes);
    EXPECT_FALSE(ReadTable(bytes, ""));
}

// The same table, told in other ways.
TEST(TableFormats, LeniencyOfText)
{
    const std::string cube = CubeText();
    std::string crlf;
    for (const char c : cube)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    std::string cr = cube;
    std::ranges::replace(cr, '\n', '\r');
    const std::string lines = FloatLines(SampleCube());
    const std::string texts[] = {
        crlf,
        cr,
        "\xEF\xBB\xBF" + cube,
        cube.substr(0, cube.size() - 1),
        "\n\n# a comment\n" + Replaced(cube, "LUT_3D_SIZE 2", "  lut_3d_size\t2  "),
        Replaced(cube, "TITLE", "VENDOR_WORD 1 2\nTITLE"),
        Replaced(cube, "0.5 0 0", "\t+5e-1   0.0 -0."),
        Replaced(cube, "0 0 0\n0.5", "1e-60 -1e-999 0\n0.5"),
        cube + "1 1 1\nnot a number\n",
        lines + "LUT_3D_SIZE 2\n",
    };
    for (const std::string& text : texts) {
        const CZv3DLUT table = Read(text);
        ASSERT_EQ(table.entries.size(), 8u) << text;
        for (std::size_t i = 0; i < 8; ++i) {
            EXPECT_EQ(table.entries[i].red, SampleCube()[i].red) << text;
            EXPECT_EQ(table.entries[i].green, SampleCube()[i].green) << text;
            EXPECT_EQ(table.entries[i].blue, SampleCube()[i].blue) << text;
        }
    }
    const std::string xml = XmlText();
    std::string split = Replaced(xml, "data>\"", "DATA>\"\n\t ");
    for (const std::string& text :
         {Replaced(xml, "<size>\"2\"</size>", "<Title>Dusk</Title><size> 2 </size>"),
          Replaced(split, "</data>", "</Data>")})
        EXPECT_EQ(Text(Read(text).entries), lines) << text;
    EXPECT_EQ(Read(xml).max, (std::array<double, 3>{1, 1, 2}));
    EXPECT_EQ(Text(Read(Replaced(MeshText(), "0 511 1023", "0 500 1000")).entries),
              Text(Read(MeshText()).entries));
    EXPECT_EQ(Text(Read(Replaced(SizedText(), " : 2", ":2")).entries), lines);
}

// The digits of an XML table give its shape and whether an entry has a fourth number.
TEST(TableFormats, XmlShapes)
{
    const struct {
        bool is3d;
        std::size_t count;
        int numbers;
    } kCases[] = {{true, 27, 3}, {true, 27, 4}, {false, 3, 3}, {false, 3, 4}};
    for (const auto& row : kCases) {
        std::string data;
        for (std::size_t i = 0; i < row.count; ++i)
            data += F32(static_cast<float>(i)) + F32(0) + F32(1) + (row.numbers == 4 ? F32(7) : "");
        const CZv3DLUT table =
            Read("<?xml ?><LOOK><lut><size>3</size><data>" + Hex(data) + "</data></lut></LOOK>");
        EXPECT_EQ(table.is3d, row.is3d);
        ASSERT_EQ(table.entries.size(), row.count);
        EXPECT_EQ(table.entries[2].red, 2);
        EXPECT_EQ(table.entries[2].blue, 1);
        EXPECT_EQ(table.entries[2].unused, 0);
    }
}

// Computed beforehand, over the bytes 00, 02000000, six doubles, two entries of four floats.
TEST(TableFormats, HashAndName)
{
    const std::optional<CZv3DLUT> table = ReadTable("LUT_1D_SIZE 2\n0 0 0\n1 0.5 .25\n", "");
    ASSERT_TRUE(table);
    EXPECT_EQ(DigestText(table->hash), "17c1b4082ed3cef82a3e7e73cceedf70");
    EXPECT_EQ(table->name, "LUT: 17c1b4082ed3cef82a3e7e73cceedf70");
    const std::optional<CZv3DLUT> chained =
        ReadTable("TITLE \"x\"\nLUT_1D_SIZE 2\nLUT_3D_SIZE 2\nLUT_1D_INPUT_RANGE 0 4\n"
                  "0 0 0\n1 0.5 .25\n" +
                      FloatLines(SampleCube()),
                  "Dusk");
    ASSERT_TRUE(chained);
    EXPECT_EQ(DigestText(chained->hash), "2d483ab85c4073e9bb27609ef3a286dc");
    EXPECT_EQ(chained->name, "Dusk");
}

TEST(TransferCurves, NamesAndKeys)
{
    EXPECT_EQ(std::size(kTransferCurves), 9u);
    for (const TransferCurve& curve : kTransferCurves) {
        EXPECT_EQ(FindTransferCurve(curve.name), &curve);
        EXPECT_TRUE(curve.displayKey.starts_with(fmt::format("$$$/ColorCurves/{}=", curve.name)));
    }
    EXPECT_EQ(FindTransferCurve("slog"), &kTransferCurves[4]);
    EXPECT_EQ(FindTransferCurve("Log"), nullptr);
}

} // namespace
} // namespace XPJ
