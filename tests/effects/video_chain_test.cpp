#include "effects/video_chain.h"

#include "effects/effect_list.h"
#include "effects/motion.h"
#include "effects/video_effects.h"

#include <cstdlib>
#include <set>

namespace XPJ {
namespace {

using VideoChainTest = VideoEffectsTest;

// "SeqID DefaultOpacity DefaultMotion NextComponentID"
std::string Flags(ObjectHandle chain)
{
    return std::string(chain.GetProperty("SeqID")) + " " +
           std::string(chain.GetProperty("DefaultOpacity")) + " " +
           std::string(chain.GetProperty("DefaultMotion")) + " " +
           std::string(chain.GetProperty("NextComponentID"));
}

TEST_F(VideoChainTest, ComponentsAreNumberedAndFlagsFollow)
{
    const std::string opacity = Filter("opacity", Parameter("opacity", "40"));
    const std::string motion = Filter("basic", Parameter("scale", "50"));
    const std::string key = Filter("Luma Key");
    const struct {
        std::string item;
        const char* components;
        const char* flags;
    } rows[] = {
        {"", "", "7 true true 3"},
        {"<compositemode>normal</compositemode>", "2 Opacity", "7 false true 3"},
        {motion, "1 Motion", "7 true false 3"},
        {key + motion + key + opacity, "2 Opacity, 1 Motion, 3 Luma Key, 4 Luma Key",
         "7 false false 5"},
        {Filter("opacity", "", "<enabled>FALSE</enabled>"), "", "7 true true 3"},
        {"<filter/>" + key, "3 Luma Key", "7 true true 4"},
    };
    for (const auto& row : rows) {
        const ObjectHandle chain = Chain(row.item);
        EXPECT_EQ(Components(chain), row.components) << row.item;
        EXPECT_EQ(Flags(chain), row.flags) << row.item;
    }
    EXPECT_EQ(TakeIssues(), "");

    context_.frameTicks = 0;
    EXPECT_EQ(Flags(Chain(key)), "7 true true ");
}

TEST_F(VideoChainTest, IdsDecideBeforeNames)
{
    const auto effect = [](const char* name, const char* id) {
        return std::string("<filter><effect><name>") + name + "</name><effectid>" + id +
               "</effectid>" + Parameter("left", "1") + "</effect></filter>";
    };
    const struct {
        const char* name;
        const char* id;
        const char* components;
        const char* subject; // of the finding
    } rows[] = {
        {"My crop", "crop", "3 Crop", nullptr},
        {"Luma Key", "crop", "3 Crop", nullptr},
        {"Luma Key", "unheard of", "3 Luma Key", nullptr},
        {"Luma Key", "", "3 Luma Key", nullptr},
        {"Crop", "", "", "Crop"}, // names are exact
        {"opacity", "unheard of", "", "opacity"},
        {"", "Sepia", "", "Sepia"},
        {"Warm", "Gradiva", "3 Gradiva", nullptr},
        {"Soft", "Gaussian Blur", "", "Soft"}, // refused
        {"", "", "", nullptr},                 // no effect at all
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.name) + "/" + row.id);
        EXPECT_EQ(Components(Chain(effect(row.name, row.id))), row.components);
        std::string issue;
        if (row.subject)
            issue = "EffectNotTranslated sequence=\"Cut\" clip=\"A\" subject=\"" +
                    std::string(row.subject) + "\"";
        EXPECT_EQ(TakeIssues().substr(0, issue.size()), issue);
    }
}

TEST_F(VideoChainTest, AFindingTellsItsPlaceOnce)
{
    Chain(Filter("Sepia") + Filter("Sepia") + Filter("Ripple", "", "<enabled>False</enabled>"));
    ASSERT_EQ(issues_.size(), 1u);
    const TranslationIssue& issue = *issues_.begin();
    EXPECT_EQ(issue.kind, static_cast<int>(ImportIssue::EffectNotTranslated));
    EXPECT_EQ(issue.subject, "My Sepia");
    EXPECT_EQ(issue.clip, "A");
    EXPECT_EQ(issue.sequence, "Cut");
    EXPECT_EQ(issue.time, "01:00:00:00");
    EXPECT_EQ(issue.trackKind, 1);
    EXPECT_EQ(issue.trackIndex, 2);
}

TEST_F(VideoChainTest, CompositeModes)
{
    const struct {
        const char* mode;
        const char* values;
        bool isReported;
    } rows[] = {
        {"add", "14 12", false},       {"difference", "5 23", false}, {"multiply", "17 4", false},
        {"screen", "22 10", false},    {"texturize", "19 15", false}, {"hardlight", "8 17", false},
        {"softlight", "23 16", false}, {"darken", "3 3", false},      {"lighten", "11 9", false},
        {"normal", "18 0", false},     {"Add", "18 0", false},        {"subtract", "18 0", true},
        {"mask", "18 0", true},        {"lumamask", "18 0", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        const std::string mode = std::string("<compositemode>") + row.mode + "</compositemode>";
        for (const std::string& filter : {std::string(), Filter("opacity")}) {
            const ObjectHandle opacity = Intrinsic(Chain(mode + filter), "Opacity");
            std::string values;
            for (const ObjectHandle& param : opacity.GetChildren("Param"))
                if (param.GetProperty("Name") == "Blend Mode")
                    values += (values.empty() ? "" : " ") + Value(param);
            EXPECT_EQ(values, row.values);
        }
        EXPECT_EQ(TakeIssues().find("CompositeModeNotSupported") != std::string::npos,
                  row.isReported);
    }
}

TEST_F(VideoChainTest, OpacityAlwaysHasKeyframes)
{
    const auto keyframesOf = [&](const std::string& item) {
        return std::string(
            Param(Intrinsic(Chain(item), "Opacity"), "Opacity").GetProperty("Keyframes"));
    };
    const std::string tail = ",0,0,0,0.166667,0,0.166667;";
    EXPECT_EQ(keyframesOf(Filter("opacity")), "0,100." + tail);
    EXPECT_EQ(keyframesOf(Filter("opacity", Parameter("any", "41.5"))), "0,41.5" + tail);
    EXPECT_EQ(keyframesOf("<compositemode>add</compositemode>"), "0,100." + tail);
    // The first of two.
    EXPECT_EQ(keyframesOf(Filter("opacity", Parameter("opacity", "1")) +
                          Filter("opacity", Parameter("opacity", "2"))),
              "0,1." + tail);
    const ObjectHandle chain = Chain(Filter("opacity", "<velaBypass>true</velaBypass>"
                                                       "<velaExpanded>false</velaExpanded>"));
    EXPECT_EQ(Intrinsic(chain, "Opacity").GetProperty("Bypass"), "true");
    EXPECT_EQ(Intrinsic(chain, "Opacity").GetProperty("ECP.Filter.Expanded"), "false");
}

TEST_F(VideoChainTest, ScalesTakeAspectsAndRawSizes)
{
    const struct {
        double clipAspect;
        double sequenceAspect;
        double decoded; // width and height alike
        const char* aspect;
        const char* values; // of Scale, Scale Width and the check box for a scale of 50
    } rows[] = {
        {1, 1, 1, "0", "50 50 true"},
        {1, 1, 1, "-100", "25 50 false"},
        {1, 1, 1, "100", "50 25 false"},
        {0.5, 1, 1, "0", "50 100 false"},
        {2, 1, 1, "0", "50 25 false"},
        {1.5, 1.5, 1, "0", "50 50 true"},
        {1.02, 1, 1, "0", "49.0196 49.0196 true"}, // snapped, but for the last step
        {1, 1.02, 1, "0", "50 50 true"},           // snapped
        {1, 1.03, 1, "0", "50 51.5 false"},
        {1, 1, 0.5, "0", "25 25 true"},
    };
    for (const auto& row : rows) {
        context_.clipFrame.pixelAspect = row.clipAspect;
        context_.sequenceFrame.pixelAspect = row.sequenceAspect;
        context_.decodedWidthRatio = context_.decodedHeightRatio = row.decoded;
        const ObjectHandle motion =
            Intrinsic(Chain(Filter("deformation", Parameter("aspect", row.aspect)) +
                            Filter("basic", Parameter("scale", "50"))),
                      "Motion");
        EXPECT_EQ(Value(Param(motion, "Scale")) + " " + Value(Param(motion, "Scale Width")) + " " +
                      Value(Param(motion, " ")),
                  row.values)
            << row.clipAspect << " " << row.sequenceAspect << " " << row.aspect;
    }
}

TEST_F(VideoChainTest, AStretchMakesAMotionByItself)
{
    const ObjectHandle motion =
        Intrinsic(Chain(Filter("deformation", Parameter("aspect", "-100"))), "Motion");
    EXPECT_EQ(Values(motion), "Position=0.5:0.5, Scale=50, Scale Width=100,  =false, Rotation=0., "
                              "Anchor Point=0.5:0.5, Anti-flicker Filter=0.");
    EXPECT_EQ(TakeIssues(), "");
}

TEST_F(VideoChainTest, KeyframesOfUnequalScales)
{
    const std::string scale = Filter("basic", Parameter("scale", "50", Keyframe(0, "40")));
    const ObjectHandle equal = Intrinsic(Chain(scale), "Motion");
    EXPECT_TRUE(Param(equal, "Scale").HasProperty("Keyframes"));
    EXPECT_FALSE(Param(equal, "Scale Width").HasProperty("Keyframes"));
    const ObjectHandle stretched =
        Intrinsic(Chain(scale + Filter("deformation", Parameter("aspect", "100"))), "Motion");
    EXPECT_TRUE(Param(stretched, "Scale").GetProperty("Keyframes").starts_with("0,40.,"));
    EXPECT_TRUE(Param(stretched, "Scale Width").GetProperty("Keyframes").starts_with("0,20.,"));
}

TEST_F(VideoChainTest, PositionsFollowTheFrames)
{
    context_.sequenceFrame = {.width = 1920, .height = 1080};
    context_.clipFrame = {.width = 960, .height = 270};
    const auto motionOf = [&](const std::string& parameters) {
        return Intrinsic(Chain(Filter("basic", parameters)), "Motion");
    };
    const std::string center = Parameter("center", "0.5:-0.4", Keyframe(2, "0.5:-0.4"));
    const std::string offset = Parameter("centerOffset", "0.1:0.2", Keyframe(2, "0.1:0.2"));
    const ObjectHandle moved = motionOf(center);
    EXPECT_EQ(Value(Param(moved, "Position")), "0.75:0.4");
    EXPECT_TRUE(Param(moved, "Position").GetProperty("Keyframes").starts_with("20,0.75:0.4,"));
    // The order of the two makes no difference.
    for (const std::string& parameters : {center + offset, offset + center}) {
        const ObjectHandle anchored = motionOf(parameters);
        EXPECT_EQ(Value(Param(anchored, "Position")), "0.8:0.45");
        EXPECT_EQ(Value(Param(anchored, "Anchor Point")), "0.6:0.7");
        EXPECT_TRUE(
            Param(anchored, "Position").GetProperty("Keyframes").starts_with("20,0.8:0.45,"));
        EXPECT_TRUE(
            Param(anchored, "Anchor Point").GetProperty("Keyframes").starts_with("20,0.6:0.7,"));
    }
    const ObjectHandle alone = motionOf(offset);
    EXPECT_EQ(Value(Param(alone, "Position")), "0.5:0.5");
    EXPECT_EQ(Value(Param(alone, "Anchor Point")), "0.6:0.7");
}

TEST_F(VideoChainTest, TheLastMotionCountsBeforeABasic3D)
{
    const std::string first = Filter("basic", Parameter("scale", "10"));
    const std::string second = Filter("basic", Parameter("scale", "20"));
    const std::string basic3D = Filter("Basic 3D", Parameter("s", "30"));
    const struct {
        std::string filters;
        const char* scale;
    } rows[] = {{first + second, "20"}, {first + basic3D, "10"}, {basic3D + first, "10"}};
    for (const auto& row : rows)
        EXPECT_EQ(Value(Param(Intrinsic(Chain(row.filters), "Motion"), "Scale")), row.scale);
}

std::string TimeRemap(const std::string& graph, const std::string& variable = "1",
                      const std::string& mediaType = "video")
{
    return Filter("timeremap", "<mediatype>" + mediaType + "</mediatype>" +
                                   Parameter("variablespeed", variable) +
                                   "<parameter><parameterid>graphdict</parameterid>"
                                   "<valuemax>100</valuemax>" +
                                   graph + "</parameter>");
}

TEST_F(VideoChainTest, AVariableSpeedIsAGraphOnTheClip)
{
    context_.frameTicks = kPalFrameTicks;
    const std::string ends = Keyframe(0, "0", "<speedkfin>TRUE</speedkfin>") +
                             Keyframe(50, "100", "<speedkfout>TRUE</speedkfout>") +
                             Keyframe(60, "110", "<speedvirtualkf>TRUE</speedvirtualkf>");
    const std::string point = Keyframe(25, "75", "<velaRampStart>true</velaRampStart>");
    EXPECT_EQ(Components(Chain(TimeRemap(ends + point))), "");
    const ObjectHandle param = FindPath(clip_, {"TimeRemapping", "Keyframes"});
    EXPECT_EQ(param.GetName(), "TimeComponentParam");
    EXPECT_EQ(param.GetProperty("Keyframes"),
              "0,0,6,0,0,0,0,0;508032000000,4,6,0,0,0,0,0;609638400000,4.4,6,0,0,0,0,0;"
              "254016000000,3,7,0,0,0,0,0;");
    EXPECT_EQ(param.GetProperty("UpperBound"), "4");
    EXPECT_EQ(param.GetProperty("LowerBound"), "0");
    EXPECT_EQ(param.GetProperty("IsTimeVarying"), "true");
    EXPECT_EQ(param.GetProperty("ParameterID"), "-1");
    EXPECT_EQ(ChildNames(clip_), "TimeRemapping");

    for (const std::string& constant :
         {TimeRemap(ends), TimeRemap(point, "0"), TimeRemap(point, "1", "audio")}) {
        Chain(constant);
        EXPECT_FALSE(clip_.HasChildren()) << constant;
    }
    EXPECT_EQ(TakeIssues(), "");

    BuildSequenceChain(context_, ReadClipItem(document_, TimeRemap(point)), {}, "7");
    EXPECT_NE(TakeIssues().find("My timeremap"), std::string::npos);
}

TEST_F(VideoChainTest, MastersHaveFiltersOnly)
{
    const ObjectHandle owner = ReadClipItem(
        document_, TimeRemap("") + Filter("Luma Key") + Filter("Basic 3D", Parameter("s", "50")) +
                       Filter("Basic 3D", Parameter("rx", "5")) + Filter("opacity") +
                       Filter("basic") + Filter("deformation") +
                       Filter("crop", "", "<enabled>FALSE</enabled>"));
    const ObjectHandle chain = document_.NewObject("VideoComponentChain");
    chain.SetProperty("NextComponentID", "1");
    AddMasterChainEffects(context_, owner, chain);
    EXPECT_EQ(Components(chain), "1 Luma Key, 2 Basic 3D");
    EXPECT_EQ(Flags(chain), "   3");
    EXPECT_FALSE(chain.GetChild("Component").HasProperty("SequenceID"));
    EXPECT_EQ(issues_.size(), 3u);
    AddMasterChainEffects(context_, owner, chain);
    EXPECT_EQ(Components(chain), "1 Luma Key, 2 Basic 3D, 3 Luma Key, 4 Basic 3D");
}

TEST_F(VideoChainTest, TheListShowsEveryEffectOnce)
{
    std::set<std::string> seen;
    for (const EffectListing& listing : ListEffects()) {
        EXPECT_TRUE(seen.insert(std::string(listing.family) + "/" + std::string(listing.name) +
                                "/" + std::string(listing.effectId))
                        .second)
            << listing.name;
        EXPECT_FALSE(OutcomeText(listing.outcome).empty());
    }
    for (const char* const known : {"Intrinsic/Motion/basic", "Video filter/crop/crop"})
        EXPECT_TRUE(seen.contains(known)) << known;
}

} // namespace
} // namespace XPJ
