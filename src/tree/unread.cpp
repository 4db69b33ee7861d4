#include "tree/unread.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
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

// Where something is, that often.
struct Places {
    std::vector<ItemLocation> first;
    std::size_t count = 0;

    template <class PlaceOf>
    void Add(const PlaceOf& placeOf)
    {
        ++count;
        if (first.size() < kFirstPlaces)
            first.push_back(placeOf());
    }
};

void AddRemarks(Account& account, RemarkKind kind, const Places& places,
                const RemarkSubject& subject)
{
    for (const ItemLocation& place : places.first)
        AddRemark(account, kind, place, subject);
    account.remarks.back().count += places.count - places.first.size();
}

// What is at one path of names.
struct UnreadPath {
    NameId field;
    Places places;
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
        entry.places.Add([&] { return rules_.placeOf(path, texts_); });
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

// Of ignored elements, by their index, where they are in the tree.
std::vector<Places> PlacesOf(ConstHandle root, const std::vector<IgnoredElements>& ignored,
                             const IgnoredRules& rules, TextStore& texts)
{
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> byOwner;
    for (std::size_t i = 0; i < ignored.size(); ++i)
        for (const std::uint64_t owner : ignored[i].owners)
            byOwner[owner].push_back(i);
    std::vector<Places> places(ignored.size());
    WalkTree(root, [&](TreePath path) {
        if (const auto found = byOwner.find(path.back().UniqueId()); found != byOwner.end())
            for (const std::size_t i : found->second)
                places[i].Add([&] { return rules.placeOf(path, texts); });
        return true;
    });
    return places;
}

} // namespace

void AddUnread(ConstHandle root, const UnreadRules& rules, Account& account)
{
    for (const auto& [path, entry] : Walk(rules, account.texts).Run(root))
        AddRemarks(account, RemarkKind::ElementUnread, entry.places,
                   {.detail = entry.field.View(), .path = path});
}

void AddIgnored(ConstHandle root, const std::vector<IgnoredElements>& ignored,
                const IgnoredRules& rules, Account& account)
{
    const auto isExempt = [&](const IgnoredElements& entry) { return !rules.kindOf(entry.path); };
    if (std::ranges::all_of(ignored, isExempt))
        return;
    std::vector<Places> places = PlacesOf(root, ignored, rules, account.texts);
    for (std::size_t i = 0; i < ignored.size(); ++i) {
        const std::string_view path = ignored[i].path;
        const std::optional<RemarkKind> kind = rules.kindOf(path);
        if (!kind || (rules.isPart && places[i].count == 0))
            continue;
        if (!rules.isPart)
            places[i].count = ignored[i].owners.size();
        if (places[i].first.empty())
            places[i].first.emplace_back();
        AddRemarks(account, *kind, places[i],
                   {.detail = path.substr(path.rfind('/') + 1), .path = path});
    }
}

} // namespace XPJ
