#include "effects/xmeml_filter.h"

#include "project/accessors.h"

namespace XPJ {

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

} // namespace XPJ
