#include "core/translation_issue.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace XPJ {
namespace {

TranslationIssue Base()
{
    TranslationIssue issue;
    issue.sequence = "Reel 1";
    issue.clip = "Clip";
    issue.subject = "Sepia";
    issue.trackKind = 1;
    issue.trackIndex = 1;
    issue.time = "00:00:01:00";
    return issue;
}

// Each field decides before all that follow it.
TEST(IssueOrder, ComparesLocationFirst)
{
    using Change = std::function<void(TranslationIssue&, int)>;
    const Change kFields[] = {
        [](TranslationIssue& i, int by) { i.sequence = by < 0 ? "Reel" : "Reel 10"; },
        [](TranslationIssue& i, int by) { i.time = by < 0 ? "00:00:00:24" : "00:00:01:01"; },
        [](TranslationIssue& i, int by) { i.trackKind += by; },
        [](TranslationIssue& i, int by) { i.trackIndex += by; },
        [](TranslationIssue& i, int by) { i.subject = by < 0 ? "Blur" : "Tint"; },
        [](TranslationIssue& i, int by) { i.clip = by < 0 ? "Bed" : "Dawn"; },
    };
    const IssueOrder before;
    for (std::size_t field = 0; field < std::size(kFields); ++field) {
        TranslationIssue less = Base();
        TranslationIssue greater = Base();
        kFields[field](less, -1);
        for (std::size_t lower = field + 1; lower < std::size(kFields); ++lower)
            kFields[lower](less, 1);
        kFields[field](greater, 1);
        EXPECT_TRUE(before(less, Base())) << field;
        EXPECT_TRUE(before(Base(), greater)) << field;
        EXPECT_FALSE(before(greater, less)) << field;
    }
}

TEST(IssueOrder, IssuesThatDifferInKindAloneAreOne)
{
    IssueSet issues;
    TranslationIssue issue = Base();
    issue.kind = 3;
    issues.insert(issue);
    issue.kind = 5;
    issues.insert(issue);
    ASSERT_EQ(issues.size(), 1u);
    EXPECT_EQ(issues.begin()->kind, 3);
}

} // namespace
} // namespace XPJ
