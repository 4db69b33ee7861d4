// Operators of the expression script: spelling, binding and arithmetic.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace XPJ {

// `level`: a higher one binds tighter. All bind to the left except "?:".
struct ScriptOperator {
    enum class Kind : std::uint8_t { Plain, Divides, And, Or, Question, Colon, Assignment };

    std::string_view text;
    int level;
    Kind kind;
    double (*apply)(double, double); // null for those that jump instead
};

// Row of the table, none for a spelling that is no binary operator.
std::optional<std::uint32_t> FindScriptOperator(std::string_view text) noexcept;
const ScriptOperator& ScriptOperatorAt(std::uint32_t row) noexcept;

enum class UnaryOperator : std::uint8_t {
    Plus,
    Minus,
    Complement, // of a value truncated to 64 bits
    Not,        // 1 of zero, else 0
    Truth,      // 0 of zero, else 1; closes "&&" and "||"
};

int UnaryLevel(UnaryOperator op) noexcept;
double ApplyUnary(UnaryOperator op, double value) noexcept;

constexpr int kConditionalLevel = 0;
constexpr int kOrLevel = 1;
constexpr int kAndLevel = 2;

} // namespace XPJ
