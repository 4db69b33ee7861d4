// Tables of texts that documents choose.
//
// The hash has a key of the process's own. Without it, a document can be made whose texts all have
// the same hash, and each look-up becomes a search through all of them.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace XPJ {

// Differs from process to process.
struct TextHash {
    std::size_t operator()(std::string_view text) const noexcept;
};

// `Text` is the type of the keys: views live elsewhere, strings in the table.
template <class Value, class Text = std::string_view>
using TextMap = std::unordered_map<Text, Value, TextHash>;
template <class Text = std::string_view>
using TextSet = std::unordered_set<Text, TextHash>;

} // namespace XPJ
