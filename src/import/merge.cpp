#include "import/merge.h"

#include "core/text_hash.h"
#include "import/merged_master.h"
#include "import/project_items.h"
#include "project/labels.h"
#include "project/objects.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

constexpr std::string_view kMergedLabel = "BE.Prefs.LabelColors.1";

// Parts of merged clips by merge id, in track order.
class Candidates {
public:
    explicit Candidates(const MasterCatalog& masters)
    {
        NodeSet seen;
        for (const MasterClipHandle& master : masters.registry.Entries())
            if (const MergeComponent* const component = masters.ComponentOf(master);
                component && seen.Insert(master))
                Add(byMergeId_[component->mergeId], *component);
    }

    MergeComponents Of(std::string_view mergeId)
    {
        MergeComponents components = std::move(byMergeId_[mergeId].components);
        std::ranges::stable_sort(components, {}, &MergeComponent::order);
        return components;
    }

private:
    struct Group {
        MergeComponents components;
        std::set<std::pair<std::string_view, std::string_view>> seen; // name, file id
    };

    // One master represents each file of one name.
    static void Add(Group& group, const MergeComponent& component)
    {
        if (group.seen.emplace(component.master.GetProperty("Name"), component.fileId).second)
            group.components.push_back(component);
    }

    TextMap<Group> byMergeId_;
};

void AddMergedItem(Document& document, MasterClipHandle merged, ObjectHandle rootItem)
{
    const ObjectHandle item = document.NewObject("ClipProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", merged.GetProperty("Name"));
    item.SetPropertyShared(kItemLabel.color, kMergedLabel);
    item.AddChild("MasterClip", merged);
    rootItem.AddChild("Item", item);
}

// The host selects the parts of a merged clip together.
void JoinSelection(const MergeComponents& components)
{
    const std::string instance = NewGuidText();
    for (const MergeComponent& component : components)
        for (const ObjectHandle& clip : component.master.GetChildren("Clip"))
            clip.AddProperty("BE.MasterClip.SelectionInstance", instance);
}

void ReplaceComponents(const MergeComponents& components, NodeSet& replaced)
{
    for (const MergeComponent& component : components) {
        component.master.SetProperty("Name",
                                     std::string(component.master.GetProperty("Name")) + "_IGNORE");
        replaced.Insert(component.master);
    }
}

// On a merged clip whose part was in a bin.
void RemarkOnMove(ImportState& state, std::string_view mergeId, const NodeSet& replaced,
                  ObjectHandle rootItem)
{
    for (const DeferredItem& item : state.masters.DeferredItems(mergeId))
        if (replaced.Contains(item.master) && item.parentItem != rootItem) {
            AddRemark(state.account, RemarkKind::MergedClipMoved,
                      {.clip = item.clip.GetProperty("name"), .bin = item.bin});
            return;
        }
}

// Takes the project items of parts out of their bins when all is merged: the first one of each
// part. Further clips of the same media stay.
class PartRemoval {
public:
    PartRemoval(ImportState& state, const NodeSet& parts) : state_(state), parts_(parts) {}

    void Run(ObjectHandle rootItem)
    {
        std::vector<Bin> open{{rootItem, {}}};
        while (!open.empty()) {
            const Bin bin = open.back();
            open.pop_back();
            CleanBin(bin);
            const std::size_t first = open.size();
            for (const ObjectHandle& item : bin.item.GetChildren("Item"))
                if (item.GetName() == "BinProjectItem")
                    open.push_back(
                        {item, PathOfBin(state_.document, bin.path, item.GetProperty("Name"))});
            std::reverse(open.begin() + static_cast<std::ptrdiff_t>(first), open.end());
        }
    }

private:
    struct Bin {
        ObjectHandle item;
        std::string_view path;
    };

    void CleanBin(const Bin& bin)
    {
        std::vector<ObjectHandle> kept;
        bool isClean = true;
        for (const ObjectHandle& item : bin.item.GetChildren("Item")) {
            const ObjectHandle master = item.GetChild("MasterClip");
            if (parts_.Contains(master) && removed_.Insert(master)) {
                isClean = false;
                AddRemark(state_.account, RemarkKind::MergedClipPart,
                          {.clip = item.GetProperty("Name"), .bin = bin.path});
            } else {
                kept.push_back(item);
            }
        }
        if (isClean)
            return;
        bin.item.ClearChildren();
        for (const ObjectHandle& item : kept)
            bin.item.AddChild("Item", item);
    }

    ImportState& state_;
    const NodeSet& parts_;
    NodeSet removed_;
};

} // namespace

void MergePass(ImportState& state, ObjectHandle rootItem)
{
    Candidates candidates(state.masters);
    NodeSet replaced;
    for (const std::string_view mergeId : state.masters.MergeIds()) {
        const MergeComponents components = candidates.Of(mergeId);
        const MasterClipHandle merged =
            components.size() < 2 ? MasterClipHandle() : BuildMergedMaster(state, components);
        if (merged) {
            AddMergedItem(state.document, merged, rootItem);
            JoinSelection(components);
            ReplaceComponents(components, replaced);
            RemarkOnMove(state, mergeId, replaced, rootItem);
        }
        AddDeferredItems(state, mergeId, replaced);
    }
    PartRemoval(state, replaced).Run(rootItem);
}

} // namespace XPJ
