#include "import/master_registry.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

class MasterRegistryTest : public testing::Test {
protected:
    Document document_;
    MasterRegistry registry_;
    const ObjectHandle first_ = document_.NewObject("MasterClip");
    const ObjectHandle second_ = document_.NewObject("MasterClip");
};

TEST_F(MasterRegistryTest, AnIdTellsClipsOfOneFileApart)
{
    ASSERT_TRUE(registry_.Add("m2", "f1", 0, MediaType::Video, second_));
    ASSERT_TRUE(registry_.Add("m1", "f1", 0, MediaType::Video, first_));
    EXPECT_FALSE(registry_.Add("m1", "f1", 0, MediaType::Video, second_));

    EXPECT_EQ(registry_.Find("m1", "f1", 0, MediaType::Video), first_);
    EXPECT_EQ(registry_.Find("m2", "f1", 0, MediaType::Video), second_);
    EXPECT_FALSE(registry_.Find("m3", "f1", 0, MediaType::Video));
    // Without an id, the first of the media by id.
    EXPECT_EQ(registry_.Find("", "f1", 0, MediaType::Video), first_);
}

TEST_F(MasterRegistryTest, NoIdStandsForAny)
{
    ASSERT_TRUE(registry_.Add("", "f1", 0, MediaType::Video, first_));
    EXPECT_EQ(registry_.Find("m1", "f1", 0, MediaType::Video), first_);
    EXPECT_FALSE(registry_.Add("m1", "f1", 0, MediaType::Video, second_));

    ASSERT_TRUE(registry_.Add("m1", "f2", 0, MediaType::Video, second_));
    EXPECT_FALSE(registry_.Add("", "f2", 0, MediaType::Video, first_));
    EXPECT_EQ(registry_.Find("", "f2", 0, MediaType::Video), second_);
}

TEST_F(MasterRegistryTest, LayersAndMediaTypesAreApart)
{
    ASSERT_TRUE(registry_.Add("m1", "f1", 0, MediaType::Video, first_));
    EXPECT_FALSE(registry_.Find("m1", "f1", 1, MediaType::Video));
    EXPECT_FALSE(registry_.Find("m1", "f1", 0, MediaType::Audio));
    EXPECT_TRUE(registry_.Add("m1", "f1", 1, MediaType::Video, second_));
    EXPECT_TRUE(registry_.Add("m1", "f1", 0, MediaType::Audio, first_));
    const std::vector<ObjectHandle> expected = {first_, first_, second_};
    EXPECT_EQ(registry_.Entries(), expected);
}

// Otherwise all files without an id would share the first one's master.
TEST_F(MasterRegistryTest, AnEmptyMediaIdIsNeverFound)
{
    EXPECT_FALSE(registry_.Add("m1", "", 0, MediaType::Video, first_));
    EXPECT_FALSE(registry_.Find("m1", "", 0, MediaType::Video));
}

} // namespace
} // namespace XPJ
