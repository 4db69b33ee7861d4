// The tool's output. A stream that can't be written loses its own text only, never a conversion.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

// Occupies the descriptors of standard streams that the caller has closed, so that no file of ours
// gets one of them and with it the text meant for people. To be called first.
void HoldStandardStreams();

// On the standard output.
void Print(std::string_view text);
// On the standard error.
void PrintError(std::string_view text);

// Flushes what was printed. Gives the system's reason why some of it got lost; empty if nothing
// was.
std::string FlushPrinted();

} // namespace XPJ
