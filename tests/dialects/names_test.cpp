#include "support/open_conversion.h"

namespace XPJ {
namespace {

using Names = OpenConversionTest;

std::string LabelledBin(const std::string& labels)
{
    return "<xmeml version=\"5\"><project><name>P</name><children><bin><name>B</name><labels>" +
           labels + "</labels><children/></bin></children></project></xmeml>";
}

std::string ColorLine(const std::string& number)
{
    return "<Column.PropertyText.Label>BE.Prefs.LabelColors." + number +
           "</Column.PropertyText.Label>";
}

TEST_F(Names, LabelsKeepTheirText)
{
    const struct {
        std::string label;
        std::string color; // its number; empty: none
    } kRows[] = {{"Good Take", "0"},       {"best take", "1"}, {"ALTERNATE-SHOTS", "2"},
                 {"Interviews", "3"},      {"B-Roll", "4"},    {"Mango", "7"},
                 {"Rushes &amp; VFX", ""}, {"Label 2 (1)", ""}};
    for (const auto& row : kRows) {
        const std::string project = ToProject(LabelledBin("<label2>" + row.label + "</label2>"));
        EXPECT_EQ(Has(project, "<Column.PropertyText.Label>"), !row.color.empty()) << row.label;
        EXPECT_EQ(Has(project, ColorLine(row.color)), !row.color.empty()) << row.label;
        EXPECT_TRUE(Has(ToXmeml(project), "<label2>" + row.label + "</label2>")) << row.label;
    }
}

TEST_F(Names, ALabelOfFinalCutIsWrittenForBothColumns)
{
    const std::string back =
        ToXmeml(ToProject(LabelledBin("<label>Best Take</label><label2>\n</label2>")));
    EXPECT_TRUE(Has(back, "<label>Best Take</label>"));
    EXPECT_TRUE(Has(back, "<label2>Best Take</label2>"));
}

// The user chose another color since.
TEST_F(Names, ANewColorReplacesTheLabel)
{
    std::string project = ToProject(LabelledBin("<label2>Good Take</label2>"));
    project.replace(project.find(ColorLine("0")), ColorLine("0").size(), ColorLine("6"));
    const std::string back = ToXmeml(project);
    EXPECT_TRUE(Has(back, "<label2>Rose</label2>"));
    EXPECT_FALSE(Has(back, "Good Take"));
}

std::string NamedTracks(const std::string& project)
{
    return "<xmeml version=\"5\">" + project +
           "<sequence id=\"s\"><name>S</name><rate><timebase>25</timebase></rate><media>"
           "<video><track><name>Titles</name></track></video>"
           "<audio><track><name>Dialog &lt;L&gt;</name></track></audio></media></sequence>"
           "</xmeml>";
}

TEST_F(Names, TracksKeepTheirs)
{
    const std::string back = ToXmeml(ToProject(NamedTracks("")));
    EXPECT_TRUE(Has(back, "<name>Titles</name>"));
    EXPECT_TRUE(Has(back, "<name>Dialog &lt;L&gt;</name>"));
}

TEST_F(Names, AProjectKeepsItsNameOrHasThatOfItsFile)
{
    const std::string kHead = "<project>\n\t\t<name>";
    EXPECT_TRUE(Has(ToXmeml(ToProject(NamedTracks("<project><name>Harbour</name></project>"))),
                    kHead + "Harbour<"));
    EXPECT_TRUE(Has(ToXmeml(ToProject(NamedTracks(""))), kHead + "cut<"));
}

TEST_F(Names, TheLetterHasColorsAlone)
{
    const std::string named = ToProject(LabelledBin("<label2>Good Take</label2>"));
    SetOpen(false);
    EXPECT_FALSE(Has(ToProject(LabelledBin("<label2>Good Take</label2>")), "Label"));
    const std::string back = ToXmeml(named);
    EXPECT_TRUE(Has(back, "<label2>Violet</label2>"));
    EXPECT_TRUE(Has(back, "<name>Vela Project</name>"));
    EXPECT_FALSE(Has(ToXmeml(ToProject(NamedTracks(""))), "<name>Titles</name>"));
}

} // namespace
} // namespace XPJ
