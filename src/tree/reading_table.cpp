#include "tree/reading_table.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace XPJ {

namespace {

template <class Function>
void ForEachWord(std::string_view words, Function&& function)
{
    for (std::size_t start = 0; start < words.size();) {
        const std::size_t end = std::min(words.find(' ', start), words.size());
        if (end != start)
            function(words.substr(start, end - start));
        start = end + 1;
    }
}

} // namespace

ReadingTable::ReadingTable(std::span<const RuleRow> rows)
{
    for (const RuleRow& row : rows) {
        Rule rule;
        rule.name = row.rule;
        rule.tag = Name::OfStatic(row.tag);
        rule.index = static_cast<std::uint16_t>(rules_.size());
        if (!ruleNumbers_.emplace(row.rule, rule.index).second)
            throw std::logic_error("two rules named " + std::string(row.rule));
        rules_.push_back(std::move(rule));
    }
    // The first entry of a tag stays: a child goes before an item, an item before a reference.
    for (const RuleRow& row : rows) {
        Rule& rule = MutableRule(row.rule);
        ForEachWord(row.children, [&](std::string_view word) {
            const Rule& child = FindRule(word);
            SetAction(rule, child.tag.View(), {Action::Child, child.index});
        });
        ForEachWord(row.items,
                    [&](std::string_view word) { SetAction(rule, word, {Action::Item}); });
        ForEachWord(row.references,
                    [&](std::string_view word) { SetAction(rule, word, {Action::Reference}); });
    }
    for (Rule& rule : rules_)
        rule.actions.resize(tags_.size() + 1);
}

void ReadingTable::AddItems(std::string_view rule, std::span<const Name> items)
{
    for (const Name& item : items)
        SetAction(MutableRule(rule), item.View(), {Action::Item});
    for (Rule& other : rules_)
        other.actions.resize(tags_.size() + 1);
}

void ReadingTable::AddAttributes(std::string_view rule, std::string_view words)
{
    std::vector<Name>& attributes = MutableRule(rule).attributes;
    ForEachWord(words, [&](std::string_view word) { attributes.push_back(Name::OfStatic(word)); });
}

void ReadingTable::AddAttributes(std::string_view rule, std::span<const Name> names)
{
    std::vector<Name>& attributes = MutableRule(rule).attributes;
    attributes.insert(attributes.end(), names.begin(), names.end());
}

void ReadingTable::KeepText(std::string_view rule, Name property)
{
    MutableRule(rule).textProperty = property;
}

const Rule& ReadingTable::FindRule(std::string_view name) const
{
    const auto found = ruleNumbers_.find(name);
    if (found == ruleNumbers_.end())
        throw std::logic_error("no rule named " + std::string(name));
    return rules_[found->second];
}

Rule& ReadingTable::MutableRule(std::string_view name)
{
    return rules_[FindRule(name).index];
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

void ReadingTable::SetAction(Rule& rule, std::string_view tag, Action action)
{
    const TagNumber number = AddTag(tag);
    if (rule.actions.size() <= number)
        rule.actions.resize(number + 1u);
    if (rule.actions[number].kind == Action::Ignore)
        rule.actions[number] = action;
}

} // namespace XPJ
