#include "effects/effect_context.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_elements.h"
#include "effects/keyframes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace XPJ {

namespace {

double Ratio(int clip, int sequence)
{
    return clip > 0 && sequence > 0 ? static_cast<double>(clip) / sequence : 1.0;
}

// The remark of the issue; null if it is there already.
Remark* Enter(const EffectContext& context, Direction direction, int kind, std::string_view subject,
              std::uint64_t node = 0)
{
    RemarkList& remarks = context.account.remarks;
    const std::size_t before = remarks.size();
    TranslationIssue issue = IssueAt(context.location);
    if (context.time)
        issue.time = context.time();
    issue.kind = kind;
    issue.subject = subject;
    XPJ::AddIssue(context.account, direction, issue,
                  {.span = context.location.span, .bin = context.location.bin, .node = node});
    return remarks.size() == before ? nullptr : &remarks.back();
}

} // namespace

FrameSize ParseFrameSize(std::string_view rect, std::string_view aspect)
{
    FrameSize size;
    size.width = std::max(ParseInt(KeyframeField(rect, 2)), 0);
    size.height = std::max(ParseInt(KeyframeField(rect, 3)), 0);
    const double width = ParseDouble(KeyframeField(aspect, 0));
    const double height = ParseDouble(KeyframeField(aspect, 1));
    if (width > 0 && height > 0 && std::isfinite(width / height))
        size.pixelAspect = width / height;
    return size;
}

double EffectContext::HorizontalRatio() const
{
    return Ratio(clipFrame.width, sequenceFrame.width);
}

double EffectContext::VerticalRatio() const
{
    return Ratio(clipFrame.height, sequenceFrame.height);
}

double EffectContext::AspectRatio() const
{
    constexpr double kAboutEqual = 0.0001;
    const double difference = clipFrame.pixelAspect - sequenceFrame.pixelAspect;
    if (std::abs(difference) < kAboutEqual || sequenceFrame.pixelAspect == 0)
        return 1.0;
    return clipFrame.pixelAspect / sequenceFrame.pixelAspect;
}

void EffectContext::AddIssue(ImportIssue kind, std::string_view subject) const
{
    Enter(*this, Direction::Import, static_cast<int>(kind), subject);
}

void EffectContext::AddIssue(ExportIssue kind, std::string_view subject, ConstHandle about) const
{
    Enter(*this, Direction::Export, static_cast<int>(kind), subject, about ? about.UniqueId() : 0);
}

void EffectContext::AddRemark(RemarkKind kind, const RemarkSubject& subject) const
{
    if (!isRepeated)
        XPJ::AddRemark(account, kind, location, subject);
}

void EffectContext::AddIssue(ImportIssue kind, ConstHandle effect, std::string_view onlyWhen) const
{
    Remark* const remark = Enter(*this, Direction::Import, static_cast<int>(kind),
                                 EffectName(effect), effect.UniqueId());
    if (!remark)
        return;
    remark->subject = account.texts.Keep(FullEffectName(effect));
    remark->subjectId = account.texts.Keep(effect.GetProperty("effectid"));
    if (onlyWhen.empty())
        return;
    remark->kind = RemarkKind::EffectConditional;
    remark->detail = account.texts.Keep(onlyWhen);
}

void EffectContext::AddMissingLook(ConstHandle effect, std::string_view path) const
{
    EffectContext ofFile = *this;
    ofFile.location.clip = path;
    const int missing = static_cast<int>(ImportIssue::MissingLookLUT);
    if (Remark* const remark = Enter(ofFile, Direction::Import, missing, {}, effect.UniqueId())) {
        remark->clip = account.texts.Keep(location.clip);
        remark->subject = account.texts.Keep(FullEffectName(effect));
        remark->subjectId = account.texts.Keep(effect.GetProperty("effectid"));
        remark->detail = account.texts.Keep(EscapeXML(path));
    }
    const int untranslated = static_cast<int>(ImportIssue::EffectNotTranslated);
    if (Enter(*this, Direction::Import, untranslated, EffectName(effect), effect.UniqueId()))
        account.remarks.pop_back();
}

void EffectContext::AddRemark(RemarkKind kind, ConstHandle effect, std::string_view detail,
                              std::size_t count) const
{
    AddRemark(kind, {.name = FullEffectName(effect),
                     .id = effect.GetProperty("effectid"),
                     .detail = detail,
                     .count = count});
}

} // namespace XPJ
