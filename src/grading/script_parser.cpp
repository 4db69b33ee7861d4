#include "grading/script_parser.h"

#include "grading/script_compiler.h"

#include <algorithm>
#include <initializer_list>
#include <new>

namespace XPJ {

namespace {

// Jumps and slots are numbers of 32 bits, and no byte of a script makes more than 3 of them.
constexpr std::size_t kLongestScript = std::size_t{1} << 30;

void WriteError(std::initializer_list<ScriptError> errors, char* buffer)
{
    if (buffer == nullptr)
        return;
    std::size_t length = 0;
    for (const ScriptError error : errors) {
        const std::string_view text = ScriptErrorText(error);
        const std::size_t fits = std::min(text.size(), CZvScriptParser::kErrorSize - 1 - length);
        std::copy_n(text.data(), fits, buffer + length);
        length += fits;
    }
    buffer[length] = '\0';
}

bool NamesTheRun(ScriptError error)
{
    return error == ScriptError::DivisionByZero || error == ScriptError::Unspecified;
}

ScriptError CompileInMemory(std::string_view script, ScriptVariables& variables,
                            ScriptProgram& program)
{
    if (script.size() > kLongestScript)
        return ScriptError::OutOfMemory;
    try {
        variables.KeepHostVariables();
        return CompileScript(script, variables, program);
    } catch (const std::bad_alloc&) {
        return ScriptError::OutOfMemory;
    }
}

} // namespace

bool CZvScriptParser::Compile(std::string_view script, char* error)
{
    program = {};
    const ScriptError fault = CompileInMemory(script, variables, program);
    loaded = fault == ScriptError::None;
    if (!loaded)
        program = {};
    WriteError({fault}, error);
    return loaded;
}

bool CZvScriptParser::Run(char* error)
{
    ScriptError fault = ScriptError::NoScript;
    if (loaded) {
        variables.ForgetScriptValues();
        fault = RunScript(program, variables);
    }
    if (NamesTheRun(fault))
        WriteError({ScriptError::WhileExecuting, fault}, error);
    else
        WriteError({fault}, error);
    return fault == ScriptError::None;
}

bool CZvScriptParser::Get(std::string_view name, double* value) const
{
    return variables.Get(name, value);
}

void CZvScriptParser::Set(std::string_view name, double value)
{
    variables.Set(name, value);
}

void CZvScriptParser::Set(std::string_view name, std::span<const double> vector)
{
    variables.Set(name, vector);
}

} // namespace XPJ
