#include "grading/script_compiler.h"

#include "grading/script_expression.h"
#include "grading/script_functions.h"

namespace XPJ {

namespace {

class ScriptCompiler {
public:
    ScriptCompiler(std::string_view script, ScriptVariables& known, ScriptProgram& code)
        : variables(known), program(code), lexer(script), expression(lexer, code, known)
    {
    }

    ScriptError Compile();

private:
    // A statement that holds others, with the jump that skips its body.
    struct Open {
        enum class Kind : std::uint8_t { Block, If, Else, While };
        Kind kind;
        std::uint32_t jump = 0;
    };
    struct Loop {
        std::uint32_t start;
        std::uint32_t lastBreak; // jump of the last "break", which names the one before; or none
    };
    static constexpr std::uint32_t kNoBreak = 0xFFFFFFFF;

    ScriptError Statement(int next);
    ScriptError Named();
    ScriptError Conditional(Open::Kind kind, ScriptError leftMissing);
    ScriptError Break();
    ScriptError Continue();
    ScriptError Call(std::uint32_t function);
    ScriptError Assignment(std::string_view name);
    ScriptError EndBy(ScriptError missing);
    void EndStatement();
    void EndLoop(const Open& loop);

    ScriptVariables& variables;
    ScriptProgram& program;
    ScriptLexer lexer;
    ScriptExpression expression;
    std::vector<Open> opened; // the last is innermost
    std::vector<Loop> loops;
};

ScriptError ScriptCompiler::Compile()
{
    for (;;) {
        const int next = lexer.Next();
        if (next == ScriptLexer::kEnd)
            break;
        const ScriptError error = Statement(next);
        if (error != ScriptError::None)
            return error;
    }
    if (!opened.empty())
        return ScriptError::UnexpectedEndOfScript;
    program.Emit(ScriptOp::End);
    return ScriptError::None;
}

ScriptError ScriptCompiler::Statement(int next)
{
    if (IsScriptLetter(next))
        return Named();
    if (lexer.AtDirective())
        return ScriptError::UnknownDirective;
    switch (next) {
    case ';':
        lexer.Pass();
        EndStatement();
        return ScriptError::None;
    case '{':
        lexer.Pass();
        opened.push_back({Open::Kind::Block});
        return ScriptError::None;
    case '}':
        if (opened.empty() || opened.back().kind != Open::Kind::Block)
            return ScriptError::IdentifierExpected;
        lexer.Pass();
        opened.pop_back();
        EndStatement();
        return ScriptError::None;
    default:
        return ScriptError::IdentifierExpected;
    }
}

// A keyword, an assignment or a call.
ScriptError ScriptCompiler::Named()
{
    if (lexer.TakeKeyword("if"))
        return Conditional(Open::Kind::If, ScriptError::LeftAfterIfExpected);
    if (lexer.TakeKeyword("while"))
        return Conditional(Open::Kind::While, ScriptError::LeftAfterWhileExpected);
    if (lexer.TakeKeyword("else"))
        return ScriptError::ElseWithoutIf;
    if (lexer.TakeKeyword("break"))
        return Break();
    if (lexer.TakeKeyword("continue"))
        return Continue();

    std::string_view name;
    if (const ScriptError error = lexer.TakeName(&name); error != ScriptError::None)
        return error;
    const int next = lexer.Next();
    const bool assigns = next == '=' && lexer.Behind() != '=';
    if (const auto function = FindScriptFunction(name)) {
        if (next == '(')
            return Call(*function);
        return assigns ? ScriptError::NameCollides : ScriptError::LeftAfterFunctionExpected;
    }
    if (next == '(')
        return ScriptError::UnknownIdentifier;
    return assigns ? Assignment(name) : ScriptError::AssignmentExpected;
}

// "if" and "while" up to their body.
ScriptError ScriptCompiler::Conditional(Open::Kind kind, ScriptError leftMissing)
{
    if (lexer.Next() != '(')
        return leftMissing;
    lexer.Pass();
    const std::uint32_t start = program.Here();
    if (const ScriptError error = expression.CompileCondition(); error != ScriptError::None)
        return error;
    if (lexer.Next() != ')')
        return ScriptError::MissingRightOfCondition;
    lexer.Pass();
    opened.push_back({kind, program.Emit(ScriptOp::JumpIfZero)});
    if (kind == Open::Kind::While)
        loops.push_back({start, kNoBreak});
    return ScriptError::None;
}

ScriptError ScriptCompiler::Break()
{
    if (loops.empty())
        return ScriptError::BreakOutsideLoop;
    loops.back().lastBreak = program.Emit(ScriptOp::Jump, loops.back().lastBreak);
    return EndBy(ScriptError::MissingSemicolonAfterBreak);
}

ScriptError ScriptCompiler::Continue()
{
    if (loops.empty())
        return ScriptError::ContinueOutsideLoop;
    program.Emit(ScriptOp::Jump, loops.back().start);
    return EndBy(ScriptError::MissingSemicolonAfterContinue);
}

ScriptError ScriptCompiler::Call(std::uint32_t function)
{
    if (const ScriptError error = expression.CompileCall(function); error != ScriptError::None)
        return error;
    program.Emit(ScriptOp::Drop);
    return EndBy(ScriptError::MissingSemicolon);
}

ScriptError ScriptCompiler::Assignment(std::string_view name)
{
    using Match = ScriptVariables::Match;
    const ScriptVariables::Found known = variables.Find(name);
    if (known.match == Match::Vector)
        return ScriptError::UnsupportedOperator;
    if (known.match == Match::NoCoordinate)
        return ScriptError::InvalidCoordinate;
    if (known.match == Match::None && FindScriptConstant(name))
        return ScriptError::NameCollides;
    lexer.Pass(); // "="
    if (const ScriptError error = expression.Compile(name); error != ScriptError::None)
        return error;
    const bool made = known.match == Match::None; // known to the script from here on
    program.Emit(ScriptOp::Store, made ? variables.Declare(name) : known.slot);
    return EndBy(ScriptError::MissingSemicolon);
}

ScriptError ScriptCompiler::EndBy(ScriptError missing)
{
    if (lexer.Next() != ';')
        return missing;
    lexer.Pass();
    EndStatement();
    return ScriptError::None;
}

// A complete statement completes those it is the body of, up to a block or an "if" with an "else".
void ScriptCompiler::EndStatement()
{
    while (!opened.empty() && opened.back().kind != Open::Kind::Block) {
        Open& last = opened.back();
        lexer.Next();
        if (last.kind == Open::Kind::If && lexer.TakeKeyword("else")) {
            const std::uint32_t overElse = program.Emit(ScriptOp::Jump);
            program.JumpToHere(last.jump);
            last = {Open::Kind::Else, overElse};
            return;
        }
        if (last.kind == Open::Kind::While)
            EndLoop(last);
        else
            program.JumpToHere(last.jump);
        opened.pop_back();
    }
}

void ScriptCompiler::EndLoop(const Open& loop)
{
    program.Emit(ScriptOp::Jump, loops.back().start);
    program.JumpToHere(loop.jump);
    for (std::uint32_t jump = loops.back().lastBreak; jump != kNoBreak;) {
        const std::uint32_t before = program.code[jump].operand;
        program.JumpToHere(jump);
        jump = before;
    }
    loops.pop_back();
}

} // namespace

ScriptError CompileScript(std::string_view script, ScriptVariables& variables,
                          ScriptProgram& program)
{
    return ScriptCompiler(script, variables, program).Compile();
}

} // namespace XPJ
