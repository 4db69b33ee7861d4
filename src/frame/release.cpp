#include "frame/release.h"

#include <algorithm>
#include <vector>

namespace XPJ {

namespace {

// Nodes between two checks for cancellation.
constexpr std::size_t kBatch = 256;

// All that `root` leads to, itself first, each node once and after a parent of its own.
std::vector<ObjectHandle> CollectNodes(ObjectHandle root)
{
    NodeSet seen;
    seen.Insert(root);
    std::vector<ObjectHandle> nodes{root};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        for (const ObjectHandle child : nodes[i].GetChildren())
            if (seen.Insert(child))
                nodes.push_back(child);
    return nodes;
}

} // namespace

int ReleaseTree(ObjectHandle root, Progress& progress)
{
    if (!root)
        return kSuccess;
    StageScope stage(progress, 1, 4);
    const std::vector<ObjectHandle> nodes = CollectNodes(root);
    if (!stage.Step())
        return kAborted;

    StageScope nodeStage(progress, 3, nodes.size());
    for (std::size_t left = nodes.size(); left > 0;) {
        const std::size_t batch = std::min(left, kBatch);
        for (std::size_t i = 0; i < batch; ++i)
            nodes[--left].ClearChildren();
        if (!nodeStage.Step(static_cast<unsigned>(batch)))
            return kAborted;
    }
    return kSuccess;
}

} // namespace XPJ
