// Messages for conversion results, and the message boxes at the end of a host's call. Nothing is
// shown if the host forbids it or without a window system.
#pragma once

#include "core/messages.h"

#include <string>

namespace XPJ {

// The message of a ConversionResult that isn't kSuccess.
Message MessageOfResult(int result);

// A box with an OK button.
void ShowMessage(Message title, const std::string& text, bool showUI);

// Shows the message of a ConversionResult; nothing for kNoXMELM.
void ReportConversionResult(int result, bool showUI);

} // namespace XPJ
