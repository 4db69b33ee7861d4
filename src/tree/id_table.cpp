#include "tree/id_table.h"

#include "core/numbers.h"
#include "tree/node_dump.h"

#include <algorithm>
#include <iostream>

namespace XPJ {

namespace {

// For the developers of the programs that write such documents. The dumps list the first entries
// of large nodes only.
void ReportDuplicate(Name type, std::string_view id, ObjectHandle before, ObjectHandle added)
{
    std::cout << "Found an unexpected existing child. Was the child defined as an object but was "
                 "actually an item?\n"
              << " ChildID: " << id << " Child type: " << type.View() << "\n"
              << "Previous child class: " << before.GetName().View() << " ID: " << before.UniqueId()
              << "\n"
              << "     New Child class: " << added.GetName().View() << " ID: " << added.UniqueId()
              << "\n"
              << "Prev child names and attributes:\n";
    DumpNode(std::cout, before);
    std::cout << "New child names and attributes:\n";
    DumpNode(std::cout, added);
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// With `number` in place of the digits that end each line. An id is a line of its own in all but
// odd documents.
//   "clip_0" and 12 give "clip_12"
std::string WithTrailingNumber(std::string_view id, std::string_view number)
{
    constexpr std::string_view kLineEnds = "\n\r\f";
    std::string result;
    for (std::size_t begin = 0; begin < id.size();) {
        const auto sameSort = [&](char next) { return IsDigit(next) == IsDigit(id[begin]); };
        const auto end = static_cast<std::size_t>(
            std::find_if_not(id.begin() + begin, id.end(), sameSort) - id.begin());
        const bool endsLine = end == id.size() || kLineEnds.find(id[end]) != kLineEnds.npos;
        result += endsLine && IsDigit(id[begin]) ? number : id.substr(begin, end - begin);
        begin = end;
    }
    return result;
}

} // namespace

IdTable::IdTable(Document& document) : document_(document)
{
    constexpr float kMostFull = 0.8F; // the nodes of a large document fit no cache
    nodes_.max_load_factor(kMostFull);
}

void IdTable::Add(Name type, std::string_view id, ObjectHandle node)
{
    const Key key{id, NameId(type)};
    const auto [known, isNew] = nodes_.try_emplace(key, node);
    if (known->second == node)
        return;
    ReportDuplicate(type, id, known->second, node);
    const std::string_view newId = document_.Store(FreeId(key));
    node.SetPropertyShared("id", newId);
    nodes_.try_emplace({newId, key.type}, node);
}

// Ids stay taken, so a search that continues from the last number finds what one from 1 would.
std::string IdTable::FreeId(const Key& taken)
{
    int& number = lastNumbers_[taken];
    std::string id = std::string(taken.id) + "_0";
    do {
        ++number;
        id = WithTrailingNumber(id, IntToString(number));
    } while (nodes_.contains({id, taken.type}));
    return id;
}

void IdTable::AddReference(Name type, std::string_view id, ObjectHandle referrer, Name childName)
{
    references_.push_back({{id, NameId(type)}, referrer, NameId(childName)});
}

void IdTable::BindReferences()
{
    for (const Reference& reference : references_) {
        const auto target = nodes_.find(reference.target);
        if (target != nodes_.end())
            reference.referrer.AddChild(reference.childName.AsName(), target->second);
    }
    references_.clear();
}

} // namespace XPJ
