#include "core/account.h"

#include "core/frame_rate.h"
#include "core/ticks.h"

#include <fmt/format.h>

namespace XPJ {

std::string FrameSpan::Timecode(std::int64_t frame) const
{
    return ClockTimecode(AddTicks(first, frame), base, drop);
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

Remark& AddRemark(Account& account, const Remark& remark)
{
    static const Remark kNone;
    // Neighbours have much in common, as the sequence.
    const Remark& before = account.remarks.empty() ? kNone : account.remarks.back();
    Remark& added = account.remarks.emplace_back(remark);
    for (std::string_view Remark::*const text :
         {&Remark::sequence, &Remark::clip, &Remark::bin, &Remark::subject, &Remark::subjectId,
          &Remark::detail, &Remark::path})
        added.*text = before.*text == added.*text ? before.*text : account.texts.Keep(added.*text);
    return added;
}

namespace {

// What tells two issues apart.
std::string PlaceText(const TranslationIssue& issue, const IssuePlace& place)
{
    if (place.node != 0)
        return fmt::format("{} {} {}", issue.kind, place.node, issue.subject);
    return fmt::format("{}\n{}\n{}\n{}\n{} {} {} {}\n{}\n{}", issue.sequence, issue.clip,
                       issue.subject, issue.time, issue.kind, issue.trackKind, issue.trackIndex,
                       place.span.sequence, place.span.start, place.bin);
}

} // namespace

void AddRemark(Account& account, RemarkKind kind, const ItemLocation& location,
               const RemarkSubject& subject)
{
    AddRemark(account, {.kind = kind,
                        .sequence = location.sequence,
                        .clip = location.clip,
                        .bin = location.bin,
                        .trackKind = location.trackKind,
                        .trackIndex = location.trackIndex,
                        .span = location.span,
                        .subject = subject.name,
                        .subjectId = subject.id,
                        .detail = subject.detail,
                        .path = subject.path,
                        .count = subject.count});
}

void AddIssue(Account& account, Direction direction, const TranslationIssue& issue,
              const IssuePlace& place)
{
    account.issues.insert(issue);
    const IssueKind* const kind = FindIssueKind(direction, issue.kind);
    if (!kind || !account.issuePlaces.insert(PlaceText(issue, place)).second)
        return;
    const bool isOfTime = kind->first == IssueField::Time || kind->second == IssueField::Time;
    AddRemark(account, {.kind = kind->remark,
                        .sequence = issue.sequence,
                        .clip = issue.clip,
                        .bin = place.bin,
                        .trackKind = issue.trackKind,
                        .trackIndex = issue.trackIndex,
                        .span = place.span,
                        .subject = issue.subject,
                        .detail = isOfTime ? std::string_view(issue.time) : std::string_view(),
                        .isIssue = true});
}

} // namespace XPJ
