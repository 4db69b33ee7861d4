#include "dialects/dialects.h"
#include "support/open_conversion.h"
#include "support/xmeml_fixture.h"

namespace XPJ {
namespace {

using Files = OpenConversionTest;

const std::string kRate = In("rate", In("timebase", "25"));
const std::string kTimes = In("start", "0") + In("end", "10") + In("in", "0") + In("out", "10");

std::string SequenceOf(const std::string& media, const std::string& leaves = {})
{
    return "<xmeml version=\"5\"><sequence id=\"s\">" + In("name", "S") + kRate + leaves +
           In("media", media) + "</sequence></xmeml>";
}

std::string FileOf(const std::string& id, const std::string& media, const std::string& leaves = {})
{
    return "<file id=\"" + id + "\">" + In("name", id) + In("pathurl", "file://localhost/" + id) +
           In("duration", "10") + kRate + leaves + In("media", media) + "</file>";
}

// A clip of a bin with these `video` and `audio`.
std::string ClipOf(const std::string& media)
{
    return "<xmeml version=\"5\"><clip id=\"c\">" + In("name", "C") + In("masterclipid", "c") +
           In("duration", "10") + kRate + In("media", media) + "</clip></xmeml>";
}

std::string Track(const std::string& type, const std::string& item)
{
    return In(type, In("track", In("clipitem", item)));
}

// A sequence with one video item.
std::string Cut(const std::string& item, const std::string& file, const std::string& video)
{
    return SequenceOf(Track("video", In("name", "I") + kTimes + item +
                                         FileOf("f.mov", In("video", video), file)));
}

TEST_F(Files, TakeTheFrameThatIsStatedElsewhere)
{
    const struct {
        std::string item;
        std::string file;
        std::string video;
        std::string written; // field order and pixels of the file
    } kRows[] = {
        {"<fielddominance>lower</fielddominance>", "", "", "square lower"},
        {"<pixelaspectratio>PAL-601</pixelaspectratio><fielddominance>upper</fielddominance>", "",
         "<samplecharacteristics><width>720</width><height>576</height></samplecharacteristics>",
         "PAL-601 upper"},
        {"", "<fielddominance>upper</fielddominance>", "", "square upper"},
        {"<fielddominance>lower</fielddominance>", "",
         "<samplecharacteristics><fielddominance>upper</fielddominance></samplecharacteristics>",
         "square upper"},
    };
    for (const auto& row : kRows) {
        const std::string back = ToXmeml(ToProject(Cut(row.item, row.file, row.video)));
        const std::string file = back.substr(back.find("<file id="));
        const auto leaf = [&](const std::string& name) {
            const std::size_t start = file.find("<" + name + ">") + name.size() + 2;
            return file.substr(start, file.find('<', start) - start);
        };
        EXPECT_EQ(leaf("pixelaspectratio") + " " + leaf("fielddominance"), row.written)
            << row.item << row.file << row.video;
    }
}

// Such video fills the frame as it is: nothing may be stretched on the way round.
TEST_F(Files, WithoutPixelsOfTheirOwnHaveThoseOfTheSequence)
{
    const struct {
        std::string frame;
        std::string size;
        std::string written; // pixels of the file
    } kRows[] = {
        {In("width", "720") + In("height", "480") + In("pixelaspectratio", "NTSC-601"),
         In("width", "720") + In("height", "486"), "NTSC-601"},
        {In("width", "1440") + In("height", "1080") + In("pixelaspectratio", "HD-(1440x1080)"),
         In("width", "1440") + In("height", "1080"), "HD-(1440x1080)"},
        {In("width", "720") + In("height", "576") + In("pixelaspectratio", "PAL-601"),
         In("width", "1920") + In("height", "1080"), "square"},
    };
    for (const auto& row : kRows) {
        const std::string format =
            In("video",
               In("format", In("samplecharacteristics", row.frame)) +
                   In("track",
                      In("clipitem",
                         In("name", "I") + kTimes +
                             FileOf("f", In("video", In("samplecharacteristics", row.size))))));
        const std::string back = ToXmeml(ToProject(SequenceOf(format)));
        const std::string file = back.substr(back.find("<file id="));
        EXPECT_EQ(file.find("<pixelaspectratio>" + row.written), file.find("<pixelaspectratio>"))
            << row.size;
        EXPECT_FALSE(Has(back, "deformation")) << row.size;
    }
}

TEST_F(Files, ASequenceTakesItsFrameFromItsOwnLeaves)
{
    const std::string frame = In("samplecharacteristics", In("width", "720") + In("height", "576"));
    const std::string back = ToXmeml(
        ToProject(SequenceOf(In("video", In("format", frame) + "<track/>"),
                             In("pixelaspectratio", "PAL-601") + In("fielddominance", "lower"))));
    EXPECT_TRUE(Has(back, "<pixelaspectratio>PAL-601</pixelaspectratio>"));
    EXPECT_TRUE(Has(back, "<fielddominance>lower</fielddominance>"));
}

class Channels : public XmemlTest {
protected:
    // "2 stereo, 1 -": count and layout of each `audio` after the rules.
    std::string Restated(const std::string& audios)
    {
        ObjectHandle root;
        const std::string_view text =
            document_.Store("<xmeml><clip id=\"c\"><name>C</name><file id=\"f\"><name>F</name>"
                            "<media>" +
                            audios + "</media></file></clip></xmeml>");
        EXPECT_EQ(ParseFCPXML(text, document_, root), kReadDone) << text;
        AssumptionList assumptions;
        RestateAsMeant(document_, root, assumptions);
        std::string result;
        for (const ObjectHandle& audio :
             FindPath(root, {"clip", "file", "media"}).GetChildren("audio")) {
            result.append(result.empty() ? "" : ", ").append(audio.GetProperty("channelcount"));
            const std::string_view layout = audio.GetProperty("layout");
            result.append(" ").append(layout.empty() ? "-" : layout);
        }
        return result;
    }
};

std::string Audio(const std::string& count, const std::string& layout, const std::string& label)
{
    const auto leaf = [](const std::string& name, const std::string& value) {
        return value.empty() ? "" : In(name, value);
    };
    return In("audio",
              "<samplecharacteristics/>" + leaf("channelcount", count) + leaf("layout", layout) +
                  leaf("audiochannel", leaf("sourcechannel", "1") + leaf("channellabel", label)));
}

TEST_F(Channels, AreCountedByLabelsAndLayout)
{
    const std::string left = Audio("1", "", "left");
    const std::string right = Audio("1", "", "right");
    const std::string pair = Audio("1", "stereo", "left") + Audio("1", "stereo", "right");
    const std::string mono = Audio("1", "mono", "discrete");
    const struct {
        std::string audios;
        std::string restated;
    } kRows[] = {
        {"<audio><layout>stereo</layout><audiochannel/><audiochannel/></audio>", "2 stereo"},
        {"<audio><layout>5.1</layout><samplecharacteristics/></audio>", "6 5.1"},
        {Audio("", "mono", "discrete"), "1 mono"},
        {left + right, "1 stereo, 1 stereo"},
        {left + right + left, "1 -, 1 -, 1 -"},
        {pair, "1 stereo, 1 stereo"},
        {pair + mono, "1 mono, 1 mono, 1 mono"}, // the letter would lose the third
        {pair + mono + mono, "1 mono, 1 mono, 1 mono, 1 mono"},
        {Audio("1", "stereo", "left"), "1 mono"},
        {Audio("2", "stereo", ""), "2 stereo"},
        {mono + mono, "1 mono, 1 mono"},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(Restated(row.audios), row.restated) << row.audios;
}

TEST_F(Channels, AreCountedByTheItemsWhereNothingElseStatesThem)
{
    const auto restated = [this](const std::string& item, const std::string& audio) {
        ObjectHandle root;
        const std::string_view text = document_.Store(
            "<xmeml><sequence id=\"s\"><media><audio><track><clipitem id=\"i\">" + item +
            "<file id=\"f\"><name>F</name><media>" + audio +
            "</media></file></clipitem></track></audio></media></sequence></xmeml>");
        EXPECT_EQ(ParseFCPXML(text, document_, root), kReadDone) << text;
        AssumptionList assumptions;
        RestateAsMeant(document_, root, assumptions);
        return FindPath(root, {"sequence", "media", "audio", "track", "clipitem", "file", "media",
                               "audio"})
            .GetProperty("channelcount");
    };
    const std::string plain = "<audio><samplecharacteristics/></audio>";
    EXPECT_EQ(restated("<channelcount>2</channelcount>", plain), "2");
    EXPECT_EQ(restated("<sourcetrack><trackindex>3</trackindex></sourcetrack>", plain), "3");
    EXPECT_EQ(restated("", plain), "");
    EXPECT_EQ(restated("<channelcount>2</channelcount>", Audio("1", "", "")), "1");
}

// A sequence with an audio item on each of two tracks.
TEST_F(Files, AnItemOfAStereoFileHasBothChannels)
{
    const auto cut = [](const std::string& first, const std::string& second) {
        const auto track = [](const std::string& channel, const std::string& file) {
            const std::string item = "<clipitem id=\"i" + channel + "\">" + In("name", "I") +
                                     kTimes + file + In("sourcetrack", In("trackindex", channel)) +
                                     "</clipitem>";
            return channel.empty() ? std::string() : In("track", item);
        };
        const std::string file = FileOf("f", In("audio", In("channelcount", "2")));
        return SequenceOf(In("audio", track(first, file) + track(second, "<file id=\"f\"/>")));
    };
    const struct {
        std::string first, second; // the channel that each names
        std::string written;       // by each item of an export
    } kRows[] = {{"1", "", "12"}, {"1", "2", "12"}, {"2", "", "2"}};
    for (const auto& row : kRows) {
        const std::string document = ToXmeml(ToProject(cut(row.first, row.second)));
        const std::size_t start = document.find("<sequence ");
        const std::string back = document.substr(start, document.find("</sequence>") - start);
        std::string written;
        for (std::size_t at = back.find("<sourcetrack>"); at != back.npos;
             at = back.find("<sourcetrack>", at + 1))
            written += back[back.find("<trackindex>", at) + 12];
        EXPECT_EQ(written, row.written) << row.first << row.second;
    }
}

TEST_F(Files, MonoAudioIsLabelled)
{
    const std::string mono = Audio("1", "mono", "discrete");
    const std::string back = ToXmeml(ToProject(ClipOf(Track("audio", FileOf("f", mono + mono)))));
    EXPECT_EQ(CountOf(back, "<layout>mono</layout>"), 2);
    EXPECT_EQ(CountOf(back, "<channellabel>discrete</channellabel>"), 2);
}

// A clip of a bin whose audio is filtered wherever it is used.
TEST_F(Files, AudioEffectsOfBrowserClipsComeBack)
{
    const std::string level = In("parameter", In("parameterid", "level") + In("value", "0.5"));
    const std::string levels = In("name", "Audio Levels") + In("effectid", "audiolevels") + level;
    const std::string clip =
        ClipOf(Track("audio", FileOf("f", In("audio", In("channelcount", "1"))) +
                                  In("filter", In("effect", levels))));
    const std::string project = ToProject(clip);
    EXPECT_TRUE(Has(project, "<AudioComponentChain ObjectRef="));
    EXPECT_TRUE(Has(project, ",0.25,")) << project; // half the level is a quarter of the range
    EXPECT_TRUE(Has(ToXmeml(project), "<value>0.5</value>"));
    SetOpen(false);
    EXPECT_FALSE(Has(ToProject(clip), ",0.25,"));
}

// A clip of two cameras, one of them filtered.
TEST_F(Files, EachMasterHasTheEffectsOfTheItemsOfItsFile)
{
    const auto value = [](const std::string& id, const std::string& number) {
        return In("parameter", In("parameterid", id) + In("value", number));
    };
    const std::string blur =
        In("filter", In("effect", In("name", "Gaussian Blur") + In("effectid", "Gaussian Blur") +
                                      value("radius", "5") + value("channel", "1")));
    const std::string video = In("video", "");
    const auto track = [](const std::string& content) {
        return In("track", In("clipitem", content));
    };
    for (const bool isFirst : {true, false}) {
        const std::string clip =
            ClipOf(In("video", track(FileOf("a", video) + (isFirst ? blur : "")) +
                                   track(FileOf("b", video) + (isFirst ? "" : blur))));
        const std::string project = ToProject(clip);
        ASSERT_EQ(CountOf(project, "<VideoFilterComponent "), 1);
        // What belongs to a master follows its stream.
        const std::size_t second = project.find("<VideoStream ", project.find("<VideoStream ") + 1);
        EXPECT_EQ(project.find("<VideoFilterComponent ") < second, isFirst);
    }
}

TEST_F(Files, ItemsThatHoldAFrameStillDo)
{
    const std::string file = FileOf("f", "<video/>");
    const std::string held = kTimes + In("stillframe", "TRUE") + In("stillframeoffset", "7") + file;
    const std::string after = In("start", "10") + In("end", "20") + In("in", "0") + In("out", "10");
    const std::string cut = SequenceOf(In(
        "video", In("track", In("clipitem", held) + In("clipitem", after + "<file id=\"f\"/>"))));
    const std::string project = ToProject(cut);
    EXPECT_TRUE(Has(project, "<FrameHoldStart>71124480000<")) << "7 frames of 10160640000";
    EXPECT_TRUE(Has(ToXmeml(project), "<stillframeoffset>7<"));
    EXPECT_TRUE(Has(ThereAndBack(project), "<FrameHoldStart>71124480000<"));
    SetOpen(false);
    EXPECT_FALSE(Has(ToXmeml(project), "stillframeoffset"));
}

TEST_F(Files, AGraphOfVariableSpeedIsNoSpeed)
{
    const auto parameter = [](const std::string& id, const std::string& content) {
        return In("parameter", In("parameterid", id) + content);
    };
    const std::string keyframes =
        In("keyframe", In("when", "0") + In("value", "0")) +
        In("keyframe", In("when", "5") + In("value", "2")) +
        In("keyframe", In("when", "10") + In("value", "20") + In("speedkfout", "TRUE"));
    const std::string remap =
        In("filter",
           In("effect", In("effectid", "timeremap") + parameter("variablespeed", In("value", "1")) +
                            parameter("speed", In("value", "100")) +
                            parameter("graphdict", keyframes)));
    const std::string cut = Cut(remap, "", "");
    const std::string project = ToProject(cut);
    EXPECT_FALSE(Has(project, "<PlaybackSpeed>"));
    EXPECT_FALSE(Has(ThereAndBack(project), "<PlaybackSpeed>"));
    SetOpen(false);
    EXPECT_TRUE(Has(ToProject(cut), "<PlaybackSpeed>2"));
}

TEST_F(Files, AudioAloneKeepsItsRate)
{
    const std::string sound = Track("audio", FileOf("a", In("audio", In("channelcount", "1"))));
    const std::string clip = ClipOf(sound);
    EXPECT_FALSE(Has(ToXmeml(ToProject(clip)), "<timebase>30<"));
    const std::string marked = "<xmeml version=\"5\"><clip id=\"c\">" + In("name", "C") + kRate +
                               In("in", "3") + In("out", "8") + In("media", sound) +
                               "</clip></xmeml>";
    EXPECT_TRUE(Has(ToProject(marked), "<OutPoint>81285120000<")) << "8 frames of 10160640000";
    EXPECT_TRUE(Has(ToXmeml(ToProject(marked)), "<out>8<"));
    SetOpen(false);
    EXPECT_TRUE(Has(ToXmeml(ToProject(clip)), "<timebase>30<"));
}

TEST_F(Files, NotesKeepTheirLines)
{
    const std::string video = In("video", In("track", In("clipitem", FileOf("f", "<video/>"))));
    const std::string clip = "<xmeml version=\"5\"><clip id=\"c\">" + In("name", "C\nD") +
                             In("duration", "10") + kRate + In("media", video) +
                             In("logginginfo", In("lognote", "\r\n\tone\r\ntwo\tthree\n")) +
                             "</clip></xmeml>";
    const std::string project = ToProject(clip);
    EXPECT_TRUE(Has(project, "<LogNote>one&#10;two&#9;three</LogNote>")) << project;
    EXPECT_TRUE(Has(project, "<Name>CD</Name>"));
    EXPECT_TRUE(Has(ToXmeml(project), "<lognote>one&#10;two&#9;three</lognote>"));
    SetOpen(false);
    EXPECT_TRUE(Has(ToProject(clip), "<LogNote>onetwothree</LogNote>"));
}

// A merged clip of a video file and a stereo recording.
TEST_F(Files, AMergedClipHasBothChannelsOfAStream)
{
    const std::string clip =
        ClipOf(Track("video", FileOf("v", "<video/>")) +
               Track("audio", FileOf("a", In("audio", In("channelcount", "2")))));
    EXPECT_EQ(CountOf(ToProject(clip), "<AudioClipTrackItem "), 2);
    SetOpen(false);
    EXPECT_EQ(CountOf(ToProject(clip), "<AudioClipTrackItem "), 1);
}

// The recording was started two seconds before the camera.
TEST_F(Files, PartsOfAMergedClipKeepTheirSync)
{
    const std::string video = FileOf("v", "<video/>");
    const std::string audio = FileOf("a", In("audio", In("channelcount", "1")));
    const std::string clip =
        ClipOf(Track("video", video) +
               In("audio", In("track", In("clipitem", In("start", "0") + In("in", "50") + audio))));
    const auto startOf = [](const std::string& project, const std::string& item) {
        const std::size_t at = project.find("<Start>", project.find("<" + item + " "));
        return project.substr(at + 7, project.find('<', at + 1) - at - 7);
    };
    std::string project = ToProject(clip);
    EXPECT_EQ(startOf(project, "VideoClipTrackItem"), "508032000000"); // 50 frames
    EXPECT_EQ(startOf(project, "AudioClipTrackItem"), "0");
    SetOpen(false);
    project = ToProject(clip);
    EXPECT_EQ(startOf(project, "VideoClipTrackItem"), startOf(project, "AudioClipTrackItem"));
}

using Rates = XmemlTest;

// A sequence directly in another one leaves its `rate` behind there.
TEST_F(Rates, ThoseThatStateNothingAreReplaced)
{
    const std::string none = In("rate", In("timebase", "0"));
    ObjectHandle root;
    ASSERT_EQ(ParseFCPXML(document_.Store("<xmeml><sequence id=\"s\">" + none + none +
                                          "</sequence></xmeml>"),
                          document_, root),
              kReadDone);
    AssumptionList assumptions;
    RestateAsMeant(document_, root, assumptions);
    EXPECT_EQ(FindPath(root, {"sequence", "rate"}).GetProperty("timebase"), "30");
    assumptions.clear();
    RestateAsMeant(document_, root, assumptions);
    EXPECT_TRUE(assumptions.empty());
}

// A held frame becomes a sequence around it, which has no rate where nothing states one.
TEST_F(Rates, OfHeldFramesAreNotGuessed)
{
    const auto item = [](const std::string& id, const std::string& content) {
        return "<clipitem id=\"" + id + "\">" + In("name", id) + kTimes + content + "</clipitem>";
    };
    const std::string stopped =
        In("filter",
           In("enabled", "TRUE") +
               In("effect", In("effectid", "timeremap") +
                                In("parameter", In("parameterid", "speed") + In("value", "0"))));
    const std::string file = "<file id=\"f\">" + In("name", "F") + In("duration", "10") +
                             In("media", In("video", "")) + "</file>";
    ObjectHandle root;
    ASSERT_EQ(
        ParseFCPXML(document_.Store(SequenceOf(
                        In("video", In("track", item("a", kRate + file) +
                                                    item("b", In("rate", In("timebase", "")) +
                                                                  "<file id=\"f\"/>" + stopped))))),
                    document_, root),
        kReadDone);
    AssumptionList assumptions;
    RestateAsMeant(document_, root, assumptions);
    assumptions.clear();
    RestateAsMeant(document_, root, assumptions);
    EXPECT_TRUE(assumptions.empty());
}

} // namespace
} // namespace XPJ
