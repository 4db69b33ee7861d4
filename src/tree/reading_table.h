// What a reader takes of a document: one rule for each kind of element.
//
//   leaves      elements whose text becomes a property of the node
//   children    rules of the elements that become child nodes
//   references  self-closed elements that lead to a node elsewhere in the document
// Everything else is transparent: an element unknown to a rule has no node, and its content is
// offered to the rule itself. Of two entries of one tag in a rule a child precedes a leaf, and a
// leaf a reference.
//
// The elements of a rule that is a part belong to what is around them: they are read into its node.
//   rules     {"Clip", leaves "Gain", children "part"}, {"part", leaves "InPoint"}
//   element   <Clip><part><InPoint>5</InPoint></part><Gain>1</Gain></Clip>
//   node      Clip, InPoint="5" Gain="1"
#pragma once

#include "tree/object.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// What becomes of an element of a rule.
enum class NodeKind : std::uint8_t {
    Child,    // a node of its own, entered in the one around it
    Part,     // shares the node around it; a second part of the same name there doesn't count
    Detached, // a node of its own that only the vocabulary's hooks see
};

// A rule as the table of a vocabulary describes it.
struct RuleSource {
    std::string name;                       // unique in its table
    Name tag;                               // two rules may share one
    std::vector<std::string> children = {}; // names of rules
    std::vector<Name> leaves = {};
    std::vector<Name> references = {};
    std::vector<Name> attributes = {}; // kept as properties
    Name text = {};                    // property that keeps the element's own text
    NodeKind nodeKind = NodeKind::Child;
    Name key = {}; // for the hooks of the vocabulary
};

// What a rule does with a start tag. A higher kind precedes a lower one.
struct Action {
    enum Kind : std::uint16_t { Ignore, Reference, Leaf, Child };
    Kind kind = Ignore;
    std::uint16_t rule = 0; // of Child
};

struct Rule {
    std::string name;
    Name tag;
    std::uint16_t index = 0;
    Name textProperty; // keeps the element's own text; empty: nothing does
    NodeKind nodeKind = NodeKind::Child;
    std::uint64_t partBit = 0; // distinguishes parts; 0 if it is none
    Name key;
    std::vector<Name> attributes;
    std::vector<Action> actions; // by tag number
};

// Number 0 is every tag that no rule knows.
using TagNumber = std::uint16_t;

class ReadingTable {
public:
    // The first rule is that of the node above the document element, the second that of the
    // document element. Two rules of one name, a child without a rule, and more than 64 parts
    // throw.
    explicit ReadingTable(std::span<const RuleSource> sources);

    const Rule& Root() const { return rules_[0]; }
    const Rule& DocumentElement() const { return rules_[1]; }
    const Rule& RuleAt(std::uint16_t index) const { return rules_[index]; }
    // Throws for a name without a rule.
    const Rule& FindRule(const std::string& name) const;
    std::span<const Rule> Rules() const { return rules_; }
    // All tags of elements, in order of first mention; the tag of number n is at n - 1.
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

    // A few characters are enough to distinguish the tags of a vocabulary.
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

    void AddRule(const RuleSource& source);
    TagNumber AddTag(std::string_view tag);
    void AddAction(Rule& rule, std::string_view tag, Action action);

    std::vector<Rule> rules_;
    std::unordered_map<std::string, std::uint16_t> ruleNumbers_;
    std::uint64_t nextPartBit_ = 1;
    std::vector<Name> tags_;
    std::array<TagNumber, kSlots> slots_{};
};

} // namespace XPJ
