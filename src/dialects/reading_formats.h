// Formats of sequences, and of files, that documents state in part or not at all.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives each file of video what it doesn't state of its frame, but its items do, or the file itself
// outside its `media`.
//   clipitem(fielddominance upper, file(media(video))) -> video(samplecharacteristics(upper))
void GatherFormats(DialectPass& pass);

// Gives each sequence a rate and a `samplecharacteristics` with size and pixel aspect, and each
// file of video that states no size that of the sequence that shows it.
void CompleteFormats(DialectPass& pass);

} // namespace XPJ
