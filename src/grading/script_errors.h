// The messages of the expression script, compiling and running. Four belong to the language but
// have no cause here: MissingParenthesis, FunctionWithoutValue, ParserFault, WhileInitialising.
#pragma once

#include <cstdint>
#include <string_view>

namespace XPJ {

enum class ScriptError : std::uint8_t {
    None,

    // In an expression.
    AssignmentInExpression,
    CommaOutsideCall,
    CoordinateOfNoVector,
    MissingOperand,
    MissingOperator,
    MissingParenthesis,
    MissingRightInExpression,
    NoMatchingLeft,
    OperatorNotExpected,
    NotNotExpected,
    ComplementNotExpected,
    TooFewArguments,
    TooManyArguments,
    LeftAfterFunctionExpected,
    FunctionWithoutValue,
    InvalidCharacter,
    InvalidCharacterInName,
    TooManyDotsInVariable,
    TooManyDotsInFunction,
    InvalidNumber,
    NumberTooLong,
    ValueTooLarge,
    InvalidCoordinate,
    MisplacedLeft,
    UnsupportedOperator,
    UnexpectedEndOfExpression,
    ExpressionExpected,

    // In a statement.
    MissingRightOfCondition,
    MissingSemicolon,
    MissingSemicolonAfterBreak,
    MissingSemicolonAfterContinue,
    BreakOutsideLoop,
    ContinueOutsideLoop,
    ElseWithoutIf,
    LeftAfterIfExpected,
    LeftAfterWhileExpected,
    IdentifierExpected,
    AssignmentExpected,
    UnknownDirective,
    UnknownIdentifier,
    NameCollides,
    SelfInitialisation,
    UnexpectedEndOfScript,

    // Running.
    DivisionByZero,
    NoScript,
    NoCode,
    ParserFault,
    NoResult,
    OutOfMemory,
    Unspecified,
    WhileInitialising,
    WhileExecuting,

    Count
};

// The whole message; for the two that only open one (`WhileInitialising`, `WhileExecuting`), that
// opening. Empty for `None`.
std::string_view ScriptErrorText(ScriptError error) noexcept;

} // namespace XPJ
