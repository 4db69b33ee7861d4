// The look effect: a grading that documents name by its file and projects hold as a binary value.
//
// What this system exported comes back with the value itself and without a file.
#pragma once

#include "effects/effect_row.h"
#include "tree/object.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace XPJ {

// ---- Files

// A serialised grading as a project stores it. Both texts are empty for a file that is no look.
struct StoredLook {
    std::string_view base64;
    std::string_view checksum;
};

// The look files and lookup tables that effects of one conversion name. Each is read once, however
// many clips it grades.
class LookFiles {
public:
    // `document` keeps the texts; relative paths resolve against `folder`, which ends in a
    // separator.
    LookFiles(Document& document, std::string_view folder) : document_(document), folder_(folder) {}

    // The native path for the text of a document.
    std::string PathOf(std::string_view documentText) const;

    // Reads a ".look" file as a look document and any other as a lookup table; a grading without a
    // name takes `name`. Null when the file can't be opened.
    const StoredLook* Open(const std::string& path, const std::string& name);

private:
    Document& document_;
    std::string folder_;
    std::map<std::pair<std::string, std::string>, StoredLook> looks_; // by path and name
};

// ---- The effect

// False, with an issue, when the file of the look can't be opened. A file that is no look leaves
// its parameter without a value.
bool LookToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components);
void LookToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect);

} // namespace XPJ
