// Reading the elements of a look: children by their tags, in any order and any case; those that
// nobody takes are skipped whole.
#pragma once

#include "core/numbers.h"
#include "core/text.h"
#include "grading/xml_file.h"

#include <string>
#include <string_view>

namespace XPJ {

// Behind a StartTag, or behind the first element of a body without root: reads to the end of the
// element or the text. `take(tag)` either reads a child whole and gives true, or touches nothing
// and gives false. The result is the element's own text, several values joined by a blank.
template <typename Take>
std::string ReadElement(CZvXMLFile& file, const Take& take)
{
    std::string text;
    bool hasText = false;
    for (;;) {
        switch (file.Next()) {
        case CZvXMLFile::Status::StartTag:
            if (!take(std::string_view(file.TagName())))
                file.SkipElement();
            break;
        case CZvXMLFile::Status::Value:
            if (hasText)
                text += ' ';
            text += file.Value();
            hasText = true;
            break;
        case CZvXMLFile::Status::EndTag:
        case CZvXMLFile::Status::End:
            return text;
        }
    }
}

inline std::string ReadText(CZvXMLFile& file)
{
    return ReadElement(file, [](std::string_view) { return false; });
}

// "1" and other numbers that aren't 0, and "true".
inline bool IsTrueText(std::string_view text)
{
    return ParseInt(text) != 0 || EqualsIgnoreCase(text, "true");
}

} // namespace XPJ
