// The timelines of a page as JSON.
//
// A feature film has tens of thousands of clips, so they are rows of numbers: texts are indices
// into one table, and a start is the gap to the end before it.
//
//   {"title": "Cut.xml",
//    "texts": ["", "Cut 1", "A001", ...],
//    "projects": [{"name": 1, "sequences": [{
//        "name": 1, "frame": 0.04, "base": 25, "drop": false, "start": 90000,
//        "tracks": [{"id": "V1", "name": 0, "enabled": true, "locked": false,
//            "clips": [gap, length, name, source, kind, ...],
//            "transitions": [gap, length, name, ...]}]}]}],
//    "differences": [[change, subject, sequence, bin, track, name, timecode, property, before,
//                     after, frame, [sequence, track, clip], [sequence, track, clip]], ...]}
//
// Times are frames of the sequence; "frame" is the length of one in seconds, "start" the timecode
// of the first. A kind is that of the source, 5 for a title, and 8 more for a clip that is switched
// off. Up to the frame all of a difference are texts; then it has its indices in the first and the
// second project, -1 for none.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <span>
#include <string>
#include <string_view>

namespace XPJ {

// No project may be null.
std::string PageTimelinesJson(std::string_view title,
                              std::span<const Inspection::Project* const> projects,
                              std::span<const Inspection::Difference> differences);

} // namespace XPJ
