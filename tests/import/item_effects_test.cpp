#include "import/item_effects.h"

#include "import/timeline.h"

namespace XPJ {
namespace {

std::string Parameter(const char* id, const std::string& value)
{
    return std::string("<parameter><parameterid>") + id + "</parameterid>" + value + "</parameter>";
}

std::string Filter(const char* id, const std::string& parameters = {})
{
    return std::string("<filter><effect><name>My ") + id + "</name><effectid>" + id +
           "</effectid>" + parameters + "</effect></filter>";
}

std::string Size(int width, int height, const std::string& more = {})
{
    return "<samplecharacteristics><width>" + std::to_string(width) + "</width><height>" +
           std::to_string(height) + "</height>" + more + "</samplecharacteristics>";
}

std::string PictureFile(const std::string& characteristics, const std::string& more = {})
{
    return std::string("<file id=\"f\"><name>f.mov</name>") + kRate25 +
           "<duration>1000</duration><media><video>" + characteristics + "</video></media>" + more +
           "</file>";
}

const std::string kMotion =
    Filter("basic", Parameter("scale", "<value>50</value>") +
                        Parameter("center", "<value><horiz>0.5</horiz><vert>0.25</vert></value>"));
const std::string kSquare = "<pixelaspectratio>square</pixelaspectratio>";

class ItemEffectsTest : public TimelineTest {
protected:
    ObjectHandle FirstItem(std::string_view sequence = "Cut") const
    {
        return FindPath(SequenceNamed(sequence), {"TrackGroup", "Track", "TrackItem"});
    }
    // "0.75:0.5 50 50" of the first item; empty without a Motion.
    std::string PositionAndScales() const
    {
        std::string text;
        for (const ObjectHandle& component :
             FirstItem().GetChild("Components").GetChildren("Component"))
            if (component.GetProperty("DisplayName") == "Motion")
                for (const ObjectHandle& param : component.GetChildren("Param"))
                    if (const int id = IntProperty(param, "ParameterID"); id >= 1 && id <= 3) {
                        const std::string_view start = param.GetProperty("StartKeyframe");
                        const std::size_t comma = start.find(',') + 1;
                        text += (text.empty() ? "" : " ") +
                                std::string(start.substr(comma, start.find(',', comma) - comma));
                    }
        return text;
    }
    void ImportInto(const std::string& sequenceCharacteristics, const std::string& items,
                    const std::string& before = {})
    {
        Import(before + "<sequence id=\"cut\"><name>Cut</name>" + kRate25 +
               "<media><video><format>" + sequenceCharacteristics + "</format>" + Track(items) +
               "</video></media></sequence>");
    }
};

TEST_F(ItemEffectsTest, PlacesFollowTheFrameOfWhatIsShown)
{
    const std::string times = "<start>0</start><end>50</end><in>0</in><out>50</out>";
    const std::string nested = std::string("<sequence id=\"inner\"><name>Inner</name>") + kRate25 +
                               "<duration>100</duration><media><video><format>" +
                               Size(960, 540, kSquare) +
                               "</format><track/></video></media></sequence>";
    const std::string raw = "<metadata><key>com.red.clip.imageWidth</key><value>3840</value>"
                            "</metadata><metadata><key>com.red.clip.imageHeight</key>"
                            "<value>2160</value></metadata>";
    const auto clip = [&](const std::string& shown) {
        return std::string("<clipitem id=\"a\"><name>A</name>") + kRate25 + times + shown +
               kMotion + "</clipitem>";
    };
    const struct {
        const char* what;
        std::string item;
        const char* expected; // "Position Scale Scale-Width"
    } rows[] = {
        {"half the size", clip(PictureFile(Size(960, 540, kSquare))), "0.75:0.625 50 50"},
        {"nothing stated", clip(PictureFile("")), "1:0.75 50 50"},
        {"a wide pixel",
         clip(PictureFile(Size(1440, 1080, "<pixelaspectratio>HD-(1440x1080)</pixelaspectratio>"))),
         "0.875:0.75 50 37.5"},
        {"raw", clip(PictureFile(Size(1920, 1080, kSquare), raw)), "1:0.75 25 25"},
        {"a sequence", clip("<sequence id=\"inner\"/>"), "0.75:0.625 50 50"},
        {"a generator",
         "<generatoritem id=\"g\"><name>G</name><duration>100</duration>" + times +
             "<effect><name>Noise</name><effectid>Noise</effectid></effect>" + kMotion +
             "</generatoritem>",
         "1:0.75 50 50"},
    };
    for (const auto& row : rows) {
        ImportInto(Size(1920, 1080, kSquare), row.item, nested);
        EXPECT_EQ(PositionAndScales(), row.expected) << row.what;
    }
}

TEST_F(ItemEffectsTest, AnAspectThatNobodyStatesStretchesNothing)
{
    const std::string dv = Size(720, 480, "<pixelaspectratio>NTSC-601</pixelaspectratio>");
    ImportInto(dv, ClipItem("A", {0, 50, 0, 50}, PictureFile(Size(720, 480))));
    EXPECT_EQ(PositionAndScales(), "");
    ImportInto(dv, ClipItem("A", {0, 50, 0, 50}, PictureFile(Size(720, 480, kSquare))));
    EXPECT_EQ(PositionAndScales(), "0.5:0.5 100 90.9091");
}

// Keyframes count in frames of the item, else of its master.
TEST_F(ItemEffectsTest, KeyframesCountInTheRateOfTheItem)
{
    const std::string opacity = Filter(
        "opacity", Parameter("opacity", "<keyframe><when>2</when><value>9</value></keyframe>"));
    const struct {
        std::string rate;
        Ticks frame;
    } rows[] = {
        {"<rate><timebase>50</timebase></rate>", kPalFrameTicks / 2},
        {"<rate><timebase>0</timebase></rate>", kNtscFrameTicks},
        {"", kPalFrameTicks},
    };
    for (const auto& row : rows) {
        ImportInto(Size(720, 576, kSquare),
                   "<clipitem id=\"a\">" + row.rate + "<start>0</start><end>50</end><in>0</in>" +
                       "<out>50</out>" + PictureFile(Size(720, 576, kSquare)) + opacity +
                       "</clipitem>");
        const ObjectHandle param = FindPath(FirstItem(), {"Components", "Component", "Param"});
        EXPECT_TRUE(param.GetProperty("Keyframes").starts_with(TickText(2 * row.frame) + ","))
            << row.rate << param.GetProperty("Keyframes");
    }
}

// Two items of a file, and a bin clip of it: one master, its filters once.
TEST_F(ItemEffectsTest, FiltersOfAFileStandOnItsMasterOnce)
{
    const std::string file =
        PictureFile(Size(720, 576, kSquare), Filter("Luma Key") + Filter("Sepia"));
    ImportInto(Size(720, 576, kSquare), ClipItem("A", {0, 50, 0, 50}, file + Filter("Flop")) +
                                            ClipItem("B", {50, 99, 0, 49}, "<file id=\"f\"/>"));
    const ObjectHandle chain =
        FindPath(FirstItem(), {"SubClip", "MasterClip", "VideoComponentChain"});
    EXPECT_EQ(ChildCount(chain, "Component"), 1);
    EXPECT_EQ(chain.GetProperty("NextComponentID"), "2");
    EXPECT_EQ(Issues(), "EffectNotTranslated clip=\"A\" subject=\"My Sepia\" time=\"00:00\"\n"
                        "EffectNotTranslated sequence=\"Cut\" clip=\"A\" subject=\"My Flop\" "
                        "time=\"00:00:00:00\" track=V1\n");
}

} // namespace
} // namespace XPJ
