// Where an element of a document is, as remarks name it.
#pragma once

#include "core/account.h"
#include "tree/tree_walk.h"

#include <initializer_list>

namespace XPJ {

// The last element of the path with one of the names; null without one.
ConstHandle Around(TreePath path, std::initializer_list<Name> names);

// Of the element at the end of the path. Texts that the document doesn't have are kept in `texts`.
ItemLocation PlaceOf(TreePath path, TextStore& texts);

} // namespace XPJ
