// A walk over all of a tree, with the path to each node.
#pragma once

#include "tree/object.h"

#include <span>
#include <vector>

namespace XPJ {

// From the root to a node.
using TreePath = std::span<const ConstHandle>;

// Calls `enters` with the path to each node, once where the walk first meets it: parents before
// children, in the order of the document. Where it gives false the walk passes over what is inside.
// With a stack of its own: trees are as deep as documents nest.
template <class Enters>
void WalkTree(ConstHandle root, Enters enters)
{
    const ConstChildRange::Iterator end = ConstChildRange(nullptr).end();
    NodeSet visited;
    std::vector<ConstHandle> path;
    std::vector<ConstChildRange::Iterator> next; // the next child of each node of the path
    const auto take = [&](ConstHandle node) {
        path.push_back(node);
        if (visited.Insert(node) && enters(TreePath(path)))
            next.push_back(node.GetChildren().begin());
        else
            path.pop_back();
    };
    if (root)
        take(root);
    while (!next.empty()) {
        if (next.back() != end) {
            const ConstHandle child = *next.back();
            ++next.back();
            take(child);
        } else {
            next.pop_back();
            path.pop_back();
        }
    }
}

} // namespace XPJ
