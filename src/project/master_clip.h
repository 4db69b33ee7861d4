// A MasterClip that a builder made, whose parts are still in one node: what its clips show. One
// that was read from a document is a MasterClip of project/accessors.h.
#pragma once

#include "core/media_type.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

// A channel of a master's audio. All channels of all its AudioClips are one list, whether the clips
// hold one each or several.
struct MasterChannel {
    ObjectHandle clip;
    ObjectHandle channel; // SecondaryContent
};

class BuiltMaster : public ObjectHandle {
public:
    BuiltMaster() = default;
    explicit BuiltMaster(ObjectHandle node) : ObjectHandle(node) {}

    // The first VideoClip or AudioClip; null without one.
    ObjectHandle FirstClip(MediaType type) const;
    ObjectHandle VideoClip() const { return FirstClip(MediaType::Video); }
    // Source of the first clip of either type.
    ObjectHandle FirstSource() const { return GetChild("Clip").GetChild("Source"); }
    // The Sequence that it shows; null for a master of media.
    ObjectHandle Sequence() const { return FirstSource().GetChild("Sequence"); }
    std::vector<MasterChannel> Channels() const;
};

} // namespace XPJ
