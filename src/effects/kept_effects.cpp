#include "effects/kept_effects.h"

#include "effects/parameters.h"
#include "project/accessors.h"

#include <string_view>

namespace XPJ::RVX {

namespace {

// The name that the user gave the effect, else that of its kind.
std::string_view UserName(ConstHandle component)
{
    const ConstHandle core = ComponentCore(component);
    return core.GetProperty(HasValue(core, "InstanceName") ? "InstanceName" : "DisplayName");
}

void Keep(const EffectSource& source, const EffectHead& head, ObjectHandle effect)
{
    WriteEffectHead(head, effect);
    for (const ConstHandle param : ParamsOf(source.component))
        effect.AddChild(ExportProjectParam(source.document, param));
}

} // namespace

void ExportText(const EffectSource& source, ObjectHandle effect)
{
    Keep(source, {UserName(source.component), "GraphicAndType", "graphic", "filter"}, effect);
}

void ExportShape(const EffectSource& source, ObjectHandle effect)
{
    Keep(source, {"Shape", "GraphicAndShape", "graphic", "filter"}, effect);
}

void ExportLook(const EffectSource& source, ObjectHandle effect)
{
    const ConstHandle core = ComponentCore(source.component);
    Keep(source, {core.GetProperty("InstanceName"), "Gradiva", "", "filter"}, effect);
    for (const ConstHandle stated : DependenciesOf(source.component)) {
        if (!HasValue(stated, "Tag") || !HasValue(stated, "Path"))
            continue;
        const ObjectHandle dependency = source.document.NewObject("dependency");
        CopyProperty(stated, "Tag", dependency, "tag");
        CopyProperty(stated, "Path", dependency, "path");
        effect.AddChild(dependency);
    }
}

void ExportTransform(const EffectSource& source, ObjectHandle effect)
{
    const ConstHandle core = ComponentCore(source.component);
    Keep(source, {core.GetProperty("DisplayName"), "Transform", "", "filter"}, effect);
}

} // namespace XPJ::RVX
