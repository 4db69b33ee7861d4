// `xmeml` tree to project tree.
#pragma once

#include "core/conversion_result.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "platform/settings.h"
#include "tree/object.h"

#include <string>

namespace XPJ {

struct ImportOptions {
    std::string inputPath;   // relative `pathurl`s resolve against its folder
    bool sn2vlMode = false;  // the document carries the audio hand-off import option
    bool aafSupport = false; // the host came in through the AAF-aware entry
    Settings settings{};
};

// Translates `root`, a parsed `xmeml` element, into a `Document` node with one child `Project`,
// made in `document`. The input tree is changed on the way: some passes leave notes in it.
// Gives a ConversionResult; findings go into `issues`, clips and sequences without media into
// `skipped` if it is given.
int ImportDocument(ObjectHandle root, const ImportOptions& options, Progress& progress,
                   Document& document, IssueSet& issues, ObjectHandle& projectDocument,
                   SkippedList* skipped = nullptr);

} // namespace XPJ
