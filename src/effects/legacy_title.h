// The document that the host's title importer draws a title from.
#pragma once

#include "effects/title_reader.h"

#include <string>
#include <string_view>

namespace XPJ {

// UTF-8, one line, well-formed. Sizes follow the title's frame.
std::string LegacyTitleDocument(const Title& title);

} // namespace XPJ
