// The `file`s behind clips, and the Media that projects make of them.
//
// A `file` is defined once, with its content; elsewhere it stands as an empty element of the same
// id. Nothing here opens a file: offline media is translated like any other.
#pragma once

#include "import/import_state.h"
#include "tree/object.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// The defining `file` for one that may be a reference; null if its id is unknown.
ObjectHandle ResolveFile(const ImportState& state, ObjectHandle file);

// The `file` of a `clip` or `clipitem`: its own, else that of the still that its `sequence` wraps.
ObjectHandle FileOfItem(const ImportState& state, ObjectHandle item);

// The files that the tracks of a `media` use, each once, those of picture tracks first. A track
// counts by its first `clipitem`.
std::vector<ObjectHandle> FilesOfMedia(const ImportState& state, ObjectHandle media);
// The same for the picture or the sound tracks alone.
std::vector<ObjectHandle> FilesOfMedia(const ImportState& state, ObjectHandle media,
                                       MediaType type);

// The first file of an element's `media`, else its own; null without one.
ObjectHandle FirstFileOf(const ImportState& state, ObjectHandle element);

// The first `clipitem` of the first picture track of `media`, else of the first sound track.
ObjectHandle FirstClipItem(ObjectHandle media);

// The value under `key` in the `metadata` of a file; nothing if the key is not there.
std::optional<std::string_view> MetadataOf(ObjectHandle file, std::string_view key);

// An attribute that counts as set when it is there, unless it says "false".
bool HasFlag(ObjectHandle node, Name key);

// Footage of a camera whose clips are folders: path and title stand in the file's metadata.
bool IsRedFile(ObjectHandle file);
// A still in layers, each of which becomes a clip.
bool IsLayeredImage(ObjectHandle file);
bool IsBarsAndTone(ObjectHandle file);
// The carrier of a title or shape.
bool IsGraphic(ObjectHandle file);

// Local path, escaped for the tree; empty without a `pathurl`.
std::string PathOfFile(const ImportState& state, ObjectHandle file);
std::string_view TitleOfFile(ObjectHandle file);

// A new Media without streams.
ObjectHandle MakeMedia(const ImportState& state, ObjectHandle file);

// What tells kinds of Media apart.
struct MediaForm {
    std::string_view importer = "1fa18bfa-255c-44b1-ad73-56bcd99fceaf";
    std::string_view path;
    std::string_view title;
    bool infinite = false; // the picture has no end
};
ObjectHandle MakeMedia(Document& document, const MediaForm& form);

} // namespace XPJ
