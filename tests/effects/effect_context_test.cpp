#include "effects/effect_context.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(EffectContext, FindingsCarryThePlace)
{
    Document document;
    IssueSet issues;
    const EffectContext context{
        .document = document,
        .issues = issues,
        .place = {"Reel 1", "Shot", 1, 4, "01:00:00:00"},
    };
    context.AddIssue(ImportIssue::EffectNotTranslated, "Sepia");
    context.AddIssue(ImportIssue::EffectNotTranslated, "Sepia");
    context.AddIssue(ExportIssue::ThreeWayApproximation);

    ASSERT_EQ(issues.size(), 2u);
    const TranslationIssue& bare = *issues.begin();
    EXPECT_EQ(bare.kind, 7);
    EXPECT_EQ(bare.subject, "");
    const TranslationIssue& sepia = *issues.rbegin();
    EXPECT_EQ(sepia.kind, 3);
    EXPECT_EQ(sepia.sequence, "Reel 1");
    EXPECT_EQ(sepia.clip, "Shot");
    EXPECT_EQ(sepia.subject, "Sepia");
    EXPECT_EQ(sepia.trackKind, 1);
    EXPECT_EQ(sepia.trackIndex, 4);
    EXPECT_EQ(sepia.time, "01:00:00:00");
}

TEST(EffectContext, RatiosAreOneForUnknownSizes)
{
    Document document;
    IssueSet issues;
    EffectContext context{.document = document, .issues = issues};
    context.sequenceFrame = {1920, 1080, 1.0};
    context.clipFrame = {960, 0, 1.0};
    EXPECT_EQ(context.HorizontalRatio(), 0.5);
    EXPECT_EQ(context.VerticalRatio(), 1.0);
    context.sequenceFrame = {};
    EXPECT_EQ(context.HorizontalRatio(), 1.0);
}

TEST(EffectContext, FramesOfAProject)
{
    const struct {
        const char* rect;
        const char* aspect;
        FrameSize expected;
    } rows[] = {
        {"0,0,720,480", "10,11", {720, 480, 10.0 / 11.0}},
        {"10,20,30,60", "1,1", {20, 40, 1.0}},
        {"", "", {0, 0, 1.0}},
        {"9,9,0,0", "4,0", {0, 0, 1.0}},
        {"-2147483648,0,2147483647,1", "-4,-3", {2147483647, 1, 1.0}},
    };
    for (const auto& row : rows) {
        const FrameSize size = ParseFrameSize(row.rect, row.aspect);
        EXPECT_EQ(size.width, row.expected.width) << row.rect;
        EXPECT_EQ(size.height, row.expected.height) << row.rect;
        EXPECT_DOUBLE_EQ(size.pixelAspect, row.expected.pixelAspect) << row.aspect;
    }
}

} // namespace
} // namespace XPJ
