// The host's record of a marker, as a project stores it:
//   {"HULMarker":{"mName":"Slate","mComment":"","mType":"Comment",
//    "mStartTime":{"ticks":254016000000},"mDuration":{"ticks":0},
//    "mCuePointList":[{"mKey":"keywordExtHULv1_...","mValue":"{\"color\":4281740498}"}]}}
#pragma once

#include "core/ticks.h"

#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

struct MarkerRecord {
    std::string name; // texts may hold entities
    std::string comment;
    std::string type; // "Comment", "Chapter", "Speech", ...
    Ticks start = 0;
    Ticks duration = 0;
    std::string color; // decimal; empty for none
};

// Nothing for a text that is no record. The outer object may be missing, and so may any field.
std::optional<MarkerRecord> ParseMarkerRecord(std::string_view text);

} // namespace XPJ
