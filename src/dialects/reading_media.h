// Media that documents leave unsaid: files without `media`, or with half of it, and items without
// a file.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives each clip and item without anything to show a `file` of its name.
void AddMissingFiles(DialectPass& pass);

// Gives each file without `media` what its items need: video, audio, or both.
void AddMissingMedia(DialectPass& pass);

// Adds video or audio to a file that states the other alone, where an item shows it.
void AddMissingHalves(DialectPass& pass);

} // namespace XPJ
