// One `file` as Media with streams, and the sources that master clips point at.
#pragma once

#include "import/import_state.h"
#include "project/streams.h"
#include "tree/object.h"

#include <vector>

namespace XPJ {

struct FileSources {
    std::vector<ObjectHandle> video;
    std::vector<ObjectHandle> audio;

    bool IsEmpty() const { return video.empty() && audio.empty(); }
    // Media of the first picture source; null without one.
    ObjectHandle VideoMedia() const;
};

// Makes the Media and sources of one file of a `clip` or `clipitem`; none without a rate or
// `media`. `fallback` is a `samplecharacteristics` that gives the frame size if the file states
// none; may be null. Not for layered images.
FileSources AddFileStreams(const ImportState& state, ObjectHandle element, ObjectHandle file,
                           ObjectHandle fallback);

struct AudioKind {
    int kind = kUnknownChannels; // a ChannelKind
    int channels = 0;            // of the first `audio`, within what a medium may have
};

// What a file's `media` states of its sound as a whole.
AudioKind AudioKindOfFile(ObjectHandle file);

} // namespace XPJ
