#include "grading/script_operators.h"

#include "core/ticks.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace XPJ {

namespace {

using Kind = ScriptOperator::Kind;

// What bit operators work on; not-a-number is 0, beyond 64 bits the nearest.
std::int64_t Bits(double value)
{
    return ToTicks(value);
}

int ShiftCount(double value)
{
    return static_cast<int>(std::clamp<std::int64_t>(Bits(value), 0, 63));
}

double Number(std::int64_t bits)
{
    return static_cast<double>(bits);
}

double ShiftedLeft(double a, double b)
{
    return Number(static_cast<std::int64_t>(static_cast<std::uint64_t>(Bits(a)) << ShiftCount(b)));
}

constexpr ScriptOperator kOperators[] = {
    // text  level  kind  apply
    {"*", 16, Kind::Plain, [](double a, double b) { return a * b; }},
    {"/", 16, Kind::Divides, [](double a, double b) { return a / b; }},
    {"%", 16, Kind::Divides, [](double a, double b) { return std::fmod(a, b); }},
    {"+", 14, Kind::Plain, [](double a, double b) { return a + b; }},
    {"-", 14, Kind::Plain, [](double a, double b) { return a - b; }},
    {"<<", 12, Kind::Plain, ShiftedLeft},
    {">>", 12, Kind::Plain, [](double a, double b) { return Number(Bits(a) >> ShiftCount(b)); }},
    {"<", 8, Kind::Plain, [](double a, double b) { return a < b ? 1.0 : 0.0; }},
    {"<=", 8, Kind::Plain, [](double a, double b) { return a <= b ? 1.0 : 0.0; }},
    {">", 8, Kind::Plain, [](double a, double b) { return a > b ? 1.0 : 0.0; }},
    {">=", 8, Kind::Plain, [](double a, double b) { return a >= b ? 1.0 : 0.0; }},
    {"==", 6, Kind::Plain, [](double a, double b) { return a == b ? 1.0 : 0.0; }},
    {"!=", 6, Kind::Plain, [](double a, double b) { return a != b ? 1.0 : 0.0; }},
    {"&", 5, Kind::Plain, [](double a, double b) { return Number(Bits(a) & Bits(b)); }},
    {"^", 4, Kind::Plain, [](double a, double b) { return Number(Bits(a) ^ Bits(b)); }},
    {"|", 3, Kind::Plain, [](double a, double b) { return Number(Bits(a) | Bits(b)); }},
    {"&&", kAndLevel, Kind::And, nullptr},
    {"||", kOrLevel, Kind::Or, nullptr},
    {"?", kConditionalLevel, Kind::Question, nullptr},
    {":", kConditionalLevel, Kind::Colon, nullptr},
    {"=", kConditionalLevel, Kind::Assignment, nullptr},
};

} // namespace

std::optional<std::uint32_t> FindScriptOperator(std::string_view text) noexcept
{
    for (std::uint32_t row = 0; row < std::size(kOperators); ++row)
        if (kOperators[row].text == text)
            return row;
    return std::nullopt;
}

const ScriptOperator& ScriptOperatorAt(std::uint32_t row) noexcept
{
    return kOperators[row];
}

int UnaryLevel(UnaryOperator op) noexcept
{
    if (op == UnaryOperator::Not)
        return 21;
    return op == UnaryOperator::Complement ? 20 : 19;
}

double ApplyUnary(UnaryOperator op, double value) noexcept
{
    switch (op) {
    case UnaryOperator::Plus:
        return value;
    case UnaryOperator::Minus:
        return -value;
    case UnaryOperator::Complement:
        return Number(~Bits(value));
    case UnaryOperator::Not:
        return value == 0 ? 1 : 0;
    case UnaryOperator::Truth:
        return value == 0 ? 0 : 1;
    }
    return value;
}

} // namespace XPJ
