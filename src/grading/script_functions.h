// Functions and constants that every expression script knows.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace XPJ {

constexpr int kMostScriptArguments = 3;

// Angles are in radians. A result outside the reals stays infinite or not-a-number.
struct ScriptFunction {
    std::string_view name;
    int arguments;                         // at most kMostScriptArguments
    bool folds;                            // takes more, one after the other: max(max(a, b), c)
    double (*apply)(const double* values); // `arguments` values
};

// Row of the table; names are case-sensitive.
std::optional<std::uint32_t> FindScriptFunction(std::string_view name) noexcept;
const ScriptFunction& ScriptFunctionAt(std::uint32_t row) noexcept;

// "pi" and "e".
std::optional<double> FindScriptConstant(std::string_view name) noexcept;

} // namespace XPJ
