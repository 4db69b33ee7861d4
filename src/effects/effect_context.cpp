#include "effects/effect_context.h"

namespace XPJ {

namespace {

double Ratio(int clip, int sequence)
{
    return clip > 0 && sequence > 0 ? static_cast<double>(clip) / sequence : 1.0;
}

void Enter(IssueSet& issues, const ItemPlace& place, int kind, std::string_view subject)
{
    TranslationIssue issue;
    issue.kind = kind;
    issue.sequence.text = place.sequence;
    issue.clip.text = place.clip;
    issue.subject.text = subject;
    issue.trackKind = place.trackKind;
    issue.trackIndex = place.trackIndex;
    issue.time = place.time;
    issues.insert(std::move(issue));
}

} // namespace

double EffectContext::HorizontalRatio() const
{
    return Ratio(clipFrame.width, sequenceFrame.width);
}

double EffectContext::VerticalRatio() const
{
    return Ratio(clipFrame.height, sequenceFrame.height);
}

void EffectContext::AddIssue(ImportIssue kind, std::string_view subject) const
{
    Enter(issues, place, static_cast<int>(kind), subject);
}

void EffectContext::AddIssue(ExportIssue kind, std::string_view subject) const
{
    Enter(issues, place, static_cast<int>(kind), subject);
}

} // namespace XPJ
