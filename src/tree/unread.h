// What nobody has looked at in a tree whose document marks what is read.
#pragma once

#include "core/account.h"
#include "tree/reading.h"
#include "tree/tree_walk.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace XPJ {

// Whether fields of a name in owners of a name count.
enum class Exemption : std::uint8_t { None, Always, ByPlace };

struct UnreadRules {
    // By the names of the owner and of the property or child; found out once for each pair.
    Exemption (*exemptionOf)(Name owner, Name field);
    // For what is exempt by its place; the path ends at the owner.
    bool (*isExempt)(TreePath path, Name field);
    // True for a node in which nothing counts.
    bool (*isSkipped)(ConstHandle node);
    // The place of what the owner at the end of the path holds. Texts that the tree doesn't have
    // are kept in `texts`.
    ItemLocation (*placeOf)(TreePath path, TextStore& texts);
};

// Enters remarks for properties with a value, and children with content, that were not looked up;
// nothing inside such a child counts. They are grouped by the names along their path: the first
// places each, and in the last of them how often there are more. A node counts as looked up when
// something of its own was. Each node is taken once, where the walk first meets it.
void AddUnread(ConstHandle root, const UnreadRules& rules, Account& account);

struct IgnoredRules {
    // Nothing for what is exempt.
    std::optional<RemarkKind> (*kindOf)(std::string_view path);
    ItemLocation (*placeOf)(TreePath path, TextStore& texts); // as above
    // Only what is in the tree counts; else also what a reading of it has removed.
    bool isPart = false;
};

// Enters remarks for what a reader ignored, grouped by path as above.
void AddIgnored(ConstHandle root, const std::vector<IgnoredElements>& ignored,
                const IgnoredRules& rules, Account& account);

} // namespace XPJ
