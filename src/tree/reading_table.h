// What a document may hold: one rule an element kind, made from the rows of a table.
//
// A row names, by words with blanks between:
//   items       leaf elements whose text becomes a property of the node
//   children    rules of the elements that become child nodes
//   references  self-closed elements that lead to a node elsewhere in the document
// Everything else is transparent: an element unknown to a rule has no node, and what it holds is
// offered to the rule itself.
#pragma once

#include "tree/object.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

struct RuleRow {
    std::string_view rule; // unique in its grammar
    std::string_view tag;  // what the document says; two rules may share one
    std::string_view items;
    std::string_view children;
    std::string_view references;
};

// What a rule does with a start tag.
struct Action {
    enum Kind : std::uint16_t { Ignore, Item, Child, Reference };
    Kind kind = Ignore;
    std::uint16_t rule = 0; // of Child
};

struct Rule {
    std::string_view name;
    Name tag;
    std::uint16_t index = 0;
    Name textProperty;            // keeps the element's own text; empty: nothing does
    std::vector<Name> attributes; // kept as properties
    std::vector<Action> actions;  // by tag number
};

// Number 0 is every tag that no rule knows.
using TagNumber = std::uint16_t;

class ReadingTable {
public:
    // The first row is that of the node above the document element, the second that of the document
    // element. A word of `children` without a row of that name throws.
    explicit ReadingTable(std::span<const RuleRow> rows);

    void AddItems(std::string_view rule, std::span<const Name> items);
    void AddAttributes(std::string_view rule, std::string_view words);
    void AddAttributes(std::string_view rule, std::span<const Name> names);
    void KeepText(std::string_view rule, Name property);

    const Rule& Root() const { return rules_[0]; }
    const Rule& DocumentElement() const { return rules_[1]; }
    const Rule& RuleAt(std::uint16_t index) const { return rules_[index]; }
    // Throws for a name without a row.
    const Rule& FindRule(std::string_view name) const;
    std::span<const Rule> Rules() const { return rules_; }
    // All tags of elements, in order of first mention; the tag of number n stands at n - 1.
    std::span<const Name> Tags() const { return tags_; }
    Name TagName(TagNumber number) const { return tags_[number - 1u]; }

    TagNumber FindTag(std::string_view tag) const
    {
        for (std::size_t slot = FirstSlot(tag); slots_[slot] != 0; slot = (slot + 1) % kSlots)
            if (tags_[slots_[slot] - 1u] == tag)
                return slots_[slot];
        return 0;
    }

private:
    static constexpr std::size_t kSlots = 2048;

    // A few characters tell the tags of a grammar apart well enough.
    static std::size_t FirstSlot(std::string_view tag)
    {
        std::uint32_t hash = static_cast<std::uint32_t>(tag.size());
        if (!tag.empty()) {
            const std::size_t last = tag.size() - 1;
            for (const std::size_t i : {std::size_t{0}, last / 4, last / 2, last - last / 4, last})
                hash = hash * 0x01000193u ^ static_cast<unsigned char>(tag[i]);
        }
        return (hash ^ hash >> 15) % kSlots;
    }

    Rule& MutableRule(std::string_view name);
    TagNumber AddTag(std::string_view tag);
    void SetAction(Rule& rule, std::string_view tag, Action action);

    std::vector<Rule> rules_;
    std::unordered_map<std::string_view, std::uint16_t> ruleNumbers_;
    std::vector<Name> tags_;
    std::array<TagNumber, kSlots> slots_{};
};

} // namespace XPJ
