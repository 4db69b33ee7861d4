// What the tool says. A stream that takes nothing costs its own text only, never a conversion.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

// Takes the places of standard streams that the caller has closed, so that no file of ours gets one
// of them and with it the text meant for people. To be called first.
void HoldStandardStreams();

// On the standard output.
void Print(std::string_view text);
// On the standard error.
void PrintError(std::string_view text);

// Hands over what was printed. Gives why some of it got lost, in the system's words; empty if it
// has all arrived.
std::string FlushPrinted();

} // namespace XPJ
