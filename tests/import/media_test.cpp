#include "import/media.h"

#include "core/base64.h"
#include "core/ticks.h"
#include "import/audio_streams.h"
#include "import/layered_image.h"
#include "import/streams.h"
#include "import/subclips.h"
#include "import/synthetic_media.h"
#include "import/xmeml_fixture.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr const char* kPalRate = "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>";

std::string LayoutOf(const std::string& labels)
{
    return "{\"SerializerWrappedObject\":[" + labels + "]}";
}

const std::string kStereoLayout = LayoutOf("{\"channellabel\":100},{\"channellabel\":101}");

class MediaTest : public XmemlTest {
protected:
    FileSources SourcesOf(const std::string& file, const std::string& clip = kPalRate)
    {
        element_ = ParseClip(clip, file);
        return AddFileStreams(state_, element_, file_, {});
    }

    ObjectHandle element_;
};

// Kind of stream `i`, read off its layout and Media.
std::string_view LayoutOfSource(ObjectHandle source)
{
    return source.GetChild("Media").GetChild("AudioStream").GetProperty("AudioChannelLayout");
}

std::string_view StreamNumberOf(ObjectHandle source)
{
    return source.GetChild("Media").GetProperty("StreamNumber");
}

TEST_F(MediaTest, FilesAreFoundThroughReferencesAndStills)
{
    const ObjectHandle clip = Parse(
        "<clip id=\"c\"><media><video>"
        "<track><clipitem id=\"1\"><file id=\"a\"><name>A</name><media/></file></clipitem>"
        "<clipitem id=\"2\"><file id=\"z\"><name>Z</name><media/></file></clipitem></track>"
        "<track><clipitem id=\"3\"><sequence id=\"s\"><media><video><track><clipitem id=\"4\">"
        "<stillframeoffset>5</stillframeoffset><file id=\"b\"><name>B</name><media/></file>"
        "</clipitem></track></video></media></sequence></clipitem></track></video>"
        "<audio><track><clipitem id=\"5\"><file id=\"a\"/></clipitem></track><track/></audio>"
        "</media></clip>");
    const ObjectHandle media = clip.GetChild("media");
    EXPECT_TRUE(FilesOfMedia(state_, media).empty()); // no file of these ids is known yet

    const ObjectHandle still = FindPath(media, {"video", "track", "clipitem"});
    state_.files["a"] = still.GetChild("file");
    for (const ObjectHandle& track : media.GetChild("video").GetChildren("track"))
        if (const ObjectHandle inner = FindPath(track, {"clipitem", "sequence"}))
            state_.files["b"] = FindPath(inner, {"media", "video", "track", "clipitem", "file"});
    const auto files = FilesOfMedia(state_, media);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[0].GetProperty("name"), "A");
    EXPECT_EQ(files[1].GetProperty("name"), "B");
    EXPECT_EQ(FilesOfMedia(state_, media, MediaType::Audio).size(), 1u);
    EXPECT_EQ(FirstFileOf(state_, clip), files[0]);
}

TEST_F(MediaTest, PathsAndTitles)
{
    state_.documentDirectory = "/jobs/x/";
    struct Case {
        std::string file;
        std::string_view path;
        std::string_view title;
    };
    const Case cases[] = {
        {"<name>a.mov</name><pathurl>file://localhost/V/a%20%26%20b.mov</pathurl>",
         "/V/a &amp; b.mov", "a.mov"},
        {"<pathurl>file:///V/q&amp;a.mov</pathurl>", "/V/q&amp;a.mov", ""},
        {"<pathurl>a.mov</pathurl>", "/jobs/x/a.mov", ""},
        {"<name>a</name>", "", "a"},
        {"<name>a</name><pathurl>file:///V/a.mov</pathurl>"
         "<metadata><key>com.red.clip.originalSourcePath</key><value>/R/a.R3D</value></metadata>"
         "<metadata><key>com.red.clip.startFileName</key><value>a_001</value></metadata>",
         "/R/a.R3D", "a_001"},
    };
    for (const Case& row : cases) {
        ParseClip("", row.file + "<media/>");
        const ObjectHandle media = MakeMedia(state_, file_);
        EXPECT_EQ(media.GetProperty("FilePath"), row.path) << row.file;
        EXPECT_EQ(media.GetProperty("Title"), row.title) << row.file;
        EXPECT_FALSE(media.HasProperty("ImporterPrefs"));
    }
    EXPECT_TRUE(IsRedFile(file_));
}

TEST_F(MediaTest, ImporterSettingsAreUnescapedTwice)
{
    ParseClip("", "<media><video><MediaAssociationData>&amp;lt;a</MediaAssociationData></video>"
                  "</media>");
    const ObjectHandle media = MakeMedia(state_, file_);
    EXPECT_EQ(DecodeBase64(media.GetProperty("ImporterPrefs")), std::string("<\0a\0", 4));
}

TEST_F(MediaTest, PictureStream)
{
    const FileSources sources =
        SourcesOf("<duration>100</duration><media><video><stillframe>TRUE</stillframe>"
                  "<samplecharacteristics><width>720</width><height>576</height>"
                  "<fielddominance>lower</fielddominance><VelaCodec>RED x</VelaCodec>"
                  "</samplecharacteristics></video></media>");
    ASSERT_EQ(sources.video.size(), 1u);
    EXPECT_TRUE(sources.audio.empty());
    const ObjectHandle source = sources.video[0];
    EXPECT_EQ(source.GetProperty("FrameRate"), "10160640000");
    EXPECT_EQ(source.GetProperty("OriginalDuration"), "1016064000000");
    EXPECT_EQ(source.GetProperty("StartBoundary"), "-101606400000000000");
    EXPECT_EQ(source.GetProperty("BoundariesAreHard"), "true");
    EXPECT_EQ(source.GetProperty("VelaCodec"), "RED x");
    const ObjectHandle stream = source.GetChild("Media").GetChild("VideoStream");
    EXPECT_EQ(stream.GetProperty("FrameRect"), "0,0,720,576");
    EXPECT_EQ(stream.GetProperty("OriginalFieldType"), "2");
    EXPECT_EQ(stream.GetProperty("IsStill"), "true");
    EXPECT_EQ(stream.GetProperty("CodecType"), "1685480224");
    EXPECT_EQ(stream.GetProperty("OverriddenPAR"), "1,1");
}

TEST_F(MediaTest, RateAndMediaAreNeeded)
{
    EXPECT_TRUE(SourcesOf("<media><video/><audio/></media>", "").IsEmpty());
    EXPECT_TRUE(SourcesOf("<duration>5</duration>" + std::string(kPalRate)).IsEmpty());
    const FileSources own = SourcesOf(std::string(kPalRate) + "<media><video/></media>", "");
    ASSERT_EQ(own.video.size(), 1u);
    EXPECT_EQ(own.video[0].GetProperty("OriginalDuration"), "0");
    const FileSources huge = SourcesOf("<duration>99999999999999999999</duration>"
                                       "<media><video/></media>");
    EXPECT_EQ(huge.video[0].GetProperty("OriginalDuration"), "9223372036854775807");
}

TEST_F(MediaTest, SubclipBoundaries)
{
    const std::string clip =
        std::string(kPalRate) + "<subclipinfo><startoffset>10</startoffset></subclipinfo>";
    ObjectHandle element = ParseClip(clip, "<duration>50</duration><media><video/></media>");
    const SubclipRange range = ReadSubclipInfo(state_, element);
    EXPECT_EQ(range.start, 10);
    EXPECT_EQ(range.end, 60);
    EXPECT_TRUE(range.hard);
    ObjectHandle source = AddFileStreams(state_, element, file_, {}).video[0];
    EXPECT_EQ(source.GetProperty("StartBoundary"), "101606400000");
    EXPECT_EQ(source.GetProperty("EndBoundary"), "609638400000");
    EXPECT_EQ(source.GetProperty("BoundariesAreHard"), "true");

    state_.aafSupport = true;
    source = AddFileStreams(state_, element, file_, {}).video[0];
    EXPECT_EQ(source.GetProperty("BoundariesAreHard"), "false");

    FindPath(element, {"media", "video", "track", "clipitem"})
        .SetProperty("velaSoftStartOffset", "20");
    const SubclipRange soft = ReadSubclipInfo(state_, element);
    EXPECT_EQ(soft.start, 20);
    EXPECT_FALSE(soft.hard);
    EXPECT_FALSE(ReadSubclipInfo(state_, document_.NewObject("clip")).IsKnown());
}

struct SplitCase {
    std::string media; // of the file
    std::size_t sources;
    int kind; // of the file as a whole
    std::string layout;
    std::string lastNumber; // stream number of the last source's Media
};

TEST_F(MediaTest, SoundIsSplitByWhatTheFileStates)
{
    const std::string mono = "<audio><channelcount>1</channelcount></audio>";
    const std::string pair = "<audio><channelcount>1</channelcount><layout>stereo</layout></audio>";
    const std::string zero = LayoutOf("{\"channellabel\":0}");
    const std::string video = "<video/>";
    const auto marked = [](const std::string& mark) {
        return "<video><samplecharacteristics><VelaCodec>" + mark +
               "</VelaCodec></samplecharacteristics></video>";
    };
    const std::string four = LayoutOf("{\"channellabel\":0},{\"channellabel\":0},"
                                      "{\"channellabel\":0},{\"channellabel\":0}");
    const SplitCase cases[] = {
        {"<media>" + video + mono + mono + "</media>", 2, kMono, zero, "1"},
        {"<media hasStereoPairs=\"true\">" + video + mono + mono + "</media>", 1, kStereoPair,
         kStereoLayout, "0"},
        {"<media hasStereoPairs=\"false\">" + video + mono + mono + "</media>", 2, kMono, zero,
         "1"},
        {"<media hasDiscreteStreams=\"true\">" + video + mono + mono + "</media>", 2, kMono, zero,
         "2"},
        {"<media>" + video + pair + pair + "</media>", 1, kStereoPair, kStereoLayout, "0"},
        {"<media>" + video + pair + "</media>", 0, kStereoPair, "", ""},
        {"<media>" + video + "<audio/>" + mono + "</media>", 1, kStereo, kStereoLayout, "0"},
        {"<media><audio><channelcount>4</channelcount></audio></media>", 1, kAdaptive, four, "0"},
        {"<media><audio><channelcount>99999999999</channelcount></audio></media>", 1, kAdaptive,
         ChannelLayoutText(kAdaptive, 128), "0"}, // as many as any medium has
        {"<media><audio><trackcount>6</trackcount></audio></media>", 1, kSurround51,
         ChannelLayoutText(kSurround51, 1), "0"},
        {"<media><audio><channeldescription>A1+A2</channeldescription></audio></media>", 1, kStereo,
         kStereoLayout, "0"},
        {"<media><audio><channelcount>0</channelcount><track/></audio></media>", 0, kMono, "", ""},
        {"<media>" + marked("Avid DNxHD") + "<audio><channelcount>4</channelcount></audio>" + mono +
             "</media>",
         1, kAdaptive, four, "0"},
        {"<media>" + marked("RED") + "<audio><channelcount>3</channelcount></audio></media>", 3,
         kAdaptive, zero, "2"},
    };
    for (const SplitCase& row : cases) {
        SCOPED_TRACE(row.media);
        const FileSources sources = SourcesOf("<duration>1</duration>" + row.media);
        EXPECT_EQ(AudioKindOfFile(file_).kind, row.kind);
        ASSERT_EQ(sources.audio.size(), row.sources);
        if (row.sources == 0)
            continue;
        EXPECT_EQ(LayoutOfSource(sources.audio.back()), row.layout);
        EXPECT_EQ(StreamNumberOf(sources.audio.back()), row.lastNumber);
    }
}

TEST_F(MediaTest, FirstStreamSharesTheMediaOfThePicture)
{
    const std::string mono = "<audio><channelcount>1</channelcount></audio>";
    FileSources sources = SourcesOf("<media><video/>" + mono + mono + "</media>");
    EXPECT_EQ(sources.audio[0].GetChild("Media"), sources.VideoMedia());
    EXPECT_NE(sources.audio[1].GetChild("Media"), sources.VideoMedia());

    sources = SourcesOf("<media hasDiscreteStreams=\"true\"><video/>" + mono + "</media>");
    EXPECT_NE(sources.audio[0].GetChild("Media"), sources.VideoMedia());

    sources = SourcesOf("<media><video><samplecharacteristics><VelaCodec>XDCAM EX</VelaCodec>"
                        "</samplecharacteristics></video>"
                        "<audio><channelcount>8</channelcount></audio></media>");
    EXPECT_EQ(sources.audio[0].GetChild("Media"), sources.VideoMedia());
    EXPECT_EQ(sources.audio[0].GetProperty("fcpaudiochannelcount"), "8");
}

TEST_F(MediaTest, HandOffTakesOneStream)
{
    state_.sn2vlMode = true;
    const FileSources sources = SourcesOf("<media hasStereoPairs=\"true\">"
                                          "<audio><channelcount>2</channelcount></audio>"
                                          "<audio><channelcount>2</channelcount></audio></media>");
    ASSERT_EQ(sources.audio.size(), 1u);
    EXPECT_EQ(LayoutOfSource(sources.audio[0]), kStereoLayout);
}

TEST_F(MediaTest, SampleRatesAndDamagedCounts)
{
    const auto rateOf = [&](const std::string& audio) {
        const FileSources sources =
            SourcesOf("<media><audio><channelcount>1</channelcount>" + audio + "</audio></media>");
        return sources.audio.empty() ? std::string()
                                     : std::string(sources.audio[0].GetProperty("FrameRate"));
    };
    const auto characteristics = [](const std::string& rate) {
        return "<samplecharacteristics><samplerate>" + rate +
               "</samplerate></samplecharacteristics>";
    };
    EXPECT_EQ(rateOf(""), "5292000");
    EXPECT_EQ(rateOf(characteristics("44100")), "5760000");
    EXPECT_EQ(rateOf("<rate><timebase>96000</timebase></rate>"), "2646000");
    EXPECT_EQ(rateOf(characteristics("0")), "");
    EXPECT_EQ(rateOf(characteristics("-1")), "");

    SourcesOf("<media><audio><channelcount>2000000000</channelcount></audio></media>");
    EXPECT_LE(AudioKindOfFile(file_).channels, 1000);
}

TEST_F(MediaTest, SyntheticSources)
{
    const FileSources bars = SourcesOf("<mediaSource>BarsAndToneHD720p</mediaSource>");
    ASSERT_EQ(bars.video.size(), 1u);
    ASSERT_EQ(bars.audio.size(), 1u);
    EXPECT_EQ(AudioKindOfFile(file_).kind, kStereo);
    EXPECT_EQ(bars.VideoMedia().GetProperty("FilePath"), "1111577171");
    EXPECT_EQ(bars.VideoMedia().GetProperty("Infinite"), "true");
    EXPECT_EQ(bars.video[0].GetProperty("FrameRate"), "10160640000");
    EXPECT_EQ(bars.audio[0].GetChild("Media"), bars.VideoMedia());

    const FileSources graphic = SourcesOf("<mediaSource>GraphicAndTypeMaster</mediaSource>", "");
    EXPECT_EQ(graphic.VideoMedia().GetProperty("FilePath"), "1196574294");
    EXPECT_EQ(graphic.video[0].GetProperty("FrameRate"), "8475667200");
    EXPECT_TRUE(graphic.audio.empty());

    const FileSources black =
        MakeSyntheticSources(state_, SyntheticKind::BlackVideo, kPalFrameTicks, {});
    EXPECT_EQ(black.video[0].GetProperty("FrameRate"), "9223372036854775807");
    EXPECT_EQ(black.VideoMedia().GetChild("VideoStream").GetProperty("OriginalPAR"), "10,11");

    SetMatteColor({.red = 255, .green = 0, .blue = 0, .alpha = 255}, black.VideoMedia());
    EXPECT_EQ(black.VideoMedia().GetProperty("ImporterPrefs"), "/wAA/wEAAAA=");
}

TEST_F(MediaTest, LayeredImage)
{
    const std::string video = "<video><layerindex>";
    const std::string end = "</layerindex></video>";
    const ObjectHandle clip = ParseClip(
        "<name>Art</name>", "<name>art.lyd</name><media>" + video + "0" + end + video + "1" + end +
                                video + "3" + end + video + "2" + end + "<video/></media>");
    EXPECT_TRUE(IsLayeredImage(file_));
    const auto layers = MakeImageLayers(state_, clip, file_, {});
    ASSERT_EQ(layers.size(), 5u);
    EXPECT_EQ(layers[2].index, 3);
    EXPECT_EQ(layers[2].name, "Layer 1/Art");
    const ObjectHandle media = layers[2].source.GetChild("Media");
    EXPECT_EQ(media.GetProperty("StreamNumber"), "3");
    const std::string prefs = DecodeBase64(media.GetProperty("ImporterPrefs"));
    EXPECT_EQ(prefs, std::string("\x09\0\0\0\x09\x09\x09\x09\x03\0\0\0\x01\0\0\0\x01\0\0\0"
                                 "\0\0\0\0\x03\0\0\0",
                                 28));
    EXPECT_EQ(layers[2].source.GetProperty("FrameRate"), "8475667200");
    EXPECT_EQ(media.GetChild("VideoStream").GetProperty("FrameRate"), "9223372036854775807");

    ParseClip("", "<pathurl>file:///a.LYD</pathurl><media/>");
    EXPECT_FALSE(IsLayeredImage(file_));
}

} // namespace
} // namespace XPJ
