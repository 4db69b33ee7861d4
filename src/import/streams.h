// One `file` as Media with streams, and the sources that master clips refer to.
#pragma once

#include "import/import_state.h"
#include "project/media.h"
#include "tree/object.h"
#include "xmeml/files.h"

namespace XPJ {

// What shows a file: a `clip`, `clipitem` or `generatoritem`. `characteristics` gives the frame
// size if the file states none: that of the sequence around a track item, null for a clip.
struct FileUse {
    ConstHandle element;
    FileElement file;
    ConstHandle characteristics = {};
};

// Makes the Media and sources of a file; none without a rate or `media`. Not for layered images.
MediaSources MakeFileSources(const ImportState& state, const FileUse& use);

} // namespace XPJ
