#include "import/multiclips.h"

#include "core/text.h"

namespace XPJ {

ObjectHandle FindMulticlip(ObjectHandle element)
{
    if (const ObjectHandle own = element.GetChild("multiclip"))
        return own;
    const ObjectHandle media = element.GetChild("media");
    if (const ObjectHandle picture = FindPath(media, {"video", "track", "clipitem", "multiclip"}))
        return picture;
    return FindPath(media, {"audio", "track", "clipitem", "multiclip"});
}

bool IsCollapsed(ObjectHandle multiclip)
{
    return !EqualsIgnoreCase(multiclip.GetProperty("collapsed"), "FALSE");
}

// Multiclips are not translated yet: none is collected, and none gets an item.
void CollectMulticlip(ImportState&, ObjectHandle) {}

void TranslateMulticlipItem(ImportState&, ObjectHandle, ObjectHandle) {}

} // namespace XPJ
