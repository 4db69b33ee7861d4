#include "import/merge.h"

#include "import/merged_master.h"
#include "import/project_items.h"
#include "platform/platform.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace XPJ {

namespace {

constexpr std::string_view kMergedLabel = "BE.Prefs.LabelColors.1";

// Parts of merged clips by merge id, in track order.
class Candidates {
public:
    Candidates(const ImportState& state, ObjectHandle rootItem)
    {
        const std::string_view rootName = rootItem.GetProperty("Name");
        NodeSet seen;
        for (const ObjectHandle& master : state.masterClips.Entries()) {
            const std::string_view mergeId = master.GetProperty("FCPMergedMasterClipID");
            const std::string_view name = master.GetProperty("Name");
            const bool isRoot = !name.empty() && name == rootName;
            if (!mergeId.empty() && !isRoot && seen.Insert(master))
                Add(byMergeId_[mergeId], master);
        }
    }

    std::vector<ObjectHandle> Of(std::string_view mergeId)
    {
        std::vector<ObjectHandle> masters = std::move(byMergeId_[mergeId].masters);
        std::ranges::stable_sort(masters, {}, [](ObjectHandle master) {
            return IntProperty(master, "FCPMergedTrackOrderIndex");
        });
        return masters;
    }

private:
    struct Group {
        std::vector<ObjectHandle> masters;
        std::set<std::pair<std::string_view, std::string_view>> seen; // name, file id
    };

    // One master stands for each file of one name.
    static void Add(Group& group, ObjectHandle master)
    {
        if (group.seen
                .emplace(master.GetProperty("Name"), master.GetProperty("FCPMergedMasterFileID"))
                .second)
            group.masters.push_back(master);
    }

    std::unordered_map<std::string_view, Group> byMergeId_;
};

// The project items of the parts, which leave their bins when all is merged.
class RetiredItems {
public:
    explicit RetiredItems(ObjectHandle rootItem) : rootItem_(rootItem) {}

    void Add(ObjectHandle master) { masters_.Insert(master); }

    void RemoveFromBins()
    {
        std::vector<ObjectHandle> open{rootItem_};
        while (!open.empty()) {
            const ObjectHandle bin = open.back();
            open.pop_back();
            CleanBin(bin);
            for (const ObjectHandle& item : bin.GetChildren("ProjectItem"))
                if (item.GetName() == "BinProjectItem")
                    open.push_back(item);
        }
    }

private:
    bool IsRetired(ObjectHandle item) const
    {
        return masters_.Contains(item.GetChild("MasterClip"));
    }

    void CleanBin(ObjectHandle bin) const
    {
        std::vector<ObjectHandle> kept;
        bool isClean = true;
        for (const ObjectHandle& item : bin.GetChildren("ProjectItem"))
            if (IsRetired(item))
                isClean = false;
            else
                kept.push_back(item);
        if (isClean)
            return;
        bin.ClearChildren();
        for (const ObjectHandle& item : kept)
            bin.AddChild("ProjectItem", item);
    }

    ObjectHandle rootItem_;
    NodeSet masters_;
};

void PlaceMergedItem(ImportState& state, ObjectHandle merged, ObjectHandle rootItem)
{
    const ObjectHandle item = state.document.NewObject("ClipProjectItem");
    AddUid(item);
    item.SetPropertyShared("Name", merged.GetProperty("Name"));
    item.SetPropertyShared("Column.PropertyText.Label", kMergedLabel);
    item.AddChild("MasterClip", merged);
    rootItem.AddChild("ProjectItem", item);
}

// The host selects the parts of a merged clip together.
void JoinSelection(const std::vector<ObjectHandle>& components)
{
    const std::string instance = NewGuidText();
    for (const ObjectHandle& component : components)
        for (const ObjectHandle& clip : component.GetChildren("Clip"))
            clip.AddProperty("BE.MasterClip.SelectionInstance", instance);
}

void RetireComponents(const std::vector<ObjectHandle>& components, RetiredItems& retired)
{
    for (const ObjectHandle& component : components) {
        component.SetProperty("Name", std::string(component.GetProperty("Name")) + "_IGNORE");
        retired.Add(component);
    }
}

} // namespace

void MergePass(ImportState& state, ObjectHandle rootItem)
{
    Candidates candidates(state, rootItem);
    RetiredItems retired(rootItem);
    for (const std::string_view mergeId : state.mergedClipIds.InOrder()) {
        const std::vector<ObjectHandle> components = candidates.Of(mergeId);
        const ObjectHandle merged =
            components.size() < 2 ? ObjectHandle() : BuildMergedMaster(state, components);
        if (merged) {
            PlaceMergedItem(state, merged, rootItem);
            JoinSelection(components);
            RetireComponents(components, retired);
        }
        PlaceHeldBackItems(state, mergeId);
    }
    retired.RemoveFromBins();
}

} // namespace XPJ
