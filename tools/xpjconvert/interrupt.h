// Ctrl-C, which the waiting thread polls.
#pragma once

namespace XPJ {

// From here on the first SIGINT, SIGTERM or SIGHUP is only remembered; a second one ends the
// process. A closed pipe and a file beyond the limit of its size become failed writes.
void CatchInterrupts();
// From here on the first one ends the process as well.
void ReleaseInterrupts();

// From here on the end of a pipe, whose other end another process holds, is an interrupt as well.
void InterruptWhenClosed(int pipe);

bool IsInterrupted();

// Ends the process by the signal that was remembered, so that its caller (a loop in a shell) learns
// of it; does nothing if there was none.
void EndByInterrupt();

} // namespace XPJ
