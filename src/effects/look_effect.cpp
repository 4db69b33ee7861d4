#include "effects/look_effect.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "effects/kept_params.h"
#include "effects/values.h"
#include "grading/look.h"
#include "platform/files.h"
#include "project/accessors.h"

#include <optional>
#include <string>

namespace XPJ {

namespace {

// ---- Files

// Enough for the text of a table with 256 entries an axis.
constexpr std::size_t kMaxFileSize = std::size_t{512} << 20;
// Nothing as short as that is a look.
constexpr std::size_t kMaxEmptySize = 10;

std::optional<CGrading> ReadLook(const std::string& path, const std::string& name,
                                 const std::string& bytes)
{
    if (bytes.size() <= kMaxEmptySize)
        return {};
    return EqualsIgnoreCase(ExtensionOf(path), "look") ? ReadLookDocument(bytes, name)
                                                       : ReadLookupTable(bytes, name);
}

constexpr std::string_view kGradingId = "1";
constexpr std::string_view kGradingName = "File Path";
constexpr std::string_view kGradingControl = "10";
constexpr std::string_view kBlobControl = "9";

bool IsGrading(ConstHandle parameter)
{
    return parameter.GetProperty("parameterid") == kGradingId;
}

// ---- A look that is named by its file

ConstHandle FindPathParameter(ConstHandle effect)
{
    for (const ConstHandle parameter : effect.GetChildren("parameter"))
        if (parameter.GetProperty("name") == "path")
            return parameter;
    return {};
}

// The effect's own name unless that is the name of all looks, else the file's. Entity-escaped.
std::string NameOfLook(const EffectRow& row, ConstHandle effect, std::string_view path)
{
    const std::string_view name = effect.GetProperty("name");
    if (path.empty() || (!name.empty() && name != row.project.display))
        return std::string(name);
    return EscapeXML(FileNameOf(path));
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

ObjectHandle MakeReturningParam(Document& document, ConstHandle parameter)
{
    if (IsGrading(parameter))
        return MakeKeptBlob(document, parameter, kGradingName, kGradingControl);
    if (HasValue(parameter, "hash"))
        return MakeKeptBlob(document, parameter, parameter.GetProperty("name"), kBlobControl);
    // Documents carry no class of a parameter, but the control that shows it.
    return MakeKeptParam(document, parameter,
                         ClassOfControl(IntProperty(parameter, "ParameterControlType")));
}

void CopyDependencies(Document& document, ConstHandle effect, ObjectHandle component)
{
    for (const ConstHandle stated : effect.GetChildren("dependency")) {
        const ObjectHandle dependency = document.NewObject("Dependency");
        CopyProperty(stated, "tag", dependency, "Tag");
        CopyProperty(stated, "path", dependency, "Path");
        component.AddChild(dependency);
    }
}

} // namespace

std::string LookFiles::PathOf(std::string_view documentText) const
{
    return PathFromUrl(UnescapeXML(documentText), folder_);
}

const StoredLook* LookFiles::Open(const std::string& path, const std::string& name)
{
    const auto known = looks_.find({path, name});
    if (known != looks_.end())
        return &known->second;
    const std::optional<std::string> bytes = ReadRegularFile(path, kMaxFileSize);
    if (!bytes)
        return nullptr;
    StoredLook& look = looks_[{path, name}];
    if (const std::optional<CGrading> grading = ReadLook(path, name, *bytes)) {
        const std::string text = Serialize(*grading);
        look.base64 = document_.Adopt(EncodeBase64(text));
        look.checksum = document_.Adopt(UintToString(BlobChecksum(text)));
    }
    return &look;
}

bool LookToProject(const EffectContext& context, const EffectRow& row, ConstHandle effect,
                   Components& components)
{
    Document& document = context.document;
    const ConstHandle pathParameter = FindPathParameter(effect);
    std::string path;
    if (pathParameter && context.lookFiles)
        path = context.lookFiles->PathOf(PlainValue(pathParameter));
    const std::string name = NameOfLook(row, effect, path);
    const StoredLook* look = nullptr;
    if (pathParameter && context.lookFiles)
        look = context.lookFiles->Open(path, UnescapeXML(name));
    if (pathParameter && !look) {
        context.AddMissingLook(effect, path);
        return false;
    }
    if (look && look->base64.empty())
        context.AddRemark(RemarkKind::LookUnreadable, effect, FileNameOf(path));

    const ObjectHandle component = MakeFilterComponent(document, row.project, effect);
    component.SetProperty("InstanceName", name);
    CopyDependencies(document, effect, component);
    for (const ConstHandle parameter : effect.GetChildren("parameter")) {
        if (look && parameter == pathParameter)
            component.AddChild("Param", MakeGradingParam(document, *look));
        else if (!look || !IsGrading(parameter))
            component.AddChild("Param", MakeReturningParam(document, parameter));
    }
    components.push_back(component);
    return true;
}

void LookToXmeml(const EffectContext& context, const EffectRow& row, ConstHandle component,
                 ObjectHandle effect)
{
    XmemlEffect head = row.xmeml;
    head.name = component.GetProperty("InstanceName");
    KeepParams(context, head, component, effect);
    for (const ConstHandle stated : DependenciesOf(component)) {
        if (!HasValue(stated, "Tag") || !HasValue(stated, "Path"))
            continue;
        const ObjectHandle dependency = context.document.NewObject("dependency");
        CopyProperty(stated, "Tag", dependency, "tag");
        CopyProperty(stated, "Path", dependency, "path");
        effect.AddChild(dependency);
    }
}

} // namespace XPJ
