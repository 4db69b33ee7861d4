#include "effects/time_remap.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <string>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr Ticks kFrame = kPalFrameTicks;

// A record at a frame of the item and of its source.
std::string Record(int frame, double source, int kind = 6)
{
    return TickText(frame * kFrame) + "," + NumberText(source / 25) + "," + IntToString(kind) +
           ",0,0,0,0,0;";
}

struct RemapCase {
    const char* what;
    std::string keyframes;
    PlayedSpeed timing;
    const char* in;
    const char* out;
    const char* expected;
};

// "when=value", then the marks: v virtual, s start, i in, o out, < ramp start, > ramp end.
std::string GraphText(ObjectHandle graph)
{
    constexpr struct {
        Name key;
        char mark;
    } kMarks[] = {{"speedvirtualkf", 'v'}, {"speedkfstart", 's'},  {"speedkfin", 'i'},
                  {"speedkfout", 'o'},     {"velaRampStart", '<'}, {"velaRampEnd", '>'}};
    std::string text;
    for (const ObjectHandle keyframe : graph.GetChildren("keyframe")) {
        text += (text.empty() ? "" : " ") + std::string(keyframe.GetProperty("when")) + "=" +
                std::string(keyframe.GetProperty("value"));
        for (const auto& mark : kMarks)
            if (keyframe.GetProperty(mark.key) == "TRUE")
                text += mark.mark;
        for (const Name name : {Name("outbez"), Name("inbez")})
            if (const ObjectHandle handle = keyframe.GetChild(name))
                text += "(" + std::string(handle.GetProperty("horiz")) + "," +
                        std::string(handle.GetProperty("vert")) + ")";
    }
    return text;
}

PlayedSpeed Timing(double speed, std::int64_t duration, double ratio)
{
    PlayedSpeed timing{.originalDuration = 10000};
    timing.frameTicks = kFrame;
    timing.factor = speed;
    timing.duration = duration;
    timing.ratio = ratio;
    return timing;
}

TEST(TimeRemap, GraphOfSpeeds)
{
    const std::string ramp = Record(0, 0) + Record(10, 10, 7) + Record(20, 30, 8) + Record(40, 90);
    const RemapCase cases[] = {
        {"a constant speed", "", Timing(0.5, 200, 0.5), "10", "60", "0=0 200=100"},
        {"of no length", "", Timing(2, 0, 2), "0", "0", "0=0 0=0"},
        {"points, edges between them", Record(0, 0) + Record(50, 100), Timing(1, 100, 1), "10",
         "40", "0=0 10=20vi 40=80vo 50=100"},
        {"edges on points and outside", Record(0, 0) + Record(50, 100), Timing(1, 100, 1), "0",
         "60", "0=0 50=100"},
        {"an edge at frame 0", Record(-10, 0) + Record(10, 20), Timing(1, 100, 1), "0", "10",
         "-10=0 0=10vs 10=20"},
        {"the clip's speed divides the times", Record(0, 0) + Record(50, 100), Timing(2, 100, 1),
         "-1", "-1", "0=0 25=100"},
        {"two points make no ramp", Record(0, 0, 7) + Record(50, 100, 8), Timing(1, 100, 1), "0",
         "50", "0=0 50=100"},
        {"a ramp: the neighbours' lines meet at 15, 15", ramp, Timing(1, 100, 1), "-1", "-1",
         "0=0 10=10<(2.35702,0.785398) 20=30>(5.27046,-1.89255) 40=90"},
        {"a plain point before a ramp's end starts it, without a neighbour it is straight",
         Record(0, 0) + Record(10, 10, 8) + Record(20, 20), Timing(1, 100, 1), "-1", "-1",
         "0=0<(2.35702,0.785398) 10=10>(2.35702,-2.35619) 20=20"},
        {"times that fall together", Record(5, 0) + Record(5, 9, 7) + Record(5, 9, 8),
         Timing(1, 100, 1), "5", "5", "5=0 5=9<(0,0) 5=9>(0,0)"},
        {"points out of order come in order", Record(30, 30) + Record(10, 10), Timing(1, 100, 1),
         "-1", "-1", "10=10 30=30"},
    };
    for (const RemapCase& row : cases) {
        Document document;
        const ObjectHandle item = document.NewObject("clipitem");
        item.SetProperty("in", row.in);
        item.SetProperty("out", row.out);
        TimeRemapToXmeml(document, row.timing, row.keyframes, MediaType::Video, item);
        const ObjectHandle effect = FindPath(item, {"filter", "effect"});
        EXPECT_EQ(GraphText(FindParameter(effect, "graphdict")), row.expected) << row.what;
        EXPECT_EQ(PlainValue(FindParameter(effect, "variablespeed")),
                  row.keyframes.empty() ? "0" : "1");
    }
}

TEST(TimeRemap, Switches)
{
    Document document;
    const ObjectHandle item = document.NewObject("clipitem");
    PlayedSpeed timing = Timing(0.25, 400, 0.25);
    timing.reverse = true;
    TimeRemapToXmeml(document, timing, "", MediaType::Audio, item);
    const ObjectHandle effect = FindPath(item, {"filter", "effect"});
    EXPECT_EQ(effect.GetProperty("mediatype"), "audio");
    EXPECT_EQ(PlainValue(FindParameter(effect, "speed")), "25");
    EXPECT_EQ(PlainValue(FindParameter(effect, "reverse")), "TRUE");
    EXPECT_EQ(PlainValue(FindParameter(effect, "frameblending")), "FALSE");
    EXPECT_EQ(FindParameter(effect, "graphdict").GetProperty("valuemax"), "100");
}

// Lengths in ticks have more digits than other numbers.
TEST(TimeRemap, WholeNumbersKeepTheirDigits)
{
    struct Case {
        std::int64_t original;
        std::int64_t duration;
        const char* graph;
    };
    for (const Case& row : {Case{2540160000000, 5080320000000, "0=0 5080320000000=2540160000000"},
                            {7, 49 * 3, "0=0 147=7"},
                            {9223372036854775807, 3, "0=0 3=9223372036854775807"}}) {
        Document document;
        const ObjectHandle item = document.NewObject("clipitem");
        PlayedSpeed timing = Timing(0.5, row.duration, 0);
        timing.originalDuration = row.original;
        timing.ratio = static_cast<double>(row.original) / static_cast<double>(row.duration);
        TimeRemapToXmeml(document, timing, "", MediaType::Audio, item);
        const ObjectHandle graph = FindParameter(FindPath(item, {"filter", "effect"}), "graphdict");
        EXPECT_EQ(GraphText(graph), row.graph);
        EXPECT_EQ(graph.GetProperty("valuemax"), IntToString(row.original));
    }
    Document document;
    const ObjectHandle item = document.NewObject("clipitem");
    TimeRemapToXmeml(document, Timing(1, 100, 1), Record(0, 0) + "10160640000,80000,6,0,0,0,0,0;",
                     MediaType::Video, item);
    EXPECT_EQ(GraphText(FindParameter(FindPath(item, {"filter", "effect"}), "graphdict")),
              "0=0 1=2000000");
}

TEST(TimeRemap, DamagedTimesStayNumbers)
{
    constexpr std::string_view kTimes[] = {"9223372036854775807,1e308,7;", "0,nan,6;",
                                           "-9223372036854775808,-1e308,8;", "5,inf,8;", "x,y,z;"};
    for (const double speed : {1.0, 1e-300, 1e300}) {
        std::string keyframes;
        for (const std::string_view first : kTimes)
            for (const std::string_view second : kTimes)
                keyframes += std::string(first) + std::string(second);
        Document document;
        const ObjectHandle item = document.NewObject("clipitem");
        item.SetProperty("in", "-9223372036854775808");
        item.SetProperty("out", "3");
        TimeRemapToXmeml(document, Timing(speed, 9223372036854775807, 1e300), keyframes,
                         MediaType::Video, item);
        const std::string text =
            GraphText(FindParameter(FindPath(item, {"filter", "effect"}), "graphdict"));
        EXPECT_EQ(text.find("nan"), text.npos) << text;
        EXPECT_EQ(text.find("inf"), text.npos) << text;
    }
}

} // namespace
} // namespace XPJ
