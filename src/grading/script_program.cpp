#include "grading/script_program.h"

#include "grading/script_functions.h"
#include "grading/script_operators.h"

#include <array>

namespace XPJ {

namespace {

class ScriptStack {
public:
    // False where it is full.
    bool Push(double value)
    {
        if (depth == values.size())
            return false;
        values[depth++] = value;
        return true;
    }
    bool Holds(std::size_t count) const { return depth >= count; }
    double Pop() { return values[--depth]; }
    // The topmost `count`, the first pushed one first.
    double* Top(std::size_t count) { return &values[depth - count]; }
    // Replaces the topmost `count` by `value`.
    void Replace(std::size_t count, double value)
    {
        depth -= count;
        values[depth++] = value;
    }

private:
    std::array<double, kScriptStackSize> values; // of those below `depth` only
    std::size_t depth = 0;
};

// How many values an instruction takes from the stack.
std::size_t Taken(const ScriptInstruction& instruction)
{
    switch (instruction.op) {
    case ScriptOp::Store:
    case ScriptOp::Drop:
    case ScriptOp::Unary:
    case ScriptOp::JumpIfZero:
        return 1;
    case ScriptOp::Binary:
        return 2;
    case ScriptOp::Call:
        return static_cast<std::size_t>(ScriptFunctionAt(instruction.operand).arguments);
    default:
        return 0;
    }
}

// Binary and Call.
ScriptError Combine(const ScriptInstruction& instruction, std::size_t taken, ScriptStack& stack)
{
    const double* values = stack.Top(taken);
    if (instruction.op == ScriptOp::Call) {
        stack.Replace(taken, ScriptFunctionAt(instruction.operand).apply(values));
        return ScriptError::None;
    }
    const ScriptOperator& op = ScriptOperatorAt(instruction.operand);
    if (op.kind == ScriptOperator::Kind::Divides && values[1] == 0)
        return ScriptError::DivisionByZero;
    stack.Replace(taken, op.apply(values[0], values[1]));
    return ScriptError::None;
}

} // namespace

std::uint32_t ScriptProgram::Emit(ScriptOp op, std::uint32_t operand)
{
    code.push_back({op, operand});
    return Here() - 1;
}

void ScriptProgram::EmitConstant(double value)
{
    Emit(ScriptOp::Constant, static_cast<std::uint32_t>(constants.size()));
    constants.push_back(value);
}

ScriptError RunScript(const ScriptProgram& program, ScriptVariables& variables)
{
    ScriptStack stack;
    std::size_t next = 0;
    for (std::int64_t run = 0; run < kMostScriptInstructions; ++run) {
        if (next >= program.code.size())
            return ScriptError::NoCode;
        const ScriptInstruction& instruction = program.code[next++];
        const std::size_t taken = Taken(instruction);
        if (!stack.Holds(taken))
            return ScriptError::NoResult;
        bool fits = true;
        switch (instruction.op) {
        case ScriptOp::Constant:
            fits = stack.Push(program.constants[instruction.operand]);
            break;
        case ScriptOp::Load:
            fits = stack.Push(variables.Load(instruction.operand));
            break;
        case ScriptOp::Store:
            variables.Store(instruction.operand, stack.Pop());
            break;
        case ScriptOp::Drop:
            stack.Pop();
            break;
        case ScriptOp::Unary:
            stack.Replace(
                1, ApplyUnary(static_cast<UnaryOperator>(instruction.operand), *stack.Top(1)));
            break;
        case ScriptOp::Binary:
        case ScriptOp::Call:
            if (const ScriptError error = Combine(instruction, taken, stack);
                error != ScriptError::None)
                return error;
            break;
        case ScriptOp::JumpIfZero:
            if (stack.Pop() == 0)
                next = instruction.operand;
            break;
        case ScriptOp::Jump:
            next = instruction.operand;
            break;
        case ScriptOp::End:
            return ScriptError::None;
        }
        if (!fits)
            return ScriptError::Unspecified;
    }
    return ScriptError::Unspecified;
}

} // namespace XPJ
