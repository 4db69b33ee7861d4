#include "import/track_items.h"

namespace XPJ {

// No link group is recorded yet, so there is nothing to link.
void LinkPass(ImportState&) {}

} // namespace XPJ
