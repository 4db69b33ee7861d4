// Gradings from files, and their text.
//
//   std::optional<CGrading> grading = ReadLookDocument(text, "dusk.look");
//   if (grading)
//       Store(Serialize(*grading));   // "<Gradiva>\n  <name>\"Dusk\"</name>\n..."
//
// What was read and written once is written again as the same bytes.
#pragma once

#include "grading/error.h"
#include "grading/grading.h"

#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// Reads a look document, the tables behind it included. One without a name gets `name`; a look of
// the old style, which doesn't begin with a group, gets the host's color layer. Nothing on failure,
// with the reason and its place in `error`.
std::optional<CGrading> ReadLookDocument(std::string_view text, std::string_view name,
                                         CZvError* error = nullptr);

// Reads a lookup table of any form as a grading with the single layer "LUT". Without `name` it is
// named after the table's hash. Nothing on failure.
std::optional<CGrading> ReadLookupTable(std::string_view bytes, std::string_view name,
                                        CZvError* error = nullptr);

// The text of a grading, without a terminator.
std::string Serialize(const CGrading& grading);

} // namespace XPJ
