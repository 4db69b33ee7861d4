#include "tree/reading_table.h"

#include <stdexcept>
#include <string>

namespace XPJ {

ReadingTable::ReadingTable(std::span<const RuleSource> sources)
{
    for (const RuleSource& source : sources)
        AddRule(source);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        for (const std::string& name : sources[i].children) {
            const Rule& child = FindRule(name);
            AddAction(rules_[i], child.tag.View(), {Action::Child, child.index});
        }
        for (const Name& leaf : sources[i].leaves)
            AddAction(rules_[i], leaf.View(), {Action::Leaf});
        for (const Name& reference : sources[i].references)
            AddAction(rules_[i], reference.View(), {Action::Reference});
    }
    for (Rule& rule : rules_)
        rule.actions.resize(tags_.size() + 1);
}

void ReadingTable::AddRule(const RuleSource& source)
{
    const auto index = static_cast<std::uint16_t>(rules_.size());
    if (!ruleNumbers_.emplace(source.name, index).second)
        throw std::logic_error("two rules named " + source.name);
    Rule& rule = rules_.emplace_back();
    rule.name = source.name;
    rule.tag = source.tag;
    rule.index = index;
    rule.textProperty = source.text;
    rule.nodeKind = source.nodeKind;
    rule.key = source.key;
    rule.attributes = source.attributes;
    if (rule.nodeKind != NodeKind::Part)
        return;
    if (nextPartBit_ == 0)
        throw std::logic_error("more parts than bits: " + source.name);
    rule.partBit = nextPartBit_;
    nextPartBit_ <<= 1;
}

const Rule& ReadingTable::FindRule(const std::string& name) const
{
    const auto found = ruleNumbers_.find(name);
    if (found == ruleNumbers_.end())
        throw std::logic_error("no rule named " + name);
    return rules_[found->second];
}

TagNumber ReadingTable::AddTag(std::string_view tag)
{
    std::size_t slot = FirstSlot(tag);
    for (; slots_[slot] != 0; slot = (slot + 1) % kSlots)
        if (tags_[slots_[slot] - 1u] == tag)
            return slots_[slot];
    if (tags_.size() >= kSlots / 2)
        throw std::logic_error("more tags than the table was made for");
    tags_.push_back(Name::OfStatic(tag));
    return slots_[slot] = static_cast<TagNumber>(tags_.size());
}

void ReadingTable::AddAction(Rule& rule, std::string_view tag, Action action)
{
    const TagNumber number = AddTag(tag);
    if (rule.actions.size() <= number)
        rule.actions.resize(number + 1u);
    if (action.kind > rule.actions[number].kind)
        rule.actions[number] = action;
}

} // namespace XPJ
