#include "core/base64.h"
#include "effects/legacy_title_reader.h"
#include "import/timeline.h"

namespace XPJ {
namespace {

constexpr const char* kFrame =
    "<format><samplecharacteristics><width>1440</width><height>1080</height>"
    "<pixelaspectratio>HD-(1440x1080)</pixelaspectratio></samplecharacteristics></format>";

std::string Generator(const std::string& id, const std::string& effectId, const std::string& words,
                      int start = 0)
{
    return "<generatoritem id=\"" + id + "\"><name>Opening &amp; more</name>" + kRate25 +
           "<duration>3000</duration><in>250</in><out>350</out><start>" + std::to_string(start) +
           "</start><end>" + std::to_string(start + 100) +
           "</end><masterclipid>m</masterclipid><effect><name>Words</name><effectid>" + effectId +
           "</effectid><parameter><parameterid>str</parameterid><value>" + words +
           "</value></parameter></effect></generatoritem>";
}

class TitlesTest : public TimelineTest {
protected:
    // The master clips of all project items that are no sequence.
    std::vector<ObjectHandle> Masters() const
    {
        std::vector<ObjectHandle> masters;
        for (const ObjectHandle& item : rootItem_.GetChildren("ProjectItem"))
            if (const ObjectHandle master = item.GetChild("MasterClip"); MediaOf(master))
                masters.push_back(master);
        return masters;
    }
    static ObjectHandle MediaOf(ObjectHandle master)
    {
        return FindPath(master, {"Clip", "Source", "Media"});
    }
    static std::string Words(ObjectHandle master)
    {
        const std::string prefs = DecodeBase64(MediaOf(master).GetProperty("ImporterPrefs"));
        std::string words;
        for (const LegacyTitleText& text : ReadLegacyTitle(prefs))
            for (const std::string& line : text.lines)
                words += line + "|";
        return words;
    }
};

TEST_F(TitlesTest, AreMediaOfTheTitleImporter)
{
    ImportSequence(kFrame + Track(Generator("g", "Text", "Tom &amp; Co&#13;live")), "");
    EXPECT_EQ(Timeline(), "V0: Opening &amp; more 0-100 [250-350]\nA0:\n");
    EXPECT_EQ(Issues(), "");
    ASSERT_EQ(Masters().size(), 1u);
    EXPECT_EQ(Words(Masters()[0]), "Tom & Co|live|");
    const ObjectHandle media = MediaOf(Masters()[0]);
    const struct {
        ObjectHandle node;
        Name key;
        const char* value;
    } rows[] = {
        {media, "FilePath", "1414091852"},
        {media, "ImplementationID", "ad0be7ce-e015-4877-9777-93c98f30dcac"},
        {media, "Title", "Opening &amp; more"},
        {media, "Infinite", "true"},
        {media.GetChild("VideoStream"), "Duration", "10973491200000000"},
        {media.GetChild("VideoStream"), "FrameRate", "10160640000"},
        {media.GetChild("VideoStream"), "FrameRect", "0,0,1440,1080"},
        {media.GetChild("VideoStream"), "OriginalPAR", "1920,1440"},
        {media.GetChild("VideoStream"), "IsStill", "true"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.node.GetProperty(row.key), row.value) << row.key.View();
    const std::string document = DecodeBase64(media.GetProperty("ImporterPrefs"));
    EXPECT_NE(document.find("<pSCREENAR>0.75</pSCREENAR>"), std::string::npos);
    EXPECT_EQ(media.GetProperty("ImporterPrefsChecksum"), std::to_string(BlobChecksum(document)));
}

// A title is as wide as its sequence: nothing makes up for pixels of another form.
TEST_F(TitlesTest, FillTheFrameAsTheyAre)
{
    ImportSequence(kFrame + Track(Generator("g", "Text", "x")), "");
    const ObjectHandle item = FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track", "TrackItem"});
    EXPECT_EQ(item.GetName(), "VideoClipTrackItem");
    EXPECT_EQ(ChildCount(item.GetChild("Components"), "Component"), 0);
}

TEST_F(TitlesTest, OnlyTitlesAtRestAreStills)
{
    for (const char* const effect : {"Scrolling Text", "Crawl"}) {
        ImportSequence(Track(Generator("g", effect, "x")), "");
        EXPECT_EQ(MediaOf(Masters().at(0)).GetChild("VideoStream").GetProperty("IsStill"), "false")
            << effect;
    }
}

// Generators whose writer gave them one id keep their own words.
TEST_F(TitlesTest, EachGeneratorHasOneProjectItem)
{
    ImportSequence(Track(Generator("g", "Text", "a") + Generator("h", "Text", "b", 200) +
                         Generator("g", "Text", "c", 400)),
                   "");
    std::string words;
    for (const ObjectHandle& master : Masters())
        words += Words(master);
    EXPECT_EQ(words, "a|b|c|");
}

TEST_F(TitlesTest, BinClipsHaveTheFrameOfTheirOwnFormat)
{
    const std::string clip = "<clip id=\"c\"><name>Card</name>" + std::string(kRate25) +
                             "<masterclipid>m</masterclipid><media><video>" + kFrame + "<track>" +
                             Generator("g", "Text", "card") + "</track></video></media></clip>";
    Import("<project><name>P</name><children>" + clip + "</children></project>");
    ASSERT_EQ(Masters().size(), 1u);
    EXPECT_EQ(Masters()[0].GetProperty("Name"), "Card");
    EXPECT_EQ(Words(Masters()[0]), "card|");
    EXPECT_EQ(MediaOf(Masters()[0]).GetChild("VideoStream").GetProperty("FrameRect"),
              "0,0,1440,1080");
}

} // namespace
} // namespace XPJ
