#include "effects/flips.h"

#include "core/numbers.h"
#include "effects/values.h"

namespace XPJ {

namespace {

ObjectHandle MakeFlip(Document& document, const ComponentNames& names, ConstHandle effect)
{
    const ObjectHandle component = MakeFilterComponent(document, names, effect);
    component.SetPropertyShared("VideoFilterType", "1");
    component.SetPropertyShared("Bypass", "false");
    component.AddChild("Param", MakeEmptyBlob(document));
    return component;
}

} // namespace

bool FlopToProject(const EffectContext& context, const EffectRow& /*row*/, ConstHandle effect,
                   Components& components)
{
    constexpr int kHorizontal = 1;
    constexpr int kVertical = 2;
    constexpr int kBoth = 3;
    const int flop = ParseInt(StaticValue(FindParameter(effect, "flop"), "0"));
    if (flop == kVertical || flop == kBoth)
        components.push_back(MakeFlip(context.document, kVerticalFlip, effect));
    if (flop == kHorizontal || flop == kBoth)
        components.push_back(MakeFlip(context.document, kHorizontalFlip, effect));
    return flop == kVertical || flop == kHorizontal || flop == kBoth;
}

} // namespace XPJ
