// The `file`s behind clips.
//
// A `file` is defined once, with its content; elsewhere an empty element of the same id refers to
// it. Nothing here opens a file: offline media is translated like any other.
#pragma once

#include "core/text_hash.h"
#include "core/ticks.h"
#include "tree/object.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

class FileElement : public ConstHandle {
public:
    FileElement() = default;
    explicit FileElement(ConstHandle node) : ConstHandle(node) {}

    // The value under `key` in the `metadata`; nothing if the key is not there.
    std::optional<std::string_view> Metadata(std::string_view key) const;
    // The `samplecharacteristics` of its video; null without one.
    ConstHandle VideoCharacteristics() const;
    std::string_view Title() const;

    // Footage of a camera whose clips are folders: the metadata states path and title.
    bool IsRed() const;
    // A still in layers, each of which becomes a clip.
    bool IsLayeredImage() const;
    bool IsBarsAndTone() const;
    // The carrier of a title or shape.
    bool IsGraphic() const;
    // A gap in the cut that is a clip of its own.
    bool IsSlug() const;
};

// The sequence by which a project shows a slug: black video of that name and length.
constexpr std::string_view kSlugSequenceName = "Black Video";
constexpr Ticks kSlugSequenceDuration = 3657830400000000; // 4 hours

// The files that a document defines, by id.
class FileCatalog {
public:
    // The first definition of an id counts. `generatedId` is that of a file that states none.
    void Add(FileElement file, std::string_view generatedId = {});

    // The defining `file` for one that may be a reference; null if its id is unknown.
    FileElement Resolve(ConstHandle file) const;
    // The stated or generated id; empty for a file that has neither.
    std::string_view IdOf(FileElement file) const;

private:
    TextMap<FileElement> byId_;
    NodeSet defining_; // the files in `byId_`, to which references are bound already
    std::unordered_map<std::uint64_t, std::string> generatedIds_; // by `uniqueId`
};

// The `file` of a `clip` or `clipitem`: its own, else that of the still that its `sequence` wraps.
FileElement FileOfItem(const FileCatalog& files, ConstHandle item);

// The files that the tracks of a `media` use, each once, those of video tracks first. A track
// counts by its first `clipitem`.
std::vector<FileElement> FilesOfMedia(const FileCatalog& files, ConstHandle media);

// The first file of an element's `media`, else its own; null without one.
FileElement FirstFileOf(const FileCatalog& files, ConstHandle element);

// The first `clipitem` of the first video track of `media`, else of the first audio track.
ConstHandle FirstClipItem(ConstHandle media);

// Local path, escaped for the tree; empty without a `pathurl`, and for one that is marked as none.
// `folder` is the base of relative ones, with its last separator.
std::string PathOfFile(FileElement file, std::string_view folder);
// Changes what `PathOfFile` gives. `path` is a local one without entities.
void SetPathOfFile(ObjectHandle file, std::string_view path);

} // namespace XPJ
