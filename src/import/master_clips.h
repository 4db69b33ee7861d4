// Master clips: which there are, which of them an item means, and the project items that show them.
//
// Every master that is built is entered in the registry under its file's (or generator's) id, so
// that MasterForItem finds it from any track.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Enters the masters of a `clip` with its files in the registry and under the clip's signatures.
void CollectClip(ImportState& state, ObjectHandle clip);

// Makes the project items of a browser `clip` in `parentItem`. Gives the number of masters found.
int TranslateMasterClipItems(ImportState& state, ObjectHandle clip, ObjectHandle parentItem);

// Enters a master for picture, then for sound. The first key that is taken ends it, with false; the
// master that holds the key is the one to use.
bool RegisterMaster(ImportState& state, std::string_view masterClipId, std::string_view mediaId,
                    int layer, bool hasVideo, bool hasAudio, ObjectHandle master);

// The master that the collect pass entered for a `clip` with one of its files or generators.
ObjectHandle MasterBySignature(const ImportState& state, ObjectHandle clip,
                               std::string_view mediaId);

// The master that a `clipitem`, `generatoritem` or `clip` stands for; null if there is none.
// `trackIndex` counts from 0.
ObjectHandle MasterForItem(const ImportState& state, ObjectHandle item, MediaType type,
                           int trackIndex);

struct ItemMaster {
    ObjectHandle master;
    ObjectHandle media; // of its first picture source
};

// A master for a `clipitem` whose file is met first on a track, built, registered and, with
// `addProjectItem`, shown in `parentItem`; both null when the file has no streams. `fallback` is a
// `samplecharacteristics` for the frame size; may be null.
ItemMaster MasterClipForTrackItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                                  ObjectHandle parentItem, ObjectHandle fallback, bool exploded,
                                  bool addProjectItem);

// The same for a layered image (see IsLayeredImage): a master and a project item for each layer
// that is not registered yet.
void TranslateLayeredItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                          ObjectHandle parentItem, ObjectHandle fallback);

} // namespace XPJ
