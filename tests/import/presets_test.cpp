#include "import/presets.h"

#include "support/rows.h"

#include "project/time_display.h"
#include "support/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

class PresetsTest : public XmemlTest {
protected:
    // File name of the preset that a sequence gets.
    std::string PresetOf(ObjectHandle sequence, Ticks videoTicks = kNtscFrameTicks)
    {
        project_ = document_.NewObject("Sequence");
        ChoosePreset(sequence, videoTicks, project_);
        const std::string_view path =
            project_.GetProperty("MZ.Sequence.PreviewRenderingPresetPath");
        return std::string(path.substr(path.rfind('/') + 1));
    }
    std::string_view EditingMode() const
    {
        return project_.GetProperty("MZ.Sequence.EditingModeGUID");
    }
    std::string_view TimeDisplay() const
    {
        return project_.GetProperty("MZ.Sequence.VideoTimeDisplayFormat");
    }

    ObjectHandle SequenceOf(const std::string& characteristics, const std::string& further = "")
    {
        return ParseSequence(further + "<media><video><format><samplecharacteristics>" +
                             characteristics + "</samplecharacteristics></format></video></media>");
    }

    ObjectHandle project_;
};

std::string Rate(int timebase, bool ntsc)
{
    return "<rate><timebase>" + std::to_string(timebase) + "</timebase><ntsc>" +
           (ntsc ? "TRUE" : "FALSE") + "</ntsc></rate>";
}

std::string Codec(const std::string& name, const std::string& typeName = "")
{
    return "<codec><name>" + name + "</name><appspecificdata><data><qtcodec><codectypename>" +
           typeName + "</codectypename></qtcodec></data></appspecificdata></codec>";
}

TEST_F(PresetsTest, TimeDisplays)
{
    EXPECT_EQ(TimeDisplayOf(true, kNtscFrameTicks), "103");
    EXPECT_EQ(TimeDisplayOf(true, 8467200000), "104");
    EXPECT_EQ(TimeDisplayOf(true, 4237833600), "107");
    EXPECT_EQ(TimeDisplayOf(false, 1), "102");
}

// Names, timebases and prefixes where a slip of the table would show.
TEST_F(PresetsTest, PresetByCodec)
{
    for (const auto& row : ReadRows("import/presets_by_codec.txt", 5)) {
        SCOPED_TRACE(row[0] + " " + row[2]);
        EXPECT_EQ(PresetOf(SequenceOf(Rate(std::stoi(row[2]), true) + Codec(row[0], row[1]))),
                  row[3]);
        EXPECT_TRUE(EditingMode().starts_with(row[4])) << EditingMode();
    }
}

TEST_F(PresetsTest, PresetByVideoFormat)
{
    for (const auto& row : ReadRows("import/presets_by_format.txt", 5)) {
        const ObjectHandle sequence = document_.NewObject("Sequence");
        const FrameFormat frame{.rect = "0,0," + row[1] + "," + row[2], .formatName = row[3]};
        PresetFromFormat(std::stoll(row[0]), frame, sequence);
        EXPECT_TRUE(sequence.GetProperty("MZ.Sequence.EditingModeGUID").starts_with(row[4]))
            << row[3] << " " << row[0];
    }
}

TEST_F(PresetsTest, PresetWithoutFormatGoesByTheSequenceRate)
{
    EXPECT_EQ(PresetOf(ParseSequence("<timecode><displayformat>ndf</displayformat></timecode>")),
              "QuickTime.epr");
    EXPECT_EQ(TimeDisplay(), "103");
    PresetOf(SequenceOf(Rate(0, false)), kPalFrameTicks);
    EXPECT_EQ(TimeDisplay(), "101");

    // A preset that the document carried along stays, but for the time display.
    project_ = document_.NewObject("Sequence");
    project_.SetProperty("MZ.Sequence.EditingModeGUID", "mine");
    project_.SetProperty("MZ.Sequence.VideoTimeDisplayFormat", "999");
    ChoosePreset(SequenceOf(Rate(24, true) + Codec("Apple DV - NTSC")), kPalFrameTicks, project_);
    EXPECT_EQ(EditingMode(), "mine");
    EXPECT_EQ(TimeDisplay(), "110");
}

} // namespace
} // namespace XPJ
