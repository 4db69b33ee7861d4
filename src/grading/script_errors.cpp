#include "grading/script_errors.h"

#include <iterator>

namespace XPJ {

namespace {

struct Text {
    ScriptError error;
    std::string_view text;
};

constexpr Text kTexts[] = {
    {ScriptError::None, ""},

    {ScriptError::AssignmentInExpression, "Syntax error: assignments not allowed."},
    {ScriptError::CommaOutsideCall, "Syntax error: comma outside function call."},
    {ScriptError::CoordinateOfNoVector, "Syntax error: invalid vector coordinate."},
    {ScriptError::MissingOperand, "Syntax error: missing operand."},
    {ScriptError::MissingOperator, "Syntax error: missing operator."},
    {ScriptError::MissingParenthesis, "Syntax error: missing parenthesis."},
    {ScriptError::MissingRightInExpression, "Syntax error: missing right parenthesis."},
    {ScriptError::NoMatchingLeft, "Syntax error: no matching left parenthesis."},
    {ScriptError::OperatorNotExpected, "Syntax error: operator not expected."},
    {ScriptError::NotNotExpected, "Syntax error: unary operator (!) not expected."},
    {ScriptError::ComplementNotExpected, "Syntax error: unary operator (~) not expected."},
    {ScriptError::TooFewArguments, "Too few arguments for this function"},
    {ScriptError::TooManyArguments, "Too many arguments passed to function"},
    {ScriptError::LeftAfterFunctionExpected, "Expected left parenthesis after function name"},
    {ScriptError::FunctionWithoutValue, "Function without return value used in expression."},
    {ScriptError::InvalidCharacter, "Invalid character in expression."},
    {ScriptError::InvalidCharacterInName, "Invalid character in variable name."},
    {ScriptError::TooManyDotsInVariable, "Too many dots in variable name."},
    {ScriptError::TooManyDotsInFunction, "Too many dots in function name."},
    {ScriptError::InvalidNumber, "Invalid number."},
    {ScriptError::NumberTooLong, "Number too long."},
    {ScriptError::ValueTooLarge, "Value too large."},
    {ScriptError::InvalidCoordinate, "Invalid vector coordinate."},
    {ScriptError::MisplacedLeft, "Misplaced left parenthesis."},
    {ScriptError::UnsupportedOperator, "Unsupported operator."},
    {ScriptError::UnexpectedEndOfExpression, "Unexpected end of expression."},
    {ScriptError::ExpressionExpected, "Expression expected."},

    {ScriptError::MissingRightOfCondition, "Missing right parenthesis."},
    {ScriptError::MissingSemicolon, "Missing semicolon."},
    {ScriptError::MissingSemicolonAfterBreak, "Missing semicolon after 'break'"},
    {ScriptError::MissingSemicolonAfterContinue, "Missing semicolon after 'continue'"},
    {ScriptError::BreakOutsideLoop, "'break' found, but not in a loop."},
    {ScriptError::ContinueOutsideLoop, "'continue' found, but not in a loop."},
    {ScriptError::ElseWithoutIf, "Illegal 'else' without matching 'if'."},
    {ScriptError::LeftAfterIfExpected, "strLeft parenthesis expected after 'if'."},
    {ScriptError::LeftAfterWhileExpected, "strLeft parenthesis expected after 'while'."},
    {ScriptError::IdentifierExpected, "Identifier expected."},
    {ScriptError::AssignmentExpected, "Assignment or semicolon expected."},
    {ScriptError::UnknownDirective, "Unknown directive."},
    {ScriptError::UnknownIdentifier, "Unknown identifier."},
    {ScriptError::NameCollides, "Variable name collides with an existing function."},
    {ScriptError::SelfInitialisation, "A variable can't be used to initialize itself."},
    {ScriptError::UnexpectedEndOfScript, "Unexpected end of script"},

    {ScriptError::DivisionByZero, "Division by zero."},
    {ScriptError::NoScript, "No script loaded."},
    {ScriptError::NoCode, "No code."},
    {ScriptError::ParserFault, "Internal parser error (error while building code)."},
    {ScriptError::NoResult, "Internal interpreter error (expression yielded no result)."},
    {ScriptError::OutOfMemory, "Out of memory."},
    {ScriptError::Unspecified, "Unspecified error."},
    {ScriptError::WhileInitialising, "An error occured while initializing '"},
    {ScriptError::WhileExecuting, "An error occured while executing script: "},
};

constexpr bool RowsAreInOrder()
{
    for (std::size_t row = 0; row < std::size(kTexts); ++row)
        if (static_cast<std::size_t>(kTexts[row].error) != row)
            return false;
    return std::size(kTexts) == static_cast<std::size_t>(ScriptError::Count);
}
static_assert(RowsAreInOrder());

} // namespace

std::string_view ScriptErrorText(ScriptError error) noexcept
{
    return error < ScriptError::Count ? kTexts[static_cast<std::size_t>(error)].text : "";
}

} // namespace XPJ
