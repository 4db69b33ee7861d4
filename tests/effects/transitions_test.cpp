#include "effects/effect_fixture.h"
#include "effects/transitions.h"

#include "effects/effect_text.h"
#include "support/golden.h"

namespace XPJ {
namespace {

class TransitionsTest : public EffectTest {
protected:
    ObjectHandle Effect(const std::string& id, const std::string& more = {})
    {
        return ReadEffect(document_,
                          "<name>My " + id + "</name><effectid>" + id + "</effectid>" + more);
    }
    static std::string Names(ObjectHandle transition)
    {
        return std::string(transition.GetName().View()) + " " +
               std::string(transition.GetProperty("MatchName")) + " / " +
               std::string(transition.GetProperty("DisplayName"));
    }

    EffectContext context_{.document = document_, .issues = issues_};
};

std::string Colour(const char* id, int red, int green, int blue)
{
    return std::string("<parameter><parameterid>") + id +
           "</parameterid><value><alpha>255</alpha>" + "<red>" + std::to_string(red) +
           "</red><green>" + std::to_string(green) + "</green><blue>" + std::to_string(blue) +
           "</blue></value></parameter>";
}

std::string Number(const char* id, const std::string& value)
{
    return std::string("<parameter><parameterid>") + id + "</parameterid><value>" + value +
           "</value></parameter>";
}

TEST_F(TransitionsTest, EveryEffectHasItsTransition)
{
    const std::string dissolve =
        "VideoTransitionTrackItem KX.ORRN Cross Dissolve New / Cross Dissolve";
    const std::string white = "VideoTransitionTrackItem ORRN Dip To White / Dip to White";
    const std::string black = "VideoTransitionTrackItem ORRN Dip To Black / Dip to Black";
    const std::string dip = "Dip to Color Dissolve";
    const std::string power = "AudioTransitionTrackItem Constant Power / Constant Power";
    using Maker = ObjectHandle (*)(const EffectContext&, ObjectHandle);
    const struct {
        Maker make;
        std::string id;
        std::string parameter;
        std::string expected;
        std::string issue;
    } rows[] = {
        {MakeVideoTransition, "Cross Dissolve", "", dissolve, ""},
        {MakeVideoTransition, "Edge Wipe", "", "VideoTransitionTrackItem ORRN Wipe / Wipe", ""},
        {MakeVideoTransition, dip, Colour("dipcolor", 255, 255, 255), white, ""},
        {MakeVideoTransition, dip, Colour("dipcolor", 0, 0, 0), black, ""},
        {MakeVideoTransition, dip, "", black, ""},
        {MakeVideoTransition, dip, Colour("dipcolor", 255, 0, 0), black, "DipToColorNotTranslated"},
        {MakeVideoTransition, "Page Peel", "", dissolve,
         "CrossDissolveTransitionNotTranslated subject=\"My Page Peel\""},
        {MakeAudioTransition, "KGAudioTransCrossFade3dB", "", power, ""},
        {MakeAudioTransition, "KGAudioTransCrossFade0dB", "",
         "AudioTransitionTrackItem Constant Gain / Constant Gain", ""},
        {MakeAudioTransition, "KGAudioTransCrossFadeExponential", "",
         "AudioTransitionTrackItem Exponential Fade / Exponential Fade", ""},
        {MakeAudioTransition, "Cross Dissolve", "", power,
         "ConstantPowerTransitionNotTranslated subject=\"My Cross Dissolve\""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id + row.parameter);
        EXPECT_EQ(Names(row.make(context_, Effect(row.id, row.parameter))), row.expected);
        const std::string issues = TakeIssues();
        EXPECT_EQ(issues.substr(0, row.issue.size()), row.issue);
        EXPECT_EQ(issues.empty(), row.issue.empty());
    }
}

TEST_F(TransitionsTest, AnEffectIsToldByItsNameWhereItsIdIsNotKnown)
{
    const auto make = [&](const char* children) {
        return MakeVideoTransition(context_, ReadEffect(document_, children));
    };
    const auto makeAudio = [&](const char* children) {
        return MakeAudioTransition(context_, ReadEffect(document_, children));
    };
    EXPECT_EQ(make("<name>Edge Wipe</name>").GetProperty("MatchName"), "ORRN Wipe");
    EXPECT_EQ(make("<name>Edge Wipe</name><effectid>Wipe 7</effectid>").GetProperty("MatchName"),
              "ORRN Wipe");
    EXPECT_EQ(make("<name>Edge Wipe</name><effectid>Cross Dissolve</effectid>")
                  .GetProperty("DisplayName"),
              "Cross Dissolve");
    EXPECT_EQ(makeAudio("<name>Cross Fade ( 0dB)</name><effectid>fade</effectid>")
                  .GetProperty("MatchName"),
              "Constant Gain");
    EXPECT_FALSE(make("<effecttype>transition</effecttype>"));
    EXPECT_FALSE(MakeAudioTransition(context_, {}));
    EXPECT_EQ(TakeIssues(), "");
    EXPECT_TRUE(make("<effectid>Swap</effectid>"));
    EXPECT_NE(TakeIssues().find("subject=\"Swap\""), std::string::npos);
}

TEST_F(TransitionsTest, AWipeTakesItsBorderAndDirection)
{
    const ObjectHandle wipe = MakeVideoTransition(
        context_,
        Effect("Edge Wipe", Number("borderwidth", "12.7") + Colour("bordercolor", 10, 200, 30) +
                                "<reverse>TRUE</reverse>" +
                                "<startratio>0.25</startratio><endratio>1.0</endratio>"));
    EXPECT_EQ(wipe.GetProperty("BorderWidth"), "12");
    EXPECT_EQ(wipe.GetProperty("BorderColor"), "10,200,30");
    EXPECT_EQ(wipe.GetProperty("Reverse"), "true");
    EXPECT_EQ(wipe.GetProperty("StartPercent"), "0.25");
    EXPECT_EQ(wipe.GetProperty("EndPercent"), "1."); // all of it

    const ObjectHandle plain = MakeVideoTransition(
        context_, Effect("Cross Dissolve", Number("borderwidth", "12") + "<endratio>0</endratio>"));
    EXPECT_EQ(plain.GetProperty("BorderWidth"), "0.");
    EXPECT_EQ(plain.GetProperty("BorderColor"), "0,0,0");
    EXPECT_EQ(plain.GetProperty("Reverse"), "false");
    EXPECT_EQ(plain.GetProperty("StartPercent"), "0.");
    EXPECT_EQ(plain.GetProperty("EndPercent"), "0");

    const struct {
        const char* angle;
        const char* direction;
    } rows[] = {{"0", "4"},
                {"45", "64"},
                {"90", "8"},
                {"135", "128"},
                {"180", "1"},
                {"225", "16"},
                {"270", "2"},
                {"315", "32"},
                {"22", "4"},
                {"23", "64"},
                {"337", "32"},
                {"338", "8"},
                {"350", "8"},
                {"360", "4"},
                {"-90", "8"},
                {"-20", "4"},
                {"-67", "4"},
                {"-68", "8"},
                {"99999999999999999999", "4"}};
    for (const auto& row : rows)
        EXPECT_EQ(
            MakeVideoTransition(context_, Effect("Edge Wipe", Number("directionofwipe", row.angle)))
                .GetProperty("Direction"),
            row.direction)
            << row.angle;
}

} // namespace
} // namespace XPJ
