// Rows of a constexpr table by their name, as a hash table that the compiler fills.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace XPJ {

// Two rows of one name do not compile.
//   constexpr NameIndex kIndex(kRows);   // const Row kRows[], with Row::name a string_view
//   const Row* row = kIndex.Find("rate");
template <class Row, std::size_t Count>
class NameIndex {
public:
    consteval explicit NameIndex(const Row (&rows)[Count]) : rows_(rows)
    {
        for (std::size_t i = 0; i < Count; ++i) {
            std::size_t slot = FirstSlot(rows[i].name);
            for (; slots_[slot] != 0; slot = (slot + 1) % kSlots)
                if (rows[slots_[slot] - 1].name == rows[i].name)
                    throw "two rows of one name";
            slots_[slot] = static_cast<std::uint16_t>(i + 1);
        }
    }

    // Null if there is no row of that name.
    constexpr const Row* Find(std::string_view name) const
    {
        for (std::size_t slot = FirstSlot(name); slots_[slot] != 0; slot = (slot + 1) % kSlots) {
            const Row& row = rows_[slots_[slot] - 1];
            if (row.name == name)
                return &row;
        }
        return nullptr;
    }

private:
    static constexpr std::size_t kSlots = std::bit_ceil(4 * Count);

    // A few characters are enough to distinguish the names of a vocabulary.
    static constexpr std::size_t FirstSlot(std::string_view name)
    {
        std::uint32_t hash = static_cast<std::uint32_t>(name.size());
        if (!name.empty()) {
            const std::size_t last = name.size() - 1;
            for (const std::size_t i : {std::size_t{0}, last / 4, last / 2, last - last / 4, last})
                hash = hash * 0x01000193u ^ static_cast<unsigned char>(name[i]);
        }
        return (hash ^ hash >> 15) % kSlots;
    }

    const Row* rows_;
    std::array<std::uint16_t, kSlots> slots_{};
};

} // namespace XPJ
