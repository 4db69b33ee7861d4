// Which items show a file, and what they need of it.
#pragma once

#include "dialects/parts.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ {

// A file with all of its definitions, and what the clips and items of the document need of it.
struct FileUses {
    std::vector<ObjectHandle> definitions; // the `file`s with content; some writers repeat them
    bool onVideo = false;
    bool onAudio = false;
    bool inBin = false;         // a clip's own file
    bool hasMedia = false;      // video or audio
    std::int64_t channels = 0;  // the highest channel that an item names
    std::int64_t lastFrame = 0; // the highest out point, of a file without media
    ObjectHandle element;       // the first item or clip that shows it
    ObjectHandle sequence;      // around that item; null for a clip of a bin

    // The child of the first definition that has it.
    ObjectHandle Child(Name name) const;
    std::string_view Name() const;
};

// In the order in which the document mentions them.
struct FileUseTable {
    static constexpr std::size_t kNoFile = static_cast<std::size_t>(-1);

    std::vector<FileUses> files;
    std::vector<std::size_t> ofItems; // for each item of the parts the index of its file
};
FileUseTable FindFileUses(const TreeParts& parts);

} // namespace XPJ
