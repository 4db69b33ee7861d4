// Media behind master clips: how they are written, how they count, and the part that a clip shows.
#pragma once

#include "core/ticks.h"
#include "project/accessors.h"
#include "project/media_kinds.h"

namespace XPJ::RVX {

// True for a Media that a `clip` with a file is written for.
bool IsWrittenAsClip(Media media);
// True where the video of a Media is a stream of captions.
bool ShowsCaptions(Media media);

// The rate in which ranges, markers and boundaries of the `clip` of a Media count.
Ticks ClipRate(Media media);
// The rate that the logging of a master states; 0 without one. Audio alone has no other.
Ticks LoggedRate(MasterClip masterClip);

// The part of its media that a clip shows: ticks, -1 where the project states nothing.
struct ClipBoundaries {
    Ticks start = -1;
    Ticks end = -1;
    Ticks duration = -1; // of the whole media
    bool hard = true;
};

ClipBoundaries ReadBoundaries(ConstHandle source);

// Adds to an element that it shows a part of its media, in frames of `frameTicks`: `subclipinfo`,
// or the two attributes of boundaries that the host doesn't hold hard.
void WriteSubclipOffsets(Document& document, const ClipBoundaries& boundaries, Ticks frameTicks,
                         ObjectHandle element);

} // namespace XPJ::RVX
