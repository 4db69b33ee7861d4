#include "tree/object.h"

#include "core/numbers.h"
#include "core/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <new>
#include <stdexcept>

namespace XPJ {

namespace {

// Identities rise over the process's life; 0 is no node.
std::atomic<std::uint64_t> nextUniqueId{1};

std::uint32_t Size32(std::string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("a value of more than 4 GiB");
    return static_cast<std::uint32_t>(text.size());
}

constexpr std::uint64_t kUniqueIdBits = (std::uint64_t{1} << 47) - 1;
// A feature film has millions of nodes.
static_assert(sizeof(void*) != 8 || (sizeof(Object) == 40 && sizeof(Property) == 16));

constexpr std::size_t SizeOfRun(std::size_t properties)
{
    return properties * sizeof(Property) + sizeof(RunEnd);
}

void FillProperty(Property* place, NameId key, std::string_view value)
{
    new (place) Property{.value = value.data(),
                         .valueSize = Size32(value),
                         .name = key,
                         .isRead = false,
                         .isLastOfRun = false};
}

void EndRun(Property* last)
{
    last->isLastOfRun = true;
    new (last + 1) RunEnd{nullptr};
}

} // namespace

ObjectHandle::Search ObjectHandle::Find(NameId key) const
{
    Property* before = nullptr;
    Property* property = object_->firstProperty;
    while (property && property->name != key) {
        before = property;
        property = property->Next();
    }
    return {property, before};
}

// `last` is the node's last property, null if it has none.
void ObjectHandle::Append(Property* last, NameId key, std::string_view value) const
{
    Arena& nodes = object_->document->nodes_;
    Property* place = nullptr;
    if (last && nodes.Extend(&EndOfRun(last) + 1, sizeof(Property))) {
        last->isLastOfRun = false;
        place = last + 1;
    } else {
        place = static_cast<Property*>(nodes.Allocate(SizeOfRun(1), alignof(Property)));
        (last ? EndOfRun(last).next : object_->firstProperty) = place;
    }
    FillProperty(place, key, value);
    EndRun(place);
}

void ObjectHandle::SetPropertyShared(Name key, std::string_view value) const
{
    if (!object_)
        return;
    const NameId id(key);
    const Search search = Find(id);
    if (!search.found)
        return Append(search.before, id, value);
    search.found->value = value.data();
    search.found->valueSize = Size32(value);
}

void ObjectHandle::AddPropertyShared(Name key, std::string_view value) const
{
    if (!object_)
        return;
    const NameId id(key);
    if (const Search search = Find(id); !search.found)
        Append(search.before, id, value);
}

void ObjectHandle::SetProperty(Name key, std::string_view value) const
{
    if (object_)
        SetPropertyShared(key, object_->document->Store(value));
}

void ObjectHandle::SetNumber(Name key, std::int64_t number) const
{
    if (object_)
        SetPropertyShared(key, object_->document->StoreNumber(number));
}

void ObjectHandle::AddProperty(Name key, std::string_view value) const
{
    if (!object_)
        return;
    const NameId id(key);
    if (const Search search = Find(id); !search.found)
        Append(search.before, id, object_->document->Store(value));
}

void ObjectHandle::RemoveProperty(Name key) const
{
    if (!object_)
        return;
    auto [last, before] = Find(NameId(key));
    if (!last)
        return;
    // Those behind it move up by one, and the last place is given up.
    for (Property* next = last->Next(); next; next = last->Next()) {
        const bool isLastOfRun = last->isLastOfRun;
        *last = *next;
        last->isLastOfRun = isLastOfRun;
        before = last;
        last = next;
    }
    if (!before)
        object_->firstProperty = nullptr;
    else
        EndRun(before);
}

Object* ConstHandle::FindChild(Name name) const
{
    const NameId id(name);
    if (!MayHave(FirstEntry(), id))
        return nullptr;
    for (const ChildEntry* entry = FirstEntry(); entry; entry = entry->next)
        if (entry->name == id) {
            MarkRead(entry->object);
            return entry->object;
        }
    return nullptr;
}

void ObjectHandle::AddChild(Name name, ObjectHandle child) const
{
    if (!object_ || !child)
        return;
    const NameId entryName = name.IsEmpty() ? child.object_->name : NameId(name);
    ChildEntry* const entry =
        new (object_->document->entries_.Allocate(sizeof(ChildEntry), alignof(ChildEntry)))
            ChildEntry{nullptr, child.object_, entryName, 0};
    if (object_->lastChild)
        object_->lastChild->next = entry;
    else
        object_->firstChild = entry;
    object_->lastChild = entry;
    object_->firstChild->namesOfAll |= BitOf(entryName);
}

bool ObjectHandle::RemoveChild(ConstHandle child) const
{
    if (!object_)
        return false;
    ChildEntry* previous = nullptr;
    for (ChildEntry* entry = object_->firstChild; entry; entry = entry->next) {
        if (ConstHandle(entry->object) == child) {
            if (!previous && entry->next)
                entry->next->namesOfAll = entry->namesOfAll;
            (previous ? previous->next : object_->firstChild) = entry->next;
            if (object_->lastChild == entry)
                object_->lastChild = previous;
            return true;
        }
        previous = entry;
    }
    return false;
}

void ObjectHandle::ClearChildren() const
{
    if (object_)
        object_->firstChild = object_->lastChild = nullptr;
}

ObjectHandle Document::NewObject(Name name)
{
    ++nodeCount_;
    const std::uint64_t id = nextUniqueId.fetch_add(1, std::memory_order_relaxed);
    // Cleared first: bit-fields set at once would read new memory, which costs a page two faults.
    auto* const object = new (nodes_.Allocate(sizeof(Object), alignof(Object))) Object{};
    object->document = this;
    object->uniqueId = id & kUniqueIdBits;
    object->name = NameId(name);
    return ObjectHandle(object);
}

ObjectHandle Document::NewObject(Name name, std::initializer_list<NewProperty> properties)
{
    const ObjectHandle node = NewObject(name);
    if (properties.size() == 0)
        return node;
    auto* place =
        static_cast<Property*>(nodes_.Allocate(SizeOfRun(properties.size()), alignof(Property)));
    node.Get()->firstProperty = place;
    for (const NewProperty& property : properties)
        FillProperty(place++, NameId(property.key), property.value);
    EndRun(place - 1);
    return node;
}

void Document::Expect(std::size_t bytes)
{
    constexpr std::size_t kMuch = 4 * kLargeBlock;
    expected_ = bytes;
    if (bytes >= kMuch)
        for (Arena* const arena : {&nodes_, &entries_, &texts_})
            arena->ExpectMuch();
}

std::string_view Document::StoreNumber(std::int64_t number)
{
    const fmt::format_int digits(number);
    return Store({digits.data(), digits.size()});
}

std::string_view Document::Store(std::string_view text)
{
    if (text.empty())
        return std::string_view("");
    char* const copy = AllocateText(text.size());
    std::memcpy(copy, text.data(), text.size());
    return {copy, text.size()};
}

std::string_view Document::Adopt(std::string&& bytes)
{
    adopted_.push_front(std::move(bytes));
    return adopted_.front();
}

// Grows by half on either side, so that falling identities cost no more than rising ones.
void NodeSet::Widen(std::uint64_t word)
{
    if (words_.empty())
        firstWord_ = word;
    if (word < firstWord_) {
        const std::uint64_t first =
            firstWord_ - std::min(firstWord_, firstWord_ - word + words_.size() / 2);
        words_.insert(words_.begin(), firstWord_ - first, 0);
        firstWord_ = first;
    } else {
        words_.resize((word - firstWord_) + (word - firstWord_) / 2 + 1);
    }
}

bool NodeSet::Contains(ConstHandle node) const
{
    const std::uint64_t word = node.UniqueId() / 64;
    if (word < firstWord_ || word - firstWord_ >= words_.size())
        return false;
    return (words_[word - firstWord_] >> node.UniqueId() % 64 & 1) != 0;
}

namespace {

template <class Handle>
Handle Follow(Handle node, std::initializer_list<Name> path)
{
    for (const Name& name : path)
        node = node.GetChild(name);
    return node;
}

} // namespace

ConstHandle FindPath(ConstHandle node, std::initializer_list<Name> path)
{
    return Follow(node, path);
}

ObjectHandle FindPath(ObjectHandle node, std::initializer_list<Name> path)
{
    return Follow(node, path);
}

void CopyProperty(ConstHandle from, Name key, ObjectHandle to, Name newKey)
{
    if (from.HasProperty(key))
        to.SetPropertyShared(newKey, from.GetProperty(key));
}

int IntProperty(ConstHandle node, Name key)
{
    return ParseInt(node.GetProperty(key));
}

int IntProperty(ConstHandle node, Name key, int missing)
{
    return HasValue(node, key) ? IntProperty(node, key) : missing;
}

std::int64_t Int64Property(ConstHandle node, Name key)
{
    return ParseInt64(node.GetProperty(key));
}

double DoubleProperty(ConstHandle node, Name key)
{
    return ParseDouble(node.GetProperty(key));
}

bool IsTrue(ConstHandle node, Name key)
{
    return EqualsIgnoreCase(node.GetProperty(key), "true");
}

bool HasValue(ConstHandle node, Name key)
{
    return !node.GetProperty(key).empty();
}

} // namespace XPJ
