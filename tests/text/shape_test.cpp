#include "text/shape_path.h"
#include "text/shape_style.h"

#include "text/blob_text.h"

#include <gtest/gtest.h>

namespace XPJ::GVE {
namespace {

TEST(ShapeStyle, ExactText)
{
    ShapeStyle style;
    style.fillColor = {0x0000ff};
    style.strokeVisible = true;
    style.strokeWidth = 4.5;
    const std::string expected =
        R"({"SerializerWrappedObject":{"mVersion":1,"mStyle":{"mFillColor":255,)"
        R"("mFillVisible":true,"mStrokeColor":0,"mStrokeVisible":true,"mStrokeWidth":4.5,)"
        R"("mShadowColor":0,"mShadowVisible":false,"mShadowOpacity":100.0,)"
        R"("mShadowAngle":135.0,"mShadowOffset":10.0,"mShadowBlur":0.0}}})";
    EXPECT_EQ(style.serialize(), BlobOf(expected));
    EXPECT_EQ(ShapeStyle::FromBlob(BlobOf(expected)), style);
}

TEST(ShapeStyle, Reading)
{
    ShapeStyle style;
    style.fillColor = {0x00ff00};
    EXPECT_EQ(
        ShapeStyle::FromBlob(BlobOf(
            R"({"SerializerWrappedObject":{"mStyle":{"mFillColor":65280,"mShadowBlur":"x"}}})")),
        style);
    for (const std::string_view blob : {std::string_view(), std::string_view("no blob")})
        EXPECT_EQ(ShapeStyle::FromBlob(blob), ShapeStyle());
}

TEST(ShapePath, ExactText)
{
    const std::string expected =
        R"({"SerializerWrappedObject":{"mVersion":1,"mPath":{"mClosed":true,"mPoints":[)"
        R"({"mX":-50.0,"mY":-10.0,"mInX":-50.0,"mInY":-10.0,"mOutX":-50.0,"mOutY":-10.0},)"
        R"({"mX":50.0,"mY":-10.0,"mInX":50.0,"mInY":-10.0,"mOutX":50.0,"mOutY":-10.0},)"
        R"({"mX":50.0,"mY":10.0,"mInX":50.0,"mInY":10.0,"mOutX":50.0,"mOutY":10.0},)"
        R"({"mX":-50.0,"mY":10.0,"mInX":-50.0,"mInY":10.0,"mOutX":-50.0,"mOutY":10.0}]}}})";
    EXPECT_EQ(AsciiOf(ShapePath::Rectangle(100, 20).serialize()), expected);
    EXPECT_EQ(ShapePath::FromBlob(BlobOf(expected)), ShapePath::Rectangle(100, 20));
}

// On each quarter of a circle the middle of the curve is at the radius.
TEST(ShapePath, AnEllipseIsRound)
{
    const ShapePath path = ShapePath::Ellipse(200, 100);
    ASSERT_EQ(path.points.size(), 4u);
    EXPECT_EQ(path.points[0].y, -50);
    EXPECT_EQ(path.points[1].x, 100);
    for (std::size_t i = 0; i < 4; ++i) {
        const PathPoint& a = path.points[i];
        const PathPoint& b = path.points[(i + 1) % 4];
        const double x = (a.x + 3 * a.outX + 3 * b.inX + b.x) / 8 / 100;
        const double y = (a.y + 3 * a.outY + 3 * b.inY + b.y) / 8 / 50;
        EXPECT_NEAR(x * x + y * y, 1, 1e-6) << i;
    }
    EXPECT_EQ(ShapePath::FromBlob(path.serialize()), path);
}

TEST(ShapePath, WhatIsNoPathHasNoPoints)
{
    for (const char* const json :
         {"", "{}", R"({"SerializerWrappedObject":{"mPath":[]}})",
          R"({"SerializerWrappedObject":{"mPath":{"mPoints":[1,null,"x"]}}})"})
        EXPECT_TRUE(ShapePath::FromBlob(BlobOf(json)).points.empty()) << json;
}

} // namespace
} // namespace XPJ::GVE
