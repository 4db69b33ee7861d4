// page.html with page.css and the scripts in it, as CMakeLists.txt puts them together. The line
// "<!-- data -->" is where the data of a page goes.
#pragma once

#include <string_view>

namespace XPJ {

extern const std::string_view kPageAsset;

} // namespace XPJ
