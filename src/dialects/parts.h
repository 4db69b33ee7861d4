// The parts of an `xmeml` tree that rules look at, found in one walk.
#pragma once

#include "core/media_type.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

// A clip, generator or transition on a track.
struct ItemPart {
    ObjectHandle item;
    ObjectHandle track;
    ObjectHandle owner; // the `sequence` or `clip` around the track
    MediaType type = MediaType::Video;
    ObjectHandle file = {}; // its own; null without one
    bool hasFilters = false;
};

// Each node once, in document order, also where references lead to it from several others.
struct TreeParts {
    std::vector<ObjectHandle> sequences;
    std::vector<ObjectHandle> clips; // of bins, and of the angles of multiclips
    std::vector<ObjectHandle> bins;  // with `project`s
    std::vector<ObjectHandle> files; // also those that only name an id
    std::vector<ObjectHandle> tracks;
    std::vector<ItemPart> items;
};
TreeParts FindParts(ObjectHandle root);

} // namespace XPJ
