#include "core/translation_issue.h"

#include <tuple>

namespace XPJ {

bool IssueOrder::operator()(const TranslationIssue& a, const TranslationIssue& b) const
{
    const auto key = [](const TranslationIssue& issue) {
        return std::tie(issue.sequence.text, issue.sequence.word, issue.time, issue.trackKind,
                        issue.trackIndex, issue.subject.text, issue.clip.word, issue.clip.text,
                        issue.subject.word);
    };
    return key(a) < key(b);
}

} // namespace XPJ
