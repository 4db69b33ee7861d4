// The parts of an `xmeml` tree that rules look at, found in one walk.
//
// The tree of a large document fits no cache. What rules need to know of every item is therefore
// recorded when the walk visits it; a rule then touches only the nodes that it changes.
#pragma once

#include "core/media_type.h"
#include "tree/object.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ {

enum class ItemKind : std::uint8_t { Clip, Generator, Transition };

// A clip, generator or transition on a track.
struct ItemPart {
    ObjectHandle item;
    ObjectHandle track;
    ObjectHandle owner; // the `sequence` or `clip` around the track
    MediaType type = MediaType::Video;
    ItemKind kind = ItemKind::Clip;

    std::string_view id = {};
    ObjectHandle file = {}; // the first of its own; null without one
    std::string_view fileId = {};
    int sourceTrack = 0; // the channel of the file that it names, from 1
    int channelCount = 0;

    bool isInSequence = false; // the owner is one
    bool hasChildren = false;
    bool hasFilters = false;
    bool hasSequence = false;
    bool statesTimes = false;  // one of the four
    bool statesFormat = false; // something of the frame of its file
    bool isStill = false;      // states a `stillframeoffset`
    bool statesChannelType = false;
};

// A filter of an item, track, file, sequence or clip, or the effect of a generator.
struct EffectPart {
    ObjectHandle owner;
    ObjectHandle filter; // null for the effect of a generator
    ObjectHandle effect; // null in a filter without one
    MediaType type = MediaType::Video;
};

// Each node once, in document order, also where references lead to it from several others.
struct TreeParts {
    std::vector<ObjectHandle> sequences;
    std::vector<ObjectHandle> clips; // of bins, and of the angles of multiclips
    std::vector<ObjectHandle> bins;  // with `project`s
    std::vector<ObjectHandle> files; // that state something beside their id
    std::vector<ObjectHandle> tracks;
    std::vector<ObjectHandle> unnamedLabels; // `labels` with a `label` and a blank `label2`
    NodeSet framed; // the files and clips that state something of a frame themselves
    std::vector<ItemPart> items;
    std::vector<EffectPart> effects;
};
// `nodes`: about how many the tree has, if that is known.
TreeParts FindParts(ObjectHandle root, std::size_t nodes = 0);

// The sequences that stand for a still: a held frame is all that they have.
NodeSet StillSequences(const TreeParts& parts);

} // namespace XPJ
