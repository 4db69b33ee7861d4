// Builders of empty tracks and of the groups that hold them.
#pragma once

#include "core/ticks.h"
#include "project/panners.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Unlocked and visible. `index` counts from 0.
ObjectHandle MakeVideoTrack(Document& document, int index, int id);

struct AudioTrackFields {
    int index = 0; // from 0
    int id = 0;
    PannerFields panner = {};
    ObjectHandle fader = {}; // its chain of components
};
// Unlocked and audible.
ObjectHandle MakeAudioTrack(Document& document, const AudioTrackFields& fields);

// A VideoTrackGroup without tracks.
ObjectHandle MakeVideoGroup(Document& document, Ticks frameTicks, std::string_view frameRect,
                            std::string_view aspect);

struct AudioGroup {
    ObjectHandle group;
    ObjectHandle inlet;
    int channels = 0; // `NumAdaptiveChannels`: how many adaptive tracks and masters have
};
AudioGroup MakeAudioGroup(Document& document, Ticks sampleTicks, int channels,
                          int inletType = kMonoType);
void AddAudioTrack(const AudioGroup& group, ObjectHandle track);
// Ends a group with its master track; `index` is the number of tracks before it.
struct MasterTrackFields {
    int index = 0;
    int groupType = kStereoType;
    Ticks sampleTicks = kSampleTicks48k;
    ObjectHandle fader = {};
};
void AddMasterTrack(Document& document, const AudioGroup& group, const MasterTrackFields& fields);

} // namespace XPJ
