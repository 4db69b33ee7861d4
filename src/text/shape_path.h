// The outline of a shape: points with Bezier handles, in pixels from the shape's center, x to the
// right and y down.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::GVE {

// The handles are positions of their own, not distances from the point.
struct PathPoint {
    double x = 0, y = 0;
    double inX = 0, inY = 0;
    double outX = 0, outY = 0;

    bool operator==(const PathPoint&) const = default;
};

struct ShapePath {
    bool closed = true;
    std::vector<PathPoint> points;

    bool operator==(const ShapePath&) const = default;

    // Four corners from top left, clockwise. Sizes in pixels.
    static ShapePath Rectangle(double width, double height);
    // Four points from the top, clockwise.
    static ShapePath Ellipse(double width, double height);

    // No points for an invalid blob.
    static ShapePath FromBlob(std::string_view blob);
    std::string serialize() const;
};

} // namespace XPJ::GVE
