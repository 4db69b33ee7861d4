// Builders of MasterClip and of the clips in it. Those of track items are built by the same
// functions.
#pragma once

#include "import/import_state.h"
#include "import/streams.h"
#include "tree/object.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ {

// What tells the clip of a track item from that of a master.
struct ClipForm {
    double speed = 1.0;
    bool playBackwards = false;
    bool inUse = false;
    bool scaleToFrameSize = false; // picture only
    bool frameBlending = false;    // picture only
};

// A VideoClip or AudioClip around a source, at the source's rate; without points, markers and
// channels.
ObjectHandle MakeVideoClip(Document& document, ObjectHandle source, const ClipForm& form = {});
ObjectHandle MakeAudioClip(Document& document, ObjectHandle source, const ClipForm& form = {});

// Appends a channel to an AudioClip; a null `content` is a channel that nothing is heard on.
inline constexpr std::uint64_t kNoChannel = ~std::uint64_t{0};
void AddChannel(Document& document, ObjectHandle audioClip, std::uint64_t channelIndex,
                ObjectHandle content);

// A VideoSequenceSource or AudioSequenceSource of a Sequence; ticks. `boundary` is both its
// `StartBoundary` and its `EndBoundary`.
ObjectHandle MakeSequenceSource(Document& document, MediaType type, ObjectHandle sequence,
                                Ticks rateTicks, Ticks duration, Ticks boundary = kNoTime);

struct MasterForm {
    // Empty: the `name` of the element.
    std::string_view name = {};
    // All 32 channels of an adaptive clip, whatever their number is.
    bool wideMulticlip = false;
};

// A new MasterClip. Name, points, markers and logging fields come from `element`, which is null for
// black video. A `sound.kind` of kUnknownChannels leaves the sound out.
ObjectHandle BuildMasterClip(const ImportState& state, ObjectHandle element,
                             const FileSources& sources, const AudioKind& sound,
                             const MasterForm& form = {});

// Stereo is held as two mono elements, unless the element's tracks are exploded or the document is
// an audio hand-off.
AudioKind SplitStereo(const ImportState& state, AudioKind sound, bool exploded);

// First VideoClip of a MasterClip; null for one without picture.
ObjectHandle VideoClipOf(ObjectHandle master);
// Source of the first clip.
ObjectHandle FirstSourceOf(ObjectHandle master);
// The Sequence that a MasterClip shows; null for one of a medium.
ObjectHandle SequenceOf(ObjectHandle master);

// A channel of a master's sound. All channels of all its AudioClips are one list, whether the clips
// hold one each or several.
struct MasterChannel {
    ObjectHandle clip;
    ObjectHandle channel; // SecondaryContent
};
std::vector<MasterChannel> ChannelsOf(ObjectHandle master);

} // namespace XPJ
