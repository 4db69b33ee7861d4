// A master clip: what the browser shows of media or of a sequence.
#pragma once

#include "core/media_type.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

// Through a null handle everything is empty.
template <class Handle>
class BasicMasterClip : public Handle {
public:
    BasicMasterClip() = default;
    explicit BasicMasterClip(Handle node) : Handle(node) {}

    // Each a VideoClip or an AudioClip.
    auto Clips() const { return Handle::GetChildren(Name("Clip")); }
    // The first VideoClip or AudioClip; null without one.
    Handle FirstClip(MediaType type) const;
    Handle VideoClip() const { return FirstClip(MediaType::Video); }
    Handle AudioClip() const { return FirstClip(MediaType::Audio); }
    // The first VideoClip, else the first AudioClip.
    Handle MainClip() const;
    // The Sequence of the first clip that shows one; null for a master of media.
    Handle Sequence() const;
};

using MasterClip = BasicMasterClip<ConstHandle>;
// The same of a project that is being made: it also writes.
using MasterClipHandle = BasicMasterClip<ObjectHandle>;

// A channel of a master's audio. All channels of all its AudioClips are one list, whether the clips
// hold one each or several.
struct MasterChannel {
    ObjectHandle clip;
    ObjectHandle channel; // SecondaryContent
};
std::vector<MasterChannel> ChannelsOf(MasterClipHandle master);

} // namespace XPJ
