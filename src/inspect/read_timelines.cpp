#include "inspect/read_timelines.h"

#include <cstddef>

namespace XPJ::Inspection {

namespace {

Project ReadWithNodes(ConstHandle root, const TreeReading& reading, std::vector<ConstHandle>& nodes)
{
    return root.GetName() == "VelaData" ? ReadProjectTimelines(root, nodes)
                                        : ReadXmemlTimelines(root, reading, nodes);
}

} // namespace

Project TimelinesOfTree(ConstHandle root, const TreeReading& reading)
{
    std::vector<ConstHandle> nodes;
    return ReadWithNodes(root, reading, nodes);
}

std::vector<ListedSequence> ListSequences(ConstHandle root)
{
    std::vector<ConstHandle> nodes;
    const Project project = ReadWithNodes(root, {}, nodes);
    std::vector<ListedSequence> listed;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        listed.push_back({project.sequences[i].name, project.sequences[i].id, nodes[i]});
    return listed;
}

} // namespace XPJ::Inspection
