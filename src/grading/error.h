#pragma once

#include <string>

namespace XPJ {

// Why a look, a table or a script could not be read. `file` is the name the caller gave the text;
// line and column count from 1 in the caller's text, 0 where there is none.
struct CZvError {
    std::string message;
    std::string file;
    int line = 0;
    int column = 0;
};

} // namespace XPJ
