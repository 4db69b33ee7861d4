// Nodes of a document by type and id, and the references to them that wait for the document's end.
#pragma once

#include "core/text_hash.h"
#include "tree/object.h"

#include <string>
#include <string_view>
#include <vector>

#include <tsl/robin_map.h>

namespace XPJ {

// Ids must live as long as the table.
class IdTable {
public:
    explicit IdTable(Document& document);

    bool Contains(Name type, std::string_view id) const
    {
        return nodes_.contains({id, NameId(type)});
    }

    // A node whose key is taken by another one is given a new id, "x_1" for a second "x", also as
    // its property "id", and both nodes are described on the standard output.
    void Add(Name type, std::string_view id, ObjectHandle node);

    void AddReference(Name type, std::string_view id, ObjectHandle referrer, Name childName);

    // Adds each reference's target to its referrer, in the order in which they were recorded; a
    // reference without target leaves nothing.
    void BindReferences();

private:
    struct Key {
        std::string_view id;
        NameId type;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const
        {
            // Few nodes of different types share an id.
            return TextHash()(key.id) + key.type.Index();
        }
    };
    struct Reference {
        Key target;
        ObjectHandle referrer;
        NameId childName;
    };

    std::string FreeId(const Key& taken);

    Document& document_;
    tsl::robin_map<Key, ObjectHandle, KeyHash> nodes_;
    // The number that the last duplicate of an id was given.
    tsl::robin_map<Key, int, KeyHash> lastNumbers_;
    std::vector<Reference> references_;
};

} // namespace XPJ
