// The tree that every reader, translator and writer works on.
//
// A node has a name, properties (text to text) and ordered named children. One `Document` owns the
// arena in which its nodes and values live; an `ObjectHandle` is a plain pointer into it, a
// `ConstHandle` one that only reads. Trees may share nodes and hold cycles. Every document of a
// conversion lives to the conversion's end, the nodes of its source until they are translated.
//
//   Document document;
//   ObjectHandle marker = document.NewObject("Marker");
//   marker.SetProperty("Name", "Slate");
//   sequence.AddChild("Marker", marker);
//   for (const ObjectHandle& track : sequence.GetChildren("track")) ...
#pragma once

#include "core/name.h"
#include "core/name_id.h"
#include "tree/arena.h"

#include <cstdint>
#include <cstring>
#include <forward_list>
#include <initializer_list>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

class Document;
class ConstHandle;
class ObjectHandle;

// The properties of a node are runs of neighbours in memory: what is set one after the other while
// nothing else is made is one run. Behind the last of a run is the `RunEnd`.
struct Property {
    const char* value;
    std::uint32_t valueSize;
    NameId name;
    mutable bool isRead; // see Document::MarkReads
    bool isLastOfRun;

    std::string_view NameView() const { return name.View(); }
    std::string_view Value() const { return {value, valueSize}; }
    // Null for the last one of the node.
    Property* Next();
    const Property* Next() const { return const_cast<Property*>(this)->Next(); }
};

struct RunEnd {
    Property* next; // the first of the next run
};

inline RunEnd& EndOfRun(Property* last)
{
    return *std::launder(reinterpret_cast<RunEnd*>(last + 1));
}

inline Property* Property::Next()
{
    return isLastOfRun ? EndOfRun(this).next : this + 1;
}

// The properties of a node, in order of insertion.
class PropertyRange {
public:
    class Iterator {
    public:
        explicit Iterator(const Property* property) : property_(property) {}
        const Property& operator*() const { return *property_; }
        Iterator& operator++()
        {
            property_ = property_->Next();
            return *this;
        }
        bool operator!=(const Iterator& other) const { return property_ != other.property_; }

    private:
        const Property* property_;
    };

    explicit PropertyRange(const Property* first) : first_(first) {}
    Iterator begin() const { return Iterator(first_); }
    Iterator end() const { return Iterator(nullptr); }

private:
    const Property* first_;
};

struct Object;

// A property for a new node. The value lives as long as the document.
struct NewProperty {
    Name key;
    std::string_view value;
};

struct ChildEntry {
    ChildEntry* next;
    Object* object;
    NameId name;
    std::uint32_t namesOfAll; // of the first entry: the bits of the names of all, see MayHave
};

constexpr std::uint32_t BitOf(NameId name)
{
    return std::uint32_t{1} << name.Index() % 32;
}

// False if no entry from the node's first one on has the name. Most that is searched for is not
// there, and entries needn't be looked at to know it.
inline bool MayHave(const ChildEntry* first, NameId name)
{
    return first && (first->namesOfAll & BitOf(name)) != 0;
}

struct Object {
    Document* document;
    Property* firstProperty;
    ChildEntry* firstChild;
    ChildEntry* lastChild;
    std::uint64_t uniqueId : 47;
    mutable std::uint64_t isRead : 1; // see Document::MarkReads
    NameId name;
};

// Have the processor load a node and what lies behind or before it while others are used: a large
// tree fits no cache. In a tree that was read, what is in a node lies behind it; translations make
// what is in a node first.
constexpr int kPrefetched = 512; // bytes
constexpr int kCacheLine = 64;

inline void PrefetchBehind(const Object* node)
{
    for (int offset = 0; offset < kPrefetched; offset += kCacheLine)
        __builtin_prefetch(reinterpret_cast<const char*>(node) + offset);
}

inline void PrefetchBefore(const Object* node)
{
    for (int offset = 0; offset < kPrefetched; offset += kCacheLine)
        __builtin_prefetch(reinterpret_cast<const char*>(node) - offset);
}

// Records that someone has looked the node up by its name, or the property, if the document is to
// record it.
void MarkRead(const Object* object);
void MarkRead(const Object* owner, const Property* property);

// The children of a node, all or those of one name. Appending while walking is allowed: the walk
// then comes to what was appended.
template <class Handle>
class BasicChildRange {
public:
    class Iterator {
    public:
        Iterator(ChildEntry* entry, std::optional<NameId> filter) : entry_(entry), filter_(filter)
        {
            Skip();
        }
        Handle operator*() const
        {
            if (filter_)
                MarkRead(entry_->object);
            return Handle(entry_->object);
        }
        // The name under which the child is entered.
        std::string_view EntryName() const { return entry_->name.View(); }
        NameId EntryId() const { return entry_->name; }
        Iterator& operator++()
        {
            entry_ = entry_->next;
            Skip();
            if (entry_ && entry_->next)
                PrefetchBehind(entry_->next->object);
            return *this;
        }
        bool operator!=(const Iterator& other) const { return entry_ != other.entry_; }

    private:
        void Skip()
        {
            while (filter_ && entry_ && entry_->name != *filter_)
                entry_ = entry_->next;
        }
        ChildEntry* entry_;
        std::optional<NameId> filter_;
    };

    explicit BasicChildRange(ChildEntry* first) : first_(first) {}
    BasicChildRange(ChildEntry* first, Name name)
        : first_(MayHave(first, NameId(name)) ? first : nullptr), filter_(NameId(name))
    {
    }
    Iterator begin() const { return {first_, filter_}; }
    Iterator end() const { return {nullptr, std::nullopt}; }

private:
    ChildEntry* first_;
    std::optional<NameId> filter_;
};

using ChildRange = BasicChildRange<ObjectHandle>;
using ConstChildRange = BasicChildRange<ConstHandle>;

// A non-owning handle that only reads, as those of documents being translated are. Through a null
// handle everything is empty.
class ConstHandle {
public:
    ConstHandle() = default;
    explicit ConstHandle(Object* object) : object_(object) {}

    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const ConstHandle& a, const ConstHandle& b) = default;

    // The element's name, or the class name of a node that a translator made.
    Name GetName() const { return object_ ? object_->name.AsName() : Name(); }
    // Whether someone has looked the node up; see Document::MarkReads.
    bool IsRead() const { return object_ && object_->isRead; }
    // Identity over the process's life; 0 for a null handle.
    std::uint64_t UniqueId() const { return object_ ? object_->uniqueId : 0; }

    // The value, the empty text if the key is absent. The text lives as long as the document.
    std::string_view GetProperty(Name key) const
    {
        const Property* const property = FindProperty(key);
        return property ? property->Value() : std::string_view();
    }
    bool HasProperty(Name key) const { return FindProperty(key) != nullptr; }
    bool HasProperties() const { return object_ && object_->firstProperty; }
    PropertyRange Properties() const
    {
        return PropertyRange(object_ ? object_->firstProperty : nullptr);
    }

    // The first child of that name, null if there is none.
    ConstHandle GetChild(Name name) const { return ConstHandle(FindChild(name)); }
    bool HasChild(Name name) const { return FindChild(name) != nullptr; }
    bool HasChildren() const { return object_ && object_->firstChild; }
    ConstChildRange GetChildren() const { return ConstChildRange(FirstEntry()); }
    ConstChildRange GetChildren(Name name) const { return {FirstEntry(), name}; }

protected:
    Property* FindProperty(Name key) const
    {
        if (!object_)
            return nullptr;
        const NameId id(key);
        for (Property* property = object_->firstProperty; property; property = property->Next())
            if (property->name == id) {
                MarkRead(object_, property);
                return property;
            }
        return nullptr;
    }
    Object* FindChild(Name name) const;
    ChildEntry* FirstEntry() const { return object_ ? object_->firstChild : nullptr; }

    Object* object_ = nullptr;
};

// A non-owning handle that reads and writes. Writes through a null handle do nothing.
class ObjectHandle : public ConstHandle {
public:
    using ConstHandle::ConstHandle;
    Object* Get() const { return object_; }

    // Inserts or replaces; the value is copied into the document.
    void SetProperty(Name key, std::string_view value) const;
    // The same with the digits of a number.
    void SetNumber(Name key, std::int64_t number) const;
    // Inserts; a present value stays.
    void AddProperty(Name key, std::string_view value) const;
    // Like the two above for a value that lives as long as the document: nothing is copied.
    void SetPropertyShared(Name key, std::string_view value) const;
    void AddPropertyShared(Name key, std::string_view value) const;
    void RemoveProperty(Name key) const;

    ObjectHandle GetChild(Name name) const { return ObjectHandle(FindChild(name)); }
    // Appends. An empty name means the child's own; a null child is not added.
    void AddChild(Name name, ObjectHandle child) const;
    void AddChild(ObjectHandle child) const { AddChild(Name(), child); }
    ChildRange GetChildren() const { return ChildRange(FirstEntry()); }
    ChildRange GetChildren(Name name) const { return {FirstEntry(), name}; }
    // Removes the first entry that leads to `child`; false if there is none.
    bool RemoveChild(ConstHandle child) const;
    void ClearChildren() const;

private:
    friend class Document;

    struct Search {
        Property* found;  // null if there is none
        Property* before; // its predecessor, or else the last property; null if there is none
    };
    Search Find(NameId key) const;
    void Append(Property* last, NameId key, std::string_view value) const;
};

// Owns nodes, names and values. Not for use by two threads at once.
class Document {
public:
    Document() = default;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    ObjectHandle NewObject(Name name);
    // With properties, no two of one key: none is looked up, as those that are set later are.
    //   document.NewObject("Marker", {{"Type", "Comment"}, {"Duration", document.StoreNumber(5)}})
    ObjectHandle NewObject(Name name, std::initializer_list<NewProperty> properties);
    // The tree will be about that of a text of `bytes`.
    void Expect(std::size_t bytes);
    std::size_t Expected() const { return expected_; }
    // How many nodes were made.
    std::size_t NodeCount() const { return nodeCount_; }
    // A copy of `text` that lives as long as the document.
    std::string_view Store(std::string_view text);
    // The digits of a number.
    std::string_view StoreNumber(std::int64_t number);
    // Memory for a text that lives as long as the document.
    char* AllocateText(std::size_t size)
    {
        return static_cast<char*>(texts_.Allocate(size, alignof(char)));
    }
    // From now on each node and each property that is looked up by its name is marked, so that
    // what nobody has looked at can be found afterwards. A walk over all children or properties
    // marks nothing.
    void MarkReads() { marksReads_ = true; }
    bool MarksReads() const { return marksReads_; }
    // Frees the nodes, which nobody may use any more; texts stay.
    void FreeNodes()
    {
        nodes_.Clear();
        entries_.Clear();
    }
    // The document keeps `bytes` (a file's text, into which values point) to its end.
    std::string_view Adopt(std::string&& bytes);

private:
    friend class ObjectHandle;

    Arena nodes_{&ahead_}; // with their properties
    Arena entries_;        // apart, so that a search among children reads neighbours
    Arena texts_;
    std::forward_list<std::string> adopted_; // a list node each: short texts don't move
    std::size_t expected_ = 0;
    std::size_t nodeCount_ = 0;
    bool marksReads_ = false;
    PagesAhead ahead_; // ends before the memory that it prepares is freed
};

inline void MarkRead(const Object* object)
{
    if (object->document->MarksReads())
        object->isRead = 1;
}

inline void MarkRead(const Object* owner, const Property* property)
{
    if (owner->document->MarksReads())
        property->isRead = true;
}

// A set of nodes by identity, one bit a node: for walks that take each node once.
class NodeSet {
public:
    // True when the node was not in the set yet.
    bool Insert(ConstHandle node)
    {
        const std::uint64_t word = node.UniqueId() / 64;
        if (word - firstWord_ >= words_.size()) // also when it is before the first
            Widen(word);
        std::uint64_t& bits = words_[word - firstWord_];
        const std::uint64_t bit = std::uint64_t{1} << node.UniqueId() % 64;
        const bool isNew = (bits & bit) == 0;
        bits |= bit;
        return isNew;
    }
    bool Contains(ConstHandle node) const;
    void Clear() { words_.clear(); }

private:
    void Widen(std::uint64_t word);

    std::uint64_t firstWord_ = 0;
    std::vector<std::uint64_t> words_;
};

// The node at the end of a path of first children, null at the first miss.
//   FindPath(clip, {"media", "video", "track"})
ConstHandle FindPath(ConstHandle node, std::initializer_list<Name> path);
ObjectHandle FindPath(ObjectHandle node, std::initializer_list<Name> path);

// Copies a property under a new name, if it is there.
void CopyProperty(ConstHandle from, Name key, ObjectHandle to, Name newKey);

int IntProperty(ConstHandle node, Name key);
// `missing` if the property is absent or empty.
int IntProperty(ConstHandle node, Name key, int missing);
std::int64_t Int64Property(ConstHandle node, Name key);
double DoubleProperty(ConstHandle node, Name key);
// True when the value is "true" in any case.
bool IsTrue(ConstHandle node, Name key);
// True when the property is there and not empty.
bool HasValue(ConstHandle node, Name key);

} // namespace XPJ
