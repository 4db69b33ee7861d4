#include "core/guid.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(Guid, ReadsEitherCaseAndWritesLowerCase)
{
    constexpr std::string_view kText = "1c307a89-9318-47d7-a583-bf2553736543";
    EXPECT_EQ(AsString(StringToGUID(kText)), kText);
    EXPECT_EQ(AsString(StringToGUID("1C307A89-9318-47D7-A583-BF2553736543")), kText);
}

TEST(Guid, IllFormedTextIsTheZeroGuid)
{
    for (const std::string_view text :
         {"", "1c307a89", "1c307a89-9318-47d7-a583-bf255373654",
          "1c307a89-9318-47d7-a583-bf25537365433", "1c307a89_9318-47d7-a583-bf2553736543",
          "1c307a8-99318-47d7-a583-bf2553736543", "gc307a89-9318-47d7-a583-bf2553736543"})
        EXPECT_EQ(StringToGUID(text), kZeroGuid) << text;
}

} // namespace
} // namespace XPJ
