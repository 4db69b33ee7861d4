#include "effects/kept_params.h"

#include "core/base64.h"
#include "effects/values.h"
#include "project/accessors.h"

#include <array>
#include <iterator>

namespace XPJ {

namespace {

// As the export of an effect without bytes writes it: a byte order mark alone.
constexpr std::string_view kEmptyBlob = "/v4=";

// By `ParameterID`.
constexpr std::string_view kTransformClasses[] = {
    "", // ids count from 1
    kPointClass,  kPointClass,  kScalarClass, kScalarClass, kScalarClass, kScalarClass,
    kScalarClass, kScalarClass, kSwitchClass, kScalarClass, kSwitchClass,
};

} // namespace

std::string_view UserName(ConstHandle component)
{
    return component.GetProperty(HasValue(component, "InstanceName") ? Name("InstanceName")
                                                                     : Name("DisplayName"));
}

void KeepParams(const EffectContext& context, const XmemlEffect& head, ConstHandle component,
                ObjectHandle effect)
{
    WriteEffectHead(head, effect);
    for (const ConstHandle param : ParamsOf(component))
        effect.AddChild(ExportProjectParam(context.document, param));
}

ObjectHandle MakeKeptParam(Document& document, ConstHandle parameter, std::string_view classId)
{
    return CopyProjectParam(document, parameter,
                            classId == kPointClass ? Name("PointComponentParam")
                                                   : Name("VideoComponentParam"),
                            classId);
}

ObjectHandle MakeKeptBlob(Document& document, ConstHandle parameter, std::string_view name,
                          std::string_view control)
{
    const std::string_view value = PlainValue(parameter);
    if (value.empty() || value == kEmptyBlob)
        return {};
    const std::string_view stated = parameter.GetProperty("ParameterControlType");
    return MakeBlob(document, name, parameter.GetProperty("parameterid"),
                    stated.empty() ? control : stated, DecodeBase64(value));
}

bool TransformToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                        Components& components)
{
    std::array<ObjectHandle, std::size(kTransformClasses)> params;
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        const int id = IntProperty(parameter, "parameterid");
        if (id < 1 || id >= static_cast<int>(params.size()) || PlainValue(parameter).empty())
            continue;
        const auto index = static_cast<std::size_t>(id);
        params[index] = CopyProjectParam(context.document, parameter, "VideoComponentParam",
                                         kTransformClasses[index]);
    }
    const ObjectHandle component = MakeFilterComponent(context.document, row.project, effect);
    for (const ObjectHandle param : params)
        component.AddChild("Param", param);
    components.push_back(component);
    return true;
}

void TransformToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                      ObjectHandle effect)
{
    XmemlEffect head = row.xmeml;
    head.name = component.GetProperty("DisplayName");
    KeepParams(context, head, component, effect);
}

} // namespace XPJ
