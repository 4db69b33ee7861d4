// What nobody has looked at in a tree whose document marks what is read.
#pragma once

#include "tree/object.h"

#include <functional>
#include <span>

namespace XPJ {

// From the root to the owner of a property, or of a child node.
using TreePath = std::span<const ConstHandle>;

// Calls `visit` for each property with a value, and for each child with content, that was not
// looked up, in document order; nothing inside such a child is visited. `isExempt` decides by its
// name what doesn't count. A node counts as looked up when something of its own was. Each node is
// taken once, where the walk first meets it.
void ForEachUnread(ConstHandle root, const std::function<bool(TreePath, Name)>& isExempt,
                   const std::function<void(TreePath, Name)>& visit);

} // namespace XPJ
