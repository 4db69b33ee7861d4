// `xmeml` tree to project tree.
#pragma once

#include "core/account.h"
#include "core/conversion_result.h"
#include "core/progress.h"
#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// Translates `root`, a parsed `xmeml` element, into a `Document` node with one child `Project`,
// made in `document`. Gives a ConversionResult; what does not arrive goes into `account`.
int ImportDocument(ConstHandle root, const ImportOptions& options, Progress& progress,
                   Document& document, Account& account, ObjectHandle& projectDocument);

} // namespace XPJ
