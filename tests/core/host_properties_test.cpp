#include "core/host_properties.h"

#include <gtest/gtest.h>

#include <set>

namespace XPJ {
namespace {

TEST(HostProperties, LabelColorsMapBothWays)
{
    EXPECT_EQ(LabelKeyOf("Mango"), "BE.Prefs.LabelColors.7");
    for (int i = 0; i < 8; ++i) {
        const std::string key = "BE.Prefs.LabelColors." + std::to_string(i);
        EXPECT_EQ(LabelKeyOf(LabelNameOf(key)), key);
    }
    EXPECT_EQ(LabelKeyOf("mango"), "");
    EXPECT_EQ(LabelNameOf("BE.Prefs.LabelColors.8"), "");
}

TEST(HostProperties, PropertyNamesHaveTwoSpellings)
{
    EXPECT_EQ(PropertyLabel("Clip_95_Comment_95_A"), "Clip Comment A");
    EXPECT_EQ(XMPPropertyName("Clip_95_Comment_95_A"), "Clip_Comment_A");
    EXPECT_EQ(PropertyLabel("_95_95_"), " 95_");
    EXPECT_EQ(CustomPropertyKey("s", "Master_95_Comment_95_1"),
              "$$$/custom_xmp_schemas/s/property_name/Master Comment 1=Master Comment 1");
}

// A name in two lists would be written twice.
TEST(HostProperties, ListsHoldEachNameOnce)
{
    for (const auto list : {ColumnPropertyList(), SequenceUIPropertyList(), TrackUIPropertyList(),
                            PannerPropertyList()}) {
        std::set<std::string_view> names;
        for (const Name& name : list)
            EXPECT_TRUE(names.insert(name.View()).second) << name.View();
    }
}

} // namespace
} // namespace XPJ
