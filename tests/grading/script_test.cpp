#include "grading/script_parser.h"
#include "grading/script_program.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <array>
#include <limits>
#include <string>

namespace XPJ {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

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

std::string Repeated(std::string_view text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(Script, Expressions)
{
    const struct {
        std::string_view expression;
        double value;
    } kCases[] = {
        // Numbers.
        {"12", 12},
        {".5", .5},
        {"5.", 5},
        {"1.5e2", 150},
        {"25d-1", 2.5},
        {"1e+3", 1000},
        {"1e999", kInfinity},
        {"1e-999", 0},
        {"0x1F", 31},
        {"0xffffffffffffffff", 18446744073709551615.0},
        {"two-1 + two - 1", 1}, // "two-1" is a name
        // Binding.
        {"1 + 2 * 3", 7},
        {"(1 + 2) * 3", 9},
        {"10 - 4 - 3", 3},
        {"64 / 4 / 2", 8},
        {"7 % 4 * 2", 6},
        {"-7 % 4", -3},
        {"2 - -3", 5},
        {"- -3", 3},
        {"-+3", -3},
        {"1 + 1 << 2", 8},
        {"1 << 2 < 5", 1},
        {"1 < 2 == 1", 1},
        {"3 == 3 & 2", 0}, // (3 == 3) & 2
        {"6 & 3 ^ 1", 3},  // (6 & 3) ^ 1
        {"4 ^ 1 | 2", 7},
        {"1 | 0 && 0", 0},
        {"1 || 0 && 0", 1},
        {"0 && 0 || 1", 1},
        {"!0 + 1", 2},
        {"!5", 0},
        {"~0", -1},
        {"~5 & 15", 10},
        {"-~0", 1},
        {"!-1", 0},
        {"2 > 1 ? 10 : 20", 10},
        {"0 ? 1 : 0 ? 2 : 3", 3},
        {"1 ? 0 ? 1 : 2 : 3", 2},
        {"0 || 0 ? 1 : 2", 2},
        {"(1 ? 2 : 3) + 1", 3},
        {"1 + (0 ? 2 : 3) * 2", 7},
        // Comparing and counting.
        {"2 <= 2", 1},
        {"2 >= 3", 0},
        {"2 != 3", 1},
        {"3 && 4", 1},
        {"0 || 7", 1},
        {"0 || 0", 0},
        {"5 && 0", 0},
        {"0 && 1 / 0", 0},
        {"1 || 1 / 0", 1},
        {"1 ? 2 : 1 / 0", 2},
        {"0 ? 1 % 0 : 2", 2},
        // Bits: truncated, saturating, counts from 0 to 63.
        {"7.9 & 3.9", 3},
        {"-7.9 | 0", -7},
        {"1e30 | 0", 9223372036854775807.0},
        {"-1e30 | 0", -9223372036854775808.0},
        {"(1e999 - 1e999) | 4", 4},
        {"1 << 63", -9223372036854775808.0},
        {"1 << 64", -9223372036854775808.0},
        {"8 >> -1", 8},
        {"-8 >> 1", -4},
        // Variables.
        {"two * two", 4},
        {"look.gain", .5},
        {"v.x + v.y + v.z", 60},
        {"v.r + v.g + v.b", 60},
        {"pi", 3.14159265358979323846},
        {"e", 2.71828182845904523536},
        // Functions.
        {"abs(-2)", 2},
        {"sign(-3) + sign(0) * 10", -1},
        {"floor(-1.5)", -2},
        {"ceil(-1.5)", -1},
        {"round(2.5) + round(-2.5) * 10", -27},
        {"trunc(-1.5)", -1},
        {"frac(-1.25)", .75},
        {"sqrt(9)", 3},
        {"exp(0)", 1},
        {"log(e)", 1},
        {"log2(8)", 3},
        {"log10(1000)", 3},
        {"sin(0) + cos(0)", 1},
        {"tan(0)", 0},
        {"degrees(asin(1))", 90},
        {"degrees(acos(0))", 90},
        {"degrees(atan(1))", 45},
        {"radians(180) == pi", 1},
        {"degrees(atan2(1, 0))", 90},
        {"isnan(sqrt(-1))", 1},
        {"isnan(1e999)", 0},
        {"pow(2, 10)", 1024},
        {"mod(-7, 4)", -3},
        {"step(2, 1) * 10 + step(2, 2)", 1},
        {"hypot(3, 4)", 5},
        {"min(3, 1, 2)", 1},
        {"max(3, 1, 7, 2)", 7},
        {"max(1, min(5, 3), 2)", 3},
        {"clamp(5, 0, 3) * 10 + clamp(-1, 0, 3)", 30},
        {"lerp(10, 20, 0.25)", 12.5},
        {"smoothstep(0, 2, 1)", .5},
        {"smoothstep(0, 4, 1)", .15625},
        {"smoothstep(1, 1, 1)", 1},
        {"sqrt (4)", 2},
        {"log(0)", -kInfinity},
    };
    for (const auto& row : kCases) {
        const std::string script = "two-1 = 0; x = " + std::string(row.expression) + ";";
        EXPECT_DOUBLE_EQ(Result(script), row.value) << row.expression;
    }
}

TEST(Script, Statements)
{
    const struct {
        std::string_view script;
        double x;
    } kCases[] = {
        {"x = 1; x = x + 1;", 2},
        {"x=1;;{}{x=x+1;}", 2},
        {"a-b = 3; a = 5; b = 1; x = a-b + (a - b);", 7},
        {"if-x = 1; else.y = 2; x = if-x + else.y;", 3},
        {"my.value = 4; x = my.value;", 4},
        {"if (two == 2) x = 1; else x = 2;", 1},
        {"if (two > 2) x = 1; else x = 2;", 2},
        {"x = 0; if (1) if (0) x = 1; else x = 2;", 2},
        {"x = 0; if (0) { if (1) x = 1; } else x = 2;", 2},
        {"if (0) x = 1; else if (0) x = 2; else x = 3;", 3},
        {"x = 0; while (x < 10) x = x + 1;", 10},
        {"x = 0; while (1) { x = x + 1; if (x == 7) break; }", 7},
        {"x = 0; i = 0; while (i < 10) { i = i + 1; if (i % 2) continue; x = x + i; }", 30},
        {"x = 0; i = 0;\nwhile (i < 3) {\n j = 0; while (1) { if (j >= i) break; j = j + 1;\n"
         " x = x + 1; if (x > 100) break; }\n i = i + 1; }",
         3},
        {"x = 1; sin(x); max(1, 2, 3);", 1},
        {"v.x = v.x + 1; x = v.r;", 11},
        {"v.g = 1; x = v.y;", 1},
        {"nv.x = 3; x = nv.x;", 3},
        {"\t if\n(\r\n1\n)\nx\n=\n2\n;", 2},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Result(row.script), row.x) << row.script;
}

TEST(Script, Messages)
{
    const struct {
        std::string_view script;
        std::string_view message;
    } kCases[] = {
        {"", ""},
        {" \n;", ""},

        // Statements.
        {"= 1;", "Identifier expected."},
        {"1;", "Identifier expected."},
        {"(x = 1);", "Identifier expected."},
        {"}", "Identifier expected."},
        {"if (1) }", "Identifier expected."},
        {"if (1));", "Identifier expected."},
        {"x", "Assignment or semicolon expected."},
        {"x;", "Assignment or semicolon expected."},
        {"x == 1;", "Assignment or semicolon expected."},
        {"x += 1;", "Assignment or semicolon expected."},
        {"sin;", "Expected left parenthesis after function name"},
        {"sin = 1;", "Variable name collides with an existing function."},
        {"pi = 3;", "Variable name collides with an existing function."},
        {"unknown(1);", "Unknown identifier."},
        {"two(1);", "Unknown identifier."},
        {"a. = 1;", "Invalid character in variable name."},
        {"a.1 = 1;", "Invalid character in variable name."},
        {"a.-b = 1;", "Invalid character in variable name."},
        {"a.b.c = 1;", "Too many dots in variable name."},
        {"a.b.c (1);", "Too many dots in function name."},
        {"v = 1;", "Unsupported operator."},
        {"v.q = 1;", "Invalid vector coordinate."},
        {"pair.z = 1;", "Invalid vector coordinate."},
        {"#pragma", "Unknown directive."},
        {"x = 1;\n  # comment", "Unknown directive."},
        {"x = 1 +\n#2;", "Unknown directive."},
        {"x = 1; # comment", "Identifier expected."},
        {"{ x = 1;", "Unexpected end of script"},
        {"if (1)", "Unexpected end of script"},
        {"if (1) x = 1; else", "Unexpected end of script"},
        {"while (0)", "Unexpected end of script"},
        {"if 1", "strLeft parenthesis expected after 'if'."},
        {"if", "strLeft parenthesis expected after 'if'."},
        {"while = 1;", "strLeft parenthesis expected after 'while'."},
        {"if (1 ;", "Missing right parenthesis."},
        {"while (1 { }", "Missing right parenthesis."},
        {"if (1", "Missing right parenthesis."},
        {"else x = 1;", "Illegal 'else' without matching 'if'."},
        {"if (1) ; ; else ;", "Illegal 'else' without matching 'if'."},
        {"break;", "'break' found, but not in a loop."},
        {"if (1) continue;", "'continue' found, but not in a loop."},
        {"while (0) ; break;", "'break' found, but not in a loop."},
        {"while (1) break", "Missing semicolon after 'break'"},
        {"while (1) { continue }", "Missing semicolon after 'continue'"},
        {"x = 1", "Missing semicolon."},
        {"{ x = 1 }", "Missing semicolon."},
        {"sin(1)", "Missing semicolon."},
        {"sin(1) + 1;", "Missing semicolon."},

        // Expressions.
        {"x = ;", "Expression expected."},
        {"x =", "Expression expected."},
        {"if () ;", "Expression expected."},
        {"x = 1 +", "Unexpected end of expression."},
        {"x = (", "Unexpected end of expression."},
        {"sin(", "Unexpected end of expression."},
        {"x = 1 + ;", "Syntax error: missing operand."},
        {"x = ();", "Syntax error: missing operand."},
        {"x = max(1,);", "Syntax error: missing operand."},
        {"x = max(,1);", "Syntax error: missing operand."},
        {"if (1 +) ;", "Syntax error: missing operand."},
        {"x = * 2;", "Syntax error: operator not expected."},
        {"x = 1 + / 2;", "Syntax error: operator not expected."},
        {"x = 1 : 2;", "Syntax error: operator not expected."},
        {"x = (1 ? 2) : 3;", "Syntax error: missing operator."},
        {"x = 1 ? 2;", "Syntax error: missing operator."},
        {"x = 1 ? 2 : 3 : 4;", "Syntax error: operator not expected."},
        {"x = y = 1;", "Syntax error: assignments not allowed."},
        {"x = two = 1;", "Syntax error: assignments not allowed."},
        {"x = = 1;", "Syntax error: assignments not allowed."},
        {"if (two = 1) ;", "Syntax error: assignments not allowed."},
        {"x = 1 2;", "Syntax error: missing operator."},
        {"x = two two;", "Syntax error: missing operator."},
        {"x = 1 sin(1);", "Syntax error: missing operator."},
        {"x = 1E5;", "Syntax error: missing operator."},
        {"x = 0x1g;", "Syntax error: missing operator."},
        {"x = 1 (2);", "Misplaced left parenthesis."},
        {"x = (1)(2);", "Misplaced left parenthesis."},
        {"x = two(1);", "Misplaced left parenthesis."},
        {"x = 1 ! 2;", "Syntax error: unary operator (!) not expected."},
        {"x = 1 ~ 2;", "Syntax error: unary operator (~) not expected."},
        {"x = 1);", "Syntax error: no matching left parenthesis."},
        {"x = (1;", "Syntax error: missing right parenthesis."},
        {"x = ((1)", "Syntax error: missing right parenthesis."},
        {"if ((1 { }", "Syntax error: missing right parenthesis."},
        {"sin(1;", "Syntax error: missing right parenthesis."},
        {"x = 1, 2;", "Syntax error: comma outside function call."},
        {"x = max((1, 2), 3);", "Syntax error: comma outside function call."},
        {"x = (v.x).y;", "Syntax error: invalid vector coordinate."},
        {"x = 1 $ 2;", "Invalid character in expression."},
        {"x = \"a\";", "Invalid character in expression."},
        {"x = \xC3\xA4;", "Invalid character in expression."},
        {"x = 1 # 2;", "Invalid character in expression."},
        {std::string_view("x = \0;", 6), "Invalid character in expression."},
        {"x = 1 <> 2;", "Unsupported operator."},
        {"x = 2 ** 3;", "Unsupported operator."},
        {"x = 1 ++ 2;", "Unsupported operator."},
        {"x = ++two;", "Unsupported operator."},
        {"x = 1 =! 2;", "Syntax error: assignments not allowed."},
        {"x = 1 === 1;", "Unsupported operator."},
        {"x = 1 !== 1;", "Unsupported operator."},
        {"x = v;", "Unsupported operator."},
        {"x = v.q;", "Invalid vector coordinate."},
        {"x = v.xy;", "Invalid vector coordinate."},
        {"x = pair.b;", "Invalid vector coordinate."},
        {"x = 1.2.3;", "Invalid number."},
        {"x = 0x;", "Invalid number."},
        {"x = 1e;", "Invalid number."},
        {"x = 1e+;", "Invalid number."},
        {"x = .;", "Invalid number."},
        {"x = 1e5e5;", "Invalid number."},
        {"x = 0x10000000000000000;", "Value too large."},
        {"x = 1+2;", ""}, // a sign belongs to a number only in its exponent
        {"x = 1e2+2;", ""},
        {"x = two.;", "Invalid character in variable name."},
        {"x = a.b.c;", "Too many dots in variable name."},
        {"x = a.b.c(1);", "Too many dots in function name."},
        {"x = sin + 1;", "Expected left parenthesis after function name"},
        {"x = sin();", "Too few arguments for this function"},
        {"sin();", "Too few arguments for this function"},
        {"x = max(1);", "Too few arguments for this function"},
        {"x = clamp(1, 2);", "Too few arguments for this function"},
        {"x = sin(1, 2);", "Too many arguments passed to function"},
        {"x = Sin(1);", "Unknown identifier."},
        {"x = y;", "Unknown identifier."},
        {"x = look;", "Unknown identifier."},
        {"x = if;", "Unknown identifier."},
        {"while (i < 3) i = 0;", "Unknown identifier."},
        {"x = x + 1;", "A variable can't be used to initialize itself."},
        {"a.b = a.b;", "A variable can't be used to initialize itself."},

        // Running.
        {"x = 1 / 0;", "An error occured while executing script: Division by zero."},
        {"x = 1 % (two - 2);", "An error occured while executing script: Division by zero."},
        {"while (1) ;", "An error occured while executing script: Unspecified error."},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(Message(row.script), row.message) << row.script;

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

// Everything that nests or grows, on the smallest stack a host's thread may have.
void* RunHugeScripts(void*)
{
    constexpr int kDeep = 10000;
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
    return nullptr;
}

TEST(Script, SizeNeverCostsTheThreadsStack)
{
    constexpr std::size_t kSmallStack = 0x40000;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
    pthread_t thread{};
    ASSERT_EQ(pthread_create(&thread, &attributes, RunHugeScripts, nullptr), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
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
