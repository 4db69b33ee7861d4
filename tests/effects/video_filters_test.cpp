#include "effects/video_filters.h"

#include "effects/parameters.h"
#include "effects/video_effects.h"

#include <set>

namespace XPJ {
namespace {

constexpr const char* kTail = ",0,0,0,0.166667,0,0.166667;";
constexpr const char* kPointTail = ",0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.;";

// The intrinsic effects stand here too: their parameters come from one source in the same way.
struct Row {
    const char* effect;
    const char* id; // of the project's parameter
    const char* name;
    const char* source; // "" for one that never changes
    const char* absent; // its value without the source
    const char* control;
    const char* bounds;
    std::string_view classId;
};

constexpr std::string_view kNumber = kScalarClass;

constexpr Row kRows[] = {
    // clang-format off
    {"opacity", "1", "Opacity", "opacity", "100", "2", "0. 100.", kNumber},
    {"opacity", "2", "Blend Mode", "", "18", "10", "0 24", kChoiceClass},
    {"basic", "1", "Position", "center", "0.5:0.5", "6", " ", kPointClass},
    {"basic", "2", "Scale", "scale", "100", "2", "0. 600.", kNumber},
    {"basic", "4", " ", "", "true", "4", "false true", kSwitchClass},
    {"basic", "5", "Rotation", "rotation", "0.", "2", "-32768. 32767.", kNumber},
    {"basic", "6", "Anchor Point", "centerOffset", "0.5:0.5", "6", " ", kPointClass},
    {"basic", "7", "Anti-flicker Filter", "antiflicker", "0.", "8", "0. 1.", kSliderClass},
    {"Basic 3D", "1", "Swivel", "ry", "0", "2", "-32768 32767", kNumber},
    {"Basic 3D", "2", "Tilt", "rx", "0", "2", "-32768 32767", kNumber},
    {"Basic 3D", "3", "Distance to Image", "", "0.0", "2", "-30000. 30000.", kNumber},
    {"Basic 3D", "4", "Specular Highlight", "", "false", "4", "false true", kSwitchClass},
    {"Basic 3D", "5", "Preview", "", "false", "4", "false true", kSwitchClass},
    {"crop", "1", "Left", "left", "0.", "2", "0. 100.", kNumber},
    {"crop", "2", "Top", "top", "0.", "2", "0. 100.", kNumber},
    {"crop", "3", "Right", "right", "0.", "2", "0. 100.", kNumber},
    {"crop", "4", "Bottom", "bottom", "0.", "2", "0. 100.", kNumber},
    {"crop", "5", " ", "", "false", "4", "false true", kSwitchClass},
    {"Four-Point Garbage Matte", "1", "Top Left", "p0", "0.5:0.5", "6", " ", kPointClass},
    {"Four-Point Garbage Matte", "2", "Top Right", "p1", "0.5:0.5", "6", " ", kPointClass},
    {"Four-Point Garbage Matte", "3", "Bottom Right", "p2", "0.5:0.5", "6", " ", kPointClass},
    {"Four-Point Garbage Matte", "4", "Bottom Left", "p3", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "1", "Top Left Vertex", "p0", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "2", "Top Center Tangent", "p1", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "3", "Right Top Vertex", "p2", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "4", "Right Center Tangent", "p3", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "5", "Bottom Right Vertex", "p4", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "6", "Bottom Center Tangent", "p5", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "7", "Left Bottom Vertex", "p6", "0.5:0.5", "6", " ", kPointClass},
    {"Eight-Point Garbage Matte", "8", "Left Center Tangent", "p7", "0.5:0.5", "6", " ", kPointClass},
    {"Gaussian Blur", "1", "Blurriness", "radius", "1.0", "8", "0. 30000.", kSliderClass},
    {"Gaussian Blur", "2", "Blur Dimensions", "", "0", "7", "0 2", kChoiceClass},
    {"Luma Key", "1", "Threshold", "threshold", "0.", "2", "0. 100.", kNumber},
    {"Luma Key", "2", "Cutoff", "tolerance", "0.", "2", "0. 100.", kNumber},
    // clang-format on
};

// What an effect must hold to be translated at all, whatever the row at hand gives.
std::string Needed(const Row& row, bool withSource)
{
    const std::string_view effect = row.effect;
    const std::string_view source = row.source;
    if (effect == "Gaussian Blur")
        return Parameter("channel", "1");
    if (effect == "crop")
        return Parameter("edgefeather", "1");
    if (effect == "Basic 3D" && (!withSource || source.empty()))
        return Parameter(source == "rx" ? "ry" : "rx", "1");
    return {};
}

class VideoFilterRows : public VideoEffectsTest {
protected:
    ObjectHandle Translated(const Row& row, const std::string& parameter)
    {
        const std::string parameters = Needed(row, !parameter.empty()) + parameter;
        const ObjectHandle chain = Chain(Filter(row.effect, parameters));
        for (const ObjectHandle& component : chain.GetChildren("Component"))
            for (const ObjectHandle& param : component.GetChildren("Param"))
                if (param.GetProperty("Name") == row.name &&
                    param.GetProperty("ParameterID") == row.id)
                    return param;
        return {};
    }
};

TEST_F(VideoFilterRows, WithoutASourceEveryParameterHasItsOwnValue)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.effect) + " " + row.name);
        const ObjectHandle param = Translated(row, "");
        ASSERT_TRUE(param);
        EXPECT_EQ(Value(param), row.absent);
        EXPECT_EQ(param.GetProperty("ParameterControlType"), row.control);
        EXPECT_EQ(std::string(param.GetProperty("LowerBound")) + " " +
                      std::string(param.GetProperty("UpperBound")),
                  row.bounds);
        EXPECT_EQ(param.GetProperty("classid"), row.classId);
        const bool isOpacity = std::string_view(row.source) == "opacity"; // always animated
        EXPECT_EQ(param.GetProperty("IsTimeVarying"), isOpacity ? "true" : "false");
    }
}

TEST_F(VideoFilterRows, ValuesAndKeyframesArrive)
{
    for (const Row& row : kRows) {
        if (*row.source == '\0')
            continue;
        SCOPED_TRACE(std::string(row.effect) + " " + row.name);
        const bool isPoint = row.classId == kPointClass;
        const std::string value = isPoint ? "-0.25:0.5" : "12.345678";
        const std::string shown = isPoint ? "0.25:1" : value;
        const ObjectHandle still = Translated(row, Parameter(row.source, value));
        EXPECT_EQ(Value(still), shown);
        EXPECT_EQ(still.GetProperty("CurrentValue"), isPoint ? "0,0" : value);

        const ObjectHandle animated = Translated(
            row, Parameter(row.source, value,
                           Keyframe(0, value) + Keyframe(3, isPoint ? "0.1:-0.1" : "7")));
        EXPECT_EQ(Value(animated), shown);
        EXPECT_EQ(animated.GetProperty("IsTimeVarying"), "true");
        EXPECT_EQ(animated.GetProperty("Keyframes"),
                  isPoint ? std::string("0,0.25:1") + kPointTail + "30,0.6:0.4" + kPointTail
                          : std::string("0,12.345678") + kTail + "30,7." + kTail);
    }
}

TEST_F(VideoFilterRows, ComponentsHoldTheirParametersInOrder)
{
    std::set<std::string> effects;
    for (const Row& row : kRows)
        if (effects.insert(row.effect).second && row.effect != std::string("opacity") &&
            row.effect != std::string("basic")) {
            std::string expected;
            for (const Row& other : kRows)
                if (std::string_view(other.effect) == row.effect)
                    expected += std::string(other.id) + " " + other.name + "; ";
            std::string actual;
            for (const ObjectHandle& param :
                 FilterOf(Filter(row.effect, Needed(row, false))).GetChildren("Param"))
                actual += std::string(param.GetProperty("ParameterID")) + " " +
                          std::string(param.GetProperty("Name")) + "; ";
            EXPECT_EQ(actual, expected) << row.effect;
        }
}

using VideoFiltersTest = VideoEffectsTest;

TEST_F(VideoFiltersTest, NamesAndSwitches)
{
    const struct {
        const char* id;
        std::string parameters;
        const char* names;
    } rows[] = {
        {"Basic 3D", Parameter("rx", "5"), "KX.ORRN Basic 3D / Basic 3D"},
        {"crop", Parameter("left", "5"), "KX.ORRN AECrop / Crop"},
        {"Four-Point Garbage Matte", "", "KX.ORRN Garbage Matte / Four-Point Garbage Matte"},
        {"Eight-Point Garbage Matte", "", "KX.ORRN Garbage Matte 8 / Eight-Point Garbage Matte"},
        {"Gaussian Blur", Parameter("channel", "1"), "KX.ORRN Gaussian Blur 2 / Gaussian Blur"},
        {"Luma Key", "", "KX.ORRN Legacy Key Luma / Luma Key"},
        {"Transform", "", "KX.ORRN Geometry / Transform"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        const ObjectHandle plain = FilterOf(Filter(row.id, row.parameters));
        EXPECT_EQ(std::string(plain.GetProperty("MatchName")) + " / " +
                      std::string(plain.GetProperty("DisplayName")),
                  row.names);
        EXPECT_EQ(plain.GetProperty("VideoFilterType"), "2");
        EXPECT_EQ(plain.GetProperty("Bypass"), "false");
        EXPECT_EQ(plain.GetProperty("SequenceID"), "7");
        EXPECT_FALSE(plain.HasProperty("ECP.Filter.Expanded"));
        const ObjectHandle marked =
            FilterOf(Filter(row.id, row.parameters + "<velaBypass>true</velaBypass>"
                                                     "<velaExpanded>true</velaExpanded>"));
        EXPECT_EQ(marked.GetProperty("Bypass"), "true");
        EXPECT_EQ(marked.GetProperty("ECP.Filter.Expanded"), "true");
    }
    EXPECT_EQ(TakeIssues(), "");
}

TEST_F(VideoFiltersTest, ABlurOfOneChannelAloneIsRefused)
{
    EXPECT_FALSE(FilterOf(Filter("Gaussian Blur", Parameter("radius", "9"))));
    EXPECT_FALSE(
        FilterOf(Filter("Gaussian Blur", Parameter("radius", "9") + Parameter("channel", "2"))));
    EXPECT_NE(TakeIssues().find("My Gaussian Blur"), std::string::npos);
}

TEST_F(VideoFiltersTest, AFlopIsOneFlipOrTwo)
{
    const struct {
        const char* flop;
        const char* components;
    } rows[] = {
        {"0", ""},
        {"1", "3 Horizontal Flip"},
        {"2", "3 Vertical Flip"},
        {"3", "3 Vertical Flip, 4 Horizontal Flip"},
        {"4", ""},
    };
    for (const auto& row : rows) {
        const ObjectHandle chain = Chain(Filter("Flop", Parameter("flop", row.flop)));
        EXPECT_EQ(Components(chain), row.components) << row.flop;
        EXPECT_EQ(TakeIssues().empty(), *row.components != '\0') << row.flop;
        for (const ObjectHandle& flip : chain.GetChildren("Component")) {
            EXPECT_EQ(flip.GetProperty("VideoFilterType"), "1");
            EXPECT_EQ(flip.GetChild("Param").GetName(), "ArbVideoComponentParam");
        }
    }
    EXPECT_FALSE(FilterOf(Filter("Flop")));
}

TEST_F(VideoFiltersTest, ATransformKeepsTheProjectsFields)
{
    std::string parameters;
    for (int id = 0; id <= 12; ++id)
        parameters +=
            Parameter(std::to_string(id), "-91445760000000000," + std::to_string(id) + ".",
                      "<name>P</name><LowerBound>0.</LowerBound>");
    parameters += "<parameter><parameterid>3</parameterid></parameter>"; // no value, no param
    const ObjectHandle component = FilterOf(Filter("Transform", parameters));
    const std::string_view classes[] = {
        kPointClass,  kPointClass,  kScalarClass, kScalarClass, kScalarClass, kScalarClass,
        kScalarClass, kScalarClass, kSwitchClass, kScalarClass, kSwitchClass,
    };
    int id = 0;
    for (const ObjectHandle& param : component.GetChildren("Param")) {
        ASSERT_LT(id, 11);
        EXPECT_EQ(param.GetProperty("classid"), classes[id]) << id;
        EXPECT_EQ(param.GetName(), "VideoComponentParam");
        EXPECT_EQ(param.GetProperty("ParameterID"), std::to_string(++id));
        EXPECT_EQ(Value(param), std::to_string(id) + ".");
        EXPECT_EQ(param.GetProperty("LowerBound"), "0.");
        EXPECT_FALSE(param.HasProperty("UpperBound"));
    }
    EXPECT_EQ(id, 11);
}

TEST_F(VideoFiltersTest, ABasic3DSplitsInTwo)
{
    const struct {
        std::string parameters;
        const char* components;
    } rows[] = {
        {Parameter("s", "100") + Parameter("rx", "0.0") + Parameter("center", "0:0"), ""},
        {Parameter("s", "50"), "1 Motion"},
        {Parameter("rz", "50") + Parameter("rx", "0"), "1 Motion"},
        {Parameter("rx", "50"), "3 Basic 3D"},
        {Parameter("ry", "0", Keyframe(0, "0")), "3 Basic 3D"},
        {Parameter("ry", "9") + Parameter("center", "0.1:0"), "1 Motion, 3 Basic 3D"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Components(Chain(Filter("Basic 3D", row.parameters))), row.components)
            << row.parameters;
    const ObjectHandle motion =
        Intrinsic(Chain(Filter("Basic 3D", Parameter("s", "50") + Parameter("rz", "9") +
                                               Parameter("center", "0.1:0.2"))),
                  "Motion");
    EXPECT_EQ(Values(motion), "Position=0.6:0.7, Scale=50, Scale Width=50,  =true, Rotation=9, "
                              "Anchor Point=0.5:0.5, Anti-flicker Filter=0.");
    EXPECT_EQ(TakeIssues(), "");
}

// Each at rest, and with the one change that wakes it.
TEST_F(VideoFiltersTest, EffectsAtRestLeaveNoTrace)
{
    const std::string corners = Parameter("ulcorner", "-0.5:-0.5") +
                                Parameter("urcorner", "0.5:-0.5") +
                                Parameter("lrcorner", "0.5:0.5");
    const std::string black =
        "<parameter><parameterid>color</parameterid><value><alpha>0</alpha><red>0</red>"
        "<green>0</green><blue>0</blue></value></parameter>";
    const struct {
        const char* id;
        std::string rest;
        std::string change;
    } rows[] = {
        {"crop", Parameter("left", "0.0") + Parameter("edgefeather", "0"), Parameter("top", "1")},
        {"crop", "", Parameter("left", "0", Keyframe(0, "0"))},
        {"Basic 3D", Parameter("s", "100") + Parameter("rz", "0"), Parameter("ry", "1")},
        {"deformation", corners + Parameter("llcorner", "9:9"), Parameter("ulcorner", "0:0")},
        {"deformation", corners, Parameter("aspect", "-40")},
        {"motionblur", Parameter("duration", "500") + Parameter("samples", "4"),
         Parameter("samples", "5")},
        {"dropshadow",
         Parameter("offset", "10") + Parameter("angle", "135") + black +
             Parameter("softness", "10") + Parameter("opacity", "50"),
         Parameter("softness", "11")},
        {"dropshadow", Parameter("offset", "2"), Parameter("offset", "3")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id + row.change);
        EXPECT_EQ(Components(Chain(Filter(row.id, row.rest))), "");
        EXPECT_EQ(TakeIssues(), "");
        const ObjectHandle chain = Chain(Filter(row.id, row.rest + row.change));
        EXPECT_NE(Components(chain).empty(), TakeIssues().empty());
    }
}

} // namespace
} // namespace XPJ
