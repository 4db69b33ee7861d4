// The document formats that are read and written: a row each.
#pragma once

#include "core/progress.h"
#include "tree/object.h"
#include "tree/reading.h"

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace XPJ {

// The vocabulary of a tree.
enum class TreeKind { Xmeml, Project };

// Where a document comes from.
struct DocumentInput {
    std::string path{};             // of the file; relative paths of media count from its folder
    std::istream* stream = nullptr; // read instead of the file if it is given
    bool isOpen = false;            // `xmeml` is read in the open manner
};

// What was found beside the tree.
struct DocumentDetails : ReadNotes {
    bool isHandOff = false; // the document states the option of the audio hand-off
};

struct WriteOptions {
    bool handOff = false;  // a document of the audio hand-off
    bool additions = true; // of `xmeml`: also what the document type doesn't have
};

// The functions give a ConversionResult.
struct Format {
    TreeKind kind;
    std::string_view name;      // for people
    std::string_view extension; // without the dot
    std::string_view element;   // of the document

    // Gives `root`, the node of the document element, with references bound.
    int (*read)(const DocumentInput& input, Progress& progress, Document& document,
                ObjectHandle& root, DocumentDetails& details);
    // The same for UTF-8 text in memory.
    int (*parse)(std::string_view text, bool isOpen, Document& document, ObjectHandle& root,
                 DocumentDetails& details);
    // Writes what `root` holds, and flushes; the stream's errors are the caller's.
    int (*write)(ObjectHandle root, const WriteOptions& options, Progress& progress,
                 std::ostream& output);
};

std::span<const Format> AllFormats();
// The first format whose trees are of that kind.
const Format& FormatOf(TreeKind kind);
// Null for an extension of no format; letters must match in case.
const Format* FormatOfExtension(std::string_view extension);
// By the document element that a text starts with; null if none is known.
const Format* KnownFormatOfText(std::string_view text);
// The same; the first format if none is known.
const Format& FormatOfText(std::string_view text);

} // namespace XPJ
