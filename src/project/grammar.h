// What the reader takes of a project document.
#pragma once

#include "tree/reading_table.h"

namespace XPJ {

// Built at the first call.
const ReadingTable& ProjectReadingTable();

} // namespace XPJ
