#include "export/export_driver.h"

#include "core/text.h"
#include "export/bins.h"
#include "export/catalogs.h"

namespace XPJ::RVX {

namespace {

constexpr int kExpectedVersion = 3;

void CheckVersion(ConstHandle root, Account& account)
{
    if (IntProperty(root, "Version") == kExpectedVersion)
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ExportIssue::UnrecognizedVelaProVersion);
    issue.trackKind = kNoTrack;
    issue.time = root.GetProperty("Version");
    AddIssue(account, Direction::Export, issue);
}

// `children` is not written when nothing is in it.
void TranslateRootItem(ExportContext& context, Catalogs& catalogs, ConstHandle rootItem,
                       ObjectHandle project)
{
    const ObjectHandle children = context.document.NewObject("children");
    CollectBrowserItems(context.document, rootItem, catalogs.masters);
    if (TranslateItems(context, catalogs, rootItem, children))
        project.AddChild(children);
}

// To the letter a project is named by whoever asks for the document; else by the one it came from.
std::string_view NameOf(const ExportOptions& options, ConstHandle source)
{
    return options.settings.openInterchange && HasValue(source, "Project.Name")
               ? source.GetProperty("Project.Name")
               : options.projectTitle;
}

void ReportName(ExportContext& context, ConstHandle source, std::string_view written)
{
    const std::string_view name = source.GetProperty("Project.Name");
    if (!name.empty() && EscapeXML(name) != written)
        AddRemark(context.account, RemarkKind::ProjectRenamed, {}, {.name = name});
}

int TranslateProject(ExportContext& context, Progress& progress, ConstHandle source,
                     ObjectHandle& project)
{
    StageScope stage(progress, 1, 3);
    if (!stage.Step())
        return kAborted;
    project = context.document.NewObject("project");
    project.SetProperty("name", EscapeXML(NameOf(context.options, source)));
    ReportName(context, source, project.GetProperty("name"));
    Catalogs catalogs;
    TranslateRootItem(context, catalogs, source.GetChild("RootProjectItem"), project);
    if (!stage.Step())
        return kAborted;
    catalogs.links.WriteLinks(context);
    return stage.Step() ? kSuccess : kAborted;
}

} // namespace

int TranslateProjectDocument(ConstHandle root, const ExportOptions& options, Progress& progress,
                             Document& document, Account& account, ObjectHandle& xmeml)
{
    CheckVersion(root, account);
    const ConstHandle source = root.GetChild("Project");
    if (!source)
        return kNoFCPDataFound;

    ExportContext context{.document = document,
                          .account = account,
                          .options = options,
                          .ids = options.ids ? *options.ids : ProcessIdCounters()};
    ObjectHandle project;
    const int result = TranslateProject(context, progress, source, project);
    if (result != kSuccess)
        return result;
    xmeml = document.NewObject("xmeml");
    xmeml.AddChild(project);
    return kSuccess;
}

} // namespace XPJ::RVX
