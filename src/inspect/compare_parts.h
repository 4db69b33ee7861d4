// Comparison of what belongs to an item, a transition or a sequence: effects with their parameters
// and keyframes, and markers.
#pragma once

#include "inspect/difference_list.h"
#include "inspect/timeline.h"

#include <string>
#include <vector>

namespace XPJ::Inspection {

// An effect, or the effect of a transition, in two documents of one family.
struct ComparedParameters {
    const Effect& a;
    const Effect& b;
    Family family;
    const TimecodeFormat& format; // of the keyframes' times
    std::string prefix = {};      // in front of the parameters' names
};

// Neither what has its default on one side and isn't stated on the other is a difference, nor
// keyframes that all have the value of the other side.
void CompareParameters(const ComparedSubject& subject, const ComparedParameters& compared,
                       DifferenceList& differences);

// One difference for the whole list.
void CompareKeyframes(const ComparedSubject& subject, const ComparedProperty& property,
                      const TimecodeFormat& format, const std::vector<Keyframe>& a,
                      const std::vector<Keyframe>& b, DifferenceList& differences);

struct ItemOfFamily {
    const Item& item;
    Family family;
};

// An effect that does nothing may be missing on the other side. Between two families parameters are
// not compared, and what the item shows is not an effect.
void CompareEffects(const ComparedSubject& subject, const ItemOfFamily& a, const ItemOfFamily& b,
                    DifferenceList& differences);

// Of two owners. XML documents have markers at whole frames: what is less than a frame is no
// difference to the marker of a project.
struct ComparedMarkers {
    const std::vector<Marker>& a;
    const std::vector<Marker>& b;
    const TimecodeFormat& format;
    bool areOfOneFamily = true;
};

// `owner` is the item, the sequence or the bin clip that they are on.
void CompareMarkers(const ComparedSubject& owner, const ComparedMarkers& compared,
                    DifferenceList& differences);

} // namespace XPJ::Inspection
