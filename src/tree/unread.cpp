#include "tree/unread.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace XPJ {

namespace {

// Of the node's own properties and children.
bool IsAnyRead(ConstHandle node)
{
    for (const Property& property : node.Properties())
        if (property.isRead)
            return true;
    for (const ConstHandle& child : node.GetChildren())
        if (child.IsRead())
            return true;
    return false;
}

// A value anywhere in it; what nests deeper than fields do counts as one.
bool HasContent(ConstHandle node, int depth = 0)
{
    constexpr int kDeepest = 8;
    for (const Property& property : node.Properties())
        if (property.valueSize > 0)
            return true;
    for (const ConstHandle& child : node.GetChildren())
        if (depth == kDeepest || HasContent(child, depth + 1))
            return true;
    return false;
}

constexpr std::size_t kFirstPlaces = 3;

// What is at one path of names.
struct UnreadPath {
    NameId field;
    std::vector<ItemLocation> places; // the first ones
    std::size_t count = 0;
};

std::string PathText(TreePath path, Name name)
{
    std::string text;
    for (const ConstHandle& node : path)
        text.append(node.GetName().View()) += '/';
    return text.append(name.View());
}

class Walk {
public:
    Walk(const UnreadRules& rules, TextStore& texts) : rules_(rules), texts_(texts) {}

    std::map<std::string, UnreadPath> Run(ConstHandle root)
    {
        WalkTree(root, [this](TreePath path) { return Enters(path); });
        return std::move(found_);
    }

private:
    bool Enters(TreePath path)
    {
        const ConstHandle node = path.back();
        const TreePath owner = path.first(path.size() - 1);
        if (!owner.empty()) {
            if (rules_.isSkipped(node))
                return false;
            if (!node.IsRead() && !IsAnyRead(node)) {
                if (HasContent(node))
                    Report(owner, NameId(node.GetName()));
                return false;
            }
        }
        for (const Property& property : node.Properties())
            if (!property.isRead && property.valueSize > 0)
                Report(path, property.name);
        return true;
    }

    void Report(TreePath path, NameId name)
    {
        if (IsExempt(path, name))
            return;
        UnreadPath& entry = found_[PathText(path, name.AsName())];
        entry.field = name;
        ++entry.count;
        if (entry.places.size() < kFirstPlaces)
            entry.places.push_back(rules_.placeOf(path, texts_));
    }

    bool IsExempt(TreePath path, NameId field)
    {
        const Exemption exemption = ExemptionOf(path.back().GetName(), field);
        return exemption == Exemption::Always ||
               (exemption == Exemption::ByPlace && rules_.isExempt(path, field.AsName()));
    }

    Exemption ExemptionOf(Name owner, NameId field)
    {
        const std::size_t row = NameId(owner).Index();
        if (row >= exemptions_.size())
            exemptions_.resize(row + 1);
        std::vector<std::optional<Exemption>>& ofOwner = exemptions_[row];
        if (field.Index() >= ofOwner.size())
            ofOwner.resize(field.Index() + 1);
        std::optional<Exemption>& known = ofOwner[field.Index()];
        if (!known)
            known = rules_.exemptionOf(owner, field.AsName());
        return *known;
    }

    const UnreadRules& rules_;
    TextStore& texts_;
    // By the numbers of the names of owner and field.
    std::vector<std::vector<std::optional<Exemption>>> exemptions_;
    std::map<std::string, UnreadPath> found_;
};

} // namespace

void AddUnread(ConstHandle root, const UnreadRules& rules, Account& account)
{
    for (const auto& [path, entry] : Walk(rules, account.texts).Run(root)) {
        for (const ItemLocation& place : entry.places)
            AddRemark(account, RemarkKind::ElementUnread, place,
                      {.detail = entry.field.View(), .path = path});
        account.remarks.back().count += entry.count - entry.places.size();
    }
}

void AddIgnored(const std::vector<IgnoredElements>& ignored,
                const std::function<bool(std::string_view tag)>& isExempt, Account& account)
{
    for (const IgnoredElements& elements : ignored) {
        const std::string_view path = elements.path;
        const std::string_view tag = path.substr(path.rfind('/') + 1);
        if (!isExempt(tag))
            AddRemark(account, RemarkKind::ElementUnknown, {},
                      {.detail = tag, .path = path, .count = elements.count});
    }
}

} // namespace XPJ
