#include "core/translation_issue.h"

#include <tuple>

namespace XPJ {

bool IssueOrder::operator()(const TranslationIssue& a, const TranslationIssue& b) const
{
    const auto key = [](const TranslationIssue& issue) {
        return std::tie(issue.sequence, issue.time, issue.trackKind, issue.trackIndex,
                        issue.subject, issue.clip);
    };
    return key(a) < key(b);
}

} // namespace XPJ
