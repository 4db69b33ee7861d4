#include "import/import_driver.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "import/bins.h"
#include "import/collect.h"
#include "import/import_state.h"
#include "import/links.h"
#include "import/merge.h"
#include "import/sequence_walk.h"
#include "project/objects.h"
#include "project/skeleton.h"

#include <string>

namespace XPJ {

namespace {

constexpr int kFirstVersion = 1;
constexpr int kLastVersion = 5;

void CheckVersion(ConstHandle root, Account& account)
{
    const int version = IntProperty(root, "version");
    if (version >= kFirstVersion && version <= kLastVersion)
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ImportIssue::UnrecognizedXMLVersion);
    issue.trackKind = kNoTrack;
    issue.time = root.GetProperty("version");
    AddIssue(account, Direction::Import, issue);
}

// The bins, clips and sequences of a document: those of its first `project`, which may be without
// a `children` around them, else of the document itself. Null when there are none.
ConstHandle EntriesOf(ConstHandle root)
{
    const ConstHandle project = root.GetChild("project");
    if (const ConstHandle children = project.GetChild("children"))
        return children;
    const ConstHandle container = project ? project : root;
    return container.HasChildren() ? container : ConstHandle();
}

bool IsEntry(ConstHandle node)
{
    const Name name = node.GetName();
    return name == "bin" || name == "clip" || name == "sequence";
}

void RemarkOnOutside(Account& account, ConstHandle node, std::string_view path)
{
    if (node.GetName() == "project")
        AddRemark(account, RemarkKind::ProjectSecond, {},
                  {.name = node.GetProperty("name"), .path = "xmeml/project"});
    else if (IsEntry(node))
        AddRemark(
            account, RemarkKind::OutsideProject, {},
            {.name = node.GetProperty("name"), .detail = node.GetName().View(), .path = path});
}

// On what is beside the entries that are translated. In open interchange nothing is.
void RemarkOnOtherEntries(Account& account, ConstHandle root)
{
    const ConstHandle project = root.GetChild("project");
    if (!project)
        return;
    for (const ConstHandle& child : root.GetChildren())
        if (child != project)
            RemarkOnOutside(account, child, "xmeml");
    const ConstHandle children = project.GetChild("children");
    if (!children)
        return;
    for (const ConstHandle& child : project.GetChildren()) {
        RemarkOnOutside(account, child, "xmeml/project");
        if (child.GetName() == "children" && child != children)
            for (const ConstHandle& entry : child.GetChildren())
                RemarkOnOutside(account, entry, "xmeml/project/children");
    }
}

// Null, and true, for a project without entries. False when cancelled.
bool TranslateRootItem(ImportState& state, ConstHandle entries, ObjectHandle& rootItem)
{
    if (!entries)
        return true;
    rootItem = state.document.NewObject("RootProjectItem");
    AddUid(rootItem);
    rootItem.SetPropertyShared("ID", "1000000");
    if (!TranslateEntries(state, entries, rootItem))
        return false;
    TranslateShownSequences(state, rootItem);
    return true;
}

// To the letter a project has no name but that of its file.
void KeepName(const ImportState& state, ConstHandle stated, ObjectHandle project)
{
    if (state.options.settings.openInterchange && HasValue(stated, "name"))
        project.SetPropertyShared("Project.Name", stated.GetProperty("name"));
}

int TranslateProject(ImportState& state, ConstHandle root, ObjectHandle project)
{
    const ConstHandle stated = root.GetChild("project");
    StageScope stage(state.progress, 1, 3);
    if (!CollectReferences(state, stated ? stated : root) || !stage.Step())
        return kAborted;

    RemarkOnOtherEntries(state.account, root);
    AddProjectSettings(state.document, project);
    KeepName(state, stated, project);
    ObjectHandle rootItem;
    if (!TranslateRootItem(state, EntriesOf(root), rootItem))
        return kAborted;
    project.AddChild(rootItem);
    if (!stage.Step())
        return kAborted;

    MergePass(state, rootItem);
    if (!stage.Step())
        return kAborted;
    LinkPass(state.document, state.links, state.sequences);
    state.masters.AttachClipIds();

    project.SetPropertyShared("NextID", "1000001"); // the root item's is the last one given
    project.SetProperty("NextSequenceID", IntToString(state.sequences.NextNumber()));
    return kSuccess;
}

} // namespace

int ImportDocument(ConstHandle root, const ImportOptions& options, Progress& progress,
                   Document& document, Account& account, ObjectHandle& projectDocument)
{
    CheckVersion(root, account);
    if (!root.HasChildren())
        return kNoFCPDataFound;

    const std::string inputPath = AbsolutePath(options.inputPath);
    ImportState state{.document = document,
                      .progress = progress,
                      .account = account,
                      .options = options,
                      .folder = std::string(FolderOf(inputPath))};
    const ObjectHandle project = document.NewObject("Project");
    const int result = TranslateProject(state, root, project);
    if (result != kSuccess)
        return result;
    projectDocument = document.NewObject("Document");
    projectDocument.AddChild(project);
    return kSuccess;
}

} // namespace XPJ
