#include "platform/pages_ahead.h"
#include "tree/arena.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// Allocates pieces of many sizes, writes each full of its number, and looks at all in the end.
void ExpectPiecesApart(Arena& arena)
{
    constexpr std::size_t kEnough = std::size_t{80} * 1024 * 1024; // two blocks of the largest size
    constexpr std::size_t kSizes[] = {1, 24, 40, 4000, 24, 100000, 40, 9, 3 * 1024 * 1024};
    std::vector<std::pair<char*, std::size_t>> pieces;
    for (std::size_t total = 0; total < kEnough;) {
        const std::size_t size = kSizes[pieces.size() % std::size(kSizes)];
        auto* const piece = static_cast<char*>(arena.Allocate(size, 8));
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(piece) % 8, 0U);
        std::memset(piece, static_cast<int>(pieces.size() % 251), size);
        pieces.emplace_back(piece, size);
        total += size;
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const std::vector<char> expected(pieces[i].second, static_cast<char>(i % 251));
        ASSERT_EQ(std::memcmp(pieces[i].first, expected.data(), expected.size()), 0) << i;
    }
}

TEST(Arena, KeepsPiecesApart)
{
    Arena plain;
    ExpectPiecesApart(plain);
    PagesAhead ahead;
    Arena prepared(&ahead);
    ExpectPiecesApart(prepared);
    prepared.Clear();
    prepared.ExpectMuch();
    ExpectPiecesApart(prepared);
}

TEST(Arena, ExtendsTheLastPieceInPlaceWhileThereIsMemory)
{
    PagesAhead ahead;
    Arena arena(&ahead);
    arena.ExpectMuch();
    auto* const first = static_cast<char*>(arena.Allocate(8, 8));
    std::size_t size = 8;
    while (arena.Extend(first + size, 8))
        size += 8;
    std::memset(first, 'x', size);
    EXPECT_GE(size, kLargePage) << "what was expected is there";
    arena.Allocate(8, 8);
    EXPECT_FALSE(arena.Extend(first + size, 8)) << "not the last piece any more";
}

} // namespace
} // namespace XPJ
