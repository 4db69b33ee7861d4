// Track items that no item of a document stands behind: black, the angles of a multiclip, the parts
// of a merged clip. Each shows the whole of its clip, without effects.
#pragma once

#include "core/media_type.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

struct WholeItem {
    std::string_view name = {};
    ObjectHandle clip = {}; // VideoClip or AudioClip
    ObjectHandle master = {};
    int trackIndex = 0; // from 0
    Ticks start = 0;
    Ticks end = 0;
    int channelType = 0; // of sound
};

ObjectHandle MakeWholeVideoItem(Document& document, const WholeItem& item,
                                std::string_view frameRect, std::string_view aspect);
// With a panner that changes nothing. Ticks a sample.
ObjectHandle MakeWholeAudioItem(Document& document, const WholeItem& item, Ticks sampleTicks);

// Effect chains without effects.
ObjectHandle MakeEmptyVideoChain(Document& document);
ObjectHandle MakeEmptyAudioChain(Document& document, int channelType, std::string_view frameRate);

// A VideoTrackGroup without tracks.
ObjectHandle MakeVideoGroup(Document& document, Ticks frameTicks, std::string_view frameRect,
                            std::string_view aspect);

} // namespace XPJ
