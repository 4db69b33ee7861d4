// Track items without an item of a document: black, the angles of a multiclip, the parts of a
// merged clip. Each shows the whole of its clip, without effects.
#pragma once

#include "core/ticks.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

struct SyntheticItem {
    std::string_view name = {};
    ObjectHandle clip = {}; // VideoClip or AudioClip
    ObjectHandle master = {};
    int trackIndex = 0; // from 0
    Ticks start = 0;
    Ticks end = 0;
    int channelType = 0; // of audio
};

ObjectHandle MakeSyntheticVideoItem(Document& document, const SyntheticItem& item,
                                    std::string_view frameRect, std::string_view aspect);
// With a neutral panner. Ticks a sample.
ObjectHandle MakeSyntheticAudioItem(Document& document, const SyntheticItem& item,
                                    Ticks sampleTicks);

// Effect chains without effects.
ObjectHandle MakeEmptyVideoChain(Document& document);
ObjectHandle MakeEmptyAudioChain(Document& document, int channelType, std::string_view frameRate);

// A SubClip of a master, named, with the id of its clip; the id belongs to the master as well.
struct SubClipParts {
    ObjectHandle subClip;
    ObjectHandle clipId;
};
SubClipParts MakeSubClip(Document& document, std::string_view name, ObjectHandle clip,
                         ObjectHandle master);

} // namespace XPJ
