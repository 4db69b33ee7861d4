// A hash table without a node for each entry: the entries are in one array, and a lookup that finds
// its key at once reads one of them.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace XPJ {

// Entries are found and added, never removed, in no order. What is added moves the others, so a
// pointer to a value is good until then.
//
//   FlatMap<std::string_view, int> numbers;
//   *numbers.Add("one").first = 1;
//   const int* number = numbers.Find("two"); // null
template <class Key, class Value, class Hash = std::hash<Key>>
class FlatMap {
public:
    // Null if the key is not there.
    const Value* Find(const Key& key) const
    {
        if (slots_.empty())
            return nullptr;
        const Slot& slot = slots_[IndexOf(key)];
        return slot.isUsed ? &slot.value : nullptr;
    }
    Value* Find(const Key& key) { return const_cast<Value*>(std::as_const(*this).Find(key)); }
    bool Contains(const Key& key) const { return Find(key) != nullptr; }

    // The value of the key, and true if it was added: it is new then.
    std::pair<Value*, bool> Add(const Key& key)
    {
        if (4 * (size_ + 1) > 3 * slots_.size())
            Grow();
        Slot& slot = slots_[IndexOf(key)];
        const bool isNew = !slot.isUsed;
        if (isNew) {
            slot.key = key;
            slot.isUsed = true;
            ++size_;
        }
        return {&slot.value, isNew};
    }
    // Adds a value unless the key is there.
    bool Add(const Key& key, const Value& value)
    {
        const auto [entry, isNew] = Add(key);
        if (isNew)
            *entry = value;
        return isNew;
    }

    std::size_t Size() const { return size_; }
    // Calls `use(key, value)` for each entry.
    template <class Use>
    void ForEach(const Use& use) const
    {
        for (const Slot& slot : slots_)
            if (slot.isUsed)
                use(slot.key, slot.value);
    }

private:
    struct Slot {
        Key key{};
        Value value{};
        bool isUsed = false;
    };
    static constexpr std::size_t kFirstSlots = 16;

    // The slot of the key, or the free one that it would take. There always is a free one.
    std::size_t IndexOf(const Key& key) const
    {
        // Hashes of numbers are the numbers: the product spreads them.
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
        const std::uint64_t hash = std::uint64_t{Hash()(key)} * kSpread;
        std::size_t index = static_cast<std::size_t>(hash >> (64 - bits_));
        while (slots_[index].isUsed && !(slots_[index].key == key))
            index = (index + 1) & (slots_.size() - 1);
        return index;
    }

    void Grow()
    {
        std::vector<Slot> old(slots_.empty() ? kFirstSlots : 2 * slots_.size());
        old.swap(slots_);
        bits_ = std::countr_zero(slots_.size());
        for (Slot& slot : old)
            if (slot.isUsed)
                slots_[IndexOf(slot.key)] = std::move(slot);
    }

    std::vector<Slot> slots_; // a power of two of them, at most three quarters in use
    int bits_ = 0;            // of an index
    std::size_t size_ = 0;
};

} // namespace XPJ
