#include "text/shape_path.h"

#include "text/key_table.h"

#include <stdexcept>

#include <nlohmann/json.hpp>

namespace XPJ::GVE {

namespace {

// Length of a handle, in half axes, with which a cubic curve comes closest to a quarter circle:
// 4 / 3 * (sqrt(2) - 1).
constexpr double kQuarterCircle = 0.5522847498;

constexpr Key<PathPoint> kPointKeys[] = {
    {"mX", &PathPoint::x},     {"mY", &PathPoint::y},       {"mInX", &PathPoint::inX},
    {"mInY", &PathPoint::inY}, {"mOutX", &PathPoint::outX}, {"mOutY", &PathPoint::outY},
};

// With its handles on itself.
PathPoint Corner(double x, double y)
{
    return {x, y, x, y, x, y};
}

void ReadPath(const Json& json, ShapePath& path)
{
    if (const Json* const closed = Find(json, "mClosed"))
        ReadValue(*closed, path.closed);
    const Json* const points = Find(json, "mPoints");
    if (!points || !points->is_array())
        return;
    for (const Json& point : *points)
        if (point.is_object())
            ReadKeys<PathPoint>(point, kPointKeys, path.points.emplace_back());
}

} // namespace

ShapePath ShapePath::Rectangle(double width, double height)
{
    const double x = width / 2;
    const double y = height / 2;
    return {true, {Corner(-x, -y), Corner(x, -y), Corner(x, y), Corner(-x, y)}};
}

ShapePath ShapePath::Ellipse(double width, double height)
{
    const double x = width / 2;
    const double y = height / 2;
    const double handleX = x * kQuarterCircle;
    const double handleY = y * kQuarterCircle;
    return {true,
            {{0, -y, -handleX, -y, handleX, -y},
             {x, 0, x, -handleY, x, handleY},
             {0, y, handleX, y, -handleX, y},
             {-x, 0, -x, handleY, -x, -handleY}}};
}

ShapePath ShapePath::FromBlob(std::string_view blob)
{
    ShapePath path;
    try {
        const Json document = ReadBlob(blob);
        if (const Json* const values = Find(document, "mPath"))
            ReadPath(*values, path);
    } catch (const std::runtime_error&) { // NOLINT(bugprone-empty-catch): the empty path
    }
    return path;
}

std::string ShapePath::serialize() const
{
    std::string json = R"({"mVersion":1,"mPath":{"mClosed":)";
    AppendValue(closed, json);
    json += R"(,"mPoints":[)";
    for (const PathPoint& point : points) {
        if (&point != &points.front())
            json += ',';
        AppendKeys<PathPoint>(point, kPointKeys, json);
    }
    json += "]}}";
    return WriteBlob(json);
}

} // namespace XPJ::GVE
