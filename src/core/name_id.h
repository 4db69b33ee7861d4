// Names as small numbers, which is what nodes hold and compare. A name has the same number for the
// process's life.
#pragma once

#include "core/name.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace XPJ {

class NameId {
public:
    // Of the empty name.
    constexpr NameId() = default;
    // Safe on several threads. Throws std::length_error once there are 65,536 names.
    explicit NameId(Name name);

    std::string_view View() const;
    Name AsName() const { return Name::OfStatic(View()); }
    // Small: names are numbered as they come.
    constexpr std::size_t Index() const { return index_; }

    friend constexpr bool operator==(NameId a, NameId b) = default;

private:
    friend class NameTable;
    std::uint16_t index_ = 0;
};

// All names. Most are literals, of which the linker leaves one each, so a name is found by its
// address; by its text only the first time.
class NameTable {
public:
    static NameId IdOf(Name name)
    {
        std::size_t at = FirstSlot(name.Text());
        for (std::size_t i = 0; i < kProbes; ++i, at = (at + 1) % kSlots) {
            const Slot& slot = slots_[at];
            const char* const text = slot.text.load(std::memory_order_acquire);
            if (text == name.Text() && slot.size == name.Size())
                return slot.id;
            if (!text)
                break;
        }
        return Enter(name);
    }
    static std::string_view TextOf(NameId id) { return texts_[id.index_]; }

private:
    // A slot is written once, its text last.
    struct Slot {
        std::atomic<const char*> text = nullptr;
        std::uint32_t size = 0;
        NameId id;
    };
    static constexpr std::size_t kSlots = 8192;
    static constexpr std::size_t kProbes = 8;
    static constexpr std::size_t kMostNames = std::size_t{1} << 16;

    static std::size_t FirstSlot(const char* text)
    {
        const auto address = reinterpret_cast<std::uintptr_t>(text);
        return (address ^ address >> 13) % kSlots;
    }
    static NameId Enter(Name name);
    static NameId IdOfText(std::string_view text);

    static std::array<Slot, kSlots> slots_;
    static std::array<std::string_view, kMostNames> texts_;
};

inline NameId::NameId(Name name) : NameId(NameTable::IdOf(name)) {}

inline std::string_view NameId::View() const
{
    return NameTable::TextOf(*this);
}

// What some names mean; any other name means Value().
//   static const ValuesByName<Kind> kKinds({{"bin", Kind::Bin}, {"clip", Kind::Clip}});
//   switch (kKinds[name]) ...
template <class Value>
class ValuesByName {
public:
    struct Row {
        Name name;
        Value value;
    };

    explicit ValuesByName(std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            const std::size_t index = NameId(row.name).Index();
            if (index >= values_.size())
                values_.resize(index + 1);
            values_[index] = row.value;
        }
    }

    Value operator[](NameId name) const
    {
        return name.Index() < values_.size() ? values_[name.Index()] : Value();
    }

private:
    std::vector<Value> values_;
};

} // namespace XPJ
