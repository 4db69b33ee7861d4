#include "effects/graphic_effects.h"

#include "core/base64.h"
#include "effects/parameters.h"
#include "effects/values.h"
#include "effects/video_component.h"

#include <array>
#include <span>

namespace XPJ {

namespace {

constexpr ComponentNames kText = {"KX.ORRN Text", "Text"};
constexpr ComponentNames kShape = {"KX.ORRN Shape", "Shape"};

// What the export of a document without text puts out.
constexpr std::string_view kEmptyBlob = "/v4=";
constexpr std::string_view kBlobControl = "9";

// In place of a class, by which a parameter is told to be a blob.
constexpr std::string_view kBlob = "blob";

// Classes by `parameterid`; ids count from 1.
constexpr std::string_view kTextClasses[] = {
    "",
    kBlob,        // source text
    kSwitchClass, // opens the transform
    kPointClass,  // position
    kScalarClass, // scale
    kScalarClass, // horizontal scale
    kSwitchClass, // uniform scale
    kScalarClass, // rotation
    kScalarClass, // opacity
    kPointClass,  // anchor
    kSwitchClass, // closes the transform
    kSliderClass, kSliderClass, kSliderClass, kSliderClass,
};
constexpr std::string_view kShapeClasses[] = {
    "",
    kBlob,        // path
    kBlob,        // appearance
    kSwitchClass, // opens the transform
    kPointClass,  // position
    kScalarClass, // scale
    kScalarClass, // horizontal scale
    kSwitchClass, // uniform scale
    kScalarClass, // rotation
    kScalarClass, // opacity
    kPointClass,  // anchor
    kSwitchClass, // closes the transform
};

ObjectHandle MakeParam(Document& document, ObjectHandle parameter, std::string_view classId)
{
    if (classId != kBlob)
        return CopyProjectParam(document, parameter,
                                classId == kPointClass ? Name("PointComponentParam")
                                                       : Name("VideoComponentParam"),
                                classId);
    const std::string_view value = PlainValue(parameter);
    if (value.empty() || value == kEmptyBlob)
        return {};
    const std::string_view control = parameter.GetProperty("ParameterControlType");
    return MakeBlob(document, parameter.GetProperty("name"), parameter.GetProperty("parameterid"),
                    control.empty() ? kBlobControl : control, DecodeBase64(value));
}

template <std::size_t count>
ObjectHandle MakeGraphic(Document& document, const ComponentNames& names,
                         const std::string_view (&classes)[count], ObjectHandle effect)
{
    std::array<ObjectHandle, count> params;
    for (const ObjectHandle& parameter : effect.GetChildren("parameter")) {
        const int id = IntProperty(parameter, "parameterid");
        if (id < 1 || id >= static_cast<int>(count))
            continue;
        const auto index = static_cast<std::size_t>(id);
        if (const ObjectHandle param = MakeParam(document, parameter, classes[index]))
            params[index] = param;
    }
    const ObjectHandle component = MakeFilterComponent(document, names, effect);
    component.SetProperty("InstanceName", effect.GetProperty("name"));
    for (const ObjectHandle& param : params)
        component.AddChild("Param", param);
    return component;
}

} // namespace

ObjectHandle MakeTextComponent(Document& document, ObjectHandle effect)
{
    return MakeGraphic(document, kText, kTextClasses, effect);
}

ObjectHandle MakeShapeComponent(Document& document, ObjectHandle effect)
{
    return MakeGraphic(document, kShape, kShapeClasses, effect);
}

} // namespace XPJ
