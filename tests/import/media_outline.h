// What the project items of an import show, on few lines: masters, their clips and the media.
//
//   Item "A1" in "Rushes" label BE.Prefs.LabelColors.6
//     Master "A1" groups 0:(0,0) 0:(0,1)
//     picture 10160640000 x 100 [20-80] of "/m/a1.mov": 0,0,1440,1080 1920,1440 field 1
//     sound 5292000 channels 0 1 of "/m/a1.mov" stream 0: 100,101
//
// A line begins with the source's rate and its length in units of it; brackets hold the part that
// the clip shows, braces the part that the source is limited to. A master is shown once.
#pragma once

#include "tree/object.h"

#include <string>

namespace XPJ {

// Of the `Project` node.
std::string MediaOutlineText(ObjectHandle project);

} // namespace XPJ
