#include "xmeml/formats.h"

#include "support/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

class FormatsTest : public XmemlTest {
protected:
    ObjectHandle SequenceOf(const std::string& characteristics, const std::string& further = "")
    {
        return ParseSequence(further + "<media><video><format><samplecharacteristics>" +
                             characteristics + "</samplecharacteristics></format></video></media>");
    }
};

std::string Rate(int timebase, bool ntsc)
{
    return "<rate><timebase>" + std::to_string(timebase) + "</timebase><ntsc>" +
           (ntsc ? "TRUE" : "FALSE") + "</ntsc></rate>";
}

TEST_F(FormatsTest, AspectsOfNames)
{
    EXPECT_EQ(AspectOfFormat("NTSC-601", false), "10,11");
    EXPECT_EQ(AspectOfFormat("PAL-CCIR-601", true), "1024,702");
    EXPECT_EQ(AspectOfFormat("HD-(1440x1080)", true), "1920,1440");
    EXPECT_EQ(AspectOfFormat("ntsc-601", true), "1,1");
}

TEST_F(FormatsTest, RateAndAspectComeFromTheNearestElement)
{
    const auto pal = ReadSequenceFormat(
        SequenceOf("<width>1920</width><height>1080</height>" + Rate(25, false), Rate(30, true)));
    ASSERT_TRUE(pal);
    EXPECT_EQ(pal->timebase, 25);
    EXPECT_EQ(pal->formatName, "PAL-601");

    const ObjectHandle own = SequenceOf("<width>1920</width><height>1080</height>"
                                        "<pixelaspectratio>HD-(1440x1080)</pixelaspectratio>"
                                        "<anamorphic>TRUE</anamorphic>",
                                        Rate(30, true));
    const FrameFormat frame = FrameOfSequence(own);
    EXPECT_EQ(frame.rect, "0,0,1920,1080");
    EXPECT_EQ(frame.par, "1920,1440");

    EXPECT_FALSE(ReadSequenceFormat(SequenceOf("<width>9</width>")));
    EXPECT_FALSE(ReadSequenceFormat(ParseSequence(Rate(25, false))));
    EXPECT_EQ(FrameOfSequence(SequenceOf("<width>9</width>")).rect, "");
}

TEST_F(FormatsTest, MissingCharacteristicsCountAsDV)
{
    const std::string item = "<clipitem id=\"i\"><file id=\"f\"><width>960</width>"
                             "<height>540</height></file></clipitem>";
    struct Case {
        std::string content;
        std::string_view rect;
        std::string_view formatName;
        std::int64_t timebase;
        bool ntsc;
    };
    const Case cases[] = {
        {Rate(25, false) + "<media><video/></media>", "0,0,720,576", "PAL-601", 25, false},
        {Rate(24, false) + "<media><video/></media>", "0,0,720,480", "NTSC-601", 24, true},
        {Rate(60, false) + "<media><video/></media>", "0,0,720,480", "NTSC-601", 30, true},
        {Rate(25, false) + "<media><video><track>" + item + "</track></video></media>",
         "0,0,960,540", "PAL-601", 25, false},
        {"<rate><timebase>254016000000</timebase></rate><timecode>" + Rate(25, false) +
             "</timecode><media><video/></media>",
         "0,0,720,576", "PAL-601", 25, false},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.content);
        const ObjectHandle sequence = ParseSequence(row.content);
        const auto format = ReadSequenceFormat(sequence);
        ASSERT_TRUE(format);
        EXPECT_EQ(FrameOfSequence(sequence).rect, row.rect);
        EXPECT_EQ(format->formatName, row.formatName);
        EXPECT_EQ(format->timebase, row.timebase);
        EXPECT_EQ(format->ntsc, row.ntsc);
    }
}

TEST_F(FormatsTest, TheFirstItemOnAnyTrackGivesTheSize)
{
    const auto item = [](const char* width, const char* height) {
        return std::string("<clipitem><file><width>") + width + "</width><height>" + height +
               "</height></file></clipitem>";
    };
    const ObjectHandle sequence = ParseSequence(
        Rate(25, false) + "<media><video><track/><track><generatoritem/>" + item("1280", "720") +
        item("640", "360") + "</track><track>" + item("1920", "1080") + "</track></video></media>");
    EXPECT_EQ(FrameOfSequence(sequence).rect, "0,0,1280,720");
}

} // namespace
} // namespace XPJ
