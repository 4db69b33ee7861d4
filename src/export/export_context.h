// What the passes of one export share. Made by the driver, passed by reference, gone at the end.
#pragma once

#include "core/guid.h"
#include "core/progress.h"
#include "core/translation_issue.h"
#include "model/object.h"

namespace XPJ::RVX {

struct ExportContext {
    Document& document; // owns the nodes that the export makes
    Progress& progress;
    IssueSet& issues;
    bool vl2snMode = false; // audio hand-off: times in ticks
};

} // namespace XPJ::RVX
