// Multiclips of a project: sequences with a track for each angle.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "project/accessors.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace XPJ::RVX {

// What an item of a multiclip shows: the item of its active angle where it begins, and the distance
// from the times of the multiclip to those of what that item shows.
struct ShownAngle {
    TrackItem item = {};
    Ticks offset = 0;
    bool isCut = false; // it ends before the item of the multiclip does
};

// The items of the angles of multiclips, of which each is read once.
class AngleCatalog {
public:
    // Without an item for a clip that is no multiclip, and where its active angle is empty.
    // `sequence` is what `clip` shows.
    ShownAngle Find(ConstHandle clip, ConstHandle sequence, MediaType type);

private:
    struct AngleItem {
        Ticks start = 0;
        Ticks end = 0;
        TrackItem item;
    };
    using Angle = std::vector<AngleItem>; // in the order of the track
    const std::vector<Angle>& AnglesOf(ConstHandle group);

    std::unordered_map<std::uint64_t, std::vector<Angle>> angles_; // by track group
};

} // namespace XPJ::RVX
