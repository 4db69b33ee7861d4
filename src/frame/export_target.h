// Names of export files, which may carry the mark of the audio hand-off.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

struct ExportTarget {
    std::string path;
    std::string title;      // of the project; never empty
    bool vl2snMode = false; // the name carried the mark of the audio hand-off
};

// "/p/clip__Vl2Sn__final.xml" is "/p/final.xml" in the hand-off form, titled "final".
ExportTarget ExportTargetOf(std::string_view path);

} // namespace XPJ
