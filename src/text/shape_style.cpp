#include "text/shape_style.h"

#include "text/key_table.h"

#include <stdexcept>

#include <nlohmann/json.hpp>

namespace XPJ::GVE {

namespace {

constexpr Key<ShapeStyle> kStyleKeys[] = {
    {"mFillColor", &ShapeStyle::fillColor},         {"mFillVisible", &ShapeStyle::fillVisible},
    {"mStrokeColor", &ShapeStyle::strokeColor},     {"mStrokeVisible", &ShapeStyle::strokeVisible},
    {"mStrokeWidth", &ShapeStyle::strokeWidth},     {"mShadowColor", &ShapeStyle::shadowColor},
    {"mShadowVisible", &ShapeStyle::shadowVisible}, {"mShadowOpacity", &ShapeStyle::shadowOpacity},
    {"mShadowAngle", &ShapeStyle::shadowAngle},     {"mShadowOffset", &ShapeStyle::shadowOffset},
    {"mShadowBlur", &ShapeStyle::shadowBlur},
};

} // namespace

ShapeStyle ShapeStyle::FromBlob(std::string_view blob)
{
    ShapeStyle style;
    try {
        const Json document = ReadBlob(blob);
        if (const Json* const values = Find(document, "mStyle"))
            ReadKeys<ShapeStyle>(*values, kStyleKeys, style);
    } catch (const std::runtime_error&) { // NOLINT(bugprone-empty-catch): the default style
    }
    return style;
}

std::string ShapeStyle::serialize() const
{
    std::string json = R"({"mVersion":1,"mStyle":)";
    AppendKeys<ShapeStyle>(*this, kStyleKeys, json);
    json += '}';
    return WriteBlob(json);
}

} // namespace XPJ::GVE
