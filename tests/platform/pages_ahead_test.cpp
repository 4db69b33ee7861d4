#include "platform/memory_block.h"
#include "platform/pages_ahead.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

constexpr std::size_t kSize = 5 * kLargePage + 100; // the last page is none in full

bool HoldsOnly(const MemoryBlock& block, char byte)
{
    return std::string_view(block.get(), kSize).find_first_not_of(byte) == std::string_view::npos;
}

TEST(PagesAhead, KeepsWhatIsInMemoryAndWhatIsWrittenMeanwhile)
{
    const MemoryBlock block = MakeBlock(kSize);
    std::fill_n(block.get(), kSize, 'a');
    PagesAhead ahead;
    ahead.Prepare(block.get(), kSize);
    ahead.Forget();
    EXPECT_TRUE(HoldsOnly(block, 'a'));
    ahead.Prepare(block.get(), 0);
    ahead.Prepare(block.get(), kSize);
    std::fill_n(block.get(), kSize, 'b');
    ahead.Forget();
    EXPECT_TRUE(HoldsOnly(block, 'b'));
}

TEST(PagesAhead, EndsWithWorkLeft)
{
    const MemoryBlock block = MakeBlock(kSize);
    for (int i = 0; i < 20; ++i) {
        PagesAhead ahead;
        ahead.Prepare(block.get(), kSize);
    }
}

} // namespace
} // namespace XPJ
