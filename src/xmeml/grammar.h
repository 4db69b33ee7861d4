// What the reader takes of an `xmeml` document.
#pragma once

#include "tree/grammar.h"

namespace XPJ {

// Built at the first call.
const Grammar& FCPXMLGrammar();

} // namespace XPJ
