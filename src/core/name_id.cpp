#include "core/name_id.h"

#include <mutex>
#include <stdexcept>
#include <unordered_map>

namespace XPJ {

namespace {

std::mutex entering;

} // namespace

constinit std::array<NameTable::Slot, NameTable::kSlots> NameTable::slots_;
constinit std::array<std::string_view, NameTable::kMostNames> NameTable::texts_;

NameId NameTable::Enter(Name name)
{
    if (name.IsEmpty())
        return {};
    const std::lock_guard lock(entering);
    const NameId id = IdOfText(name.View());
    std::size_t at = FirstSlot(name.Text());
    for (std::size_t i = 0; i < kProbes; ++i, at = (at + 1) % kSlots) {
        Slot& slot = slots_[at];
        if (slot.text.load(std::memory_order_relaxed))
            continue;
        slot.size = name.Size();
        slot.id = id;
        slot.text.store(name.Text(), std::memory_order_release);
        break;
    }
    return id;
}

NameId NameTable::IdOfText(std::string_view text)
{
    // Destroyed when the library is unloaded.
    static std::unordered_map<std::string_view, NameId> ids;
    const auto [entry, isNew] = ids.try_emplace(text);
    if (!isNew)
        return entry->second;
    if (ids.size() >= kMostNames) {
        ids.erase(entry);
        throw std::length_error("more than 65,535 names");
    }
    entry->second.index_ = static_cast<std::uint16_t>(ids.size());
    texts_[ids.size()] = text;
    return entry->second;
}

} // namespace XPJ
