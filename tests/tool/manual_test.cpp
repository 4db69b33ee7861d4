#include "manual/completions.h"
#include "manual/manual.h"
#include "manual/pages.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace XPJ::Manual {
namespace {

// With VELA_ACCEPT=1 in the environment the tables in docs/tool.md are written anew.
TEST(Manual, IsInTheDocumentation)
{
    constexpr std::string_view kHead = "## Options\n";
    std::ifstream file(VELA_DOCS "/tool.md");
    std::ostringstream stream;
    stream << file.rdbuf();
    const std::string document = stream.str();
    const std::size_t head = document.find(kHead);
    ASSERT_NE(head, document.npos);
    const std::size_t tables = head + kHead.size();
    if (std::getenv("VELA_ACCEPT"))
        std::ofstream(VELA_DOCS "/tool.md")
            << document.substr(0, tables) << Reference(ReadContent());
    else
        EXPECT_EQ(document.substr(tables), Reference(ReadContent()));
}

// Characters that mean something on a man page, and in the languages of the shells.
TEST(Manual, TextIsQuoted)
{
    const Content content = {
        .description = "Converts.",
        .options = {{.names = {"-x", "--x-ray"},
                     .value = "A|B",
                     .description = "It's [one]: \\ \"two\"",
                     .group = "",
                     .kind = ValueKind::Choice,
                     .choices = {"a", "b"}}},
        .sections = {{"End", {{".5", "'a half"}}}},
        .extensions = {"xml"},
    };
    const struct {
        std::string text;
        std::string_view expected;
    } rows[] = {
        {ManualPage(content, {"1", "2"}),
         ".B \\-x, \\-\\-x\\-ray A|B\nIt's [one]: \\e \\(dqtwo\\(dq.\n"},
        {ManualPage(content, {"1", "2"}), ".B \\&.5\n\\&'a half\n"},
        {Reference(content), "| `-x, --x-ray A\\|B` | It's [one]: \\ \"two\" |\n"},
        {BashCompletion(content), "    -x|--x-ray) _xpjconvert_words a b; return ;;\n"},
        {ZshCompletion(content),
         "'(-x --x-ray)'{-x+,--x-ray=}'[It'\\''s \\[one\\]\\: \\\\ \"two\"]:A|B:(a b)'"},
        {FishCompletion(content), "-s x -l x-ray -x -a 'a b' -d 'It\\'s [one]: \\\\ \"two\"'\n"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_NE(text.find(expected), text.npos) << expected << "\nis not in\n" << text;
}

} // namespace
} // namespace XPJ::Manual
