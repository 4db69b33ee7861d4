// Which items show a file, and what they need of it.
#pragma once

#include "dialects/parts.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// A file with all of its definitions, and what the document's clips and items ask of it.
struct FileUses {
    std::vector<ObjectHandle> definitions; // the `file`s with content; some writers repeat them
    bool onVideo = false;
    bool onAudio = false;
    bool inBin = false;         // a clip's own file
    std::int64_t channels = 0;  // the highest channel that an item names
    std::int64_t lastFrame = 0; // the highest out point
    ObjectHandle element;       // the first item or clip that shows it
    ObjectHandle sequence;      // around that item; null for a clip of a bin

    // The child of the first definition that has it.
    ObjectHandle Child(Name name) const;
    std::string_view Name() const;
};

// True for a `file` that states something beside its id.
bool HasContent(ConstHandle file);

// In the order in which the document mentions them.
std::vector<FileUses> FindFileUses(const TreeParts& parts);

} // namespace XPJ
