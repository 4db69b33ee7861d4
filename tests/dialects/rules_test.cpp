#include "dialects/dialects.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

namespace XPJ {
namespace {

std::string TableText(std::string_view title, std::span<const DialectRule> rules)
{
    std::string text =
        "\n## " + std::string(title) + "\n\n| Rule | Seen | What is done |\n|---|---|---|\n";
    for (const DialectRule& rule : rules)
        text += "| " + std::string(rule.name) + " | " + std::string(rule.seen) + " | " +
                std::string(rule.does) + " |\n";
    return text;
}

// With VELA_ACCEPT=1 in the environment the tables in docs/dialects.md are written anew.
TEST(DialectRules, AreListedInTheDocumentation)
{
    std::ifstream file(VELA_DOCS "/dialects.md");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string document = content.str();
    const std::size_t head = document.find("\n## Reading");
    ASSERT_NE(head, document.npos);
    const std::string tables =
        TableText("Reading", ReadingRules()) + TableText("Writing", WritingRules());
    if (std::getenv("VELA_ACCEPT"))
        std::ofstream(VELA_DOCS "/dialects.md") << document.substr(0, head) << tables;
    else
        EXPECT_EQ(document.substr(head), tables);
}

// A rule is a change of the tree, or a test of the setting in the file that it names.
TEST(DialectRules, HaveOneHome)
{
    std::set<std::string_view> names;
    for (const std::span<const DialectRule> rules : {ReadingRules(), WritingRules()})
        for (const DialectRule& rule : rules) {
            EXPECT_TRUE(names.insert(rule.name).second) << rule.name;
            const int homes =
                (rule.apply != nullptr) + (rule.applyToEffect != nullptr) + !rule.file.empty();
            EXPECT_EQ(homes, 1) << rule.name;
            if (rule.file.empty())
                continue;
            std::ifstream file(VELA_SOURCES "/" + std::string(rule.file));
            std::ostringstream content;
            content << file.rdbuf();
            EXPECT_NE(content.str().find("openInterchange"), std::string::npos) << rule.file;
        }
}

} // namespace
} // namespace XPJ
