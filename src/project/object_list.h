// The objects of a project document: their order, numbers and GUIDs.
#pragma once

#include "project/class_text.h"
#include "tree/node_table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

inline const ChildEntry* FirstEntry(ObjectHandle node)
{
    return node ? node.Get()->firstChild : nullptr;
}

// The first child entered under the name; null if there is none.
inline ObjectHandle FirstChild(ObjectHandle node, NameId name)
{
    if (!MayHave(FirstEntry(node), name))
        return {};
    for (const ChildEntry* entry = FirstEntry(node); entry; entry = entry->next)
        if (entry->name == name)
            return ObjectHandle(entry->object);
    return {};
}

// Calls `use` for each child entered under the name.
template <class Use>
void ForEachChild(ObjectHandle node, NameId name, Use use)
{
    if (!MayHave(FirstEntry(node), name))
        return;
    for (const ChildEntry* entry = FirstEntry(node); entry; entry = entry->next)
        if (entry->name == name)
            use(ObjectHandle(entry->object));
}

// Calls `use` for each child that a step mentions by number.
template <class Use>
void ForEachNumbered(const WriteStep& step, ObjectHandle node, Use use)
{
    if (step.kind == RowKind::Reference) {
        if (const ObjectHandle child = FirstChild(node, step.name))
            use(child);
    } else {
        const bool isDirect = step.via == NameId();
        ForEachChild(isDirect ? node : FirstChild(node, step.via), step.name, use);
    }
}

// All objects in the order in which they are written. What is generated for a document is generated
// when its objects are collected, in their order; after that several threads may look it up.
class ObjectList {
public:
    ObjectList();

    // Numbers the objects below `document`, children before parents.
    void Collect(ObjectHandle document);

    const ClassText& TextOf(ObjectHandle object) const;
    // 0 for a node that is no numbered object.
    std::uint32_t NumberOf(ConstHandle node) const;
    // The `uid`, or the GUID that was generated for a node without one.
    std::string_view GuidOf(ConstHandle node) const;
    // The GUID under which a marker's record states its color.
    std::string_view ColorGuidOf(ConstHandle marker) const;

    const std::vector<ObjectHandle>& Numbered() const { return numbered_; }
    const std::vector<ObjectHandle>& WithGuid() const { return withGuid_; }
    // Of the document node itself.
    const std::vector<WriteStep>& DocumentSteps() const { return document_; }

private:
    struct ObjectClass {
        explicit ObjectClass(const ProjectClass& row);

        ClassText text;
        std::vector<const WriteStep*> numbered; // mention objects by number
        std::vector<const WriteStep*> guids;    // mention GUIDs
    };
    // What is kept of each node, so it is little: its number, or one of these.
    using NumberRecord = std::uint32_t;
    static constexpr NumberRecord kNotVisited = 0;
    static constexpr NumberRecord kVisited = 0xFFFFFFFF;
    struct Visit {
        ObjectHandle node;
        const ChildEntry* next;
        const ObjectClass* objectClass;
    };

    const ObjectClass* ClassOf(NameId name)
    {
        const std::size_t index = name.Index();
        return index < classes_.size() && classes_[index] ? classes_[index]->get() : AddClass(name);
    }
    const ObjectClass* AddClass(NameId name);
    std::optional<Visit> Enter(ObjectHandle node);
    void Leave(const Visit& visit);
    void Number(const WriteStep& step, ObjectHandle node);
    void GenerateGuids(ObjectHandle node);
    void GenerateGuid(ObjectHandle node);

    const std::vector<WriteStep> document_;
    NodeTable<NumberRecord> numbers_;
    // By the index of a name, of those that were met; null for a class that has no objects and
    // leads to none.
    std::vector<std::optional<std::unique_ptr<const ObjectClass>>> classes_;
    std::vector<ObjectHandle> numbered_;     // the object numbered N is at N - 1
    std::vector<ObjectHandle> mentionGuids_; // those of `numbered_` that do
    std::vector<ObjectHandle> withGuid_;
    std::unordered_map<std::uint64_t, std::string> guids_;      // by node, of those without `uid`
    std::unordered_map<std::uint64_t, std::string> colorGuids_; // by marker
};

} // namespace XPJ
