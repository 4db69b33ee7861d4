// The effects of track items and of masters.
#pragma once

#include "import/track_context.h"

namespace XPJ {

// The VideoComponentChain of a video item; a variable speed goes to the clip of its `subClip`.
ObjectHandle MakeItemVideoChain(const ItemContext& item, ObjectHandle subClip);

// The channel types of an audio item and of its track.
struct ItemChannels {
    int itemType = kMonoType;
    int trackType = kStereoType;
};
// Gives an AudioClipTrackItem the chain of its item and, if it is panned, its panner.
void AddItemAudioEffects(const ItemContext& item, const ItemChannels& channels,
                         ObjectHandle trackItem);

// Adds the filters of a browser `clip` and of its `file` to a new master.
void AddMasterEffects(ImportState& state, ConstHandle element, FileElement file,
                      MasterClipHandle master);

// On the filters of a browser `clip` and of its items, none of which is translated. Once.
void RemarkOnClipFilters(ImportState& state, ConstHandle clip);

} // namespace XPJ
