#include "core/flat_map.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

namespace XPJ {
namespace {

struct OneHash {
    std::size_t operator()(int /*key*/) const { return 7; }
};

// Held against std::map, also where all keys collide.
template <class Hash>
void FillAndCompare(int count)
{
    FlatMap<int, std::string, Hash> flat;
    std::map<int, std::string> expected;
    EXPECT_EQ(flat.Find(0), nullptr);
    for (int i = 0; i < count; ++i) {
        const int key = i * 64 % 1021; // repeats some
        const bool isNew = expected.emplace(key, std::to_string(i)).second;
        EXPECT_EQ(flat.Add(key, std::to_string(i)), isNew) << key;
    }
    EXPECT_EQ(flat.Size(), expected.size());
    for (int key = -1; key < 1022; ++key) {
        const std::string* const found = flat.Find(key);
        const auto known = expected.find(key);
        ASSERT_EQ(found != nullptr, known != expected.end()) << key;
        if (found)
            EXPECT_EQ(*found, known->second);
    }
    std::map<int, std::string> all;
    flat.ForEach([&](int key, const std::string& value) { all.emplace(key, value); });
    EXPECT_EQ(all, expected);
}

TEST(FlatMap, HoldsWhatAMapHolds)
{
    FillAndCompare<std::hash<int>>(3000);
    FillAndCompare<OneHash>(200);
}

TEST(FlatMap, AddGivesTheValueToBeChanged)
{
    FlatMap<std::string_view, int> counts;
    for (const std::string_view word : {"a", "b", "", "a"})
        ++*counts.Add(word).first;
    EXPECT_EQ(*counts.Find("a"), 2);
    EXPECT_EQ(*counts.Find(""), 1);
    EXPECT_FALSE(counts.Contains("c"));
}

} // namespace
} // namespace XPJ
