// The reader's rules, made from the table of classes.
#include "project/classes.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

// The reader's rules: one for each class, and one for each part, which takes what any class has in
// a part of that name.
class RuleMaker {
public:
    std::vector<RuleSource> Make()
    {
        const std::size_t root = RuleOf("root", "root");
        const std::size_t document = RuleOf("VelaData", "VelaData");
        rules_[root].children.emplace_back("VelaData");
        rules_[document].attributes = {"Version"};
        for (const ProjectClass& row : ProjectClasses()) {
            if (!row.use.isRead)
                continue;
            rules_[document].children.emplace_back(row.name);
            open_ = {RuleOf(std::string(row.name), Name::OfStatic(row.name))};
            AddRows(row.body);
        }
        return std::move(rules_);
    }

private:
    void AddRows(std::span<const BodyRow> rows)
    {
        for (const BodyRow& row : rows)
            AddRow(row);
    }

    void AddRow(const BodyRow& row)
    {
        if (!row.use.isRead)
            return;
        switch (row.kind) {
        case RowKind::Part:
            open_.push_back(AddPart(row.tag));
            if (row.isNoted)
                rules_[open_.back()].key = row.tag;
            return;
        case RowKind::Member:
            return open_.push_back(AddChild("part ", row.tag));
        case RowKind::Wrapper:
            return open_.push_back(open_.back());
        case RowKind::End:
            return open_.pop_back();
        case RowKind::Include:
            return AddRows(row.rows);
        case RowKind::ReadPart:
            AddPart(row.tag);
            return;
        case RowKind::SharedBlob: {
            RuleSource& blob = rules_[AddPart(row.tag)];
            blob.text = row.tag;
            blob.attributes = {"BinaryHash"};
            return;
        }
        case RowKind::Pairs: {
            RuleSource& pair = rules_[AddChild("pair ", row.tag)];
            pair.nodeKind = NodeKind::Detached;
            pair.key = row.key;
            pair.leaves = {"First"};
            pair.references = {"Second"};
            return;
        }
        case RowKind::Reference:
        case RowKind::ReferenceList:
        case RowKind::GuidReference:
        case RowKind::OptionalGuidReference:
        case RowKind::GuidList:
            return rules_[open_.back()].references.push_back(row.tag);
        default:
            AddLeaves(row);
        }
    }

    void AddLeaves(const BodyRow& row)
    {
        std::vector<Name>& leaves = rules_[open_.back()].leaves;
        const auto names = row.list ? row.list() : std::span<const Name>(&row.tag, 1);
        leaves.insert(leaves.end(), names.begin(), names.end());
    }

    std::size_t AddPart(Name tag)
    {
        const std::size_t rule = AddChild("part ", tag);
        rules_[rule].nodeKind = NodeKind::Part;
        return rule;
    }

    std::size_t AddChild(std::string_view prefix, Name tag)
    {
        const std::string name = std::string(prefix).append(tag.View());
        rules_[open_.back()].children.push_back(name);
        return RuleOf(name, tag);
    }

    std::size_t RuleOf(const std::string& name, Name tag)
    {
        const auto found = std::ranges::find(rules_, name, &RuleSource::name);
        if (found != rules_.end())
            return static_cast<std::size_t>(found - rules_.begin());
        rules_.push_back({.name = name, .tag = tag});
        return rules_.size() - 1;
    }

    std::vector<RuleSource> rules_;
    std::vector<std::size_t> open_; // rules of the parts around the row at hand
};

} // namespace

const ReadingTable& ProjectReadingTable()
{
    static const ReadingTable table(RuleMaker().Make());
    return table;
}

} // namespace XPJ
