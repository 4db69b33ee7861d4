#include "core/account.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace XPJ {
namespace {

// Texts are kept for neighbours once; those of the caller may go.
TEST(Account, KeepsTheTextsOfRemarksAlsoWhenMoved)
{
    Account first;
    for (int i = 0; i < 100; ++i) {
        std::string clip = "a clip with a long name, " + std::to_string(i / 2);
        AddRemark(first, RemarkKind::FilterRange, {.sequence = std::string("Cut"), .clip = clip},
                  {.name = "Blur"});
        clip.assign(clip.size(), 'x');
    }
    const Account account = std::move(first);
    for (std::size_t i = 0; i < 100; ++i) {
        const Remark& remark = account.remarks[i];
        EXPECT_EQ(remark.clip, "a clip with a long name, " + std::to_string(i / 2));
        EXPECT_EQ(remark.sequence, "Cut");
        EXPECT_EQ(remark.subject.data(), account.remarks[0].subject.data()) << "kept once";
        EXPECT_EQ(remark.path, "");
    }
}

TEST(Account, HasEachIssueOnceAPlaceAndAsARemark)
{
    Account account;
    const TranslationIssue issue{.kind = static_cast<int>(ImportIssue::EffectNotTranslated),
                                 .sequence = "Cut",
                                 .clip = "A",
                                 .subject = "Sepia",
                                 .trackKind = 1,
                                 .time = "01:00:01:00"};
    const IssuePlace place{.span = {.start = 25, .end = 50}, .bin = "Day 1"};
    AddIssue(account, Direction::Import, issue, place);
    AddIssue(account, Direction::Import, issue, place);
    ASSERT_EQ(account.remarks.size(), 1U);
    const Remark& remark = account.remarks[0];
    EXPECT_TRUE(remark.isIssue);
    EXPECT_EQ(remark.subject, "Sepia");
    EXPECT_EQ(remark.bin, "Day 1");
    EXPECT_EQ(remark.span.start, 25);
    EXPECT_EQ(account.issues.size(), 1U);

    // The host's report has no more than names.
    AddIssue(account, Direction::Import, issue, {.span = place.span, .bin = "Day 2"});
    AddIssue(account, Direction::Import, issue, {.span = {.sequence = 7}});
    AddIssue(account, Direction::Import, issue, {.node = 8});
    AddIssue(account, Direction::Import, issue, {.node = 9});
    AddIssue(account, Direction::Import, issue, {.node = 9});
    EXPECT_EQ(account.remarks.size(), 5U);
    EXPECT_EQ(account.issues.size(), 1U);
}

} // namespace
} // namespace XPJ
