#include "tree/id_table.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// Two texts after which GNU's hash is in the same state, so that any row of them has the hash of
// any other of its length.
constexpr std::string_view kBlocks[] = {
    "\xd4\xab\x73\x4e\xd4\x91\xc6\xa1\xdb\x88\x75\x4a\xd5\x93\xc9\xb8",
    "\xd4\xab\x30\x68\x6f\x77\x6e\x30\xdb\x88\x32\x64\x70\x79\x71\x47",
};

// `number` in binary digits, each of them one of the blocks.
std::string IdOf(unsigned number, int digits)
{
    std::string id;
    for (int digit = 0; digit < digits; ++digit)
        id += kBlocks[number >> digit & 1];
    return id;
}

TEST(IdTable, IdsOfOneStandardHashAreFoundLikeOthers)
{
    constexpr int kDigits = 14;
    std::vector<std::string> ids;
    for (unsigned number = 0; number < 1U << kDigits; ++number)
        ids.push_back(IdOf(number, kDigits));
    if (std::hash<std::string>()(ids.front()) != std::hash<std::string>()(ids.back()))
        GTEST_SKIP() << "the standard library has another hash";

    // A table with such a hash grows until there is no memory left.
    Document document;
    IdTable table(document);
    for (const std::string& id : ids)
        table.Add("file", id, document.NewObject("file"));
    for (const std::string& id : ids)
        EXPECT_TRUE(table.Contains("file", id));
    EXPECT_FALSE(table.Contains("file", IdOf(0, kDigits + 1)));
}

} // namespace
} // namespace XPJ
