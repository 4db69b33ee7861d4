// The values of timelines as objects of OpenTimelineIO: times, markers, effects, media.
//
// What its schema has no field for is under the key "vela_fcpxml" of an object's metadata; what has
// its default or neutral value there is skipped.
#pragma once

#include "inspect/timeline.h"

#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace XPJ::Inspection::Otio {

using Json = nlohmann::ordered_json;

// Metadata without entries is empty. The schema is a name and a version, "Clip.2".
Json MakeObject(std::string_view schema, std::string name, Json metadata);
// The same, with the fields of all that can be a child of a track or a stack. No range: null.
Json MakeComponent(std::string_view schema, std::string name, Json metadata);

// In frames of that length; a time between two frames keeps its fraction.
Json RationalTime(Ticks time, Ticks frameTicks);

// A range whose start counts in other frames than its duration does.
struct Range {
    Ticks start = 0;
    Ticks startFrame = kNtscFrameTicks;
    Ticks duration = 0;
    Ticks durationFrame = kNtscFrameTicks;
};
Json TimeRange(const Range& range);

// How the times of a source count: in its frames, from the timecode of the first.
struct SourceTime {
    Ticks frameTicks = kNtscFrameTicks;
    Ticks first = 0;
};
SourceTime SourceTimeOf(const Project& project, const Item& item);

Json Markers(const std::vector<Marker>& markers, const SourceTime& time);
Json Parameters(const std::vector<Parameter>& parameters, const SourceTime& time);

// The speed of an item, then its effects; without those that its media reference consists of.
Json Effects(const Project& project, const Item& item);

// What an item shows: a file, a generator or a title, or nothing that can be referred to.
Json MediaReference(const Project& project, const Item& item);
Json MediaReference(const MediaFile& file);

} // namespace XPJ::Inspection::Otio
