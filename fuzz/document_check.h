// What every written document has to hold, whatever was read; a violation ends the process.
#pragma once

#include <string_view>

namespace XPJ {

// The text is well-formed XML.
void CheckWellFormed(std::string_view text);

// The text is well-formed, and every `ObjectRef` and `ObjectURef` in it names an object of it.
void CheckProjectText(std::string_view text);

} // namespace XPJ
