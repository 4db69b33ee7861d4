// The frame of a video as a project states it.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

// All empty where no frame is known.
struct FrameFormat {
    std::string rect = {};             // "0,0,1920,1080"
    std::string_view par = {};         // "10,11"
    std::string_view originalPar = {}; // the ratio before a user changed it, mostly empty
    std::string_view formatName = {};  // the `xmeml` name of `par`
};

// The frame of what states none: DV at the NTSC rate.
constexpr std::string_view kDefaultFrameRect = "0,0,720,480";
constexpr std::string_view kDefaultPixelAspect = "10,11";

} // namespace XPJ
