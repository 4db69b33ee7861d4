// The preview preset of a sequence, by its codec, else by its video format.
#pragma once

#include "core/frame_format.h"
#include "core/ticks.h"
#include "tree/object.h"

namespace XPJ {

// Adds the preview preset of a `sequence` to the project's Sequence. Keys that are there stay, but
// for the time display, which is replaced. `videoTicks` is the frame length that holds when the
// format states none.
void ChoosePreset(ConstHandle sequence, Ticks videoTicks, ObjectHandle projectSequence);

// The same by video format alone.
void PresetFromFormat(Ticks frameTicks, const FrameFormat& frame, ObjectHandle projectSequence);

} // namespace XPJ
