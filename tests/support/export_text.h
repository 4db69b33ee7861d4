// The export from text to text, as tests run it.
#pragma once

#include "core/progress.h"
#include "export/export_driver.h"
#include "tree/reading.h"

#include <string>

namespace XPJ::RVX {

struct Exported {
    int read = kReadDone;
    int result = kSuccess;
    std::string xmeml = {}; // empty if one of the two failed
    std::string issues = {};
    std::string skipped = {};
    std::string remarks = {};
};

Exported ExportText(const std::string& project, const ExportOptions& options = {},
                    Progress* progress = nullptr);

} // namespace XPJ::RVX
