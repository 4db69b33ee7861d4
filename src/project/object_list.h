// The objects of a project document: their order, numbers and GUIDs.
#pragma once

#include "project/classes.h"
#include "tree/node_table.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// Calls `use` for each child that a row mentions by number.
template <class Use>
void ForEachNumbered(const BodyRow& row, ObjectHandle node, Use use)
{
    if (row.kind == RowKind::Reference) {
        if (const ObjectHandle child = node.GetChild(row.tag))
            use(child);
    } else if (row.kind == RowKind::ReferenceList || row.kind == RowKind::Pairs) {
        const ObjectHandle owner = row.via.IsEmpty() ? node : node.GetChild(row.via);
        for (const ObjectHandle child : owner.GetChildren(row.tag))
            use(child);
    }
}

// All objects in the order in which they are written. What is generated for a document is generated
// when its objects are collected, in their order; after that several threads may look it up.
class ObjectList {
public:
    // Numbers the objects below `document`, children before parents.
    void Collect(ObjectHandle document);

    // 0 for a node that is no numbered object.
    std::uint32_t NumberOf(ConstHandle node) const;
    // The `uid`, or the GUID that was generated for a node without one.
    std::string_view GuidOf(ConstHandle node) const;
    // The GUID under which a marker's record states its color.
    std::string_view ColorGuidOf(ConstHandle marker) const;

    const std::vector<ObjectHandle>& Numbered() const { return numbered_; }
    const std::vector<ObjectHandle>& WithGuid() const { return withGuid_; }
    const ProjectClass& ClassOf(ConstHandle node) const;

private:
    // What is followed in the objects of a class: rows of its body and of the blocks it includes.
    struct ClassLinks {
        const ProjectClass* projectClass = nullptr;
        std::vector<const BodyRow*> numbered; // mention objects by number
        std::vector<const BodyRow*> guids;    // mention GUIDs
    };
    struct NodeRecord {
        const ClassLinks* links = nullptr; // null for a node of no class
        std::uint32_t number = 0;          // 0: not mentioned by number
        bool visited = false;
    };
    struct Visit {
        ObjectHandle node;
        ChildRange::Iterator next;
    };

    static void AddLinks(std::span<const BodyRow> rows, ClassLinks& links);
    const ClassLinks* LinksOf(ConstHandle node);
    std::optional<Visit> Enter(ObjectHandle node);
    void Leave(ObjectHandle node);
    void Number(const ClassLinks& links, ObjectHandle node);
    void GenerateGuids(const ClassLinks& links, ObjectHandle node);
    void GenerateGuid(ObjectHandle node);

    NodeTable<NodeRecord> records_;
    std::unordered_map<const ProjectClass*, ClassLinks> links_;
    std::vector<ObjectHandle> numbered_; // the object numbered N is at N - 1
    std::vector<ObjectHandle> withGuid_;
    std::unordered_map<std::uint64_t, std::string> guids_;      // by node, of those without `uid`
    std::unordered_map<std::uint64_t, std::string> colorGuids_; // by marker
};

} // namespace XPJ
