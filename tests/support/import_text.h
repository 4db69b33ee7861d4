// The import from text to text, as tests run it.
#pragma once

#include "core/progress.h"
#include "import/import_driver.h"
#include "tree/reading.h"

#include <string>
#include <string_view>

namespace XPJ {

struct Imported {
    int read = kReadDone;
    int result = kSuccess;
    std::string project = {}; // empty if one of the two failed
    std::string issues = {};
    std::string skipped = {};
    std::string remarks = {};
};

Imported ImportText(std::string_view xmeml, const ImportOptions& options = {},
                    Progress* progress = nullptr);

// Of a document that was read: its `xmeml` element.
Imported ImportTree(ConstHandle root, const ImportOptions& options = {},
                    Progress* progress = nullptr);

} // namespace XPJ
