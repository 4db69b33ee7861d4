#include "effects/effect_elements.h"

#include "core/text.h"
#include "project/accessors.h"

namespace XPJ {

namespace {

ObjectHandle MakeComponent(Document& document, const ComponentNames& names, bool intrinsic)
{
    return document.NewObject("VideoFilterComponent", {{"MatchName", names.match},
                                                       {"DisplayName", names.display},
                                                       {"Intrinsic", intrinsic ? "true" : "false"},
                                                       {"VideoFilterType", "2"},
                                                       {"Bypass", "false"}});
}

// Most ids are the names of effects. Others are words of the format ("basic"), codes in braces, or
// begin with the name of a plug-in interface and a colon.
bool IsName(std::string_view id)
{
    const bool isCapitalized = !id.empty() && id.front() >= 'A' && id.front() <= 'Z';
    return isCapitalized && id.find(':') == id.npos;
}

} // namespace

std::string_view EffectName(ConstHandle effect)
{
    const std::string_view name = effect.GetProperty("name");
    return name.empty() ? effect.GetProperty("effectid") : name;
}

std::string FullEffectName(ConstHandle effect)
{
    std::string name(EffectName(effect));
    const std::string_view id = effect.GetProperty("effectid");
    if (IsName(id) && !EqualsIgnoreCase(id, name))
        name.append(" (").append(id).append(")");
    return name;
}

ConstHandle ActiveEffect(ConstHandle filter)
{
    const ConstHandle effect = filter.GetChild("effect");
    const bool isOff =
        EqualsIgnoreCase(filter.GetProperty("enabled"), "false") && !IsTrue(effect, "velaBypass");
    return isOff || EffectName(effect).empty() ? ConstHandle() : effect;
}

void WriteEffectHead(const XmemlEffect& head, ObjectHandle effect)
{
    effect.SetPropertyShared("name", head.name);
    effect.SetPropertyShared("effectid", head.id);
    if (!head.category.empty())
        effect.SetPropertyShared("effectcategory", head.category);
    effect.SetPropertyShared("effecttype", head.type);
    effect.SetPropertyShared("mediatype", head.mediaType);
}

void WriteSwitches(ConstHandle component, ObjectHandle effect)
{
    effect.SetPropertyShared("velaBypass", IsTrue(component, "Bypass") ? "true" : "false");
    CopyProperty(component, "ECP.Filter.Expanded", effect, "velaExpanded");
}

ObjectHandle AddEmptyFilter(Document& document, ObjectHandle item)
{
    const ObjectHandle effect = document.NewObject("effect");
    const ObjectHandle filter = document.NewObject("filter");
    filter.AddChild(effect);
    item.AddChild(filter);
    return effect;
}

ObjectHandle AddFilter(Document& document, const XmemlEffect& head, ObjectHandle item)
{
    const ObjectHandle effect = AddEmptyFilter(document, item);
    WriteEffectHead(head, effect);
    return effect;
}

ObjectHandle FindEffect(ObjectHandle item, std::string_view effectId)
{
    for (const ObjectHandle filter : item.GetChildren("filter"))
        if (const ObjectHandle effect = filter.GetChild("effect");
            effect.GetProperty("effectid") == effectId)
            return effect;
    return {};
}

ObjectHandle MakeFilterComponent(Document& document, const ComponentNames& names,
                                 ConstHandle effect)
{
    const ObjectHandle component = MakeComponent(document, names, false);
    CopyBypass(effect, component);
    CopyExpanded(effect, component);
    return component;
}

ObjectHandle MakeIntrinsicComponent(Document& document, const ComponentNames& names)
{
    return MakeComponent(document, names, true);
}

void CopyBypass(ConstHandle effect, ObjectHandle component)
{
    component.SetPropertyShared("Bypass", IsTrue(effect, "velaBypass") ? "true" : "false");
}

void CopyExpanded(ConstHandle effect, ObjectHandle component)
{
    if (HasValue(effect, "velaExpanded"))
        component.SetProperty("ECP.Filter.Expanded", effect.GetProperty("velaExpanded"));
}

} // namespace XPJ
