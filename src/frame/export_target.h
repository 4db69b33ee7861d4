// Names of export files, in which a marker can request the audio hand-off.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

struct ExportTarget {
    std::string path;
    std::string title;      // of the project; never empty
    bool isHandOff = false; // the name had the marker of the audio hand-off
};

// "/p/clip__Vl2Sn__final.xml" is the hand-off document "/p/final.xml" with the title "final".
ExportTarget ExportTargetOf(std::string_view path);

} // namespace XPJ
