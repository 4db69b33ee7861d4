// Links of the project: groups of track items, made from what documents state item by item.
#pragma once

#include "import/catalogs.h"
#include "tree/object.h"
#include "xmeml/links.h"

#include <vector>

#include <tsl/robin_map.h>

namespace XPJ {

struct LinkedItem {
    LinkKey key;
    ObjectHandle trackItem;
};

// The translated items of all sequences and the groups that link them.
class LinkRecords {
public:
    // Enters a translated item and, unless an earlier item did so, the group that its `link`s make.
    // Gives those that lead to no item.
    std::vector<ConstHandle> Add(const LinkIndex& index, ConstHandle item,
                                 const LinkedItem& linked);
    // A group that no `link` states.
    void AddGroup(const std::vector<LinkedItem>& items);

    using Group = std::vector<LinkKey>;
    const std::vector<Group>& Groups() const { return groups_; }
    // Null for an item that was not translated.
    ObjectHandle ItemOf(const LinkKey& key) const;

private:
    // Of a key that an item has or that a link leads to.
    struct Record {
        ObjectHandle trackItem = {};
        bool isGrouped = false;
    };

    // True unless a group has the key already.
    bool MarkGrouped(const LinkKey& key);

    tsl::robin_map<LinkKey, Record, LinkKeyHash> records_;
    std::vector<Group> groups_;
};

// Makes the `Link`s of every sequence from the recorded groups.
void LinkPass(Document& document, const LinkRecords& records, const SequenceCatalog& sequences);

} // namespace XPJ
