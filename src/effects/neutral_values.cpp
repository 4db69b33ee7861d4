#include "effects/neutral_values.h"

#include "core/numbers.h"
#include "effects/values.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr Name kPointParts[] = {"horiz", "vert"};
constexpr Name kColorParts[] = {"alpha", "red", "green", "blue"};

// The text before the first `separator`, which is taken off `list` together with it.
std::string_view TakeFirst(std::string_view& list, char separator)
{
    const std::size_t end = std::min(list.find(separator), list.size());
    const std::string_view first = list.substr(0, end);
    list.remove_prefix(std::min(end + 1, list.size()));
    return first;
}

bool ArePartsNeutral(std::span<const Name> parts, std::string_view neutral, ConstHandle value)
{
    return !value || std::ranges::all_of(parts, [&](const Name& part) {
        return DoubleProperty(value, part) == ParseDouble(TakeFirst(neutral, ':'));
    });
}

bool IsNumberNeutral(std::string_view neutral, ConstHandle parameter)
{
    const std::string_view text = PlainValue(parameter);
    if (text.empty())
        return true;
    while (!neutral.empty())
        if (ParseDouble(text) == ParseDouble(TakeFirst(neutral, ' ')))
            return true;
    return false;
}

bool IsParameterNeutral(const ParamRow& row, ConstHandle parameter)
{
    const std::string_view neutral = row.xmeml.neutral;
    if (neutral.empty())
        return true;
    if (row.kind == ParamKind::Point)
        return ArePartsNeutral(kPointParts, neutral, parameter.GetChild("value"));
    if (row.kind == ParamKind::Color)
        return ArePartsNeutral(kColorParts, neutral, parameter.GetChild("value"));
    return IsNumberNeutral(neutral, parameter);
}

} // namespace

bool IsNeutral(std::span<const ParamRow> rows, ConstHandle effect, std::string_view ignored)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        if (HasKeyframes(parameter))
            return false;
        const std::string_view id = parameter.GetProperty("parameterid");
        const ParamRow* const row = id.empty() ? nullptr : FindParamRow(rows, id);
        if (row && id != ignored && !IsParameterNeutral(*row, parameter))
            return false;
    }
    return true;
}

bool DropNeutral(const EffectContext& /*context*/, const EffectRow& row, ConstHandle effect,
                 Components& /*components*/)
{
    return IsNeutral(row.params, effect);
}

} // namespace XPJ
