#include "effects/values.h"

#include "effects/effect_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace XPJ {
namespace {

TEST(Values, NumberText)
{
    const struct {
        double number;
        const char* text;
    } rows[] = {
        {0.5, "0.5"},
        {100, "100"},
        {-0.0, "0"},
        {1.0 / 6, "0.166667"},
        {1e-5, "1e-05"},
        {1234567, "1.23457e+06"},
        {-33.33333, "-33.3333"},
        {std::numeric_limits<double>::infinity(), "0"},
        {std::numeric_limits<double>::quiet_NaN(), "0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NumberText(row.number), row.text);
}

TEST(Values, FactorOneKeepsTheText)
{
    EXPECT_EQ(ScaledText("1.234567891", 1.0), "1.234567891");
    EXPECT_EQ(ScaledText("1.234567891", 2.0), "2.46914");
    EXPECT_EQ(ScaledText("50%", 2.0), "100");
    EXPECT_EQ(ScaledText("none", 2.0), "0");
}

TEST(Values, PackedColours)
{
    EXPECT_EQ(PackedColour({0, 0, 0, 0}), "18374686479671623680");
    EXPECT_EQ(PackedColour({128, 128, 128, 255}), "18374827219307495424");
    EXPECT_EQ(PackedColour({255, 255, 255, 0}), "18374966859414961920");
    EXPECT_EQ(PackedColour({300, -1, 0, 0}), PackedColour({255, 0, 0, 0}));
    EXPECT_NE(PackedColour({255, 0, 0, 0}), PackedColour({0, 0, 255, 0}));
}

TEST(Values, WhereAValueStands)
{
    Document document;
    const ObjectHandle read = ReadParameter(document, "<value>\n  12 \n</value>");
    EXPECT_EQ(PlainValue(read), "12");
    EXPECT_EQ(RawValue(ReadParameter(document, "<value> a b </value>")), " a b ");
    EXPECT_EQ(PlainValue(ReadParameter(document, "<value> </value>")), "");
    EXPECT_EQ(PlainValue(ObjectHandle()), "");

    const ObjectHandle made = document.NewObject("parameter");
    made.SetProperty("value", " 7 ");
    EXPECT_EQ(PlainValue(made), "7");
    EXPECT_EQ(RawValue(made), " 7 ");
}

TEST(Values, TheFirstKeyframeStandsInForAValue)
{
    Document document;
    const char* const keyframes = "<keyframe><when>3</when></keyframe>"
                                  "<keyframe><when>4</when><value>40</value></keyframe>"
                                  "<keyframe><when>5</when><value>50</value></keyframe>";
    EXPECT_EQ(StaticValue(ReadParameter(document, keyframes), "1"), "40");
    EXPECT_EQ(
        StaticValue(ReadParameter(document, std::string(keyframes) + "<value>9</value>"), "1"),
        "9");
    EXPECT_EQ(StaticValue(ReadParameter(document, ""), "1"), "1");
}

TEST(Values, PointsAndColours)
{
    Document document;
    const ObjectHandle still =
        ReadParameter(document, "<value>\n <horiz>-0.25</horiz>\n <vert>0.5</vert>\n</value>");
    EXPECT_EQ(StaticPoint(still), (Point{-0.25, 0.5}));
    EXPECT_EQ(PlainValue(still), "");
    EXPECT_EQ(StaticPoint(ReadParameter(document, "<keyframe><value><vert>0.1</vert></value>"
                                                  "</keyframe>")),
              (Point{0, 0.1}));
    EXPECT_EQ(StaticPoint(ReadParameter(document, "")), Point());
    EXPECT_EQ(ColourValue(ReadParameter(document, "<value><alpha>255</alpha><red>10</red>"
                                                  "<blue>x</blue></value>")),
              (Colour{10, 0, 0, 255}));
    EXPECT_EQ(PointText({-0.0, 0.3333333333}), "0:0.333333");
}

TEST(Values, TheLastParameterOfAnIdWins)
{
    Document document;
    const ObjectHandle effect =
        ReadEffect(document, "<parameter><parameterid>s</parameterid><name>one</name></parameter>"
                             "<parameter><parameterid>t</parameterid><keyframe/></parameter>"
                             "<parameter><parameterid>s</parameterid><name>two</name></parameter>");
    EXPECT_EQ(FindParameter(effect, "s").GetProperty("name"), "two");
    EXPECT_FALSE(FindParameter(effect, "u"));
    EXPECT_FALSE(HasKeyframes(FindParameter(effect, "s")));
    EXPECT_TRUE(HasKeyframes(FindParameter(effect, "t")));
}

TEST(Values, RatesOfTheDocument)
{
    Document document;
    const ObjectHandle rate = document.NewObject("rate");
    Ticks ticks = 7;
    EXPECT_FALSE(RateTicks(rate, &ticks));
    EXPECT_FALSE(RateTicks(ObjectHandle(), &ticks));
    EXPECT_EQ(ticks, 7);
    rate.SetProperty("timebase", "254016000000");
    EXPECT_TRUE(RateTicks(rate, &ticks));
    EXPECT_EQ(ticks, 1);
    rate.SetProperty("timebase", "24");
    rate.SetProperty("ntsc", "True");
    EXPECT_TRUE(RateTicks(rate, &ticks));
    EXPECT_EQ(ticks, 10594584000);
}

} // namespace
} // namespace XPJ
