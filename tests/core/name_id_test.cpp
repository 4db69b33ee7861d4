// Numbers of names, also when several threads enter them.
#include "gtest/gtest.h"

#include "core/name_id.h"

#include <string>
#include <thread>
#include <vector>

namespace XPJ {
namespace {

TEST(NameId, FollowsTheTextNotTheAddress)
{
    static const std::string copy = "clipitem";
    const NameId id(Name("clipitem"));
    EXPECT_EQ(id, NameId(Name::OfStatic(copy)));
    EXPECT_EQ(id.View(), "clipitem");
    EXPECT_NE(id, NameId(Name("clipite")));
    EXPECT_NE(id, NameId(Name::OfStatic(std::string_view(copy).substr(0, 4)))) << "same address";
    EXPECT_EQ(NameId(), NameId(Name("")));
    EXPECT_EQ(NameId().View(), "");
}

// More names than slots near their addresses.
TEST(Name, DiffersByAnyLetterAtAnyLength)
{
    for (std::size_t size = 0; size <= 20; ++size) {
        const std::string name = std::string("abcdefghijklmnopqrstu").substr(0, size);
        std::string other = name; // of another address
        EXPECT_TRUE(IsSameName(name, other)) << size;
        EXPECT_FALSE(IsSameName(name, other + "x")) << size;
        for (std::size_t i = 0; i < size; ++i) {
            other[i] = 'X';
            EXPECT_FALSE(IsSameName(name, other)) << size << " letters, number " << i;
            other[i] = name[i];
        }
    }
}

TEST(NameId, IsTheSameOnAllThreads)
{
    constexpr std::size_t kNames = 9000;
    static std::vector<std::string> names;
    for (std::size_t i = 0; i < kNames; ++i)
        names.push_back("name of a test " + std::to_string(i));
    std::vector<std::vector<NameId>> ids(4);
    {
        std::vector<std::jthread> threads;
        for (std::vector<NameId>& own : ids)
            threads.emplace_back([&own] {
                for (const std::string& name : names)
                    own.push_back(NameId(Name::OfStatic(name)));
            });
    }
    for (std::size_t i = 0; i < kNames; ++i) {
        ASSERT_EQ(ids[0][i].View(), names[i]);
        for (const std::vector<NameId>& own : ids)
            ASSERT_EQ(own[i], ids[0][i]);
    }
}

} // namespace
} // namespace XPJ
