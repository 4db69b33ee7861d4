#include "core/messages.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace XPJ {
namespace {

TEST(Messages, NumbersMeetTheirKeys)
{
    EXPECT_EQ(static_cast<int>(Message::kInvalidStartEnd), kMessageCount - 1);
    EXPECT_EQ(MessageKey(Message::kOutOfMemory),
              "$$$/Vela/FCP/OutOfMemory=The converter ran out of memory.");
    EXPECT_EQ(DefaultText(MessageKey(Message::kEndOfClipExtended)),
              "End of clip extended to include entire transition; alignment changed to \"end at "
              "cut.\"");
    EXPECT_EQ(MessageKey(static_cast<Message>(kMessageCount)), "");
    EXPECT_EQ(MessageKey(static_cast<Message>(-1)), "");
    EXPECT_EQ(MessageKey(static_cast<Message>(static_cast<int>(Message::kUnknownEncoding) + 1)),
              "");
}

TEST(Messages, KeysAreWellFormedAndDistinct)
{
    std::set<std::string_view> keys;
    std::vector<Message> messages{Message::kInvalidBytes, Message::kUnknownEncoding};
    for (int number = 0; number < kMessageCount; ++number)
        messages.push_back(static_cast<Message>(number));
    for (const Message message : messages) {
        const int number = static_cast<int>(message);
        const std::string_view key = MessageKey(message);
        EXPECT_EQ(key.substr(0, 13), "$$$/Vela/FCP/") << number;
        EXPECT_TRUE(keys.insert(key.substr(0, key.find('='))).second) << key;
        EXPECT_FALSE(DefaultText(key).empty()) << key;
    }
}

TEST(Messages, EachArgumentReplacesItsFirstMarkOnly)
{
    EXPECT_EQ(FormatMessage("Effect <$1> on Clip <$2>.", {"Sepia", "A"}),
              "Effect <Sepia> on Clip <A>.");
    EXPECT_EQ(FormatMessage("$1 and $1", {"a"}), "a and $1");
    // An argument that holds a mark is hit by the next one.
    EXPECT_EQ(FormatMessage("$1 $2", {"$2", "b"}), "b $2");
    EXPECT_EQ(FormatMessage("no mark", {"a", "b"}), "no mark");
}

} // namespace
} // namespace XPJ
