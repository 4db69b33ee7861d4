// What the reader takes of a project document.
#pragma once

#include "tree/grammar.h"

namespace XPJ {

// Built at the first call.
const Grammar& ProjectGrammar();

} // namespace XPJ
