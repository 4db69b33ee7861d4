// Effects in open interchange: what a project has of a document, and what comes back.
#include "support/open_conversion.h"

#include <string>
#include <string_view>

namespace XPJ {
namespace {

using OpenEffects = OpenConversionTest;

const std::string kRate = In("rate", In("timebase", "25"));
const std::string kFrame = In("samplecharacteristics", In("width", "1920") + In("height", "1080") +
                                                           In("pixelaspectratio", "square"));

// An item of 50 frames, with `content` beside its file.
std::string Item(int start, const std::string& content)
{
    const std::string at = std::to_string(start);
    const std::string media = In("video", kFrame) + In("audio", In("channelcount", "1"));
    return "<clipitem id=\"c" + at + "\">" + In("name", "A") + kRate + In("start", at) +
           In("end", std::to_string(start + 50)) + In("in", "50") + In("out", "100") +
           "<file id=\"f\">" + In("name", "A.mov") + In("pathurl", "/m/A.mov") + kRate +
           In("duration", "200") + In("media", media) + "</file>" + content + "</clipitem>";
}

// A sequence with one track of the type.
std::string Cut(const std::string& type, const std::string& items)
{
    return "<xmeml version=\"5\"><sequence id=\"s\">" + In("name", "Cut") + kRate +
           In("media", In(type, In("format", kFrame) + In("track", items))) + "</sequence></xmeml>";
}

// A clip with one effect, which states its `effectid` and `parameters`.
std::string DocumentOf(const std::string& effectId, const std::string& parameters)
{
    const std::string names = In("name", effectId) + In("effectid", effectId);
    return Cut("video", Item(0, In("filter", In("effect", names + parameters))));
}

std::string Parameter(const std::string& id, const std::string& content)
{
    return In("parameter", In("parameterid", id) + content);
}

// The text between `begin` and `end`, the first one behind `from`.
std::string Between(const std::string& text, std::string_view from, std::string_view begin,
                    std::string_view end)
{
    const std::size_t start = text.find(from);
    const std::size_t found = text.find(begin, start);
    if (start == text.npos || found == text.npos)
        return "none";
    const std::size_t first = found + begin.size();
    return text.substr(first, text.find(end, first) - first);
}

// What a project has as the start value of a parameter, by its name.
std::string ProjectValue(const std::string& project, const std::string& name)
{
    std::string value;
    for (std::size_t at = 0; (at = project.find("<Name>" + name + "</Name>", at)) != project.npos;
         ++at) {
        const std::size_t begin = project.rfind("<VideoComponentParam", at);
        const std::string param =
            project.substr(begin, project.find("</VideoComponentParam>", begin) - begin);
        value = Between(param, "<StartKeyframe>", ",", ",");
    }
    return value;
}

std::string DocumentValue(const std::string& document, const std::string& id)
{
    return Between(document, "<parameterid>" + id + "<", "<value>", "</value>");
}

constexpr const char* kCorrector = "Color Corrector 3-way";

TEST_F(OpenEffects, ValuesComeBack)
{
    const struct {
        const char* effect;
        const char* id;
        const char* document; // its value
        const char* name;     // of the parameter in the project
        const char* project;  // its value there
    } rows[] = {
        // The lowest, the neutral and the highest level, and halfway between them.
        {kCorrector, "blacklevel", "-196", "Shadow Balance Gain", "1"},
        {kCorrector, "blacklevel", "-98", "Shadow Balance Gain", "10.5"},
        {kCorrector, "blacklevel", "0", "Shadow Balance Gain", "20"},
        {kCorrector, "blacklevel", "127", "Shadow Balance Gain", "60"},
        {kCorrector, "blacklevel", "254", "Shadow Balance Gain", "100"},
        {kCorrector, "blacklevel", "30", "Shadow Balance Gain", "29.4488"},
        {kCorrector, "mids", "50", "Midtone Balance Gain", "10.5"},
        {kCorrector, "mids", "100", "Midtone Balance Gain", "20"},
        {kCorrector, "highlights", "64", "Highlight Balance Gain", "1"},
        {kCorrector, "highlights", "255", "Highlight Balance Gain", "20"},
        {kCorrector, "highlights", "382", "Highlight Balance Gain", "60"},
        // A quarter turn, within half a turn.
        {kCorrector, "b_hue", "-120", "Shadow Balance Angle", "150"},
        {kCorrector, "m_hue", "-33", "Midtone Balance Angle", "-123"},
        {kCorrector, "h_hue", "114.376", "Highlight Balance Angle", "24.376"},
        {kCorrector, "h_hue", "180", "Highlight Balance Angle", "90"},
        // 100 * sqrt(2 / 200)
        {kCorrector, "b_mag", "2", "Shadow Balance Magnitude", "10"},
        {kCorrector, "chroma", "112", "Master Saturation", "112"},
        // 100 * ((threshold + 100) / 200) ^ (4 / 3)
        {"Luma Key", "threshold", "-100", "Threshold", "0"},
        {"Luma Key", "threshold", "0", "Threshold", "39.685"},
        {"Luma Key", "threshold", "40", "Threshold", "62.1533"},
        {"Luma Key", "threshold", "100", "Threshold", "100"},
        {"Basic 3D", "ry", "35", "Swivel", "35"},
        {"Basic 3D", "rx", "-90", "Tilt", "-90"},
        // Parameters that documents do not have.
        {"Basic 3D", "vela3", "12.5", "Distance to Image", "12.5"},
        {kCorrector, "vela10", "70", "Shadow Threshold", "70"},
        {kCorrector, "vela5", "18374827219307495424", "Black Balance", "18374827219307495424"},
    };
    const std::string returning = In("velaBypass", "false");
    for (const auto& row : rows) {
        const std::string range = In("valuemin", "-100") + In("value", row.document);
        const std::string project =
            ToProject(DocumentOf(row.effect, returning + Parameter(row.id, range)));
        EXPECT_EQ(ProjectValue(project, row.name), row.project) << row.id << " " << row.document;
        const std::string document = ToXmeml(project);
        EXPECT_EQ(DocumentValue(document, row.id), row.document) << row.id;
        EXPECT_EQ(ProjectValue(ToProject(document), row.name), row.project) << row.id;
    }
}

// The same scale as that of a project.
TEST_F(OpenEffects, AThresholdOfAnotherRangeIsTakenAsItIs)
{
    const std::string threshold = In("valuemin", "0") + In("valuemax", "100") + In("value", "40");
    EXPECT_EQ(ProjectValue(ToProject(DocumentOf("Luma Key", Parameter("threshold", threshold))),
                           "Threshold"),
              "40");
}

// The angle moves over half a turn, by 20 degrees.
TEST_F(OpenEffects, KeyframesOfACorrectorComeBack)
{
    const auto keyframe = [](const char* when, const char* value) {
        return In("keyframe", In("when", when) + In("value", value));
    };
    const std::string hue = In("value", "170") + keyframe("0", "170") + keyframe("10", "190");
    const std::string project = ToProject(DocumentOf(kCorrector, Parameter("b_hue", hue)));
    constexpr const char* kRecords = "<Keyframes>0,80.,0,0,0,0.166667,0,0.166667;"
                                     "101606400000,100.,0,0,0,0.166667,0,0.166667;</Keyframes>";
    EXPECT_NE(project.find(kRecords), project.npos);
    EXPECT_NE(ThereAndBack(project).find(kRecords), project.npos);
}

TEST_F(OpenEffects, NoneIsLost)
{
    const std::string returning = In("velaBypass", "true");
    const struct {
        const char* effect;
        std::string parameters;
        const char* matchNames; // in the project, in the order of the chain
    } rows[] = {
        {"Flop", Parameter("flop", In("value", "1")), "VX.ORRN Horizontal Flip "},
        {"Flop", Parameter("flop", In("value", "2")) + returning, "VX.ORRN Vertical Flip "},
        {"Flop", Parameter("flop", In("value", "3")),
         "VX.ORRN Vertical Flip VX.ORRN Horizontal Flip "},
        {"Gaussian Blur", Parameter("radius", In("value", "5")), "KX.ORRN Gaussian Blur 2 "},
        {"Basic 3D", Parameter("ry", In("value", "3")), "KX.ORRN Basic 3D "},
        {"Basic 3D", Parameter("ry", In("value", "0")) + returning, "KX.ORRN Basic 3D "},
        {"Basic 3D", Parameter("ry", In("value", "0")), ""},
        {"crop", Parameter("left", In("value", "0")) + returning, "KX.ORRN AECrop "},
        {"crop", Parameter("left", In("value", "0")), ""},
        {"Transform", Parameter("4", In("value", "-91445760000000000,55,0,0,0.,0.,0.,0.")),
         "KX.ORRN Geometry "},
        {"basic", Parameter("scale", In("value", "50")) + returning, "KX.ORRN Motion "},
    };
    const auto matchNames = [](const std::string& project) {
        std::string names;
        constexpr std::string_view kBegin = "<MatchName>";
        for (std::size_t at = 0; (at = project.find(kBegin, at)) != project.npos; ++at)
            names += Between(project.substr(at), kBegin, ">", "<") + " ";
        return names;
    };
    for (const auto& row : rows) {
        const std::string project = ToProject(DocumentOf(row.effect, row.parameters));
        EXPECT_EQ(matchNames(project), row.matchNames) << row.effect << row.parameters;
        const bool isBypassed = row.parameters.ends_with(returning);
        EXPECT_EQ(project.find("<Bypass>true</Bypass>") != project.npos, isBypassed) << row.effect;
        const std::string back = ThereAndBack(project);
        EXPECT_EQ(matchNames(back), row.matchNames) << row.effect << row.parameters;
        EXPECT_EQ(back.find("<Bypass>true</Bypass>") != back.npos, isBypassed) << row.effect;
    }
}

TEST_F(OpenEffects, ComeBackUnderTheNamesOfTheirUsers)
{
    const std::string named = In("name", "Soft &amp; far") + In("effectid", "Gaussian Blur") +
                              Parameter("channel", In("value", "1")) +
                              Parameter("radius", In("value", "5"));
    const std::string document = Cut("video", Item(0, In("filter", In("effect", named))));
    const std::string project = ToProject(document);
    EXPECT_TRUE(Has(project, In("InstanceName", "Soft &amp; far")));
    EXPECT_TRUE(Has(ToXmeml(project), In("name", "Soft &amp; far") + "\n"));
    SetOpen(false);
    EXPECT_FALSE(Has(ToProject(document), "<InstanceName>"));
    EXPECT_FALSE(Has(ToXmeml(project), "Soft"));
}

// The width is that of the document's Distort, which would stretch for other programs.
TEST_F(OpenEffects, BothScalesOfABypassedMotionAreBypassed)
{
    const auto filter = [](const char* id, const std::string& parameters) {
        return In("filter",
                  In("effect", In("effectid", id) + In("velaBypass", "true") + parameters));
    };
    const std::string document =
        Cut("video", Item(0, filter("basic", Parameter("scale", In("value", "80"))) +
                                 filter("deformation", Parameter("aspect", In("value", "-25")))));
    const std::string project = ToProject(document);
    EXPECT_EQ(ProjectValue(project, "Scale"), "64"); // 80 / 1.25
    EXPECT_EQ(ProjectValue(project, "Scale Width"), "80");
    const std::string written = ToXmeml(project);
    EXPECT_EQ(DocumentValue(written, "aspect"), "-25");
    EXPECT_EQ(CountOf(written, "<enabled>FALSE</enabled>"), 2);
    EXPECT_EQ(ProjectValue(ToProject(written), "Scale"), "64");
}

// Two clips of a track of the type, with a transition of that effect between them.
std::string DocumentOfTransition(const std::string& type, const std::string& effectId,
                                 const std::string& parameters)
{
    const std::string transition = In("start", "45") + In("end", "55") + In("alignment", "center") +
                                   In("effect", In("effectid", effectId) + parameters);
    return Cut(type, Item(0, "") + In("transitionitem", kRate + transition) + Item(50, ""));
}

TEST_F(OpenEffects, TransitionsComeBack)
{
    const auto wipe = [](const char* angle) {
        return Parameter("directionofwipe", In("value", angle)) +
               Parameter("borderwidth", In("value", "2.5"));
    };
    const struct {
        const char* type;
        const char* effect;
        std::string parameters;
        const char* project; // in the project
    } rows[] = {
        {"audio", "KGAudioTransCrossFadeExponential", "", "<MatchName>Exponential Fade<"},
        {"video", "Edge Wipe", wipe("0"), "<Direction>4<"},
        {"video", "Edge Wipe", wipe("350"), "<Direction>4<"},
        {"video", "Edge Wipe", wipe("-90"), "<Direction>2<"},   // as 270
        {"video", "Edge Wipe", wipe("-315"), "<Direction>64<"}, // as 45
        {"video", "Edge Wipe", wipe("45"), "<BorderWidth>2.5<"},
    };
    for (const auto& row : rows) {
        const std::string project =
            ToProject(DocumentOfTransition(row.type, row.effect, row.parameters));
        EXPECT_NE(project.find(row.project), project.npos) << row.project;
        EXPECT_NE(ThereAndBack(project).find(row.project), project.npos) << row.project;
    }
}

// A mode that documents don't know is carried beside the opacity, and without one for others.
TEST_F(OpenEffects, BlendModesComeBack)
{
    const std::string opacity = Parameter("opacity", In("value", "50"));
    const std::string project =
        ToProject(DocumentOf("opacity", opacity + Parameter("vela2", In("value", "0")) +
                                            Parameter("vela3", In("value", "7"))));
    const std::string document = ToXmeml(project);
    EXPECT_EQ(document.find("compositemode"), document.npos);
    EXPECT_EQ(DocumentValue(document, "vela2"), "0");
    EXPECT_EQ(DocumentValue(document, "vela3"), "7");
}

// 1 percent, which is less than what changes of pixels leave.
TEST_F(OpenEffects, SmallStretchesComeBack)
{
    const std::string document =
        ToXmeml(ToProject(DocumentOf("deformation", Parameter("aspect", In("value", "-1")))));
    EXPECT_EQ(DocumentValue(document, "aspect"), "-1");
}

// The anchor moves by a tenth of the frame while the center stays: the position moves with it.
TEST_F(OpenEffects, AnchorsMoveAlone)
{
    const auto point = [](const char* horiz) {
        return In("value", In("horiz", horiz) + In("vert", "0"));
    };
    const std::string anchors = point("0") + In("keyframe", In("when", "0") + point("0")) +
                                In("keyframe", In("when", "10") + point("0.1"));
    const std::string project = ToProject(DocumentOf(
        "basic", Parameter("center", point("0.2")) + Parameter("centerOffset", anchors)));
    EXPECT_NE(project.find("0,0.7:0.5,0,0"), project.npos);
    EXPECT_NE(project.find("101606400000,0.8:0.5,0,0"), project.npos);
    EXPECT_NE(project.find("101606400000,0.6:0.5,0,0"), project.npos);
    EXPECT_NE(ThereAndBack(project).find("101606400000,0.8:0.5,0,0"), project.npos);

    // A position that does not move while the anchor does.
    std::string still = project;
    const std::size_t keyframes = still.find("<Keyframes>0,0.7:0.5");
    ASSERT_NE(keyframes, still.npos);
    still.erase(keyframes, still.find("</Keyframes>", keyframes) + 12 - keyframes);
    const std::string document = ToXmeml(still);
    EXPECT_NE(document.find("<horiz>0.1</horiz>"), document.npos); // 0.2 - 0.1
    EXPECT_EQ(ToProject(document).find("<Keyframes>0,0.7:0.5"), document.npos);
}

// The position is that of the anchor, also while the clip moves or where its center isn't stated.
TEST_F(OpenEffects, ClipsMoveAboutAHeldAnchor)
{
    const auto point = [](const char* horiz) {
        return In("value", In("horiz", horiz) + In("vert", "0"));
    };
    const std::string centers = point("0.2") + In("keyframe", In("when", "0") + point("0.2")) +
                                In("keyframe", In("when", "10") + point("0.3"));
    const std::string anchor = Parameter("centerOffset", point("0.1"));
    const std::string moving =
        ToProject(DocumentOf("basic", Parameter("center", centers) + anchor));
    EXPECT_NE(moving.find("<Keyframes>0,0.8:0.5"), moving.npos);
    EXPECT_NE(moving.find("101606400000,0.9:0.5,0,0"), moving.npos);
    EXPECT_EQ(moving.find("101606400000,0.6:0.5"), moving.npos) << "the anchor stays";
    EXPECT_NE(ThereAndBack(moving).find("101606400000,0.9:0.5,0,0"), moving.npos);

    const std::string still = ToProject(DocumentOf("basic", anchor));
    EXPECT_EQ(CountOf(still, ",0.6:0.5,"), 2) << "position and anchor";
    EXPECT_EQ(CountOf(ThereAndBack(still), ",0.6:0.5,"), 2);
}

} // namespace
} // namespace XPJ
