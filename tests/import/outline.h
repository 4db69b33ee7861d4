// What an import made, on few lines, from the text of the project alone.
//
//   Bin "Cuts"
//     Item "Cut" is "Cut"
//       Sequence 1 "Cut": frame 10160640000, sample 5292000, 0,0,1920,1080, 1,1, field 0
//       V1 id 1: "Take 1" 0-110 [20-130]
//       A1 id 2 type 1 StereoToStereoPanProcessor: "Take 1" 0-110 [20-130] ch 0
//       next 2 3, master 1 of 2 channels
//       link V1.1 A1.1
//
// An item's times and, in brackets, the part of its source count in the sequence's frames; "20+7"
// is seven ticks more than 20 frames. A sequence is shown where it is met first, also behind an
// item of another one.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

// Bins, their items, and the timelines of sequences.
std::string TimelineOutline(std::string_view project);

// Project items, their masters with channels, and the media behind them.
std::string MediaOutline(std::string_view project);

// Components of items, masters and tracks with the values and keyframes of their parameters;
// of components in `skipped`, between commas, the number of parameters alone; of parameters those
// in `names`, if it is not empty. Keyframes count in frames.
std::string EffectsOutline(std::string_view project, std::string_view skipped,
                           std::string_view names);

// Every field of every parameter, for the components that `names` lists; of all if it is empty.
std::string ParametersOutline(std::string_view project, std::string_view names);

// The documents of titles, their elements indented; of `tags`, between commas, alone on one line.
std::string TitlesOutline(std::string_view project, std::string_view tags);

} // namespace XPJ
