// Trees for tests, written as nested literals.
//
//   Document document;
//   ObjectHandle bin = Build(document, {"bin", {{"name", "Rushes"}}, {{"children"}}});
#pragma once

#include "tree/object.h"

#include <string>
#include <vector>

namespace XPJ {

struct TreeProperty {
    Name key;
    std::string value;
};

struct Tree {
    Name name;
    std::vector<TreeProperty> properties = {};
    std::vector<Tree> children = {};
};

inline ObjectHandle Build(Document& document, const Tree& tree)
{
    const ObjectHandle node = document.NewObject(tree.name);
    for (const auto& [key, value] : tree.properties)
        node.SetProperty(key, value);
    for (const Tree& child : tree.children)
        node.AddChild(Build(document, child));
    return node;
}

// The names of the entries of a node's children, "bin bin sequence".
inline std::string ChildNames(ObjectHandle node)
{
    std::string names;
    const ChildRange children = node.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child)
        names.append(names.empty() ? "" : " ").append(child.EntryName());
    return names;
}

} // namespace XPJ
