// What the reader takes of an `xmeml` document.
#pragma once

#include "tree/reading_table.h"

namespace XPJ {

// Built at the first call.
const ReadingTable& XmemlReadingTable();

} // namespace XPJ
