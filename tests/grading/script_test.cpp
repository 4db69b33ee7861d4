#include "grading/script_parser.h"
#include "grading/script_program.h"
#include "support/rows.h"
#include "support/small_stack.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

namespace XPJ {
namespace {

// Host variables of every script below.
CZvScriptParser ParserWithVariables()
{
    CZvScriptParser parser;
    parser.Set("two", 2);
    parser.Set("look.gain", 0.5);
    parser.Set("v", std::array<double, 3>{10, 20, 30});
    parser.Set("pair", std::array<double, 2>{1, 2});
    return parser;
}

// The message of compiling, else that of running; empty for a script that does both.
std::string Message(std::string_view script)
{
    CZvScriptParser parser = ParserWithVariables();
    char error[CZvScriptParser::kErrorSize] = "not written";
    if (parser.Compile(script, error))
        parser.Run(error);
    return error;
}

double Result(std::string_view script)
{
    CZvScriptParser parser = ParserWithVariables();
    char error[CZvScriptParser::kErrorSize];
    double value = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(parser.Compile(script, error)) << script << ": " << error;
    EXPECT_TRUE(parser.Run(error)) << script << ": " << error;
    EXPECT_TRUE(parser.Get("x", &value)) << script;
    return value;
}

TEST(Script, Expressions)
{
    for (const auto& row : ReadRows("grading/script_values.txt", 2))
        EXPECT_DOUBLE_EQ(Result("two-1 = 0; x = " + row[0] + ";"), std::stod(row[1])) << row[0];
}

TEST(Script, Statements)
{
    for (const auto& row : ReadRows("grading/script_statements.txt", 2))
        EXPECT_EQ(Result(row[0]), std::stod(row[1])) << row[0];
}

TEST(Script, Messages)
{
    for (const auto& row : ReadRows("grading/script_messages.txt", 2))
        EXPECT_EQ(Message(row[0]), row[1]) << row[0];

    EXPECT_EQ(Message("x = " + std::string(255, '1') + ";"), "");
    EXPECT_EQ(Message("x = " + std::string(256, '1') + ";"), "Number too long.");
}

TEST(Script, TheMachineGuardsItself)
{
    ScriptVariables variables;
    ScriptProgram program;
    EXPECT_EQ(RunScript(program, variables), ScriptError::NoCode);
    program.Emit(ScriptOp::Drop);
    EXPECT_EQ(RunScript(program, variables), ScriptError::NoResult);
}

TEST(Script, ParserKeepsWhatTheHostSets)
{
    char error[CZvScriptParser::kErrorSize];
    CZvScriptParser parser;
    EXPECT_FALSE(parser.Run(error));
    EXPECT_STREQ(error, "No script loaded.");

    parser.Set("in", 2);
    ASSERT_TRUE(parser.Compile("if (in > 1) out = in * 10; in = in + 1;", error));
    EXPECT_STREQ(error, "");
    double value = -1;
    EXPECT_FALSE(parser.Get("out", &value)) << "before a run";
    ASSERT_TRUE(parser.Run(error));
    EXPECT_TRUE(parser.Get("out", &value));
    EXPECT_EQ(value, 20);
    EXPECT_TRUE(parser.Get("in", &value));
    EXPECT_EQ(value, 3);
    parser.Set("in", 0);
    ASSERT_TRUE(parser.Run(error));
    EXPECT_FALSE(parser.Get("out", &value)) << "not assigned in this run";
    EXPECT_EQ(value, 3) << "untouched";

    // Another script doesn't know what the first one made.
    EXPECT_FALSE(parser.Compile("x = out;", error));
    EXPECT_STREQ(error, "Unknown identifier.");
    EXPECT_FALSE(parser.Run(error));
    EXPECT_STREQ(error, "No script loaded.");
    EXPECT_TRUE(parser.Compile("x = in;", nullptr));
    EXPECT_TRUE(parser.Run(nullptr));
}

TEST(Script, VectorsOfTheHost)
{
    char error[CZvScriptParser::kErrorSize];
    CZvScriptParser parser;
    double value = 0;
    parser.Set("v", std::array<double, 4>{1, 2, 3, 4});
    EXPECT_FALSE(parser.Get("v", &value));
    EXPECT_TRUE(parser.Get("v.a", &value));
    EXPECT_EQ(value, 4);
    ASSERT_TRUE(parser.Compile("v.x = v.w * 2; s = v.x;", error));
    parser.Set("v", std::array<double, 4>{1, 2, 3, 7});
    ASSERT_TRUE(parser.Run(error));
    EXPECT_TRUE(parser.Get("v.r", &value));
    EXPECT_EQ(value, 14);

    parser.Set("v", std::array<double, 1>{9}); // no vector, ignored
    parser.Set("v", std::array<double, 5>{9, 9, 9, 9, 9});
    parser.Set("v.q", 9);
    EXPECT_FALSE(parser.Get("v.q", &value));
    EXPECT_TRUE(parser.Get("v.y", &value));
    EXPECT_EQ(value, 2);

    parser.Set("v", std::array<double, 2>{5, 6}); // fewer coordinates; the code still runs
    EXPECT_FALSE(parser.Get("v.w", &value));
    EXPECT_TRUE(parser.Run(error)) << error;
    parser.Set("v", 8);
    EXPECT_TRUE(parser.Get("v", &value));
    EXPECT_EQ(value, 8);
    EXPECT_TRUE(parser.Compile("x = v;", error)) << error;
    parser.Set("e", 1);
    EXPECT_TRUE(parser.Compile("e = e + 1;", error)) << "the host's name comes before a constant";
}

// Everything that nests or grows.
void RunHugeScripts()
{
    constexpr std::size_t kDeep = 10000;
    const std::string overflow = "An error occured while executing script: Unspecified error.";
    const struct {
        std::string script;
        std::string message;
    } kCases[] = {
        {"x = " + Repeated("(", kDeep) + "1" + Repeated(")", kDeep) + ";", ""},
        {"x = " + Repeated("abs(", kDeep) + "1" + Repeated(")", kDeep) + ";", ""},
        {"x = " + Repeated("- ", kDeep) + "1;", ""},
        {"x = " + Repeated("1 ? ", kDeep) + "1" + Repeated(" : 0", kDeep) + ";", ""},
        {"x = max(" + Repeated("1,", kDeep) + "2);", ""},
        {"x = 1" + Repeated(" && 1", kDeep) + ";", ""},
        {"x = " + Repeated("1 + (", kDeep) + "1" + Repeated(")", kDeep) + ";", overflow},
        {"x = " + Repeated("(", kDeep) + "1;", "Syntax error: missing right parenthesis."},
        {"x = 1" + Repeated(")", kDeep) + ";", "Syntax error: no matching left parenthesis."},
        {Repeated("{", kDeep) + Repeated("}", kDeep), ""},
        {Repeated("{", kDeep), "Unexpected end of script"},
        {Repeated("if (1) ", kDeep) + ";", ""},
        {Repeated("if (1) ; else ", kDeep) + ";", ""},
        {Repeated("while (1) { ", kDeep) + Repeated("break; } ", kDeep), ""},
        {Repeated("x = 1; ", 100 * kDeep), ""},
        {Repeated("x", 1000 * kDeep), "Assignment or semicolon expected."},
        {"a" + Repeated(".a", 100 * kDeep), "Too many dots in variable name."},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Message(row.script), row.message) << row.script.substr(0, 40);
}

TEST(Script, SizeNeverCostsTheThreadsStack)
{
    RunOnSmallStack(RunHugeScripts);
}

TEST(Script, EveryPrefixEnds)
{
    const std::string_view script = "x = 0x1F + 2.5e-1; while (x > min(1, v.x)) { if (!x) break; "
                                    "else x = x - (1 ? 2 : 3); continue; } sin(x);";
    for (std::size_t length = 0; length <= script.size(); ++length)
        Message(script.substr(0, length));
    EXPECT_EQ(Message(script), "");
}

} // namespace
} // namespace XPJ
