#include "core/base64.h"
#include "import/timeline.h"
#include "text/text_document.h"

namespace XPJ {
namespace {

constexpr const char* kHdFormat =
    "<format><samplecharacteristics><width>1920</width><height>1080</height>"
    "<pixelaspectratio>square</pixelaspectratio></samplecharacteristics></format>";
constexpr const char* kSmallFormat =
    "<format><samplecharacteristics><width>1280</width><height>720</height>"
    "<pixelaspectratio>square</pixelaspectratio></samplecharacteristics></format>";
constexpr const char* kCrop =
    "<filter><effect><name>Crop</name><effectid>crop</effectid><parameter>"
    "<parameterid>left</parameterid><value>10</value></parameter></effect></filter>";

std::string Words(const std::string& words)
{
    return "<parameter><parameterid>str</parameterid><value>" + words + "</value></parameter>";
}

// A generator of the clip `masterClipId`, 50 frames from `start`.
std::string Generator(const std::string& id, const std::string& masterClipId, int start,
                      const std::string& parameters, const std::string& effectId = "Text",
                      const std::string& more = {})
{
    std::string text = "<generatoritem id=\"" + id + "\"><name>" + id + "</name>" + kRate25;
    if (!masterClipId.empty())
        text += "<masterclipid>" + masterClipId + "</masterclipid>";
    return text + "<start>" + std::to_string(start) + "</start><end>" + std::to_string(start + 50) +
           "</end><in>0</in><out>50</out><effect><name>" + effectId + "</name><effectid>" +
           effectId + "</effectid>" + parameters + "</effect>" + more + "</generatoritem>";
}

constexpr Settings kOff = {};
constexpr Settings kOnItems = {.convertTitles = true};
constexpr Settings kOnMasters = {.convertTitles = true, .titlesAsMasterEffects = true};

class GraphicTitlesImportTest : public TimelineTest {
protected:
    void ImportItems(const std::string& items, const Settings& settings,
                     const std::string& before = {})
    {
        ImportOptions options;
        options.settings = settings;
        Import(before + "<sequence id=\"cut\"><name>Cut</name>" + kRate25 + "<media><video>" +
                   kHdFormat + Track(items) + "</video></media></sequence>",
               options);
    }
    // "Text 81 'words', Crop": the components of a chain but for intrinsic ones.
    static std::string Effects(ObjectHandle chain)
    {
        std::string text;
        for (const ObjectHandle& component : chain.GetChildren("Component")) {
            text += (text.empty() ? "" : ", ") + std::string(component.GetProperty("DisplayName"));
            const ObjectHandle blob = component.GetChild("Param");
            if (component.GetProperty("MatchName") != "KX.ORRN Text")
                continue;
            const GVE::Document document(DecodeBase64(blob.GetProperty("StartKeyframeValue")));
            text += " " + std::to_string(static_cast<int>(document.Style().fontSize)) + " '" +
                    document.Text() + "'";
        }
        return text;
    }
    // Of each track item: its media, its own effects, those of its master, and whether the master
    // has a project item.
    std::string Items() const
    {
        std::string text;
        for (const ObjectHandle& item :
             FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track"}).GetChildren("TrackItem")) {
            const ObjectHandle master = FindPath(item, {"SubClip", "MasterClip"});
            const ObjectHandle media = FindPath(master, {"Clip", "Source", "Media"});
            text += std::string(media.GetProperty("FilePath")) + " item(" +
                    Effects(item.GetChild("Components")) + ") master(" +
                    Effects(master.GetChild("VideoComponentChain")) + ")" +
                    (IsListed(master) ? " listed\n" : "\n");
        }
        return text;
    }
    bool IsListed(ObjectHandle master) const
    {
        for (const ObjectHandle& item : rootItem_.GetChildren("ProjectItem"))
            if (item.GetChild("MasterClip") == master)
                return true;
        return false;
    }
};

TEST_F(GraphicTitlesImportTest, RoutesOfGeneratorsOnTracks)
{
    const std::string text = Generator("a", "", 0, Words("Hi"), "Crawl", kCrop);
    const std::string shape = Generator("b", "", 0, "", "Circle");
    const struct {
        const char* what;
        const std::string& items;
        Settings settings;
        const char* expected;
    } kCases[] = {
        {"text", text, kOff, "1414091852 item(Crop) master() listed\n"},
        {"text", text, {.titlesAsMasterEffects = true}, "1414091852 item(Crop) master() listed\n"},
        {"text", text, kOnItems, "1196574294 item(Text 81 'Hi', Crop) master()\n"},
        {"text", text, kOnMasters, "1196574294 item(Crop) master(Text 81 'Hi') listed\n"},
        {"shape", shape, kOff, "1196574294 item(Shape) master()\n"},
        {"shape",
         shape,
         {.titlesAsMasterEffects = true},
         "1196574294 item() master(Shape) listed\n"},
        {"shape", shape, kOnItems, "1196574294 item(Shape) master()\n"},
        {"shape", shape, kOnMasters, "1196574294 item() master(Shape) listed\n"},
    };
    for (const auto& row : kCases) {
        ImportItems(row.items, row.settings);
        EXPECT_EQ(Items(), row.expected)
            << row.what << row.settings.convertTitles << row.settings.titlesAsMasterEffects;
        EXPECT_EQ(Issues(), "") << row.what;
    }
}

TEST_F(GraphicTitlesImportTest, MediaOfAGraphic)
{
    ImportItems(Generator("a", "", 0, Words("Hi")), kOnItems);
    const ObjectHandle media =
        FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track", "TrackItem", "SubClip", "MasterClip",
                                        "Clip", "Source", "Media"});
    const ObjectHandle stream = media.GetChild("VideoStream");
    EXPECT_EQ(media.GetProperty("Title"), "Graphic");
    EXPECT_EQ(media.GetProperty("Infinite"), "true");
    EXPECT_EQ(stream.GetProperty("FrameRate"), "10160640000");
    EXPECT_EQ(stream.GetProperty("FrameRect"), "0,0,1920,1080");
    EXPECT_EQ(stream.GetProperty("OriginalPAR"), "1,1");
}

// An item without words of its own shows those of its clip; words that are stated always show.
TEST_F(GraphicTitlesImportTest, ItemsOfOneGeneratorShareItsText)
{
    ImportItems(Generator("a", "m", 0, Words("One&#13;two")) + Generator("b", "m", 50, "") +
                    Generator("c", "m", 100, Words("Own")) +
                    Generator("c", "m", 150, Words("Own")) + Generator("d", "n", 200, ""),
                kOnItems);
    EXPECT_EQ(Items(), "1196574294 item(Text 81 'One\rtwo') master()\n"
                       "1196574294 item(Text 81 'One\rtwo') master()\n"
                       "1196574294 item(Text 81 'Own') master()\n"
                       "1196574294 item(Text 81 'Own') master()\n"
                       "1196574294 item(Text 81 '') master()\n");
    EXPECT_EQ(Issues(), "");
}

// Also of a clip of titles: an item without an effect shows the words of its clip, one with an
// effect of another kind does not.
TEST_F(GraphicTitlesImportTest, OtherItemsOfATitlesClip)
{
    const std::string title = Generator("a", "m", 0, Words("One"));
    ImportItems(title + "<generatoritem id=\"b\">" + kRate25 +
                    "<masterclipid>m</masterclipid><start>50</start><end>100</end><in>0</in>"
                    "<out>50</out></generatoritem>",
                kOnItems);
    EXPECT_EQ(Items(), "1196574294 item(Text 81 'One') master()\n"
                       "1196574294 item(Text 81 'One') master()\n");
    EXPECT_EQ(Issues(), "");
    ImportItems(title + Generator("b", "m", 50, "", "Clouds"), kOnItems);
    EXPECT_EQ(Items(), "1196574294 item(Text 81 'One') master()\n"
                       "1414680150 item() master() listed\n");
    EXPECT_NE(Issues(), "");
}

// Its frame is that of the clip's own format, and no track item draws the words once more.
TEST_F(GraphicTitlesImportTest, GeneratorsInBins)
{
    const std::string clip = "<clip id=\"c\"><name>Card</name><masterclipid>m</masterclipid>" +
                             std::string(kRate25) + "<media><video>" + kSmallFormat + "<track>" +
                             Generator("g", "m", 0, Words("Card")) +
                             "</track></video></media></clip>";
    ImportItems("<generatoritem id=\"g\"/>", kOnItems, clip);
    EXPECT_EQ(Items(), "1196574294 item() master(Text 54 'Card') listed\n");
    ImportItems("<generatoritem id=\"g\"/>", kOff, clip);
    EXPECT_EQ(Items(), "1414091852 item() master() listed\n");
}

// As an export writes them: the effects are filters of the item or of its file.
TEST_F(GraphicTitlesImportTest, ReturningGraphics)
{
    GVE::Document document;
    document.AddRun("Back");
    const std::string effect =
        "<filter><effect><name>Mine</name><effectid>GraphicAndType</effectid><parameter>"
        "<parameterid>1</parameterid><name>SourceText</name><value>" +
        EncodeBase64(document.serialize()) + "</value></parameter></effect></filter>";
    const auto item = [&](const char* source, const std::string& ofItem,
                          const std::string& ofFile) {
        return std::string("<clipitem id=\"i\"><name>Mine</name>") + kRate25 +
               "<start>0</start><end>50</end><in>0</in><out>50</out><file id=\"f\"><mediaSource>" +
               source + "</mediaSource><name>Graphic</name>" + kRate25 + "<media><video/></media>" +
               ofFile + "</file>" + ofItem + "</clipitem>";
    };
    for (const Settings& settings : {kOff, kOnItems, kOnMasters}) {
        ImportItems(item("GraphicAndType", effect + kCrop, ""), settings);
        EXPECT_EQ(Items(), "1196574294 item(Text 36 'Back', Crop) master()\n");
        ImportItems(item("GraphicAndTypeMaster", kCrop, effect), settings);
        EXPECT_EQ(Items(), "1196574294 item(Crop) master(Text 36 'Back') listed\n");
    }
}

TEST_F(GraphicTitlesImportTest, ManyTitlesGrowFlat)
{
    std::string items;
    for (int i = 0; i < 10'000; ++i)
        items += Generator("g" + std::to_string(i), "", 50 * i, Words(std::to_string(i)));
    for (const Settings& settings : {kOnItems, kOnMasters}) {
        ImportItems(items, settings);
        const ObjectHandle track = FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track"});
        EXPECT_EQ(ChildCount(track, "TrackItem"), 10'000);
        EXPECT_EQ(Issues(), "");
    }
}

} // namespace
} // namespace XPJ
