#include "frame/release.h"

#include <algorithm>

namespace XPJ {

namespace {

// Nodes between two checks for cancellation.
constexpr std::size_t kBatch = std::size_t{64} * 1024;

} // namespace

int ReleaseTree(const Document& document, Progress& progress)
{
    const std::size_t nodes = document.NodeCount();
    if (nodes == 0)
        return kSuccess;
    StageScope stage(progress, 1, 4);
    if (!stage.Step())
        return kAborted;
    StageScope nodeStage(progress, 3, nodes);
    for (std::size_t left = nodes; left > 0;) {
        const std::size_t batch = std::min(left, kBatch);
        left -= batch;
        if (!nodeStage.Step(static_cast<unsigned>(batch)))
            return kAborted;
    }
    return kSuccess;
}

} // namespace XPJ
