// Bytes inside a tree.
#pragma once

#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Stores bytes as base64 under `dataKey` and their checksum in decimal under `checksumKey`; does
// nothing for no bytes.
void SetEncodedBlob(ObjectHandle node, Name dataKey, Name checksumKey, std::string_view bytes);

} // namespace XPJ
