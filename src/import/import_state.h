// What all passes of one import share.
#pragma once

#include "core/progress.h"
#include "core/translation_issue.h"
#include "platform/settings.h"
#include "tree/object.h"

#include <string>

namespace XPJ {

struct ImportOptions {
    std::string inputPath;   // relative `pathurl`s resolve against its folder
    bool sn2vlMode = false;  // the document is an audio hand-off
    bool aafSupport = false; // the host reads AAF as well
    Settings settings{};
};

struct ImportState {
    Document& document; // owns the nodes that the import makes
    Progress& progress;
    IssueSet& issues;
    const ImportOptions& options;
    std::string folder = {}; // of the input, with its last separator; base of relative `pathurl`s
    SkippedList skipped = {};
};

} // namespace XPJ
