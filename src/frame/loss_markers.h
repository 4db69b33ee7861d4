// Markers in the written cut where something did not arrive as it was.
#pragma once

#include "core/account.h"
#include "frame/formats.h"
#include "tree/object.h"

namespace XPJ {

// Adds a marker for each remark with a time to its sequence in a translated tree, or to all of its
// name where the account doesn't state which of them it is.
// What was assumed is not marked.
void MarkLosses(const Account& account, TreeKind kind, Document& document, ObjectHandle tree);

} // namespace XPJ
