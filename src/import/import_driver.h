// `xmeml` tree to project tree.
#pragma once

#include "core/conversion_result.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// Translates `root`, a parsed `xmeml` element, into a `Document` node with one child `Project`,
// made in `document`. Gives a ConversionResult; issues go into `issues`, clips and sequences
// without media into `skipped` if it is given.
int ImportDocument(ConstHandle root, const ImportOptions& options, Progress& progress,
                   Document& document, IssueSet& issues, ObjectHandle& projectDocument,
                   SkippedList* skipped = nullptr);

} // namespace XPJ
