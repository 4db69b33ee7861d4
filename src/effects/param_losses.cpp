#include "effects/param_losses.h"

#include "core/numbers.h"
#include "effects/keyframes.h"
#include "project/accessors.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr ParamRow kUnknown = {}; // its value is 0

bool HasBytes(ConstHandle param)
{
    return HasValue(param, "StartKeyframeValue");
}

bool IsUsed(const ParamRow& row, ConstHandle param)
{
    return HasValue(param, "Keyframes") || HasBytes(param) || !IsDefault(row, StartText(param));
}

// Many parameters, such as the switch behind a check box, have a blank as their name.
std::string NameOf(ConstHandle param)
{
    const std::string_view name = param.GetProperty("Name");
    if (name.find_first_not_of(' ') != name.npos)
        return std::string(name);
    return std::string("number ").append(param.GetProperty("ParameterID"));
}

// ---- Records of keyframes
//
//   scalar   <ticks>,<value>,<interpolation>,...
//   point    <ticks>,<h>:<v>,<interpolation>,0,0.,0.,0.,0.,5,4,<two tangents of the path>

constexpr std::string_view kLinear = "0";
constexpr std::string_view kHold = "4";
constexpr int kInterpolation = 2;
constexpr int kFirstTangent = 10;
constexpr int kLastTangent = 13;

bool IsPoint(std::string_view record)
{
    return KeyframeField(record, 1).find(':') != record.npos;
}

bool IsOnCurve(std::string_view record)
{
    for (int field = kFirstTangent; field <= kLastTangent; ++field)
        if (ParseDouble(KeyframeField(record, field)) != 0)
            return true;
    return false;
}

// In open interchange values that are held come back.
bool IsInterpolationLost(const EffectContext& context, std::string_view record)
{
    const std::string_view code = KeyframeField(record, kInterpolation);
    const bool isCarried =
        code.empty() || code == kLinear || (code == kHold && context.openInterchange);
    return !isCarried || (IsPoint(record) && IsOnCurve(record));
}

struct KeyframeLosses {
    bool interpolation = false;
    std::size_t rounded = 0;
};

KeyframeLosses LossesOf(const EffectContext& context, std::string_view keyframes)
{
    KeyframeLosses losses;
    while (!keyframes.empty()) {
        const std::size_t end = std::min(keyframes.find(';'), keyframes.size());
        const std::string_view record = keyframes.substr(0, end);
        keyframes.remove_prefix(std::min(end + 1, keyframes.size()));
        losses.interpolation = losses.interpolation || IsInterpolationLost(context, record);
        if (context.frameTicks > 1 && ParseInt64(record) % context.frameTicks != 0)
            ++losses.rounded;
    }
    return losses;
}

} // namespace

RemarkSubject SubjectOf(ConstHandle component)
{
    const std::string_view id = ComponentMatchName(component);
    return {.name = HasValue(component, "DisplayName") ? component.GetProperty("DisplayName") : id,
            .id = id};
}

bool HasOwnName(ConstHandle component)
{
    return HasValue(component, "InstanceName") &&
           component.GetProperty("InstanceName") != component.GetProperty("DisplayName");
}

void ReportParams(const EffectContext& context, std::span<const ParamRow> rows,
                  ConstHandle component, int handled)
{
    const RemarkSubject subject = SubjectOf(component);
    for (const ConstHandle param : ParamsOf(component)) {
        const int id = IntProperty(param, "ParameterID");
        if (id == handled && id != 0)
            continue;
        const auto row = std::ranges::find(rows, id, &ParamRow::id);
        const bool isKnown = id != 0 && row != rows.end();
        if (isKnown && (!row->xmeml.id.empty() || context.openInterchange))
            ReportKeyframes(context, subject, param);
        else
            ReportUnwritten(context, subject, isKnown ? &*row : nullptr, param);
    }
    const bool isNamed = context.openInterchange && !IsTrue(component, "Intrinsic");
    if (HasOwnName(component) && !isNamed)
        context.AddRemark(RemarkKind::EffectRenamed,
                          {.name = component.GetProperty("InstanceName"), .id = subject.id});
}

void ReportUnwritten(const EffectContext& context, RemarkSubject subject, const ParamRow* row,
                     ConstHandle param)
{
    const ParamRow& known = row ? *row : kUnknown;
    if (context.isRepeated || !IsUsed(known, param))
        return;
    const std::string name = NameOf(param);
    subject.detail = name;
    context.AddRemark(known.loss, subject);
}

void ReportKeyframes(const EffectContext& context, RemarkSubject subject, ConstHandle param)
{
    const std::string_view keyframes = param.GetProperty("Keyframes");
    if (context.isRepeated || keyframes.empty())
        return;
    const KeyframeLosses losses = LossesOf(context, keyframes);
    const std::string name = NameOf(param);
    subject.detail = name;
    if (losses.interpolation)
        context.AddRemark(RemarkKind::KeyframeInterpolation, subject);
    subject.count = losses.rounded;
    if (losses.rounded > 0)
        context.AddRemark(RemarkKind::KeyframeRounded, subject);
}

} // namespace XPJ
