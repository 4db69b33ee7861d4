// Start and stop of the text services, for a host that loads the converter more than once.
#pragma once

namespace XPJ::GVE {

// Each start is undone by one stop; a stop too many does nothing. From any thread. Documents need
// no service: their defaults are constants.
void StartTextServices();
void StopTextServices();
// Starts that are not undone yet.
int RunningTextServices();

} // namespace XPJ::GVE
