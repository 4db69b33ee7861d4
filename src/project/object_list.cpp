#include "project/object_list.h"

#include "platform/platform.h"

namespace XPJ {

namespace {

// Under this name a part of the other document's tree is entered.
constexpr std::string_view kForeignChild = "fcpmasterclip";

} // namespace

void ObjectList::AddLinks(std::span<const BodyRow> rows, ClassLinks& links)
{
    for (const BodyRow& row : rows) {
        switch (row.kind) {
        case RowKind::Include:
            AddLinks(row.rows, links);
            break;
        case RowKind::Reference:
        case RowKind::ReferenceList:
        case RowKind::Pairs:
            links.numbered.push_back(&row);
            break;
        case RowKind::GuidReference:
        case RowKind::OptionalGuidReference:
        case RowKind::GuidList:
        case RowKind::MarkerRecord:
            links.guids.push_back(&row);
            break;
        default:
            break;
        }
    }
}

const ObjectList::ClassLinks* ObjectList::LinksOf(ConstHandle node)
{
    const ProjectClass* const projectClass = FindProjectClass(node.GetName().View());
    if (!projectClass)
        return nullptr;
    ClassLinks& links = links_[projectClass];
    if (!links.projectClass) {
        links.projectClass = projectClass;
        AddLinks(projectClass->body, links);
    }
    return &links;
}

std::optional<ObjectList::Visit> ObjectList::Enter(ObjectHandle node)
{
    NodeRecord& record = records_[node];
    if (record.visited)
        return std::nullopt;
    record.visited = true;
    record.links = LinksOf(node);
    return Visit{node, node.GetChildren().begin()};
}

void ObjectList::Leave(ObjectHandle node)
{
    const ClassLinks* const links = records_[node].links;
    if (!links)
        return;
    Number(*links, node);
    if (links->projectClass->identity == Identity::GuidText)
        withGuid_.push_back(node);
}

// A child of a class without numbered objects gets none, so that no reference leads nowhere.
void ObjectList::Number(const ClassLinks& links, ObjectHandle node)
{
    for (const BodyRow* const row : links.numbered)
        ForEachNumbered(*row, node, [this](ObjectHandle child) {
            NodeRecord& record = records_[child];
            if (record.number != 0 || !record.links ||
                record.links->projectClass->identity != Identity::Number)
                return;
            numbered_.push_back(child);
            record.number = static_cast<std::uint32_t>(numbered_.size());
        });
}

// Items lead to sequences that hold items of the same sequence, so nodes are marked on the way
// down.
void ObjectList::Collect(ObjectHandle document)
{
    std::vector<Visit> path;
    if (const auto visit = Enter(document))
        path.push_back(*visit);
    while (!path.empty()) {
        Visit& visit = path.back();
        if (visit.next != ChildRange(nullptr).end()) {
            const ObjectHandle child = *visit.next;
            const bool foreign = visit.next.EntryName() == kForeignChild;
            ++visit.next;
            if (foreign)
                continue;
            if (const auto inner = Enter(child))
                path.push_back(*inner);
        } else {
            Leave(visit.node);
            path.pop_back();
        }
    }
    ClassLinks ofDocument;
    AddLinks(DocumentBody(), ofDocument);
    Number(ofDocument, document);

    GenerateGuids(ofDocument, document);
    for (const ObjectHandle node : numbered_)
        GenerateGuids(*records_[node].links, node);
    for (const ObjectHandle node : withGuid_) {
        GenerateGuid(node);
        GenerateGuids(*records_[node].links, node);
    }
}

void ObjectList::GenerateGuids(const ClassLinks& links, ObjectHandle node)
{
    for (const BodyRow* const row : links.guids) {
        if (row->kind == RowKind::GuidList) {
            for (const ObjectHandle child : node.GetChildren(row->tag))
                GenerateGuid(child);
        } else if (row->kind == RowKind::MarkerRecord) {
            if (node.HasProperty("Color"))
                colorGuids_[node.UniqueId()] = NewGuidText();
        } else if (const ObjectHandle child = node.GetChild(row->tag)) {
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

const ProjectClass& ObjectList::ClassOf(ConstHandle node) const
{
    return *records_.Find(node)->links->projectClass;
}

} // namespace XPJ
