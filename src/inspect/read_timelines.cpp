#include "inspect/read_timelines.h"

#include <cstddef>

namespace XPJ::Inspection {

namespace {

Project ReadWithNodes(ConstHandle root, std::string_view folder, bool isHandOff,
                      std::vector<ConstHandle>& nodes)
{
    return root.GetName() == "VelaData" ? ReadProjectTimelines(root, nodes)
                                        : ReadXmemlTimelines(root, folder, isHandOff, nodes);
}

} // namespace

Project TimelinesOfTree(ConstHandle root, std::string_view folder, bool isHandOff)
{
    std::vector<ConstHandle> nodes;
    return ReadWithNodes(root, folder, isHandOff, nodes);
}

std::vector<ListedSequence> ListSequences(ConstHandle root)
{
    std::vector<ConstHandle> nodes;
    const Project project = ReadWithNodes(root, {}, false, nodes);
    std::vector<ListedSequence> listed;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        listed.push_back({project.sequences[i].name, project.sequences[i].id, nodes[i]});
    return listed;
}

} // namespace XPJ::Inspection
