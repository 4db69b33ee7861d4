// Comparison of what belongs to an item, a transition or a sequence: effects with their parameters
// and keyframes, and markers.
#pragma once

#include "inspect/difference_list.h"
#include "inspect/timeline.h"

#include <string>
#include <vector>

namespace XPJ::Inspection {

// `prefix` is put in front of the parameters' names.
void CompareParameters(const ComparedSubject& subject, const std::string& prefix,
                       const TimecodeFormat& format, const std::vector<Parameter>& a,
                       const std::vector<Parameter>& b, DifferenceList& differences);

void CompareKeyframes(const ComparedSubject& subject, const std::string& property,
                      const TimecodeFormat& format, const std::vector<Keyframe>& a,
                      const std::vector<Keyframe>& b, DifferenceList& differences);

// What counts of effects.
struct EffectComparison {
    bool parameters = true;
    bool titles = true; // effects that carry a title
};

void CompareEffects(const ComparedSubject& subject, const Item& a, const Item& b,
                    EffectComparison counts, DifferenceList& differences);

// `owner` is the item that they are on, empty for those of the sequence.
void CompareMarkers(const std::string& owner, const TimecodeFormat& format,
                    const std::vector<Marker>& a, const std::vector<Marker>& b,
                    DifferenceList& differences);

} // namespace XPJ::Inspection
