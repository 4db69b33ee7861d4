// What a document states and the import has not looked at.
#pragma once

#include "core/account.h"
#include "tree/object.h"
#include "tree/reading.h"

#include <vector>

namespace XPJ {

// Enters a remark for each path of elements with content that the import did not read, with the
// first places and a count. The document must have marked what was read.
void AddUnreadElements(ConstHandle root, Account& account);

// The same for elements and attributes that the reader ignored. `isPart`: the tree is what was
// chosen of the document.
void AddIgnoredElements(ConstHandle root, const std::vector<IgnoredElements>& ignored, bool isPart,
                        Account& account);

} // namespace XPJ
