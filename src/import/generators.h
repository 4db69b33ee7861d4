// Generators: mattes, titles and shapes. Transparent video replaces those that nothing is known
// of.
#pragma once

#include "import/import_state.h"
#include "xmeml/item_times.h"

namespace XPJ {

struct GeneratorResult {
    MasterClipHandle master;      // null: nothing replaces the item
    bool translated = false;      // false: the caller enters an issue
    bool needsProjectItem = true; // false: the master is not listed in a bin
    bool isGraphic = false;       // a title that is an effect of a graphic
    bool isNew = false;           // no earlier item made it
};

// Master of a `generatoritem`, registered under the item's `id`. `owner` is the `sequence` or
// browser `clip` around it, which gives the frame. The project item is the caller's.
GeneratorResult TranslateGenerator(ImportState& state, const ClipItem& item, ConstHandle owner);

// On what a new generator loses.
void RemarkOnGenerator(ImportState& state, ConstHandle item, const GeneratorResult& result,
                       const ItemLocation& location);

} // namespace XPJ
