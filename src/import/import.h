// One import: what its passes share, and the catalogs of what they find out.
//
// Ids and other texts that serve as keys point into the two documents, which outlive the import.
#pragma once

#include "effects/look_files.h"
#include "import/catalogs.h"
#include "import/import_state.h"
#include "import/links.h"
#include "import/master_catalog.h"
#include "xmeml/file_formats.h"
#include "xmeml/files.h"
#include "xmeml/multiclips.h"

namespace XPJ {

struct Import : ImportState {
    explicit Import(ImportState&& state)
        : ImportState(std::move(state)), lookFiles(document, folder), titles(options.settings)
    {
    }

    FileCatalog files = {};
    FileFormats fileFormats = {};
    LookFiles lookFiles; // of the look effects
    ActiveAngles angles = {};
    MasterCatalog masters = {};
    SequenceCatalog sequences = {};
    GeneratorCatalog generators = {};
    TitleCatalog titles;
    LinkRecords links = {};
};

} // namespace XPJ
