#include "grading/look_tables.h"

#include "grading/look.h"

#include <gtest/gtest.h>

#include <bit>
#include <string>

namespace XPJ {
namespace {

std::string Bytes(std::initializer_list<float> values)
{
    std::string bytes;
    for (const float value : values)
        for (int shift = 0; shift < 32; shift += 8)
            bytes += static_cast<char>(std::bit_cast<std::uint32_t>(value) >> shift & 255);
    return bytes;
}

std::string Word(std::uint32_t value)
{
    return Bytes({std::bit_cast<float>(value)});
}

// Two entries, black and white, as native binary.
std::string NativeTable()
{
    return "ZVTX" + Word(2) + Word(1) + Word(0) + Bytes({0, 0, 0, 1, 1, 1});
}

std::string Look(std::string_view body)
{
    return "<Gradiva>" + std::string(body) + "</Gradiva>";
}

std::string Lut(std::string_view fields)
{
    return Look("<lut><filename>t</filename>" + std::string(fields) + "</lut>");
}

constexpr std::string_view kBlack = "00000000000000000000000000000000";
constexpr std::string_view kWhite = "0000803f0000803f0000803f00000000";

TEST(LookTables, AreWrittenInline)
{
    CGrading grading;
    grading.embeddedLUTs.push_back({.is3d = true,
                                    .size = 2,
                                    .min = {0, -0.5, 0},
                                    .max = {1, 1, 1000000},
                                    .entries = std::vector<LUTEntry>(8),
                                    .name = "a.cube",
                                    .hash = {},
                                    .subTables = {}});
    CZv3DLUT& table = grading.embeddedLUTs.back();
    table.entries.back() = {1, -2, 0.5F, 0};
    table.subTables.push_back({.is3d = false,
                               .size = 2,
                               .entries = {{0, 0, 0, 0}, {1, 1, 1, 0}},
                               .name = "shaper",
                               .hash = {},
                               .subTables = {}});
    std::string black;
    for (int i = 0; i < 7; ++i)
        black += kBlack;
    const std::string written = Serialize(grading);
    EXPECT_EQ(written, R"(<Gradiva>
  <guid>"00000000-0000-0000-0000-000000000000"</guid>
  <version>"1"</version>
  <lut>
    <filename>"a.cube"</filename>
    <is3d>"1"</is3d>
    <size>"2"</size>
    <min>"0,-0.5,0"</min>
    <max>"1,1,1e+06"</max>
    <data>")" + black + R"(0000803f000000c00000003f00000000"</data>
    <sublut>
        <filename>"shaper"</filename>
        <is3d>"0"</is3d>
        <size>"2"</size>
        <min>"0,0,0"</min>
        <max>"1,1,1"</max>
        <data>")" + std::string(kBlack) +
                           std::string(kWhite) + R"("</data>
    </sublut>
  </lut>
</Gradiva>
)");
    const std::optional<CGrading> read = ReadLookDocument(written, "");
    ASSERT_TRUE(read);
    const CZv3DLUT& readTable = read->embeddedLUTs.at(0);
    EXPECT_EQ(readTable.entries.back().green, -2);
    EXPECT_EQ(readTable.min, table.min);
    EXPECT_EQ(readTable.subTables.at(0).name, "shaper");
    EXPECT_EQ(readTable.subTables.at(0).size, 2U);
}

TEST(LookTables, FitTheirSize)
{
    const std::string two = std::string(kBlack) + "\n" + std::string(kWhite);
    const struct {
        std::string fields;
        bool isRead;
    } rows[] = {
        {"<size>2</size><data>\"" + two + "\"</data>", true},
        {"<size>2</size><data>" + std::string(kBlack) + "\"" + std::string(kBlack) + "\"</data>",
         true},
        {"<size>3</size><data>\"" + two + "\"</data>", false},
        {"<size>1</size><data>\"" + std::string(kBlack) + "\"</data>", false},
        {"<size>2</size><is3d>1</is3d><data>\"" + two + "\"</data>", false},
        {"<data>\"" + two + "\"</data>", false},
        {"<size>2</size>", false},
        {"<size>2</size><data>\"" + two + "0\"</data>", false},
        {"<size>2</size><data>\"" + two + "zz\"</data>", false},
        {"<size>65536</size><data>\"" + two + "\"</data>", false},
        {"<size>2000000000</size><data>\"" + two + "\"</data>", false},
        {"<size>-2</size><data>\"" + two + "\"</data>", false},
        {"<is3d>1</is3d><size>4294967297</size><data>\"" + two + "\"</data>", false},
        // Not a number, infinity.
        {"<size>2</size><data>\"0000c07f" + two.substr(8) + "\"</data>", false},
        {"<size>2</size><data>\"0000807f" + two.substr(8) + "\"</data>", false},
        {"<size>2</size><min>0,0</min><data>\"" + two + "\"</data>", false},
        {"<size>2</size><max>1,1,inf</max><data>\"" + two + "\"</data>", false},
        {"<size>2</size><max>1,1,1,1</max><data>\"" + two + "\"</data>", false},
        {"<size>2</size><max>\" 1, 1 ,2\"</max><data>\"" + two + "\"</data>", true},
        {"<size>2</size><sublut/><data>\"" + two + "\"</data>", false},
    };
    for (const auto& row : rows) {
        CZvError error;
        EXPECT_EQ(ReadLookDocument(Lut(row.fields), "", &error).has_value(), row.isRead)
            << row.fields;
        if (!row.isRead) {
            EXPECT_NE(error.message.find("could not be loaded: unknown format."), std::string::npos)
                << error.message;
        }
    }
}

TEST(LookTables, BehindTheDocument)
{
    const std::string reference = "<embeddedlut><filename>a/b c.cube</filename>"
                                  "<hash>000102030405060708090a0b0c0d0e0F</hash></embeddedlut>";
    const std::string hash("\0\1\2\3\4\5\6\7\10\11\12\13\14\15\16\17", 16);
    const std::string record = hash + Word(40) + NativeTable();
    const std::string other = std::string(16, 'x') + Word(3) + "abc";
    const std::string unreadable = hash + Word(3) + "abc";
    const struct {
        std::string tail;
        bool isFound;
    } rows[] = {
        {"", false},
        {record, true},
        {"\n" + record, true},
        {"\r\n" + record, true},
        {"\n\n" + record, false},
        {"\n" + other + unreadable + record, true},
        {"\n" + other + record.substr(0, record.size() - 1), false},
        {"\n" + std::string(16, 'x') + Word(0xFFFFFFFF) + record, false},
        {"\n" + hash + "\1\1", false},
    };
    for (const auto& row : rows) {
        const std::optional<CGrading> grading = ReadLookDocument(Look(reference) + row.tail, "n");
        ASSERT_TRUE(grading);
        EXPECT_EQ(grading->embeddedLUTs.size(), row.isFound ? 1U : 0U);
        EXPECT_EQ(grading->externalLUTs.size(), row.isFound ? 0U : 1U);
        const std::string written = Serialize(*grading);
        EXPECT_NE(written.find(row.isFound ? "    <filename>\"a/b c.cube\"</filename>\n"
                                             "    <is3d>\"0\"</is3d>\n"
                                           : "  <embeddedlut>\n"
                                             "    <hash>000102030405060708090a0b0c0d0e0F</hash>\n"
                                             "    <filename>a/b c.cube</filename>\n"
                                             "  </embeddedlut>\n"),
                  std::string::npos)
            << written;
        const std::optional<CGrading> again = ReadLookDocument(written, "");
        ASSERT_TRUE(again);
        EXPECT_EQ(Serialize(*again), written);
    }
    // One record serves one reference and its repetitions, not another name for the same table.
    std::string otherName = reference;
    otherName.replace(otherName.find("a/b"), 3, "d");
    const std::optional<CGrading> shared =
        ReadLookDocument(Look(reference + otherName + reference) + record, "n");
    ASSERT_TRUE(shared);
    ASSERT_EQ(shared->embeddedLUTs.size(), 1U);
    EXPECT_EQ(shared->embeddedLUTs[0].name, "a/b c.cube");
    ASSERT_EQ(shared->externalLUTs.size(), 1U);
    EXPECT_EQ(shared->externalLUTs[0].fileName, "d c.cube");
}

TEST(LookTables, NamesThatNeedQuotesHaveThem)
{
    for (const std::string_view name : {" a", "a ", "a<b", "a\nb", ""}) {
        const std::optional<CGrading> grading = ReadLookDocument(
            Look("<embeddedlut><filename>\"" + std::string(name) + "\"</filename></embeddedlut>"),
            "n");
        ASSERT_TRUE(grading);
        const std::optional<CGrading> again = ReadLookDocument(Serialize(*grading), "n");
        ASSERT_TRUE(again) << name;
        EXPECT_EQ(again->externalLUTs.at(0).fileName, name);
    }
}

TEST(LookTables, MakeAGradingOfOneLayer)
{
    const std::string bytes = NativeTable();
    const std::optional<CGrading> named = ReadLookupTable(bytes, "dusk \"<1>\".cube");
    ASSERT_TRUE(named);
    EXPECT_EQ(Serialize(*named), Serialize(*ReadLookupTable(bytes, "dusk '(1>'.cube")));
    EXPECT_EQ(named->name, "dusk '(1>'.cube");
    EXPECT_EQ(named->version, 1);
    const std::string written = Serialize(*named);
    EXPECT_NE(written.find(R"(    <shader>
      <name>"LUT"</name>
      <visible>"1"</visible>
      <opacity>"1"</opacity>
      <parameters>
        <LUT>"dusk '(1>'.cube"</LUT>
      </parameters>
    </shader>
)"),
              std::string::npos)
        << written;
    EXPECT_NE(written.find("  <properties>\n  </properties>\n"), std::string::npos);

    const std::optional<CGrading> unnamed = ReadLookupTable(bytes, "");
    ASSERT_TRUE(unnamed);
    EXPECT_EQ(unnamed->name, "LUT: " + DigestText(TableHash(unnamed->embeddedLUTs.at(0))));
    EXPECT_EQ(unnamed->guid, named->guid);

    CZvError error;
    EXPECT_FALSE(ReadLookupTable("neither a table nor a look", "dusk \"1\".cube", &error));
    EXPECT_NE(error.message, "");
    EXPECT_EQ(error.file, "dusk \"1\".cube");
}

} // namespace
} // namespace XPJ
