// What users record about clips: each element of `xmeml` with the key under which a project keeps
// it, for both directions.
#pragma once

#include "core/name.h"

#include <span>

namespace XPJ {

struct LoggingField {
    Name element;
    Name key;
    bool isImportedOnly = false; // an export writes it elsewhere, or not at all
};

// Of `logginginfo`, in a LoggingInfo.
std::span<const LoggingField> LoggingFields();
// Of `filmdata` and of the `keycode` in it, in the same.
std::span<const LoggingField> FilmFields();
std::span<const LoggingField> KeycodeFields();
// Of `comments`, among the columns of an item of the browser.
std::span<const LoggingField> CommentFields();

} // namespace XPJ
