// The options of the tool for the completion of shells.
#pragma once

#include "manual/manual.h"

namespace XPJ::Manual {

std::string BashCompletion(const Content& content);
std::string ZshCompletion(const Content& content);
std::string FishCompletion(const Content& content);

} // namespace XPJ::Manual
