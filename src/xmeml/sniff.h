// What the head of an XML document states, before it is read.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

struct FileKind {
    bool isFCPXML = false;
    bool sn2vlMode = false; // states the option with which the audio editor hands off
};

// Looks at no more than the first 1000 bytes, without regard to case: a long comment in front of
// the document hides it.
FileKind SniffText(std::string_view text);
// The same for the bytes of a file: one whose encoding isn't a kind of ASCII is no document.
FileKind SniffFile(const std::string& path);

} // namespace XPJ
