#include "effects/graphic_effects.h"

#include "effects/kept_params.h"

#include <iterator>
#include <vector>

namespace XPJ {

namespace {

constexpr std::string_view kBlobControl = "9";
constexpr int kTransformCount = static_cast<int>(std::size(kGraphicTransform));

struct GraphicParams {
    int blobs;
    int sliders;

    int Count() const { return blobs + kTransformCount + sliders; }
};

constexpr GraphicParams kTextParams = {kTextBlobs, 4};
constexpr GraphicParams kShapeParams = {kShapeBlobs, 0};

// The project's parameter for a carried one, whose id is from 1 to the count.
ObjectHandle MakeGraphicParam(Document& document, const GraphicParams& params, int id,
                              ConstHandle parameter)
{
    if (id <= params.blobs)
        return MakeKeptBlob(document, parameter, parameter.GetProperty("name"), kBlobControl);
    const int index = id - params.blobs - 1;
    return MakeKeptParam(document, parameter,
                         index < kTransformCount ? ClassOf(kGraphicTransform[index].kind)
                                                 : kSliderClass);
}

bool GraphicToProject(const EffectContext& context, const EffectRow& row,
                      const GraphicParams& params, ConstHandle effect, Components& components)
{
    std::vector<ObjectHandle> made(static_cast<std::size_t>(params.Count()) + 1); // by id
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const int id = IntProperty(parameter, "parameterid");
        if (id < 1 || id > params.Count())
            continue;
        if (const ObjectHandle param = MakeGraphicParam(context.document, params, id, parameter))
            made[static_cast<std::size_t>(id)] = param;
    }
    const ObjectHandle component = MakeFilterComponent(context.document, row.project, effect);
    component.SetProperty("InstanceName", effect.GetProperty("name"));
    for (const ObjectHandle param : made)
        component.AddChild("Param", param);
    components.push_back(component);
    return true;
}

} // namespace

bool TextToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components)
{
    return GraphicToProject(context, row, kTextParams, effect, components);
}

bool ShapeToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                    Components& components)
{
    return GraphicToProject(context, row, kShapeParams, effect, components);
}

void TextToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect)
{
    XmemlEffect head = row.xmeml;
    head.name = UserName(component);
    KeepParams(context, head, component, effect);
}

void ShapeToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                  ObjectHandle effect)
{
    KeepParams(context, row.xmeml, component, effect);
}

bool HasGraphicEffect(ConstHandle item)
{
    for (const ConstHandle filter : item.GetChildren("filter")) {
        const std::string_view id = filter.GetChild("effect").GetProperty("effectid");
        if (id == kGraphicText.xmeml.id || id == kGraphicShape.xmeml.id)
            return true;
    }
    return false;
}

} // namespace XPJ
