// What an export wrote, on few lines, from the text of the document alone.
#pragma once

#include <string>
#include <string_view>

namespace XPJ::RVX {

// Elements on a line each: attributes, then the values of what they hold, then their other
// elements, indented. Those in `folded`, between commas, are skipped.
//
//   clipitem id=clipitem-1: name=Shot, start=0, end=50
//     rate: timebase=25, ntsc=FALSE
std::string XmemlOutline(std::string_view xmeml, std::string_view folded);

// The effects of items, files, tracks and transitions with their parameters.
//
//   clipitem "Shot"
//     Basic Motion [basic motion motion video] bypassed
//       scale=100 0..1000 {0:100 25:50}, center=0:0
std::string XmemlEffects(std::string_view xmeml);

// The document, but for elements in `folded`, each as one line: <file id="file-1">...</file>
std::string FoldedElements(std::string_view xmeml, std::string_view folded);

} // namespace XPJ::RVX
