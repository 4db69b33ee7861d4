#include "inspect/effect_table.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace XPJ::Inspection {
namespace {

// With VELA_ACCEPT=1 in the environment the table in docs/effects.md is written anew.
TEST(EffectTable, IsInTheDocumentation)
{
    std::ifstream file(VELA_DOCS "/effects.md");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string document = content.str();
    const std::size_t head = document.find("| Family |");
    ASSERT_NE(head, document.npos);
    if (std::getenv("VELA_ACCEPT"))
        std::ofstream(VELA_DOCS "/effects.md") << document.substr(0, head) << EffectTable();
    else
        EXPECT_EQ(document.substr(head), EffectTable());
}

} // namespace
} // namespace XPJ::Inspection
