#include "effects/crop.h"

namespace XPJ {

namespace {

// A side that is no number is written as 0.
bool IsNumberText(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("+-.0123456789eE") == text.npos;
}

} // namespace

bool CropToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components)
{
    return IsNeutral(row.params, effect) || ParamsToProject(context, row, effect, components);
}

void CropToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect)
{
    WriteEffectHead(row.xmeml, effect);
    for (const std::string_view id : {"left", "right", "top", "bottom"}) {
        const ParamRow& side = *FindParamRow(row.params, id);
        const ObjectHandle parameter = AddRowParameter(context, side, component, effect);
        if (const std::string_view text = StartText(ParamOfRow(component, side));
            IsNumberText(text))
            parameter.SetProperty("value", text);
    }
}

} // namespace XPJ
