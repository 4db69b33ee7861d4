#include "import/sequences.h"

namespace XPJ {

bool IsStillSequence(ObjectHandle sequence)
{
    return HasValue(FindPath(sequence, {"media", "video", "track", "clipitem"}),
                    "stillframeoffset");
}

// Sequences are not translated yet: none is collected, and none gets an item.
ObjectHandle MasterOfCollectedSequence(ImportState&, ObjectHandle)
{
    return {};
}

void TranslateSequence(ImportState&, ObjectHandle, ObjectHandle) {}

} // namespace XPJ
