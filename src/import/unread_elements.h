// What a document states and the import has not looked at.
#pragma once

#include "core/account.h"
#include "tree/object.h"

namespace XPJ {

// Enters a remark for each path of elements with content that the import did not read, with the
// first places and a count. The document must have marked what was read.
void AddUnreadElements(ConstHandle root, Account& account);

} // namespace XPJ
