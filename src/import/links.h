// Links of the project: groups of track items, made from what documents state item by item.
#pragma once

#include "import/catalogs.h"
#include "tree/object.h"
#include "xmeml/links.h"

#include <unordered_map>
#include <vector>

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

    // Of a key that an item has or that a link leads to.
    struct Record {
        ObjectHandle trackItem = {}; // null if none was translated
        bool isGrouped = false;
    };
    struct Group {
        int sequenceNumber = 0;
        std::vector<const Record*> members = {};
    };
    const std::vector<Group>& Groups() const { return groups_; }

private:
    // Of one sequence. Records don't move.
    struct SequenceRecords {
        std::vector<Record> ofItems; // by number in the index
        std::unordered_map<LinkKey, Record, LinkKeyHash> ofOthers;
    };

    Record& RecordOf(const LinkIndex& index, const LinkKey& key);
    // Adds the record to the group, unless one has it already.
    static bool Join(Group& group, Record& record);

    std::unordered_map<int, SequenceRecords> sequences_;
    std::vector<Group> groups_;
};

// Makes the `Link`s of every sequence from the recorded groups.
void LinkPass(Document& document, const LinkRecords& records, const SequenceCatalog& sequences);

} // namespace XPJ
