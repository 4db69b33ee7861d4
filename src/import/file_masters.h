// Masters of files: built once for the media that an element shows, and registered.
#pragma once

#include "import/import.h"
#include "import/streams.h"
#include "project/media.h"
#include "xmeml/item_times.h"

namespace XPJ {

// A newly built master and the one that the registry holds, which differ when the key was taken.
struct FileMaster {
    MasterClip master; // null if the file has no streams
    MediaSources sources;
    bool isNew = false;
};

// Builds the master of a file and registers it. `exploded`: the tracks of the element are.
FileMaster BuildFileMaster(Import& import, const ClipItem& element, const FileUse& use,
                           bool exploded);

} // namespace XPJ
