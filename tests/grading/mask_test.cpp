#include "grading/mask_text.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {
namespace {

std::string Rewritten(std::string_view text)
{
    CZvXMLFile file;
    file.Open(text);
    std::string written;
    ElementWriter writer(written);
    try {
        file.Next();
        WriteMask(writer, 0, ReadMask(file));
    } catch (const CZvError& error) {
        return error.message;
    }
    return written;
}

constexpr std::string_view kPairs[] = {"inner", "innerprevtangent", "innernexttangent",
                                       "outer", "outerprevtangent", "outernexttangent"};

// A point with one value other than in a plain one.
std::string Point(std::string_view tag = "", std::string_view value = "")
{
    std::string text = "<point>";
    for (const std::string_view pair : kPairs)
        if (pair != tag)
            text += "<" + std::string(pair) + ">\"catmull-rom,value:0.50,-1e-3@0\"</" +
                    std::string(pair) + ">";
    if (!value.empty())
        text +=
            "<" + std::string(tag) + ">\"" + std::string(value) + "\"</" + std::string(tag) + ">";
    return text + "</point>";
}

std::string MaskOf(const std::string& point)
{
    return "<Mask><contour>" + point + "</contour></Mask>";
}

TEST(Mask, FixedPointsAreWrittenInShort)
{
    EXPECT_EQ(Rewritten("<shadermask><mask><midpoint>0.5</midpoint><name>m</name>"
                        "<feather>\"linear,value:1@0\"</feather><contour><nextset>0</nextset>" +
                        Point("detached", "linear,value:1@0") +
                        "<positive>1</positive></contour><other>1</other></mask></shadermask>"),
              R"(<Mask>
  <name>"m"</name>
  <feather>"linear,value:1@0"</feather>
  <midpoint>"0.5"</midpoint>
  <contour>
    <positive>"1"</positive>
    <nextset>"0"</nextset>
    <point>
      <inner>"catmull-rom,value:0.5,-0.001@0"</inner>
      <innerprevtangent>"catmull-rom,value:0.5,-0.001@0"</innerprevtangent>
      <innernexttangent>"catmull-rom,value:0.5,-0.001@0"</innernexttangent>
      <falloffexponent>"catmull-rom,value:1@0"</falloffexponent>
      <falloffweight>"catmull-rom,value:1@0"</falloffweight>
      <detached>linear,value:1@0</detached>
      <outer>"catmull-rom,value:0.5,-0.001@0"</outer>
      <outerprevtangent>"catmull-rom,value:0.5,-0.001@0"</outerprevtangent>
      <outernexttangent>"catmull-rom,value:0.5,-0.001@0"</outernexttangent>
      <spline>"linear,value:1@0"</spline>
      <smooth>"linear,value:1@0"</smooth>
    </point>
  </contour>
</Mask>
)");
}

TEST(Mask, OneAnimatedValueKeepsThemAll)
{
    for (const auto& row : ReadRows("grading/mask_values.txt", 3)) {
        const std::string written = Rewritten(MaskOf(Point(row[0], row[1])));
        const bool hasAsRead = written.find("0.50,-1e-3") != written.npos;
        EXPECT_EQ(hasAsRead, row[2] == "false") << row[0] << " " << row[1];
        const std::string line = "<" + row[0] + ">\"" + row[1] + "\"";
        EXPECT_NE(written.find(line), written.npos) << written;
        EXPECT_EQ(Rewritten(written), written);
    }
}

TEST(Mask, PointsNeedTheirCoordinates)
{
    EXPECT_NE(Rewritten(MaskOf(Point())), "Incomplete mask point definition");
    EXPECT_EQ(Rewritten(MaskOf("<point/>")), "Incomplete mask point definition");
    for (const std::string_view tag : kPairs) {
        for (const std::string_view value : {"", "catmull-rom,value:1@0", "catmull-rom,value:1,@0",
                                             "catmull-rom,value:1,2,3@0", "1,inf"})
            EXPECT_EQ(Rewritten(MaskOf(Point(tag, value))), "Incomplete mask point definition")
                << tag << " " << value;
    }
}

TEST(Mask, TheOutermostNameCounts)
{
    const auto name = [](std::string_view text) {
        CZvXMLFile file;
        file.Open(text);
        file.Next();
        return std::string(ReadMask(file).Name());
    };
    EXPECT_EQ(name("<mask><name>a</name><data><Mask><name>b</name></Mask></data></mask>"), "a");
    EXPECT_EQ(name("<mask><data><Mask><name>b</name></Mask></data><name/></mask>"), "b");
    EXPECT_EQ(name("<mask><data/></mask>"), "");
}

} // namespace
} // namespace XPJ
