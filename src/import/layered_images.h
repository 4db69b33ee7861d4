// Layered stills: one file, and one Media with one source for each layer.
#pragma once

#include "import/import_state.h"

#include <string>
#include <vector>

namespace XPJ {

struct ImageLayer {
    int index = 0; // as the file states it, from the top
    std::string name;
    ObjectHandle source; // VideoMediaSource
};

// The layers of a file (see IsLayeredImage) in document order. `fallback` is a
// `samplecharacteristics` for the frame size; may be null.
std::vector<ImageLayer> MakeImageLayers(const ImportState& state, ObjectHandle element,
                                        ObjectHandle file, ObjectHandle fallback);

} // namespace XPJ
