// What a project states and the export has not looked at.
#pragma once

#include "core/account.h"
#include "tree/object.h"
#include "tree/reading.h"

#include <vector>

namespace XPJ::RVX {

// Enters a remark for each path of objects and properties that the export did not read, with the
// first places and a count. The document must have marked what was read.
void AddUnreadObjects(ConstHandle root, Account& account);

// The same for elements that the reader ignored. `isPart`: only what the root leads to counts.
void AddIgnoredObjects(ConstHandle root, const std::vector<IgnoredElements>& ignored, bool isPart,
                       Account& account);

} // namespace XPJ::RVX
