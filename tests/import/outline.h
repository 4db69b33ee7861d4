// What an import made, on few lines: bins, their items, and the timelines of sequences.
//
//   Bin "Cuts"
//     Item "Cut" is "Cut"
//       Sequence 1 "Cut": frame 10160640000, sample 5292000, 0,0,1920,1080, 1,1, field 0
//       V1 id 1: "Take 1" 0-110 [20-130]
//       A1 id 2 type 1 StereoToStereoPanProcessor: "Take 1" 0-110 [20-130] ch 0
//       next 2 3, master 1 of 2 channels
//       link V1.1 A1.1
//
// An item's place and, in brackets, the part of its source count in the sequence's frames; "20+7"
// is seven ticks more than 20 frames. A sequence is shown where it is met first, also behind an
// item of another one.
#pragma once

#include "tree/object.h"

#include <string>

namespace XPJ {

// Of the `Project` node.
std::string OutlineText(ObjectHandle project);

} // namespace XPJ
