// Items without recorded media: generators and slugs.
#pragma once

#include "xmeml/formats.h"
#include "import/import_state.h"
#include "tree/object.h"

namespace XPJ {

// `mediaSource` "Slug": a hole in the cut that is a clip of its own.
bool IsSlug(ObjectHandle file);

// The colour matte.
bool IsColorGenerator(ObjectHandle item);

// Frame that generators are drawn in: that of the `sequence`, or browser `clip`, which holds them.
FrameFormat FrameOfOwner(ObjectHandle owner);

struct GeneratorResult {
    ObjectHandle master;          // null: nothing replaces the item
    bool translated = false;      // false: the caller enters an issue
    bool needsProjectItem = true; // false: the master is not listed in a bin
};

// Master of a `generatoritem`, registered under the item's `id`. `owner` is the `sequence` or
// browser `clip` it stands in, which gives the frame. The project item is the caller's.
GeneratorResult TranslateGenerator(ImportState& state, ObjectHandle item, ObjectHandle owner);

// Master and project item for a `clipitem` whose file is a slug; also the item of the black clip,
// beside the first slug. `fallback` is a `samplecharacteristics` for the frame size; may be null.
void TranslateSlugItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                       ObjectHandle parentItem, ObjectHandle fallback);

// A new MasterClip of black.
ObjectHandle MakeBlackMaster(const ImportState& state);

} // namespace XPJ
