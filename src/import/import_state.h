// One import: what all its passes share, and what they find out.
//
// Ids and other texts that serve as keys point into the two documents, which outlive the import.
#pragma once

#include "core/account.h"
#include "core/progress.h"
#include "core/text_hash.h"
#include "effects/effect_context.h"
#include "effects/look_effect.h"
#include "import/catalogs.h"
#include "import/links.h"
#include "import/master_catalog.h"
#include "platform/settings.h"
#include "tree/object.h"
#include "xmeml/file_formats.h"
#include "xmeml/files.h"
#include "xmeml/multiclips.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

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
    Account& account;
    const ImportOptions& options;
    std::string folder = {}; // of the input, with its last separator; base of relative `pathurl`s

    // What the passes find out.
    FileCatalog files = {};
    FileFormats fileFormats = {};
    LookFiles lookFiles{document, folder}; // of the look effects
    ActiveAngles angles = {};
    MasterCatalog masters = {};
    SequenceCatalog sequences = {};
    GeneratorCatalog generators = {};
    TitleCatalog titles{options.settings};
    LinkRecords links = {};

    // The bins around the entry that is being translated, as LocationOfClip has them.
    std::string_view bin = {};
    // Nodes whose losses are in the account already: a clip has several masters, and a multiclip
    // (by id, where it has one) is on several tracks.
    NodeSet remarked = {};
    NodeSet remarkedFilters = {}; // owners of filters
    TextSet<> remarkedMulticlips = {};
    // The items with filters of the latest `clip`, whose masters are made one after the other.
    struct FilteredItems {
        ConstHandle clip = {};
        std::unordered_map<std::uint64_t, std::vector<ConstHandle>> video = {}; // by file
        ConstHandle audio = {};                                                 // the first
    };
    FilteredItems filteredItems = {};
};

// Settings::openInterchange, which an audio hand-off never follows.
inline bool IsOpen(const ImportState& state)
{
    return state.options.settings.openInterchange && !state.options.sn2vlMode;
}

void AddItemIssue(const ImportState& state, const ItemLocation& location, ImportIssue kind,
                  std::string_view subject = {});

// Records an item, a clip of a bin or a sequence of which nothing could be made.
void AddSkipped(ImportState& state, ConstHandle element, const ItemLocation& location);

// The location of a clip, a sequence or a marker's owner in a bin.
ItemLocation LocationOfClip(const ImportState& state, ConstHandle element);
// The path of the bins in `outer` and of `bin` in them. Bins that nest very deeply share one.
std::string_view PathOfBin(Document& document, std::string_view outer, std::string_view bin);

// On the angles of a collapsed multiclip beside its active one, once.
void RemarkOnAngles(ImportState& state, ConstHandle multiclip, const ItemLocation& location);

} // namespace XPJ
