// The grading engine's small language of expressions and statements on doubles.
//
//   CZvScriptParser parser;
//   char error[CZvScriptParser::kErrorSize];
//   parser.Set("gain", 2);
//   if (parser.Compile("if (gain > 1) y = sqrt(gain); else y = gain;", error) &&
//       parser.Run(error))
//       parser.Get("y", &value);   // 1.41421
#pragma once

#include "grading/script_program.h"
#include "grading/script_variables.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace XPJ {

// Nothing is shared between two parsers, and none depends on the locale or needs more than 16 KB of
// the thread's stack. Both calls below that take an `error` write a text of at most kErrorSize
// bytes there, its terminator included, which is empty on success; null is allowed.
class CZvScriptParser {
public:
    static constexpr std::size_t kErrorSize = 256;

    // The variables that the host has set are known to the script; those of an earlier script are
    // gone. After a failure there is no script.
    bool Compile(std::string_view script, char* error);
    // Again with other values, too. The script's own variables start without a value. Ends a script
    // that runs on for ever.
    bool Run(char* error);
    // "x", "a.b", of a vector "v.y"; false, and *value untouched, if there is none.
    bool Get(std::string_view name, double* value) const;
    void Set(std::string_view name, double value);
    // 2 to 4 values; others are ignored.
    void Set(std::string_view name, std::span<const double> vector);

private:
    ScriptVariables variables;
    ScriptProgram program;
    bool loaded = false;
};

} // namespace XPJ
