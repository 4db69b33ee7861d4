// The documents that a command line names, what they are, and where their outputs go.
#pragma once

#include "xpjconvert/options.h"

#include <string>
#include <vector>

namespace XPJ {

struct InputDocument {
    std::string path; // "-" is the standard input
    // Where it is below the folder that was named; of a document that was named itself its name.
    std::string place = {};
};

// The documents of files, folders and lists. A folder's are those with the extension of a format,
// in any case, sorted. Gives a line for each input that can't be read.
std::vector<InputDocument> ExpandInputs(const ToolOptions& options, std::string& problems);

// What a file is: by what the user states, then by its content, then by its extension; the first
// format if nothing shows it.
const Format& FormatOfDocument(const ToolOptions& options, const std::string& path,
                               const std::string& name);

// True for a file that starts as a document of that format.
bool IsDocumentOf(const Format& format, const std::string& path);

// The other of the two formats.
const Format& FormatToWrite(const Format& from);
// Of the files that documents of a format become.
std::string_view ExtensionToWrite(const ToolOptions& options, const Format& from);

// "day1/cut.XML" becomes "day1/cut.vlproj", a name without a known extension gets one.
std::string OutputNameOf(const std::string& place, const Format& to);
std::string OutputNameOf(const std::string& place, std::string_view extension);

// Where the output of a single document goes: the file that the options name, or its name in their
// folder, which is made if they name it with a last "/". `to` is without meaning if they want
// neither format.
std::string OutputPathOf(const ToolOptions& options, const std::string& name, const Format& to);

} // namespace XPJ
