// What is lost where a document is written without our additions to its type.
#pragma once

#include "core/account.h"
#include "tree/object.h"

namespace XPJ {

// Enters remarks for what additions alone state: effects and what users named or set. Those that
// only bring exact values back count for nothing.
void AddLostAdditions(ConstHandle xmeml, Account& account);

} // namespace XPJ
