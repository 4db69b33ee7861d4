// What the user is told at the end of a host's call. Nothing is shown where the host forbids it or
// where there is no window system.
#pragma once

#include "core/messages.h"

#include <string>

namespace XPJ {

// A box with an OK button.
void ShowMessage(Message title, const std::string& text, bool showUI);

// The words for a ConversionResult; shows nothing for kNoXMELM.
void ReportConversionResult(int result, bool showUI);

} // namespace XPJ
