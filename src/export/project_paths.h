// Where things stand in a project tree as the reader gives it. No other code walks these chains.
#pragma once

#include "model/object.h"

#include <string_view>

namespace XPJ::RVX {

// The list of `Item`s of a root item or a bin.
ObjectHandle ItemList(ObjectHandle item);
// Name of a bin or clip item.
std::string_view ItemName(ObjectHandle item);
// Columns of a bin or clip item: label, comments.
ObjectHandle ItemProperties(ObjectHandle item);

// The Sequence that a master's first clip shows; null for one that shows media.
ObjectHandle SequenceOfMaster(ObjectHandle masterClip);
// The GUID text by which a project refers to an object.
std::string_view ObjectGuid(ObjectHandle object);

} // namespace XPJ::RVX
