#include "xmeml/links.h"

#include <gtest/gtest.h>

#include <set>

namespace XPJ {
namespace {

// A table looks at the low bits alone; where many keys share them, it grows without end.
TEST(LinkKeyHash, ItemsSideBySideDifferInTheLowBits)
{
    constexpr std::size_t kLowBits = 0xFFFF;
    std::set<std::size_t> lowBits;
    std::size_t keys = 0;
    for (const int sequence : {1, 2})
        for (const MediaType type : {MediaType::Video, MediaType::Audio})
            for (int track = 1; track <= 8; ++track)
                for (int position = 1; position <= 1000; ++position, ++keys)
                    lowBits.insert(LinkKeyHash()({.sequenceNumber = sequence,
                                                  .type = type,
                                                  .track = track,
                                                  .position = position}) &
                                   kLowBits);
    // 32,000 keys at random in 65,536 places are in about 25,300 different ones.
    EXPECT_EQ(keys, 32000u);
    EXPECT_GT(lowBits.size(), 24000u);
}

} // namespace
} // namespace XPJ
