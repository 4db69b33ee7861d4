#include "support/golden.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(Golden, ParsesAndFormatsACase)
{
    const std::string text = "# What it shows\n%% import\n<xmeml/>\n\n%% project only=A,B\n"
                             "\t<A/>\n%% issues\n";
    const GoldenCase golden = ParseGoldenCase(text);
    ASSERT_EQ(golden.sections.size(), 3u);
    EXPECT_EQ(golden.sections[0].text, "<xmeml/>\n\n");
    EXPECT_EQ(golden.sections[1].arguments, "only=A,B");
    EXPECT_EQ(golden.sections[2].text, "");
    EXPECT_EQ(FormatGoldenCase(golden), text);
}

TEST(Golden, SelectsObjectsAndNumbersThemAnew)
{
    GoldenPlatform platform;
    const std::string first = AsString(platform.CreateUniqueGuid());
    const std::string second = AsString(platform.CreateUniqueGuid());
    const std::string project = "<VelaData>\n\t<Project ObjectRef=\"9\"/>\n"
                                "\t<A ObjectID=\"7\" ClassID=\"1\">\n\t\t<B ObjectRef=\"9\"/>\n"
                                "\t</A>\n"
                                "\t<C ObjectID=\"8\">\n\t</C>\n"
                                "\t<D ObjectUID=\"" +
                                second + "\">\n\t\t<B ObjectURef=\"" + first +
                                "\"/>\n\t</D>\n</VelaData>\n";
    EXPECT_EQ(NormaliseIds(SelectObjects(project, "A,D")),
              "\t<A ObjectID=\"1\" ClassID=\"1\">\n\t\t<B ObjectRef=\"2\"/>\n\t</A>\n"
              "\t<D ObjectUID=\"G1\">\n\t\t<B ObjectURef=\"G2\"/>\n\t</D>\n");
}

TEST(Golden, DiffsByLine)
{
    EXPECT_EQ(LineDiff("a\nb\nc\n", "a\nx\ny\nc\n"), "from line 2:\n- b\n+ x\n+ y\n");
    EXPECT_EQ(LineDiff("a\na\n", "a\n"), "from line 2:\n- a\n");
}

} // namespace
} // namespace XPJ
