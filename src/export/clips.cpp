#include "export/clips.h"

namespace XPJ::RVX {

// Clips and sequences are not translated yet (kTranslatesClips): nothing is added.
void TranslateMasterClip(ExportContext&, ObjectHandle, ObjectHandle) {}

} // namespace XPJ::RVX
