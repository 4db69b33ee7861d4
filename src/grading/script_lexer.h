// Pieces of an expression script: names, numbers, operators.
//
// Every function but `Next` looks at the very place where the one before stopped; `Next` passes
// blanks over first. A "-" behind its first character belongs to a name: "a-b" is one variable.
#pragma once

#include "grading/script_errors.h"

#include <cstddef>
#include <string_view>

namespace XPJ {

bool IsScriptLetter(int c) noexcept; // a to z of either case, "_"
bool IsScriptDigit(int c) noexcept;

class ScriptLexer {
public:
    static constexpr int kEnd = -1;

    // The text outlives the lexer and what it gives.
    explicit ScriptLexer(std::string_view script) : text(script) {}

    // The next byte that is no blank, kEnd behind the last; it is not passed.
    int Next();
    // The byte behind that.
    int Behind() const { return At(position + 1); }
    void Pass() { ++position; }

    // True for a "#" that opens its line.
    bool AtDirective() const;
    // True, and passed, when the word stands here whole.
    bool TakeKeyword(std::string_view word);
    // A name of at most one dot.
    ScriptError TakeName(std::string_view* name);
    ScriptError TakeNumber(double* value);
    // The longest run of operator characters. "-", "~" and a "!" that no "=" follows stand alone,
    // and a "+" behind another operator begins one: "2*+3". Empty at any other byte.
    std::string_view TakeOperator();

private:
    int At(std::size_t place) const;
    std::size_t NameEnd(std::size_t place) const;
    ScriptError TooManyDots();
    ScriptError TakeHexNumber(double* value);

    std::string_view text;
    std::size_t position = 0;
};

} // namespace XPJ
