// Expressions of a script, compiled in one pass with a stack of the operators that still wait for
// their right side. Nesting costs heap, never the thread's stack.
#pragma once

#include "grading/script_lexer.h"
#include "grading/script_operators.h"
#include "grading/script_program.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace XPJ {

class ScriptExpression {
public:
    ScriptExpression(ScriptLexer& source, ScriptProgram& code, const ScriptVariables& known)
        : lexer(source), program(code), variables(known)
    {
    }

    // Code that leaves the value on the stack, from here to a ";", "{", "}" or the end of the text,
    // none of which is passed.
    // target: the variable that the value is for; not readable before its first assignment.
    ScriptError Compile(std::string_view target);
    // The same for a condition, behind its "(": ends also before its ")".
    ScriptError CompileCondition();
    // A call, whose "(" comes next, to behind its ")".
    ScriptError CompileCall(std::uint32_t function);

private:
    enum class End : std::uint8_t { Assignment, Condition, Call };

    // An operator or an opened parenthesis; the last is innermost.
    struct Waiting {
        enum class Kind : std::uint8_t {
            Parenthesis,
            Call,     // operand: row of the function; count: complete arguments
            Unary,    // operand: an UnaryOperator
            Binary,   // operand: row of the operator
            And,      // operand: jump to the 0 that a 0 on the left gives
            Or,       // operand: jump over the right side
            Question, // operand: jump to the second value
            Colon,    // operand: jump over the second value
        };
        Kind kind;
        int level = kNoLevel; // kNoLevel: nothing outside binds across it
        std::uint32_t operand = 0;
        std::uint32_t count = 0;
    };
    static constexpr int kNoLevel = -1;

    ScriptError Compile(End end);
    bool Ends(int next, End end) const;
    ScriptError Finish(bool empty, int next);
    ScriptError Operand(int next);
    ScriptError Operator(int next);
    ScriptError Number();
    ScriptError Name();
    ScriptError Variable(std::string_view name);
    ScriptError UnaryOrFault();
    ScriptError Binary(std::uint32_t row);
    ScriptError Question();
    ScriptError Colon();
    ScriptError Comma();
    ScriptError RightParenthesis();
    ScriptError EndArgument(Waiting& call);
    void Open(Waiting::Kind kind, std::uint32_t function = 0);
    void EmitDownTo(int level);
    void EmitLast();

    ScriptLexer& lexer;
    ScriptProgram& program;
    const ScriptVariables& variables;
    std::string_view assigned;
    std::vector<Waiting> waiting;
    std::size_t opened = 0; // parentheses and calls among them
    bool operandDue = true;
};

} // namespace XPJ
