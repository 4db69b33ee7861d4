#include "inspect/look_listing.h"

#include "core/json.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace XPJ::Inspection {
namespace {

constexpr std::string_view kLook =
    "<?xml version=\"1.0\" ?>\n<!-- <xmeml> of an evening -->\n<Gradiva>\n<name>Dusk</name>\n"
    "<version>3</version>\n<keyframe><time>1.5</time>\n"
    "<shader><name>__GroupBegin</name><parameters></parameters></shader>\n"
    "<shader><name>Primary</name><customname>Warm\tup</customname><opacity>0.5</opacity>\n"
    "<parameters><Input>SLog</Input><Curve><Point>1,2</Point></Curve></parameters></shader>\n"
    "</keyframe>\n<embeddedlut><hash>00</hash><filename>a.cube</filename></embeddedlut>\n"
    "<lut><filename>b</filename><size>2</size><data>"
    "0000000000000000000000000000000000000000000000000000000000000000</data></lut>\n"
    "<properties><property><name>Author</name><value>me</value><weak>1</weak></property>"
    "</properties>\n</Gradiva>\n";
constexpr std::string_view kTable = "LUT_1D_SIZE 2\nLUT_3D_SIZE 2\nDOMAIN_MAX 2 2 2\n0 0 0\n1 1 1\n"
                                    "0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n0 0 0\n";

LookFile Read(std::string_view bytes)
{
    CZvError error;
    std::optional<LookFile> file = ReadLookFile(bytes, "dusk.cube", error);
    EXPECT_TRUE(file) << error.message;
    return file.value_or(LookFile());
}

TEST(LookFile, IsRecognisedByItsContents)
{
    const struct {
        std::string_view bytes;
        bool isLook;
    } kCases[] = {
        {kLook, true},
        {kTable, true},
        {"<shader><name>x</name></shader>", true},
        {"\xEF\xBB\xBF<GRADIVA>", true},
        {"<Gradiva version=\"2\">", true},
        {"ZTX3 and then nothing", true},
        {"", false},
        {"a text", false},
        {"<", false},
        {"<!-- ", false},
        {"<?xml version=\"1.0\"?>\n<!DOCTYPE xmeml>\n<xmeml version=\"5\"><look></look></xmeml>",
         false},
        {"<VelaData Version=\"3\"/>", false},
        {"<html><Gradiva/></html>", false},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(IsLookFile(row.bytes), row.isLook) << row.bytes;
}

TEST(LookFile, TextOfALook)
{
    const std::string text = LookFileText(Read(kLook));
    EXPECT_EQ(text.substr(0, 11), "look \"Dusk\"");
    EXPECT_EQ(text.substr(text.find('\n') + 1),
              "  keyframe at 1.5 s\n"
              "    layer __GroupBegin\n"
              "    layer Primary  \"Warm up\"  opacity 0.5\n"
              "      Input: SLog  (S-Log A)\n"
              "      Curve:\n"
              "        Point: 1,2\n"
              "  table \"b\"  1D  size 2  2 entries  domain 0 0 0 to 1 1 1\n"
              "  table \"a.cube\"  not in the file, hash 00\n"
              "  property Author: me  (weak)\n");
}

TEST(LookFile, TextOfATable)
{
    const LookFile file = Read(kTable);
    EXPECT_EQ(LookFileText(file),
              "table \"dusk.cube\"  .cube  1D  size 2  2 entries  domain 0 0 0 to 2 2 2\n"
              "  table \"\"  3D  size 2  8 entries  domain 0 0 0 to 1 1 1\n"
              "  hash " +
                  DigestText(file.table->hash) + "\n");
}

TEST(LookFile, Json)
{
    const nlohmann::json look = ParseJson(LookFileJson(Read(kLook)));
    EXPECT_EQ(look["family"], "look");
    EXPECT_EQ(look["version"], 3);
    const nlohmann::json& layer = look["keyframes"][0]["layers"][1];
    EXPECT_EQ(layer["shader"], "Primary");
    EXPECT_EQ(layer["parameters"][1]["children"][0]["value"], "1,2");
    EXPECT_TRUE(layer["mask"].is_null());
    EXPECT_EQ(look["tables"][0]["kind"], "1D");
    EXPECT_EQ(look["externalTables"][0]["fileName"], "a.cube");
    EXPECT_EQ(look["properties"][0]["weak"], true);

    const nlohmann::json table = ParseJson(LookFileJson(Read(kTable)));
    EXPECT_EQ(table["family"], "table");
    EXPECT_EQ(table["format"], ".cube");
    EXPECT_EQ(table["max"], nlohmann::json({2, 2, 2}));
    EXPECT_EQ(table["subTables"][0]["entries"], 8);
}

TEST(LookFile, FaultsHaveALocation)
{
    CZvError error;
    EXPECT_FALSE(ReadLookFile("<Gradiva>\n<keyframe>\n</keyframe>\n</Gradiva>", "x", error));
    EXPECT_EQ(error.message, "Empty <keyframe> tag in grading definition");
    EXPECT_EQ(error.line, 3);
    EXPECT_FALSE(ReadLookFile("LUT_1D_SIZE 2\n0 0 0\n1 1 x\n", "x", error));
    EXPECT_EQ(error.message, "Lookup table \"x\" could not be loaded: unknown format.");
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(error.column, 5);
}

} // namespace
} // namespace XPJ::Inspection
