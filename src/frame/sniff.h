// What the first bytes of a file tell about it, and names that carry hand-off marks.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

struct FileKind {
    bool isFCPXML = false;
    bool sn2vlMode = false; // holds the import option of the audio hand-off
};

// Looks at no more than the first 1000 bytes, without regard to case: a long comment in front of
// the document hides it.
FileKind SniffFile(const std::string& path);
FileKind SniffText(std::string_view text);

struct ExportTarget {
    std::string path;
    std::string title;      // of the project; never empty
    bool vl2snMode = false; // the name carried the mark of the audio hand-off
};

// "/p/clip__Vl2Sn__final.xml" is "/p/final.xml" in the hand-off form, titled "final".
ExportTarget ExportTargetOf(std::string_view path);

} // namespace XPJ
