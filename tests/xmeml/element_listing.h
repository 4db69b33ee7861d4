// The table of elements as Markdown: what docs/xmeml.md ends with.
#pragma once

#include <string>

namespace XPJ {

std::string ElementListing();

} // namespace XPJ
