#include "effects/keyframes.h"

#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace XPJ {
namespace {

constexpr Ticks kMax = std::numeric_limits<Ticks>::max();

// A `parameter` from the text of its children.
ObjectHandle ReadParameter(Document& document, std::string_view children)
{
    const std::string text = "<xmeml version=\"5\"><sequence id=\"s\"><media><video><track>"
                             "<clipitem id=\"c\"><filter><effect><parameter>" +
                             std::string(children) +
                             "</parameter></effect></filter></clipitem></track></video></media>"
                             "</sequence></xmeml>";
    ObjectHandle root;
    EXPECT_EQ(ParseFCPXML(document.Store(text), document, root), kReadDone);
    return FindPath(
        root, {"sequence", "media", "video", "track", "clipitem", "filter", "effect", "parameter"});
}

std::string Keyframe(std::string_view when, std::string_view value, std::string_view more = "")
{
    return "<keyframe><when>" + std::string(when) + "</when><value>" + std::string(value) +
           "</value>" + std::string(more) + "</keyframe>";
}

std::string PointKeyframe(std::string_view when, std::string_view horiz, std::string_view vert)
{
    return Keyframe(when, "\n <horiz>" + std::string(horiz) + "</horiz>\n <vert>" +
                              std::string(vert) + "</vert>\n");
}

std::string Record(std::string_view timeAndValue)
{
    return std::string(timeAndValue) + ",0,0,0,0.166667,0,0.166667;";
}

std::string AudioRecord(std::string_view timeAndValue)
{
    return std::string(timeAndValue) +
           ",0,0,0.0,0.166666666666666657414808,0.0,0.166666666666666657414808;";
}

std::string PointRecord(std::string_view timeAndPoint)
{
    return std::string(timeAndPoint) + ",0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.;";
}

TEST(Keyframes, StartKeyframes)
{
    EXPECT_EQ(StartKeyframeText("100"), "-91445760000000000,100,0,0,0.,0.,0.,0.");
    EXPECT_EQ(StartKeyframeText("true"), "-91445760000000000,true,0,0,0.,0.,0.,0.");
    EXPECT_EQ(StartKeyframeText("1,5"), "-91445760000000000,1,0,0,0.,0.,0.,0.");
    EXPECT_EQ(PointStartKeyframeText("0.5:0.25"),
              "-91445760000000000,0.5:0.25,0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.");
}

TEST(Keyframes, ScalarRecords)
{
    const struct {
        std::string keyframes;
        double factor;
        std::string list;
    } rows[] = {
        {"", 1.0, ""},
        {"<value>5</value>", 1.0, ""},
        {Keyframe("0", "1"), 1.0, Record("0,1.")},
        {Keyframe("-2", "1.5"), 1.0, Record("-20,1.5")},
        {Keyframe("3", "1.234567891"), 1.0, Record("30,1.234567891")},
        {Keyframe("3", "1.234567891"), 2.0, Record("30,2.46914")},
        {Keyframe("1", "1e-05"), 1.0, Record("10,1e-05")},
        {Keyframe("1", "true"), 1.0, Record("10,true")},
        // In document order, equal and falling times included.
        {Keyframe("5", "1") + Keyframe("5", "2") + Keyframe("4", "3"), 1.0,
         Record("50,1.") + Record("50,2.") + Record("40,3.")},
        // Nothing of the interpolation is carried, in front or behind.
        {"<interpolation><name>FCPCurve</name></interpolation>" +
             Keyframe("1", "2", "<inbez><horiz>9</horiz><vert>0</vert></inbez>"),
         1.0, Record("10,2.")},
        // Damaged: no value, an empty one, no time, a time with a fraction or beyond the range.
        {"<keyframe><when>1</when></keyframe>" + Keyframe("2", "") + Keyframe("2", " \n "), 1.0,
         ""},
        {"<keyframe><value>7</value></keyframe>" + Keyframe("x", "8") + Keyframe("1.9", "9"), 1.0,
         Record("0,7.") + Record("0,8.") + Record("10,9.")},
        {Keyframe("9223372036854775807", "1"), 1.0, Record("9223372036854775807,1.")},
        {Keyframe("-999999999999999999999", "1"), 1.0, Record("-9223372036854775808,1.")},
        // Marks of the grammar in a value would break the record up.
        {Keyframe("1", "12,5"), 1.0, Record("10,12.")},
        {Keyframe("1", "12;5"), 1.0, Record("10,12.")},
        {Keyframe("1", "1 2"), 1.0, Record("10,1.")},
    };
    for (const auto& row : rows) {
        Document document;
        EXPECT_EQ(ScalarKeyframes(ReadParameter(document, row.keyframes), 10, row.factor), row.list)
            << row.keyframes;
    }
    EXPECT_EQ(ScalarKeyframes(ObjectHandle(), 10), "");
}

TEST(Keyframes, RecordsForAValueOfTheirOwn)
{
    EXPECT_EQ(KeyframeRecordText(0, "100"), Record("0,100."));
    EXPECT_EQ(KeyframeRecordText(5, "0.5", RecordReals::Audio), AudioRecord("5,0.5"));
    Document document;
    EXPECT_EQ(MappedKeyframes(ReadParameter(document, Keyframe("1", "9") + Keyframe("2", "4")), 10,
                              [](double value) { return value / 2; }),
              Record("10,4.5") + Record("20,2."));
}

TEST(Keyframes, ClampedRecords)
{
    const std::string keyframes = Keyframe("0", "1") + Keyframe("10", "3") + Keyframe("20", "-1");
    const std::string hold = ",4,0,0,0.166667,0,0.166667;";
    const struct {
        Clamp clamp;
        std::string list;
        bool clamped;
    } rows[] = {
        {{.valueFactor = 0.5}, Record("0,0.5") + Record("100,1.") + Record("200,0."), true},
        {{.valueFactor = 0.25}, Record("0,0.25") + Record("100,0.75") + Record("200,0."), false},
        {{.offsetFrames = 5, .valueOffset = 1, .valueFactor = 0.5, .upper = 2},
         Record("50,1.") + Record("150,2.") + Record("250,0."),
         false},
        {{.valueFactor = 0.25, .invert = true},
         Record("0,0.75") + Record("100,0.25") + Record("200,1."),
         false},
        {{.valueFactor = 0.5, .reals = RecordReals::Audio},
         AudioRecord("0,0.5") + AudioRecord("100,1.") + AudioRecord("200,0."),
         true},
        // One hold record, at the cut, with the value of the first keyframe behind it.
        {{.cutFrame = 5, .valueFactor = 0.25},
         Record("0,0.25") + "50,0.75" + hold + Record("100,0.75") + Record("200,0."),
         false},
        {{.cutFrame = -1, .valueFactor = 0.25},
         "-10,0.25" + hold + Record("0,0.25") + Record("100,0.75") + Record("200,0."),
         false},
        {{.cutFrame = 20, .valueFactor = 0.25},
         Record("0,0.25") + Record("100,0.75") + Record("200,0."),
         false},
    };
    for (const auto& row : rows) {
        Document document;
        bool clamped = false;
        EXPECT_EQ(ClampedKeyframes(ReadParameter(document, keyframes), 10, row.clamp, &clamped),
                  row.list);
        EXPECT_EQ(clamped, row.clamped) << row.list;
    }
}

TEST(Keyframes, ClampedRecordsOfAnEmptyRange)
{
    Document document;
    const Clamp clamp{.offsetFrames = kMax, .valueFactor = std::numeric_limits<double>::infinity()};
    EXPECT_EQ(ClampedKeyframes(ReadParameter(document, Keyframe("1", "0") + Keyframe("1", "1")), 10,
                               clamp),
              Record("9223372036854775807,0.") + Record("9223372036854775807,1."));
    EXPECT_EQ(ClampedKeyframes(ReadParameter(document, ""), 10, clamp), "");
}

TEST(Keyframes, PointRecords)
{
    Document document;
    const ObjectHandle parameter = ReadParameter(
        document, "<value><horiz>9</horiz><vert>9</vert></value>" +
                      PointKeyframe("1", "0", "-0.5") + "<keyframe><when>2</when></keyframe>" +
                      Keyframe("3", "<vert>0.25</vert>") + PointKeyframe("4", "x", "1e400"));
    EXPECT_EQ(PointKeyframes(parameter, 10), PointRecord("10,0.5:0") + PointRecord("30,0.5:0.75") +
                                                 PointRecord("40,0.5:1.79769e+308"));
    EXPECT_EQ(
        PointKeyframes(ReadParameter(document, PointKeyframe("1", "0.25", "-0.5")), 10, 2, 0.5),
        PointRecord("10,1:0.25"));
}

struct PairRow {
    const char* what;
    std::string centerOffset;
    std::string center;
    std::string anchor;
    std::string position;
};

TEST(Keyframes, PairedPointRecords)
{
    const std::string value = "<value><horiz>0</horiz><vert>0</vert></value>";
    const std::string moving = PointKeyframe("1", "0.1", "0.2") + PointKeyframe("3", "0.2", "0.1");
    const std::string middle = PointKeyframe("2", "0.1", "0") + PointKeyframe("4", "0", "0.1");
    const std::string anchors = PointRecord("10,0.6:0.7") + PointRecord("30,0.7:0.6");
    const std::string positions = PointRecord("20,0.9:0.6") + PointRecord("40,0.9:0.6");
    const PairRow rows[] = {
        {"in step", value + moving, value + middle, anchors, positions},
        {"the shorter list ends the walk", moving, PointKeyframe("2", "0.1", "0"),
         PointRecord("10,0.6:0.7"), PointRecord("20,0.9:0.6")},
        {"a pair needs two values", moving,
         PointKeyframe("2", "0.1", "0") + "<keyframe><when>4</when></keyframe>",
         PointRecord("10,0.6:0.7"), PointRecord("20,0.9:0.6")},
        {"out of step", moving, value + PointKeyframe("2", "0", "0"), PointRecord("30,0.7:0.6"),
         PointRecord("20,0.9:0.55")},
        {"an interpolation is no step",
         "<interpolation><name>FCPCurve</name></interpolation>" + moving, middle, anchors,
         positions},
        {"still anchor", value, value + middle, "",
         PointRecord("20,0.7:0.5") + PointRecord("40,0.5:0.55")},
        {"moving anchor, still centre", value + moving, value, "", ""},
        {"no anchor at all", "", middle, "", ""},
    };
    for (const PairRow& row : rows) {
        Document document;
        const AnchorAndPosition lists =
            PairedPointKeyframes(ReadParameter(document, row.centerOffset),
                                 ReadParameter(document, row.center), 10, 2, 0.5);
        EXPECT_EQ(lists.anchor, row.anchor) << row.what;
        EXPECT_EQ(lists.position, row.position) << row.what;
    }
    Document document;
    const AnchorAndPosition alone =
        PairedPointKeyframes(ReadParameter(document, value + moving), ObjectHandle(), 10, 2, 0.5);
    EXPECT_EQ(alone.anchor, anchors);
    EXPECT_EQ(alone.position, "");
}

TEST(Keyframes, SpeedRecords)
{
    Document document;
    const ObjectHandle graph =
        ReadParameter(document, Keyframe("0", "0", "<speedvirtualkf>TRUE</speedvirtualkf>") +
                                    Keyframe("25", "50", "<velaRampStart>true</velaRampStart>") +
                                    Keyframe("50", "75.5", "<velaRampEnd>TRUE</velaRampEnd>") +
                                    "<keyframe><when>60</when></keyframe>");
    const std::string list = SpeedKeyframes(graph, kPalFrameTicks);
    EXPECT_EQ(list, "0,0,6,0,0,0,0,0;254016000000,2,7,0,0,0,0,0;508032000000,3.02,8,0,0,0,0,0;");
    EXPECT_EQ(ParseSpeedKeyframes(list),
              (std::vector<SpeedPoint>{
                  {0, 0, 6}, {254016000000, 508032000000, 7}, {508032000000, 767128320000, 8}}));
    EXPECT_EQ(MediaSecondsText("", kPalFrameTicks), "0");
    EXPECT_EQ(MediaSecondsText("1", kNtscFrameTicks), "0.0333667");
}

TEST(Keyframes, SpeedPointsAreRoundedAndStayInRange)
{
    // One NTSC frame has lost digits on its way.
    EXPECT_EQ(ParseSpeedKeyframes("0,0.0333667,6,0,0,0,0,0;")[0].mediaTime, 8475675667);
    EXPECT_EQ(ParseSpeedKeyframes("1,1e300;")[0], (SpeedPoint{1, kMax, 0}));
    EXPECT_EQ(ParseSpeedKeyframes("1,-1e300,x;")[0].mediaTime, std::numeric_limits<Ticks>::min());
}

TEST(Keyframes, FieldsOfARecord)
{
    EXPECT_EQ(KeyframeField("1,2,,4", 0), "1");
    EXPECT_EQ(KeyframeField("1,2,,4", 2), "");
    EXPECT_EQ(KeyframeField("1,2,,4", 3), "4");
    EXPECT_EQ(KeyframeField("1,2,,4", 4), "");
    EXPECT_EQ(KeyframeField("1;2,3", 1), "");
    EXPECT_EQ(KeyframeField("", 0), "");
}

// "when=value" of each keyframe of a parameter, points as "h:v".
std::string Written(ObjectHandle parameter)
{
    std::string text;
    for (const ObjectHandle& keyframe : parameter.GetChildren("keyframe")) {
        text += std::string(keyframe.GetProperty("when")) + "=";
        text += keyframe.HasChild("value") ? PointText(PointValue(keyframe))
                                           : std::string(keyframe.GetProperty("value"));
        text += " ";
    }
    return text;
}

TEST(Keyframes, WrittenToADocument)
{
    const struct {
        std::string list;
        const char* written;
    } rows[] = {
        {"", ""},
        {";;", ""},
        {Record("0,1.") + Record("100,2.5"), "0=1 10=2.5 "},
        {"100,2.5", "10=2.5 "},
        {Record("109,1.") + Record("-19,1."), "10=1 -1=1 "},
        {Record("100,1.") + Record("100,2."), "10=1 10=2 "},
        {"garbage;10;20,;x,3;" + Record("30,4."), "0=3 3=4 "},
        {"9223372036854775808,1e999,0", "922337203685477580=1.79769e+308 "},
    };
    for (const auto& row : rows) {
        Document document;
        const ObjectHandle parameter = document.NewObject("parameter");
        WriteKeyframes(document, parameter, row.list, 10);
        EXPECT_EQ(Written(parameter), row.written) << row.list;
    }
    Document document;
    const ObjectHandle parameter = document.NewObject("parameter");
    WriteKeyframes(document, parameter, Record("100,2."), 1, [](double v) { return 2 * v; });
    EXPECT_EQ(Written(parameter), "100=4 ");
    EXPECT_THROW(WriteKeyframes(document, parameter, Record("1,2."), 0), std::runtime_error);
}

TEST(Keyframes, PointsWrittenToADocument)
{
    Document document;
    const ObjectHandle parameter = document.NewObject("parameter");
    WritePointKeyframes(document, parameter,
                        PointRecord("10,0.25:0.75") + "20,0.5,1,0;30,;40,0.5:", 10,
                        [](const Point& p) {
                            return Point{p.horiz - 0.5, p.vert - 0.5};
                        });
    EXPECT_EQ(Written(parameter), "1=-0.25:0.25 2=0:0.5 4=0:-0.5 ");
    const ObjectHandle plain = document.NewObject("parameter");
    WritePointKeyframes(document, plain, PointRecord("10,0.25:0.75"), 10);
    EXPECT_EQ(Written(plain), "1=0.25:0.75 ");
}

TEST(Keyframes, ThereAndBack)
{
    Document document;
    const ObjectHandle scalars = ReadParameter(
        document, Keyframe("-30", "100") + Keyframe("0", "12.5") + Keyframe("999999", "-3"));
    const ObjectHandle points =
        ReadParameter(document, PointKeyframe("0", "-0.5", "0.25") + PointKeyframe("7", "0", "0"));
    for (const Ticks frame : {kNtscFrameTicks, kPalFrameTicks, Ticks{5297407770}, Ticks{1}}) {
        const ObjectHandle scalarsBack = document.NewObject("parameter");
        WriteKeyframes(document, scalarsBack, ScalarKeyframes(scalars, frame), frame);
        EXPECT_EQ(Written(scalarsBack), "-30=100 0=12.5 999999=-3 ");
        const ObjectHandle pointsBack = document.NewObject("parameter");
        WritePointKeyframes(document, pointsBack, PointKeyframes(points, frame), frame,
                            [](const Point& p) {
                                return Point{p.horiz - 0.5, p.vert - 0.5};
                            });
        EXPECT_EQ(Written(pointsBack), "0=-0.5:0.25 7=0:0 ");
    }
}

} // namespace
} // namespace XPJ
