#include "export/export_driver.h"

#include "core/text.h"
#include "export/bins.h"
#include "export/export_context.h"
#include "export/links.h"

#include <utility>

namespace XPJ::RVX {

namespace {

constexpr int kExpectedVersion = 3;

void CheckVersion(ConstHandle root, IssueSet& issues)
{
    if (IntProperty(root, "Version") == kExpectedVersion)
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ExportIssue::UnrecognizedVelaProVersion);
    issue.trackKind = kNoTrack;
    issue.time = root.GetProperty("Version");
    issues.insert(issue);
}

// `children` stays away when nothing is in it.
void TranslateRootItem(ExportContext& context, ConstHandle rootItem, const Guid& sequenceGuid,
                       ObjectHandle project)
{
    const ObjectHandle children = context.document.NewObject("children");
    CollectProjectItems(context, rootItem);
    if (TranslateItems(context, rootItem, sequenceGuid, children))
        project.AddChild(children);
}

int TranslateProject(ExportContext& context, ConstHandle source, const ExportOptions& options,
                     ObjectHandle& project)
{
    StageScope stage(context.progress, 1, 3);
    if (!stage.Step())
        return kAborted;
    project = context.document.NewObject("project");
    project.SetProperty("name", EscapeXML(options.projectTitle));
    TranslateRootItem(context, source.GetChild("RootProjectItem"), options.sequenceGuid, project);
    if (!stage.Step())
        return kAborted;
    ResolveLinks(context);
    return stage.Step() ? kSuccess : kAborted;
}

} // namespace

int TranslateProjectDocument(ConstHandle root, const ExportOptions& options, Progress& progress,
                             Document& document, IssueSet& issues, ObjectHandle& xmeml,
                             SkippedList* skipped)
{
    CheckVersion(root, issues);
    const ConstHandle source = root.GetChild("Project");
    if (!source)
        return kNoFCPDataFound;

    ExportContext context(document, progress, issues,
                          options.ids ? *options.ids : ProcessIdCounters());
    context.vl2snMode = options.vl2snMode;
    context.inTicks = options.vl2snMode;
    context.exportTransformEffect = options.exportTransformEffect;
    ObjectHandle project;
    const int result = TranslateProject(context, source, options, project);
    if (skipped != nullptr)
        *skipped = std::move(context.skipped);
    if (result != kSuccess)
        return result;
    xmeml = document.NewObject("xmeml");
    xmeml.AddChild(project);
    return kSuccess;
}

} // namespace XPJ::RVX
