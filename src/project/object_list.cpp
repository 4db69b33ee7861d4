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

ObjectList::ClassIndex ObjectList::ClassOf(NameId name)
{
    if (name.Index() >= classOfName_.size())
        classOfName_.resize(name.Index() + 1, kNotSeen);
    ClassIndex& known = classOfName_[name.Index()];
    if (known != kNotSeen)
        return known;
    const ProjectClass* const row = FindProjectClass(name.View());
    known = row ? static_cast<ClassIndex>(classes_.size()) : kNoClass;
    if (row)
        classes_.emplace_back(*row);
    return known;
}

std::optional<ObjectList::Visit> ObjectList::Enter(ObjectHandle node)
{
    NodeRecord& record = records_[node];
    if (record.visited)
        return std::nullopt;
    record.visited = true;
    record.classIndex = ClassOf(node.Get()->name);
    return Visit{node, node.Get()->firstChild, record.classIndex};
}

void ObjectList::Leave(const Visit& visit)
{
    if (visit.classIndex == kNoClass)
        return;
    const ObjectClass& objectClass = classes_[visit.classIndex];
    for (const WriteStep* const step : objectClass.numbered)
        Number(*step, visit.node);
    if (objectClass.text.projectClass->identity == Identity::GuidText)
        withGuid_.push_back(visit.node);
}

// A child of a class without numbered objects gets none, so that no reference leads nowhere.
void ObjectList::Number(const WriteStep& step, ObjectHandle node)
{
    ForEachNumbered(step, node, [this](ObjectHandle child) {
        NodeRecord& record = records_[child];
        if (record.number != 0 || record.classIndex == kNoClass ||
            classes_[record.classIndex].text.projectClass->identity != Identity::Number)
            return;
        numbered_.push_back(child);
        record.number = static_cast<std::uint32_t>(numbered_.size());
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

    for (const ObjectHandle node : numbered_)
        GenerateGuids(node);
    for (const ObjectHandle node : withGuid_) {
        GenerateGuid(node);
        GenerateGuids(node);
    }
}

// For what the object mentions by GUID.
void ObjectList::GenerateGuids(ObjectHandle node)
{
    for (const WriteStep* const step : classes_[records_[node].classIndex].guids) {
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

ObjectList::Entry ObjectList::EntryOf(ConstHandle object) const
{
    const NodeRecord& record = *records_.Find(object);
    return {classes_[record.classIndex].text, record.number};
}

std::uint32_t ObjectList::NumberOf(ConstHandle node) const
{
    const NodeRecord* const record = records_.Find(node);
    return record ? record->number : 0;
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
