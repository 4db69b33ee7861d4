// What an item shows: the file of its media, or a sequence.
#pragma once

#include "export/items.h"

#include <string_view>

namespace XPJ::RVX {

struct ItemSource {
    std::string_view linkKey =
        {};                     // items of a link group link when they show the same; may be empty
    NestedSequence nested = {}; // to be written in the item
};

// Adds `file` and the browser's comments on the master, or the reference `sequenceid` of an item
// that shows a written sequence. A source that can't be carried, or isn't there, is reported.
ItemSource WriteItemSource(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                           const ItemRecord& record, ObjectHandle element);

} // namespace XPJ::RVX
