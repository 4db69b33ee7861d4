// Project tree to `xmeml` tree.
#pragma once

#include "core/account.h"
#include "core/conversion_result.h"
#include "core/progress.h"
#include "export/export_context.h"
#include "tree/object.h"

namespace XPJ::RVX {

// Translates `root`, a parsed `VelaData` element, into an `xmeml` node made in `document`. `root`
// is only read, but the result may refer to its texts.
// Returns a ConversionResult; what does not arrive goes into `account`.
// Throws DocumentFault, with what is at fault, for frames or samples of no length.
int TranslateProjectDocument(ConstHandle root, const ExportOptions& options, Progress& progress,
                             Document& document, Account& account, ObjectHandle& xmeml);

} // namespace XPJ::RVX
