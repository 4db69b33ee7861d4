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

// The same for elements and attributes that the reader ignored.
void AddIgnoredElements(const std::vector<IgnoredElements>& ignored, Account& account);

} // namespace XPJ
