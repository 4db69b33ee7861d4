#include "import/master_clips.h"

namespace XPJ {

// Clips are not translated yet: none is collected, so none is found.
void CollectClip(ImportState&, ObjectHandle) {}

int TranslateMasterClipItems(ImportState&, ObjectHandle, ObjectHandle)
{
    return 0;
}

} // namespace XPJ
