#include "frame/sequence_choice.h"

#include "core/numbers.h"
#include "inspect/read_timelines.h"

#include <utility>
#include <vector>

#include <fmt/format.h>

namespace XPJ {

namespace {

using Inspection::ListedSequence;

// Their places in the list.
std::vector<std::size_t> FindByText(const std::vector<ListedSequence>& sequences,
                                    std::string_view wanted)
{
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < sequences.size(); ++i)
        if (sequences[i].name == wanted || sequences[i].id == wanted)
            found.push_back(i);
    return found;
}

std::size_t NumberIn(std::string_view text)
{
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789") == text.npos;
    return isNumber ? static_cast<std::size_t>(ParseInt64(text)) : 0;
}

std::string NumbersText(const std::vector<std::size_t>& places)
{
    std::string text;
    for (const std::size_t place : places)
        text += fmt::format("{}{}", text.empty() ? "" : ", ", place + 1);
    return text;
}

ListedChoice ChooseListed(const std::vector<ListedSequence>& sequences, std::string_view wanted)
{
    const std::vector<std::size_t> found = FindByText(sequences, wanted);
    if (found.size() == 1)
        return {found.front(), {}};
    if (found.size() > 1)
        return {Inspection::kNothing, fmt::format("it holds {} sequences {}, of the numbers {}",
                                                  found.size(), wanted, NumbersText(found))};
    const std::size_t number = NumberIn(wanted);
    if (number >= 1 && number <= sequences.size())
        return {number - 1, {}};
    return {Inspection::kNothing, fmt::format("it holds no sequence {}", wanted)};
}

// The node of the tree that can be changed.
ObjectHandle FindNode(ObjectHandle root, ConstHandle wanted)
{
    NodeSet visited;
    std::vector<ObjectHandle> open = {root};
    while (!open.empty()) {
        const ObjectHandle node = open.back();
        open.pop_back();
        if (node == wanted)
            return node;
        if (visited.Insert(node))
            for (const ObjectHandle& child : node.GetChildren())
                open.push_back(child);
    }
    return {};
}

} // namespace

SequenceChoice ChooseSequence(ConstHandle root, std::string_view wanted)
{
    const std::vector<ListedSequence> sequences = Inspection::ListSequences(root);
    ListedChoice choice = ChooseListed(sequences, wanted);
    if (choice.index == Inspection::kNothing)
        return {{}, std::move(choice.problem)};
    return {sequences[choice.index].node, {}};
}

ListedChoice ChooseListed(const std::vector<Inspection::Sequence>& sequences,
                          std::string_view wanted)
{
    std::vector<ListedSequence> listed;
    listed.reserve(sequences.size());
    for (const Inspection::Sequence& sequence : sequences)
        listed.push_back({sequence.name, sequence.id, {}});
    return ChooseListed(listed, wanted);
}

void KeepOnlySequence(ObjectHandle xmeml, ConstHandle sequence)
{
    const ObjectHandle chosen = FindNode(xmeml, sequence);
    const ObjectHandle project = xmeml.GetChild("project");
    const ObjectHandle children = project.GetChild("children");
    xmeml.ClearChildren();
    if (!project) {
        xmeml.AddChild(chosen);
        return;
    }
    xmeml.AddChild(project);
    project.ClearChildren();
    if (children) {
        project.AddChild(children);
        children.ClearChildren();
    }
    (children ? children : project).AddChild(chosen);
}

} // namespace XPJ
