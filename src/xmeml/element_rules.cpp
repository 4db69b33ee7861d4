// The reader's rules, made from the table of elements.
#include "xmeml/elements.h"

#include <algorithm>
#include <string>
#include <vector>

namespace XPJ {

namespace {

void AddAttributes(std::span<const XmemlAttribute> attributes, RuleSource& rule)
{
    for (const XmemlAttribute& attribute : attributes) {
        if (!attribute.use.isRead)
            continue;
        const std::span<const Name> names =
            attribute.list ? attribute.list() : std::span<const Name>(&attribute.name, 1);
        rule.attributes.insert(rule.attributes.end(), names.begin(), names.end());
        if (attribute.isLeafToo)
            rule.leaves.insert(rule.leaves.end(), names.begin(), names.end());
    }
}

// Adds a row to the rule of its tag.
void AddRow(const XmemlElement& element, ReadingManner manner, RuleSource& rule)
{
    for (const XmemlField& field : element.fields) {
        if (!IsReadIn(manner, field.use))
            continue;
        if (field.IsChild())
            rule.children.emplace_back(field.name.View());
        else
            rule.leaves.push_back(field.name);
    }
    if (element.tag == element.name) // further rows of a tag repeat its attributes
        AddAttributes(element.attributes, rule);
    if (!element.text.IsEmpty())
        rule.text = element.text;
}

// What is only written has no rule: no rule that is reached names it.
std::vector<RuleSource> ReadRules(ReadingManner manner)
{
    std::vector<RuleSource> rules{{.name = "root", .tag = "root"}};
    for (std::size_t i = 0; i < rules.size(); ++i) {
        for (const XmemlElement& element : XmemlElements())
            if (element.tag == rules[i].tag)
                AddRow(element, manner, rules[i]);
        for (const std::string& child : std::vector(rules[i].children))
            if (std::ranges::find(rules, child, &RuleSource::name) == rules.end())
                rules.push_back({.name = child, .tag = FindXmemlElement(child)->tag});
    }
    return rules;
}

} // namespace

const ReadingTable& XmemlReadingTable(ReadingManner manner)
{
    static const ReadingTable letter(ReadRules(ReadingManner::Letter));
    static const ReadingTable open(ReadRules(ReadingManner::Open));
    return manner == ReadingManner::Open ? open : letter;
}

} // namespace XPJ
