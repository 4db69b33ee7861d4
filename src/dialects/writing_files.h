// Where files are written whole, and where by their id alone.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives each file its content at its first use in each sequence, and among the clips of bins.
void WriteFilesWhole(DialectPass& pass);

} // namespace XPJ
