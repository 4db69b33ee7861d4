#include "project/object_list.h"

#include "platform/platform.h"

namespace XPJ {

namespace {

// Under this name a part of the other document's tree is entered.
constexpr Name kForeignChild = "fcpmasterclip";

bool MentionsNumbers(const WriteStep& step)
{
    return step.kind == RowKind::Reference || step.kind == RowKind::ReferenceList ||
           step.kind == RowKind::Pairs;
}

bool MentionsGuids(const WriteStep& step)
{
    return step.kind == RowKind::GuidReference || step.kind == RowKind::OptionalGuidReference ||
           step.kind == RowKind::GuidList || step.kind == RowKind::MarkerRecord;
}

} // namespace

ObjectList::ObjectClass::ObjectClass(const ProjectClass& row) : text(row)
{
    for (const WriteStep& step : text.steps)
        if (MentionsNumbers(step))
            numbered.push_back(&step);
        else if (MentionsGuids(step))
            guids.push_back(&step);
}

ObjectList::ObjectList() : document_(StepsOf(DocumentBody(), 1)) {}

const ObjectList::ObjectClass* ObjectList::AddClass(NameId name)
{
    if (name.Index() >= classes_.size())
        classes_.resize(name.Index() + 1);
    const ProjectClass* const row = FindProjectClass(name.View());
    return classes_[name.Index()]
        .emplace(row ? std::make_unique<const ObjectClass>(*row) : nullptr)
        .get();
}

std::optional<ObjectList::Visit> ObjectList::Enter(ObjectHandle node)
{
    NumberRecord& number = numbers_[node];
    if (number != kNotVisited)
        return std::nullopt;
    number = kVisited;
    return Visit{node, node.Get()->firstChild, ClassOf(node.Get()->name)};
}

void ObjectList::Leave(const Visit& visit)
{
    if (!visit.objectClass)
        return;
    for (const WriteStep* const step : visit.objectClass->numbered)
        Number(*step, visit.node);
    if (visit.objectClass->text.projectClass->identity == Identity::GuidText)
        withGuid_.push_back(visit.node);
}

// A child of a class without numbered objects gets none, so that no reference leads nowhere.
void ObjectList::Number(const WriteStep& step, ObjectHandle node)
{
    ForEachNumbered(step, node, [this](ObjectHandle child) {
        NumberRecord& number = numbers_[child];
        if (number != kVisited)
            return;
        const ObjectClass* const objectClass = ClassOf(child.Get()->name);
        if (!objectClass || objectClass->text.projectClass->identity != Identity::Number)
            return;
        numbered_.push_back(child);
        number = static_cast<NumberRecord>(numbered_.size());
        if (!objectClass->guids.empty())
            mentionGuids_.push_back(child);
    });
}

// Items lead to sequences that hold items of the same sequence, so nodes are marked on the way
// down.
void ObjectList::Collect(ObjectHandle document)
{
    if (!document)
        return;
    const NameId foreign(kForeignChild);
    std::vector<Visit> path{*Enter(document)};
    while (!path.empty()) {
        Visit& visit = path.back();
        if (const ChildEntry* const entry = visit.next) {
            visit.next = entry->next;
            if (visit.next)
                PrefetchBefore(visit.next->object); // it is needed after the tree below
            if (entry->name == foreign)
                continue;
            if (const auto inner = Enter(ObjectHandle(entry->object)))
                path.push_back(*inner);
        } else {
            Leave(visit);
            path.pop_back();
        }
    }
    for (const WriteStep& step : document_)
        if (MentionsNumbers(step))
            Number(step, document);

    for (const ObjectHandle node : mentionGuids_)
        GenerateGuids(node);
    for (const ObjectHandle node : withGuid_) {
        GenerateGuid(node);
        GenerateGuids(node);
    }
}

// For what the object mentions by GUID.
void ObjectList::GenerateGuids(ObjectHandle node)
{
    for (const WriteStep* const step : ClassOf(node.Get()->name)->guids) {
        if (step->kind == RowKind::GuidList) {
            ForEachChild(node, step->name, [this](ObjectHandle child) { GenerateGuid(child); });
        } else if (step->kind == RowKind::MarkerRecord) {
            if (node.HasProperty("Color"))
                colorGuids_[node.UniqueId()] = NewGuidText();
        } else if (const ObjectHandle child = FirstChild(node, step->name)) {
            GenerateGuid(child);
        }
    }
}

void ObjectList::GenerateGuid(ObjectHandle node)
{
    if (!HasValue(node, "uid"))
        if (std::string& guid = guids_[node.UniqueId()]; guid.empty())
            guid = NewGuidText();
}

const ClassText& ObjectList::TextOf(ObjectHandle object) const
{
    return (*classes_[object.Get()->name.Index()])->text;
}

std::uint32_t ObjectList::NumberOf(ConstHandle node) const
{
    const NumberRecord* const number = numbers_.Find(node);
    return number && *number != kVisited ? *number : 0;
}

std::string_view ObjectList::GuidOf(ConstHandle node) const
{
    const std::string_view uid = node.GetProperty("uid");
    return uid.empty() ? std::string_view(guids_.at(node.UniqueId())) : uid;
}

std::string_view ObjectList::ColorGuidOf(ConstHandle marker) const
{
    return colorGuids_.at(marker.UniqueId());
}

} // namespace XPJ
