#include "grading/script_functions.h"

#include <cmath>
#include <iterator>
#include <numbers>

namespace XPJ {

namespace {

constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

double Sign(double x)
{
    if (x > 0)
        return 1;
    return x < 0 ? -1 : x; // zero and not-a-number are returned as they are
}

double Clamp(double x, double low, double high)
{
    return std::fmin(std::fmax(x, low), high);
}

// Hermite ramp from 0 at `low` to 1 at `high`; a step where both are the same.
double SmoothStep(double low, double high, double x)
{
    if (low == high)
        return x < low ? 0 : 1;
    const double t = Clamp((x - low) / (high - low), 0, 1);
    return t * t * (3 - 2 * t);
}

constexpr ScriptFunction kFunctions[] = {
    // name  arguments  folds  apply
    {"abs", 1, false, [](const double* v) { return std::fabs(v[0]); }},
    {"sign", 1, false, [](const double* v) { return Sign(v[0]); }},
    {"floor", 1, false, [](const double* v) { return std::floor(v[0]); }},
    {"ceil", 1, false, [](const double* v) { return std::ceil(v[0]); }},
    {"round", 1, false, [](const double* v) { return std::round(v[0]); }},
    {"trunc", 1, false, [](const double* v) { return std::trunc(v[0]); }},
    {"frac", 1, false, [](const double* v) { return v[0] - std::floor(v[0]); }},
    {"sqrt", 1, false, [](const double* v) { return std::sqrt(v[0]); }},
    {"exp", 1, false, [](const double* v) { return std::exp(v[0]); }},
    {"log", 1, false, [](const double* v) { return std::log(v[0]); }},
    {"log2", 1, false, [](const double* v) { return std::log2(v[0]); }},
    {"log10", 1, false, [](const double* v) { return std::log10(v[0]); }},
    {"sin", 1, false, [](const double* v) { return std::sin(v[0]); }},
    {"cos", 1, false, [](const double* v) { return std::cos(v[0]); }},
    {"tan", 1, false, [](const double* v) { return std::tan(v[0]); }},
    {"asin", 1, false, [](const double* v) { return std::asin(v[0]); }},
    {"acos", 1, false, [](const double* v) { return std::acos(v[0]); }},
    {"atan", 1, false, [](const double* v) { return std::atan(v[0]); }},
    {"radians", 1, false, [](const double* v) { return v[0] / kDegreesPerRadian; }},
    {"degrees", 1, false, [](const double* v) { return v[0] * kDegreesPerRadian; }},
    {"isnan", 1, false, [](const double* v) { return std::isnan(v[0]) ? 1.0 : 0.0; }},
    {"pow", 2, false, [](const double* v) { return std::pow(v[0], v[1]); }},
    {"atan2", 2, false, [](const double* v) { return std::atan2(v[0], v[1]); }},
    {"mod", 2, false, [](const double* v) { return std::fmod(v[0], v[1]); }},
    {"step", 2, false, [](const double* v) { return v[1] < v[0] ? 0.0 : 1.0; }},
    {"hypot", 2, false, [](const double* v) { return std::hypot(v[0], v[1]); }},
    {"min", 2, true, [](const double* v) { return std::fmin(v[0], v[1]); }},
    {"max", 2, true, [](const double* v) { return std::fmax(v[0], v[1]); }},
    {"clamp", 3, false, [](const double* v) { return Clamp(v[0], v[1], v[2]); }},
    {"lerp", 3, false, [](const double* v) { return v[0] + (v[1] - v[0]) * v[2]; }},
    {"smoothstep", 3, false, [](const double* v) { return SmoothStep(v[0], v[1], v[2]); }},
};

constexpr bool ArgumentsFit()
{
    for (const ScriptFunction& row : kFunctions)
        if (row.arguments < 1 || row.arguments > kMostScriptArguments ||
            (row.folds && row.arguments != 2))
            return false;
    return true;
}
static_assert(ArgumentsFit());

} // namespace

std::optional<std::uint32_t> FindScriptFunction(std::string_view name) noexcept
{
    for (std::uint32_t row = 0; row < std::size(kFunctions); ++row)
        if (kFunctions[row].name == name)
            return row;
    return std::nullopt;
}

const ScriptFunction& ScriptFunctionAt(std::uint32_t row) noexcept
{
    return kFunctions[row];
}

std::optional<double> FindScriptConstant(std::string_view name) noexcept
{
    if (name == "pi")
        return std::numbers::pi;
    if (name == "e")
        return std::numbers::e;
    return std::nullopt;
}

} // namespace XPJ
