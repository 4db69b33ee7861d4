// Project tree to `xmeml` tree.
#pragma once

#include "core/conversion_result.h"
#include "core/guid.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "export/export_context.h"
#include "tree/object.h"

#include <string>

namespace XPJ::RVX {

// False while only the frame of a project is translated, its title and bins: a caller that writes
// the result must tell the user so. The one place that says it.
constexpr bool kTranslatesClips = true;

struct ExportOptions {
    std::string projectTitle;
    std::string outputPath;
    bool vl2snMode = false;        // the audio hand-off form
    Guid sequenceGuid = kZeroGuid; // zero: the whole project
    IdCounters* ids = nullptr;     // null: those of the process
    // Transform effects leave too; only a document of this system could bring them back.
    bool exportTransformEffect = false;
};

// Translates `root`, a parsed `VelaData` element, into an `xmeml` node made in `document`.
// Gives a ConversionResult; findings go into `issues`, items without media into `skipped`.
// Throws DocumentFault, with what is at fault, for frames or samples of no length.
int TranslateProjectDocument(ConstHandle root, const ExportOptions& options, Progress& progress,
                             Document& document, IssueSet& issues, ObjectHandle& xmeml,
                             SkippedList* skipped = nullptr);

} // namespace XPJ::RVX
