#include "project/labels.h"

#include "core/host_properties.h"

namespace XPJ {

void SetLabel(ObjectHandle properties, const LabelKeys& keys, std::string_view label)
{
    if (label.empty())
        return;
    const std::string_view color = LabelKeyOfAny(label);
    if (!color.empty())
        properties.SetPropertyShared(keys.color, color);
    if (LabelNameOf(color) != label)
        properties.SetPropertyShared(keys.text, label);
}

std::string_view LabelOf(ConstHandle properties, const LabelKeys& keys)
{
    const std::string_view text = properties.GetProperty(keys.text);
    const std::string_view color = properties.GetProperty(keys.color);
    return !text.empty() && LabelKeyOfAny(text) == color ? text : LabelNameOf(color);
}

} // namespace XPJ
