#include "effects/look_effect.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "effects/look_files.h"
#include "effects/parameters.h"
#include "effects/values.h"
#include "effects/video_component.h"

namespace XPJ {

namespace {

constexpr ComponentNames kLook = {"KX.ORRN Gradiva", "Gradiva"};

constexpr std::string_view kGradingId = "1";
constexpr std::string_view kGradingName = "File Path";
constexpr std::string_view kGradingControl = "10";
constexpr std::string_view kBlobControl = "9";
constexpr std::string_view kEmptyBlob = "/v4=";

// Documents carry no class of a parameter, but the control that shows it. Others are scalars.
constexpr struct {
    int control;
    std::string_view classId;
} kControlClasses[] = {
    {4, kSwitchClass}, {11, kSwitchClass}, {12, kSwitchClass}, {16, kSwitchClass},
    {6, kPointClass},  {7, kChoiceClass},  {10, kChoiceClass}, {8, kSliderClass},
};

std::string_view ClassOfControl(int control)
{
    for (const auto& row : kControlClasses)
        if (row.control == control)
            return row.classId;
    return kScalarClass;
}

bool IsGrading(ObjectHandle parameter)
{
    return parameter.GetProperty("parameterid") == kGradingId;
}

// ---- A file

ObjectHandle FindPathParameter(ObjectHandle effect)
{
    for (const ObjectHandle& parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("name") == "path")
            return parameter;
    return {};
}

// The effect's own name unless that is the name of all looks, else the file's. Entity-escaped.
std::string NameOfLook(ObjectHandle effect, std::string_view path)
{
    const std::string_view name = effect.GetProperty("name");
    if (path.empty() || (!name.empty() && name != kLook.display))
        return std::string(name);
    return EscapeXML(FileNameOf(path));
}

const StoredLook* OpenLook(const EffectContext& context, const std::string& path,
                           std::string_view name)
{
    const StoredLook* const look =
        context.lookFiles ? context.lookFiles->Open(path, UnescapeXML(name)) : nullptr;
    if (!look) {
        EffectContext place = context;
        place.place.clip = path;
        place.AddIssue(ImportIssue::MissingLookLUT);
    }
    return look;
}

ObjectHandle MakeGradingParam(Document& document, const StoredLook& look)
{
    const ObjectHandle param = MakeBlob(document, kGradingName, kGradingId, kGradingControl, "");
    if (!look.base64.empty()) {
        param.SetPropertyShared("StartKeyframeValue", look.base64);
        param.SetPropertyShared("StartKeyframeValueChecksum", look.checksum);
    }
    return param;
}

// ---- Parameters that come back

// Null for a blob without bytes.
ObjectHandle MakeReturningBlob(Document& document, ObjectHandle parameter)
{
    const std::string_view value = PlainValue(parameter);
    if (value.empty() || value == kEmptyBlob)
        return {};
    const bool isGrading = IsGrading(parameter);
    const std::string_view control = parameter.GetProperty("ParameterControlType");
    const std::string_view usualControl = isGrading ? kGradingControl : kBlobControl;
    return MakeBlob(document, isGrading ? kGradingName : parameter.GetProperty("name"),
                    parameter.GetProperty("parameterid"), control.empty() ? usualControl : control,
                    DecodeBase64(value));
}

ObjectHandle CopyLookParam(Document& document, ObjectHandle parameter)
{
    const std::string_view classId = ClassOfControl(IntProperty(parameter, "ParameterControlType"));
    return CopyProjectParam(document, parameter,
                            classId == kPointClass ? Name("PointComponentParam")
                                                   : Name("VideoComponentParam"),
                            classId);
}

ObjectHandle MakeOtherParam(Document& document, ObjectHandle parameter)
{
    const bool isBlob = IsGrading(parameter) || HasValue(parameter, "hash");
    return isBlob ? MakeReturningBlob(document, parameter) : CopyLookParam(document, parameter);
}

void CopyDependencies(Document& document, ObjectHandle effect, ObjectHandle component)
{
    for (const ObjectHandle& stated : effect.GetChildren("dependency")) {
        const ObjectHandle dependency = document.NewObject("Dependency");
        CopyProperty(stated, "tag", dependency, "Tag");
        CopyProperty(stated, "path", dependency, "Path");
        component.AddChild(dependency);
    }
}

} // namespace

ObjectHandle MakeLookComponent(const EffectContext& context, ObjectHandle effect)
{
    Document& document = context.document;
    const ObjectHandle pathParameter = FindPathParameter(effect);
    std::string path;
    if (pathParameter && context.lookFiles)
        path = context.lookFiles->PathOf(PlainValue(pathParameter));
    const std::string name = NameOfLook(effect, path);
    const StoredLook* const look = pathParameter ? OpenLook(context, path, name) : nullptr;
    if (pathParameter && !look)
        return {};

    const ObjectHandle component = MakeFilterComponent(document, kLook, effect);
    component.SetProperty("InstanceName", name);
    CopyDependencies(document, effect, component);
    for (const ObjectHandle& parameter : effect.GetChildren("parameter")) {
        if (look && parameter == pathParameter)
            component.AddChild("Param", MakeGradingParam(document, *look));
        else if (!look || !IsGrading(parameter))
            component.AddChild("Param", MakeOtherParam(document, parameter));
    }
    return component;
}

} // namespace XPJ
