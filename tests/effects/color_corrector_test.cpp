#include "effects/color_corrector.h"

#include "effects/video_effects.h"

#include <map>

namespace XPJ {
namespace {

constexpr const char* kEffectId = "Color Corrector 3-way";

// A parameter with bounds; nullptr for one that states none.
std::string Bounded(const std::string& id, const char* min, const char* max,
                    const std::string& value)
{
    std::string bounds;
    if (min)
        bounds += "<valuemin>" + std::string(min) + "</valuemin>";
    if (max)
        bounds += "<valuemax>" + std::string(max) + "</valuemax>";
    return Parameter(id, value, bounds);
}

using ColorCorrector = VideoEffectsTest;

TEST_F(ColorCorrector, TenValuesHaveASource)
{
    const struct {
        const char* source;
        const char* min;
        const char* max;
        const char* value;
        const char* target;
        const char* expected;
    } rows[] = {
        // Degrees, a quarter turn back; the bounds don't matter.
        {"b_hue", "-180", "180", "90", "Shadow Balance Angle", "0"},
        {"b_hue", nullptr, nullptr, "0", "Shadow Balance Angle", "-90"},
        {"m_hue", "-180", "180", "-180", "Midtone Balance Angle", "-270"},
        {"h_hue", "0", "360", "108.83", "Highlight Balance Angle", "18.83"},
        // The root of the fraction of the maximum.
        {"b_mag", "0", "1", "0.25", "Shadow Balance Magnitude", "50"},
        {"b_mag", "0", "200", "1.58325", "Shadow Balance Magnitude", "8.89733"},
        {"m_mag", "0", "200", "200", "Midtone Balance Magnitude", "100"},
        {"h_mag", "0", "100", "-4", "Highlight Balance Magnitude", "0"},
        {"h_mag", "0", "100", "400", "Highlight Balance Magnitude", "200"},
        // The maximum alone divides, not the range.
        {"blacklevel", "-196", "254", "0", "Shadow Balance Gain", "77.3937"},
        {"mids", "0", "200", "108", "Midtone Balance Gain", "54.46"},
        {"highlights", "64", "509", "241", "Highlight Balance Gain", "35.4263"},
        {"highlights", "64", "509", "0", "Highlight Balance Gain", "-11.4479"},
        {"chroma", "0", "200", "112", "Master Saturation", "112"},
        {"chroma", "0", "200", "1e300", "Master Saturation", "1e+300"},
        // A maximum below 1 stands for no fraction at all.
        {"chroma", "0", "0.9", "0.5", "Master Saturation", "0"},
        {"mids", "0", nullptr, "100", "Midtone Balance Gain", "1"},
        {"mids", nullptr, "1", "0.5", "Midtone Balance Gain", "50.5"},
        // What has no value stays at the default.
        {"chroma", "0", "200", "", "Master Saturation", "100."},
        {"", nullptr, nullptr, "", "Midtone Balance Gain", "20."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.source) + " " + row.value);
        const ObjectHandle component =
            FilterOf(Filter(kEffectId, Bounded(row.source, row.min, row.max, row.value)));
        const ObjectHandle param = Param(component, row.target);
        ASSERT_TRUE(param);
        EXPECT_EQ(param.GetProperty("CurrentValue"), row.expected);
        EXPECT_EQ(Value(param), row.expected);
    }
}

TEST_F(ColorCorrector, AllElseIsTheHostsOwn)
{
    const ObjectHandle component = FilterOf(Filter(kEffectId, Parameter("dosat", "TRUE")));
    EXPECT_EQ(component.GetProperty("MatchName"), "KX.ORRN Three-Way Color Corrector");
    EXPECT_EQ(component.GetProperty("DisplayName"), "Three-Way Color Corrector");
    EXPECT_EQ(component.GetProperty("VideoFilterType"), "2");
    EXPECT_EQ(component.GetProperty("Intrinsic"), "false");
    EXPECT_EQ(component.GetProperty("Bypass"), "false");

    std::map<std::string_view, int> controls;
    int id = 0;
    for (const ObjectHandle& param : component.GetChildren("Param")) {
        EXPECT_EQ(IntProperty(param, "ParameterID"), ++id);
        EXPECT_EQ(param.GetProperty("IsTimeVarying"), "false");
        EXPECT_TRUE(param.HasProperty("LowerBound") && param.HasProperty("UpperBound")) << id;
        ++controls[param.GetProperty("ParameterControlType")];
    }
    EXPECT_EQ(id, 134);
    const std::map<std::string_view, int> expected = {
        {"3", 8},   // angles: two for each of four wheels
        {"4", 2},   // switches
        {"5", 15},  // colors: three balances, three levels of each of four ranges
        {"7", 3},   // choices
        {"8", 52},  // sliders
        {"11", 21}, // groups opened
        {"12", 21}, // and closed
        {"16", 12}, // switches of another kind
    };
    EXPECT_EQ(controls, expected);
}

TEST_F(ColorCorrector, EachIsReported)
{
    constexpr const char* kIssue = "ThreeWayApproximation sequence=\"Cut\" clip=\"A\" "
                                   "subject=\"My Color Corrector 3-way\" time=\"01:00:00:00\" "
                                   "track=V3\n";
    const std::string keyframed =
        Parameter("chroma", "50", "<valuemax>200</valuemax>" + Keyframe(0, "50"));
    EXPECT_EQ(Value(Param(FilterOf(Filter(kEffectId, keyframed)), "Master Saturation")), "50");
    EXPECT_EQ(TakeIssues(), kIssue);
    FilterOf(Filter(kEffectId)); // at its defaults
    EXPECT_EQ(TakeIssues(), kIssue);
    EXPECT_FALSE(FilterOf(Filter(kEffectId, "", "<enabled>FALSE</enabled>")));
    EXPECT_EQ(TakeIssues(), "");
}

} // namespace
} // namespace XPJ
