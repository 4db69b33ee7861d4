// Compiled code of an expression script and the stack machine that runs it.
#pragma once

#include "grading/script_errors.h"
#include "grading/script_variables.h"

#include <cstdint>
#include <vector>

namespace XPJ {

enum class ScriptOp : std::uint8_t {
    // operand
    Constant,   // index in `constants`; pushes it
    Load,       // slot of a variable; pushes its value
    Store,      // slot of a variable; pops its value
    Drop,       // none; pops a value
    Unary,      // an UnaryOperator
    Binary,     // row of a ScriptOperator; pops the right value, then the left one
    Call,       // row of a ScriptFunction; pops its arguments, the last one first
    Jump,       // where to
    JumpIfZero, // where to; pops the condition
    End,        // none
};

struct ScriptInstruction {
    ScriptOp op;
    std::uint32_t operand;
};

struct ScriptProgram {
    std::vector<ScriptInstruction> code;
    std::vector<double> constants;

    std::uint32_t Here() const { return static_cast<std::uint32_t>(code.size()); }
    // Index of the instruction, for a jump whose target is told later.
    std::uint32_t Emit(ScriptOp op, std::uint32_t operand = 0);
    void EmitConstant(double value);
    void JumpToHere(std::uint32_t jump) { code[jump].operand = Here(); }
};

// Ends after kMostInstructions or when more than kStackSize values wait: `Unspecified`.
constexpr std::size_t kScriptStackSize = 1024;
constexpr std::int64_t kMostScriptInstructions = 10'000'000;
ScriptError RunScript(const ScriptProgram& program, ScriptVariables& variables);

} // namespace XPJ
