#include "core/account.h"

#include "core/frame_rate.h"
#include "core/ticks.h"

namespace XPJ {

std::string FrameSpan::Timecode(std::int64_t frame) const
{
    return FormatTimecode(AddTicks(first, frame), base, drop);
}

TranslationIssue IssueAt(const ItemLocation& location)
{
    TranslationIssue issue;
    issue.sequence = location.sequence;
    issue.clip = location.clip;
    issue.trackKind = location.trackKind;
    issue.trackIndex = location.trackIndex;
    issue.time = location.time;
    return issue;
}

void AddRemark(Account& account, RemarkKind kind, const ItemLocation& location,
               const RemarkSubject& subject)
{
    // In its place: most texts are empty, and none is moved.
    Remark& remark = account.remarks.emplace_back();
    remark.kind = kind;
    remark.sequence = location.sequence;
    remark.clip = location.clip;
    remark.bin = location.bin;
    remark.trackKind = location.trackKind;
    remark.trackIndex = location.trackIndex;
    remark.span = location.span;
    remark.subject = subject.name;
    remark.subjectId = subject.id;
    remark.detail = subject.detail;
    remark.path = subject.path;
    remark.count = subject.count;
}

void AddIssue(Account& account, Direction direction, const TranslationIssue& issue,
              const FrameSpan& span, std::string_view bin)
{
    const IssueKind* const kind = FindIssueKind(direction, issue.kind);
    const auto [entry, isNew] = account.issues.insert(issue);
    if (!kind || (!isNew && entry->kind == issue.kind))
        return;
    const bool isOfTime = kind->first == IssueField::Time || kind->second == IssueField::Time;
    account.remarks.push_back({.kind = kind->remark,
                               .sequence = issue.sequence,
                               .clip = issue.clip,
                               .bin = std::string(bin),
                               .trackKind = issue.trackKind,
                               .trackIndex = issue.trackIndex,
                               .span = span,
                               .subject = issue.subject,
                               .detail = isOfTime ? issue.time : std::string(),
                               .isIssue = true});
}

} // namespace XPJ
