// What the writers of effects have in common. Each fills the `effect` of one `filter` from one
// component of the project.
#pragma once

#include "core/ticks.h"
#include "effects/values.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ::RVX {

struct EffectHead {
    std::string_view name;
    std::string_view id;
    std::string_view category; // empty: none
    std::string_view type;
    std::string_view mediaType = "video";
};

// An effect that is being written.
struct EffectSource {
    Document& document; // of the result
    ConstHandle component;
    Ticks frameTicks; // the frames in which its keyframes count

    // The last parameter of that `ParameterID`.
    ConstHandle Param(std::string_view id) const;
};

// Name, id and kind. The texts must live as long as the document.
void WriteEffectHead(const EffectHead& head, ObjectHandle effect);
// Bypass and the unfolded state of a component.
void WriteSwitches(ConstHandle component, ObjectHandle effect);
// Puts a `filter` on an item and gives its `effect`.
ObjectHandle AddFilter(Document& document, const EffectHead& head, ObjectHandle item);
// The `effect` of an item that has the id; null without one.
ObjectHandle FindEffect(ObjectHandle item, std::string_view effectId);

// A number of a project that becomes a `parameter`.
struct NumberRow {
    std::string_view param; // `ParameterID`
    std::string_view id;
    std::string_view name;
    std::string_view min;
    std::string_view max;
    double missing = 0;              // in the project's terms
    double (*map)(double) = nullptr; // to the document's, for value and keyframes; null: the same
};

ObjectHandle AddNumber(const EffectSource& source, const NumberRow& row, ObjectHandle effect);

// The centre of the frame, and a point of a project as seen from there, which is how documents tell
// points.
inline constexpr Point kFrameCentre{0.5, 0.5};
Point FromCentre(const Point& point);

// A point that becomes a `parameter`.
struct PointRow {
    std::string_view param;
    std::string_view id;
    std::string_view name;
};

ObjectHandle AddPoint(const EffectSource& source, const PointRow& row, ObjectHandle effect);

} // namespace XPJ::RVX
