#include "import/import_driver.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "import/bins.h"
#include "import/collect.h"
#include "import/item_clips.h"
#include "import/links.h"
#include "import/merge.h"
#include "project/skeleton.h"
#include "import/sequences.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

constexpr int kFirstVersion = 1;
constexpr int kLastVersion = 5;

void CheckVersion(ObjectHandle root, IssueSet& issues)
{
    const int version = IntProperty(root, "version");
    if (version >= kFirstVersion && version <= kLastVersion)
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ImportIssue::UnrecognizedXMLVersion);
    issue.trackKind = kNoTrack;
    issue.time = root.GetProperty("version");
    issues.insert(issue);
}

// What stands in an element itself, as `children` of it would hold it.
ObjectHandle ChildrenOf(Document& document, ObjectHandle element)
{
    const ObjectHandle children = document.NewObject("children");
    for (const ObjectHandle& child : element.GetChildren())
        children.AddChild(child);
    return children;
}

// Documents may hold bins, clips and sequences without a `project` around them.
ObjectHandle MakeProjectAround(Document& document, ObjectHandle root)
{
    const ObjectHandle project = document.NewObject("project");
    project.SetProperty("Name", EscapeXML(GetMessage(Message::kFinalCutProProject)));
    project.AddChild("children", ChildrenOf(document, root));
    return project;
}

// The first `project`; null when the root holds nothing at all.
ObjectHandle ProjectOf(Document& document, ObjectHandle root)
{
    if (const ObjectHandle project = root.GetChild("project")) {
        // Some programs leave the `children` around a project's items out.
        if (!project.GetChild("children") && project.HasChildren())
            project.AddChild("children", ChildrenOf(document, project));
        return project;
    }
    return root.HasChildren() ? MakeProjectAround(document, root) : ObjectHandle();
}

// Null, and true, for a project without `children`. False when cancelled.
bool TranslateRootItem(ImportState& state, ObjectHandle& rootItem)
{
    const ObjectHandle children = state.project.GetChild("children");
    if (!children)
        return true;
    rootItem = state.document.NewObject("RootProjectItem");
    AddUid(rootItem);
    rootItem.SetProperty("ID", "1000000");
    if (!TranslateChildren(state, children, rootItem))
        return false;
    TranslateShownSequences(state, rootItem);
    return true;
}

int TranslateProject(ImportState& state, ObjectHandle project)
{
    StageScope stage(state.progress, 1, 3);
    if (!CollectReferences(state, state.project) || !stage.Step())
        return kAborted;

    AddProjectSettings(state.document, project);
    ObjectHandle rootItem;
    if (!TranslateRootItem(state, rootItem))
        return kAborted;
    project.AddChild(rootItem);
    if (!stage.Step())
        return kAborted;

    MergePass(state, rootItem);
    if (!stage.Step())
        return kAborted;
    LinkPass(state);
    AttachClipIds(state);

    project.SetProperty("NextID", "1000001"); // the root item's is the last one given
    project.SetProperty("NextSequenceID", IntToString(NewSequenceNumber(state)));
    return kSuccess;
}

} // namespace

int ImportDocument(ObjectHandle root, const ImportOptions& options, Progress& progress,
                   Document& document, IssueSet& issues, ObjectHandle& projectDocument,
                   SkippedList* skipped)
{
    CheckVersion(root, issues);

    ImportState state(document, progress, issues);
    state.sn2vlMode = options.sn2vlMode;
    state.aafSupport = options.aafSupport;
    state.settings = options.settings;
    const std::string inputPath = AbsolutePath(options.inputPath);
    state.documentDirectory = FolderOf(inputPath);
    state.lookFiles.emplace(document, state.documentDirectory);
    state.project = ProjectOf(document, root);
    if (!state.project)
        return kNoFCPDataFound;

    const ObjectHandle project = document.NewObject("Project");
    const int result = TranslateProject(state, project);
    if (skipped != nullptr)
        *skipped = std::move(state.skipped);
    if (result != kSuccess)
        return result;
    projectDocument = document.NewObject("Document");
    projectDocument.AddChild(project);
    return kSuccess;
}

} // namespace XPJ
