// Ctrl-C, as a question that the waiting thread can ask.
#pragma once

namespace XPJ {

// From here on the first SIGINT or SIGTERM is only remembered; a second one ends the process. A
// closed pipe becomes a failed write.
void CatchInterrupts();

bool IsInterrupted();

} // namespace XPJ
