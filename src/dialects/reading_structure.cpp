#include "dialects/reading_structure.h"

#include "xmeml/tracks.h"

#include <vector>

namespace XPJ {

namespace {

bool IsEntry(ConstHandle node)
{
    const Name name = node.GetName();
    return name == "bin" || name == "clip" || name == "sequence";
}

// The entries in `container`, those of its `children` in their place.
void AddEntries(ObjectHandle container, std::vector<ObjectHandle>& entries)
{
    for (const ObjectHandle& child : container.GetChildren())
        if (child.GetName() == "children")
            for (const ObjectHandle& entry : child.GetChildren())
                entries.push_back(entry);
        else if (IsEntry(child))
            entries.push_back(child);
}

bool HasStrays(ConstHandle container)
{
    int lists = 0;
    bool isStray = false;
    for (const ConstHandle& child : container.GetChildren()) {
        lists += child.GetName() == "children" ? 1 : 0;
        isStray = isStray || IsEntry(child);
    }
    return lists > 1 || isStray;
}

// Makes `entries` all that is in `container`.
void SetEntries(DialectPass& pass, ObjectHandle container, const std::vector<ObjectHandle>& entries)
{
    std::vector<ObjectHandle> removed;
    for (const ObjectHandle& child : container.GetChildren())
        if (IsEntry(child) || child.GetName() == "children")
            removed.push_back(child);
    for (const ObjectHandle& child : removed)
        container.RemoveChild(child);
    const ObjectHandle children = AddNew(pass.Nodes(), container, "children");
    for (const ObjectHandle& entry : entries)
        children.AddChild(entry);
}

// True when something had to be moved.
bool TakeIn(DialectPass& pass, ObjectHandle container)
{
    if (!HasStrays(container))
        return false;
    std::vector<ObjectHandle> entries;
    AddEntries(container, entries);
    SetEntries(pass, container, entries);
    return true;
}

// One project holds all.
bool JoinProjects(DialectPass& pass)
{
    const ObjectHandle project = pass.Root().GetChild("project");
    std::vector<ObjectHandle> entries;
    bool isAlone = true;
    for (const ObjectHandle& child : pass.Root().GetChildren()) {
        if (child.GetName() == "project")
            AddEntries(child, entries);
        else if (IsEntry(child))
            entries.push_back(child);
        isAlone =
            isAlone && (child == project || !(child.GetName() == "project" || IsEntry(child)));
    }
    if (!project || isAlone)
        return false;
    std::vector<ObjectHandle> joined;
    for (const ObjectHandle& child : pass.Root().GetChildren())
        if (child != project && (child.GetName() == "project" || IsEntry(child)))
            joined.push_back(child);
    for (const ObjectHandle& child : joined)
        pass.Root().RemoveChild(child);
    SetEntries(pass, project, entries);
    pass.Assume(project.GetProperty("name"));
    return true;
}

bool CollectItems(DialectPass& pass, ObjectHandle group)
{
    std::vector<ObjectHandle> items;
    for (const ObjectHandle& child : group.GetChildren())
        if (IsTrackItem(child))
            items.push_back(child);
    if (items.empty())
        return false;
    const ObjectHandle track = AddNew(pass.Nodes(), group, "track");
    for (const ObjectHandle& item : items) {
        group.RemoveChild(item);
        track.AddChild(item);
    }
    pass.Assume({});
    return true;
}

} // namespace

void TakeInStrays(DialectPass& pass)
{
    bool hasChanged = JoinProjects(pass);
    for (const ObjectHandle& container : pass.Parts().bins)
        if (container.GetName() == "bin")
            hasChanged = TakeIn(pass, container) || hasChanged;
    if (const ObjectHandle project = pass.Root().GetChild("project"); project.HasChild("children"))
        hasChanged = TakeIn(pass, project) || hasChanged;
    for (const std::vector<ObjectHandle>* const owners :
         {&pass.Parts().sequences, &pass.Parts().clips})
        for (const ObjectHandle& owner : *owners)
            for (const Name type : {Name("video"), Name("audio")})
                hasChanged =
                    CollectItems(pass, owner.GetChild("media").GetChild(type)) || hasChanged;
    if (hasChanged)
        pass.PartsChanged();
}

} // namespace XPJ
