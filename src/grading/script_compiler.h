// Statements of an expression script.
//
//   script    = { statement }
//   statement = ";" | "{" { statement } "}"
//             | "if" "(" expression ")" statement [ "else" statement ]
//             | "while" "(" expression ")" statement | "break" ";" | "continue" ";"
//             | variable "=" expression ";" | function "(" [ expression { "," expression } ] ")"
//             ";"
#pragma once

#include "grading/script_program.h"

#include <string_view>

namespace XPJ {

// Fills `program`, and `variables` with those the script assigns. On an error both are of no use.
ScriptError CompileScript(std::string_view script, ScriptVariables& variables,
                          ScriptProgram& program);

} // namespace XPJ
