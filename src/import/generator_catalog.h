// The generators of an import that have been met, and what was made of them.
#pragma once

#include "core/frame_format.h"
#include "project/master_clip.h"
#include "tree/object.h"

#include <cstdint>
#include <unordered_map>

namespace XPJ {

class GeneratorCatalog {
public:
    // The frame of the `sequence` or `clip` around generators: finding it passes over all items of
    // a track, so it is cached.
    const FrameFormat& FrameOf(ConstHandle owner);

    // True the first time: a `generatoritem` is reported once.
    bool Report(ConstHandle generator) { return reported_.Insert(generator); }

    // Null for one that was not translated yet.
    BuiltMaster MasterOf(ConstHandle generator) const;
    void Add(ConstHandle generator, BuiltMaster master);

    // The master of the black clip behind slugs, once made.
    BuiltMaster blackVideo;

private:
    std::unordered_map<std::uint64_t, FrameFormat> frames_; // by `uniqueId` of the owner
    NodeSet reported_;
    std::unordered_map<std::uint64_t, BuiltMaster> masters_; // by `uniqueId` of the generator
};

} // namespace XPJ
