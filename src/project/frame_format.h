// The frame of a picture as a project states it.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

// Frame of a project object. All empty where none could be told.
struct FrameFormat {
    std::string rect;             // "0,0,1920,1080"
    std::string_view par;         // "10,11"
    std::string_view originalPar; // the ratio before a user changed it, mostly empty
    std::string_view formatName;  // the document's name of `par`
};

} // namespace XPJ
