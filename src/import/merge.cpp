#include "import/merge.h"

namespace XPJ {

// No master carries a merge id yet, so there is nothing to join.
void MergePass(ImportState&, ObjectHandle) {}

} // namespace XPJ
