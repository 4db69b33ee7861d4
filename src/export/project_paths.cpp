#include "export/project_paths.h"

namespace XPJ::RVX {

ObjectHandle ItemList(ObjectHandle item)
{
    return FindPath(item, {"ProjectItemContainer", "Items"});
}

std::string_view ItemName(ObjectHandle item)
{
    return item.GetChild("ProjectItem").GetProperty("Name");
}

ObjectHandle ItemProperties(ObjectHandle item)
{
    return FindPath(item, {"ProjectItem", "Node", "Properties"});
}

ObjectHandle SequenceOfMaster(ObjectHandle masterClip)
{
    // The second `Clip` is the block inside a VideoClip or AudioClip.
    return FindPath(masterClip, {"Clips", "Clip", "Clip", "Source", "SequenceSource", "Sequence"});
}

std::string_view ObjectGuid(ObjectHandle object)
{
    return object.GetProperty("UIDObject");
}

} // namespace XPJ::RVX
