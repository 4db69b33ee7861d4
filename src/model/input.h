// The whole text of a document in memory: views into it are what the tree is made of.
#pragma once

#include "model/object.h"

#include <iosfwd>
#include <string>
#include <string_view>

namespace XPJ {

// False, and the system's words for it in `reason`, when the path can't be opened or read.
bool ReadInput(const std::string& path, Document& document, std::string_view& text,
               std::string& reason);

// All that the stream still gives.
std::string_view ReadInput(std::istream& input, Document& document);

} // namespace XPJ
