#include "grading/script_expression.h"

#include "grading/script_functions.h"

namespace XPJ {

namespace {

std::uint32_t Operand32(UnaryOperator op)
{
    return static_cast<std::uint32_t>(op);
}

} // namespace

ScriptError ScriptExpression::Compile(std::string_view target)
{
    assigned = target;
    return Compile(End::Assignment);
}

ScriptError ScriptExpression::CompileCondition()
{
    assigned = {};
    return Compile(End::Condition);
}

ScriptError ScriptExpression::CompileCall(std::uint32_t function)
{
    assigned = {};
    waiting.clear();
    opened = 0;
    lexer.Next();
    lexer.Pass();
    Open(Waiting::Kind::Call, function);
    return Compile(End::Call);
}

ScriptError ScriptExpression::Compile(End end)
{
    if (end != End::Call) {
        waiting.clear();
        opened = 0;
    }
    operandDue = true;
    bool empty = end != End::Call;
    for (;;) {
        const int next = lexer.Next();
        if (Ends(next, end))
            return Finish(empty, next);
        if (lexer.AtDirective())
            return ScriptError::UnknownDirective;
        const ScriptError error = operandDue ? Operand(next) : Operator(next);
        if (error != ScriptError::None)
            return error;
        if (end == End::Call && opened == 0)
            return ScriptError::None;
        empty = false;
    }
}

bool ScriptExpression::Ends(int next, End end) const
{
    return next == ScriptLexer::kEnd || next == ';' || next == '{' || next == '}' ||
           (next == ')' && end == End::Condition && opened == 0);
}

ScriptError ScriptExpression::Finish(bool empty, int next)
{
    if (empty)
        return ScriptError::ExpressionExpected;
    if (operandDue)
        return next == ScriptLexer::kEnd ? ScriptError::UnexpectedEndOfExpression
                                         : ScriptError::MissingOperand;
    EmitDownTo(kConditionalLevel);
    if (waiting.empty())
        return ScriptError::None;
    return waiting.back().kind == Waiting::Kind::Question ? ScriptError::MissingOperator
                                                          : ScriptError::MissingRightInExpression;
}

// Where an operand is expected.
ScriptError ScriptExpression::Operand(int next)
{
    if (IsScriptDigit(next) || next == '.')
        return Number();
    if (IsScriptLetter(next))
        return Name();
    switch (next) {
    case '(':
        lexer.Pass();
        Open(Waiting::Kind::Parenthesis);
        return ScriptError::None;
    case ')':
        if (!waiting.empty() && waiting.back().kind == Waiting::Kind::Call &&
            waiting.back().count == 0)
            return ScriptError::TooFewArguments;
        return ScriptError::MissingOperand;
    case ',':
        return ScriptError::MissingOperand;
    default:
        return UnaryOrFault();
    }
}

// After an operand.
ScriptError ScriptExpression::Operator(int next)
{
    if (IsScriptDigit(next) || IsScriptLetter(next))
        return ScriptError::MissingOperator;
    switch (next) {
    case '.':
        return IsScriptLetter(lexer.Behind()) ? ScriptError::CoordinateOfNoVector
                                              : ScriptError::MissingOperator;
    case '(':
        return ScriptError::MisplacedLeft;
    case ')':
        return RightParenthesis();
    case ',':
        return Comma();
    default:
        break;
    }
    const std::string_view text = lexer.TakeOperator();
    if (text.empty())
        return ScriptError::InvalidCharacter;
    if (text == "!")
        return ScriptError::NotNotExpected;
    if (text == "~")
        return ScriptError::ComplementNotExpected;
    const auto row = FindScriptOperator(text);
    return row ? Binary(*row) : ScriptError::UnsupportedOperator;
}

ScriptError ScriptExpression::Number()
{
    double value = 0;
    const ScriptError error = lexer.TakeNumber(&value);
    if (error == ScriptError::None)
        program.EmitConstant(value);
    operandDue = false;
    return error;
}

ScriptError ScriptExpression::Name()
{
    std::string_view name;
    if (const ScriptError error = lexer.TakeName(&name); error != ScriptError::None)
        return error;
    const auto function = FindScriptFunction(name);
    if (!function)
        return Variable(name);
    if (lexer.Next() != '(')
        return ScriptError::LeftAfterFunctionExpected;
    lexer.Pass();
    Open(Waiting::Kind::Call, *function);
    return ScriptError::None;
}

ScriptError ScriptExpression::Variable(std::string_view name)
{
    operandDue = false;
    const ScriptVariables::Found found = variables.Find(name);
    switch (found.match) {
    case ScriptVariables::Match::Variable:
        program.Emit(ScriptOp::Load, found.slot);
        return ScriptError::None;
    case ScriptVariables::Match::Vector:
        return ScriptError::UnsupportedOperator;
    case ScriptVariables::Match::NoCoordinate:
        return ScriptError::InvalidCoordinate;
    case ScriptVariables::Match::None:
        break;
    }
    if (lexer.Next() == '(')
        return ScriptError::UnknownIdentifier;
    if (const auto constant = FindScriptConstant(name)) {
        program.EmitConstant(*constant);
        return ScriptError::None;
    }
    if (lexer.Next() == '=' && lexer.Behind() != '=') // not read: "a = b = 1"
        return ScriptError::AssignmentInExpression;
    return name == assigned ? ScriptError::SelfInitialisation : ScriptError::UnknownIdentifier;
}

ScriptError ScriptExpression::UnaryOrFault()
{
    const std::string_view text = lexer.TakeOperator();
    if (text.empty())
        return ScriptError::InvalidCharacter;
    UnaryOperator op = UnaryOperator::Plus;
    if (text == "-")
        op = UnaryOperator::Minus;
    else if (text == "~")
        op = UnaryOperator::Complement;
    else if (text == "!")
        op = UnaryOperator::Not;
    else if (text != "+") {
        const auto row = FindScriptOperator(text);
        if (!row)
            return ScriptError::UnsupportedOperator;
        return ScriptOperatorAt(*row).kind == ScriptOperator::Kind::Assignment
                   ? ScriptError::AssignmentInExpression
                   : ScriptError::OperatorNotExpected;
    }
    waiting.push_back({Waiting::Kind::Unary, UnaryLevel(op), Operand32(op)});
    return ScriptError::None;
}

ScriptError ScriptExpression::Binary(std::uint32_t row)
{
    const ScriptOperator& op = ScriptOperatorAt(row);
    switch (op.kind) {
    case ScriptOperator::Kind::Assignment:
        return ScriptError::AssignmentInExpression;
    case ScriptOperator::Kind::Question:
        return Question();
    case ScriptOperator::Kind::Colon:
        return Colon();
    case ScriptOperator::Kind::And:
        EmitDownTo(op.level);
        waiting.push_back({Waiting::Kind::And, op.level, program.Emit(ScriptOp::JumpIfZero)});
        break;
    case ScriptOperator::Kind::Or: {
        EmitDownTo(op.level);
        const std::uint32_t toRight = program.Emit(ScriptOp::JumpIfZero);
        program.EmitConstant(1);
        waiting.push_back({Waiting::Kind::Or, op.level, program.Emit(ScriptOp::Jump)});
        program.JumpToHere(toRight);
        break;
    }
    case ScriptOperator::Kind::Plain:
    case ScriptOperator::Kind::Divides:
        EmitDownTo(op.level);
        waiting.push_back({Waiting::Kind::Binary, op.level, row});
        break;
    }
    operandDue = true;
    return ScriptError::None;
}

ScriptError ScriptExpression::Question()
{
    EmitDownTo(kConditionalLevel + 1); // binds to the right: an earlier ":" waits
    waiting.push_back({Waiting::Kind::Question, kNoLevel, program.Emit(ScriptOp::JumpIfZero)});
    operandDue = true;
    return ScriptError::None;
}

ScriptError ScriptExpression::Colon()
{
    EmitDownTo(kConditionalLevel);
    if (waiting.empty() || waiting.back().kind != Waiting::Kind::Question)
        return ScriptError::OperatorNotExpected;
    const std::uint32_t overSecond = program.Emit(ScriptOp::Jump);
    program.JumpToHere(waiting.back().operand);
    waiting.back() = {Waiting::Kind::Colon, kConditionalLevel, overSecond};
    operandDue = true;
    return ScriptError::None;
}

ScriptError ScriptExpression::Comma()
{
    lexer.Pass();
    EmitDownTo(kConditionalLevel);
    if (waiting.empty() || waiting.back().kind == Waiting::Kind::Parenthesis)
        return ScriptError::CommaOutsideCall;
    if (waiting.back().kind == Waiting::Kind::Question)
        return ScriptError::MissingOperator;
    operandDue = true;
    return EndArgument(waiting.back());
}

ScriptError ScriptExpression::RightParenthesis()
{
    lexer.Pass();
    EmitDownTo(kConditionalLevel);
    if (waiting.empty())
        return ScriptError::NoMatchingLeft;
    if (waiting.back().kind == Waiting::Kind::Question)
        return ScriptError::MissingOperator;
    if (waiting.back().kind == Waiting::Kind::Call) {
        Waiting& call = waiting.back();
        if (const ScriptError error = EndArgument(call); error != ScriptError::None)
            return error;
        const ScriptFunction& function = ScriptFunctionAt(call.operand);
        if (call.count < static_cast<std::uint32_t>(function.arguments))
            return ScriptError::TooFewArguments;
        if (!function.folds)
            program.Emit(ScriptOp::Call, call.operand);
    }
    waiting.pop_back();
    --opened;
    return ScriptError::None;
}

// A function that folds is called for each argument after its first, so that the stack stays flat.
ScriptError ScriptExpression::EndArgument(Waiting& call)
{
    const ScriptFunction& function = ScriptFunctionAt(call.operand);
    ++call.count;
    if (function.folds) {
        if (call.count >= static_cast<std::uint32_t>(function.arguments))
            program.Emit(ScriptOp::Call, call.operand);
        return ScriptError::None;
    }
    return call.count > static_cast<std::uint32_t>(function.arguments)
               ? ScriptError::TooManyArguments
               : ScriptError::None;
}

void ScriptExpression::Open(Waiting::Kind kind, std::uint32_t function)
{
    waiting.push_back({kind, kNoLevel, function});
    ++opened;
}

// Code of the operators that bind at least as tight as `level`.
void ScriptExpression::EmitDownTo(int level)
{
    while (!waiting.empty() && waiting.back().level >= level)
        EmitLast();
}

void ScriptExpression::EmitLast()
{
    const Waiting last = waiting.back();
    waiting.pop_back();
    switch (last.kind) {
    case Waiting::Kind::Unary:
        program.Emit(ScriptOp::Unary, last.operand);
        break;
    case Waiting::Kind::Binary:
        program.Emit(ScriptOp::Binary, last.operand);
        break;
    case Waiting::Kind::And: { // the left side's jump ends in a 0
        program.Emit(ScriptOp::Unary, Operand32(UnaryOperator::Truth));
        const std::uint32_t overZero = program.Emit(ScriptOp::Jump);
        program.JumpToHere(last.operand);
        program.EmitConstant(0);
        program.JumpToHere(overZero);
        break;
    }
    case Waiting::Kind::Or:
        program.Emit(ScriptOp::Unary, Operand32(UnaryOperator::Truth));
        program.JumpToHere(last.operand);
        break;
    case Waiting::Kind::Colon:
        program.JumpToHere(last.operand);
        break;
    case Waiting::Kind::Parenthesis:
    case Waiting::Kind::Call:
    case Waiting::Kind::Question:
        break; // have no level, so they stay
    }
}

} // namespace XPJ
