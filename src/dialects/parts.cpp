#include "dialects/parts.h"

#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace XPJ {

namespace {

// What an element is to the walk.
enum class Kind : std::uint8_t {
    Other,
    // Parts, and what only holds some.
    Container,
    Bin,
    Clip,
    Sequence,
    File,
    Video,
    Audio,
    Track,
    ClipItem,
    GeneratorItem,
    TransitionItem,
    // Looked at where they are.
    Filter,
    Effect,
    Labels,
    SourceTrack,
};

constexpr ValuesByName<Kind>::Row kKindRows[] = {
    {"angle", Kind::Container},
    {"audio", Kind::Audio},
    {"bin", Kind::Bin},
    {"children", Kind::Container},
    {"clip", Kind::Clip},
    {"clipitem", Kind::ClipItem},
    {"effect", Kind::Effect},
    {"file", Kind::File},
    {"filter", Kind::Filter},
    {"generatoritem", Kind::GeneratorItem},
    {"labels", Kind::Labels},
    {"media", Kind::Container},
    {"multiclip", Kind::Container},
    {"project", Kind::Bin},
    {"sequence", Kind::Sequence},
    {"sourcetrack", Kind::SourceTrack},
    {"track", Kind::Track},
    {"transitionitem", Kind::TransitionItem},
    {"video", Kind::Video},
    {"xmeml", Kind::Container},
};

const ValuesByName<Kind>& Kinds()
{
    static const ValuesByName<Kind> kKinds(kKindRows);
    return kKinds;
}

// What a value of an item is to the walk.
enum class ValueKind : std::uint8_t { Other, Id, Time, Format, Still, ChannelType, Channels };

constexpr ValuesByName<ValueKind>::Row kValueRows[] = {
    {"anamorphic", ValueKind::Format},
    {"channelcount", ValueKind::Channels},
    {"end", ValueKind::Time},
    {"fielddominance", ValueKind::Format},
    {"height", ValueKind::Format},
    {"id", ValueKind::Id},
    {"in", ValueKind::Time},
    {"out", ValueKind::Time},
    {"pixelaspectratio", ValueKind::Format},
    {"start", ValueKind::Time},
    {"stillframeoffset", ValueKind::Still},
    {"velaChannelType", ValueKind::ChannelType},
    {"width", ValueKind::Format},
};

const ValuesByName<ValueKind>& ValueKinds()
{
    static const ValuesByName<ValueKind> kKinds(kValueRows);
    return kKinds;
}

// True for a `file` that states something beside its id.
bool HasContent(ConstHandle file)
{
    if (file.HasChildren())
        return true;
    const ValuesByName<ValueKind>& kinds = ValueKinds();
    for (const Property& property : file.Properties())
        if (kinds[property.name] != ValueKind::Id)
            return true;
    return false;
}

// What the walk still has to visit. Documents may nest sequences in one another without end.
struct Visit {
    ObjectHandle node;
    Kind kind = Kind::Container;
    ObjectHandle owner = {};
    ObjectHandle track = {};
    MediaType type = MediaType::Video;
    bool isInSequence = false;
};

class Walk {
public:
    TreeParts Run(ObjectHandle root, std::size_t nodes)
    {
        // Hardly a document has more items. Memory that isn't used costs nothing.
        constexpr std::size_t kNodesPerItem = 6;
        parts_.items.reserve(nodes / kNodesPerItem);
        if (root)
            open_.push_back({root});
        while (!open_.empty()) {
            const Visit visit = open_.back();
            open_.pop_back();
            if (visited_.Insert(visit.node))
                Take(visit);
        }
        return std::move(parts_);
    }

private:
    void Take(Visit visit)
    {
        switch (visit.kind) {
        case Kind::Bin:
            parts_.bins.push_back(visit.node);
            break;
        case Kind::Clip:
            parts_.clips.push_back(visit.node);
            RecordFormat(visit.node);
            visit.owner = visit.node;
            visit.isInSequence = false;
            break;
        case Kind::Sequence:
            parts_.sequences.push_back(visit.node);
            visit.owner = visit.node;
            visit.isInSequence = true;
            break;
        case Kind::File:
            parts_.files.push_back(visit.node);
            RecordFormat(visit.node);
            break;
        case Kind::Video:
            visit.type = MediaType::Video;
            break;
        case Kind::Audio:
            visit.type = MediaType::Audio;
            break;
        case Kind::Track:
            parts_.tracks.push_back(visit.node);
            visit.track = visit.node;
            break;
        case Kind::ClipItem:
            return TakeItem(visit, ItemKind::Clip);
        case Kind::GeneratorItem:
            return TakeItem(visit, ItemKind::Generator);
        case Kind::TransitionItem:
            return TakeItem(visit, ItemKind::Transition);
        default:
            break;
        }
        TakeChildren(visit, nullptr);
    }

    void RecordFormat(ObjectHandle node)
    {
        for (const Property& property : node.Properties())
            if (property.valueSize > 0 && valueKinds_[property.name] == ValueKind::Format) {
                parts_.framed.Insert(node);
                return;
            }
    }

    void RecordLabels(ObjectHandle labels)
    {
        if (HasValue(labels, "label") && Trimmed(labels.GetProperty("label2")).empty())
            parts_.unnamedLabels.push_back(labels);
    }

    void TakeItem(const Visit& visit, ItemKind kind)
    {
        ItemPart part{.item = visit.node,
                      .track = visit.track,
                      .owner = visit.owner,
                      .type = visit.type,
                      .kind = kind,
                      .isInSequence = visit.isInSequence,
                      .hasChildren = visit.node.HasChildren()};
        RecordValues(part);
        TakeChildren(visit, &part);
        parts_.items.push_back(part);
    }

    void RecordValues(ItemPart& part)
    {
        for (const Property& property : part.item.Properties()) {
            const std::string_view value = property.Value();
            if (!value.empty())
                RecordValue(part, valueKinds_[property.name], value);
        }
    }

    static void RecordValue(ItemPart& part, ValueKind kind, std::string_view value)
    {
        switch (kind) {
        case ValueKind::Id:
            part.id = value;
            break;
        case ValueKind::Time:
            part.statesTimes = true;
            break;
        case ValueKind::Format:
            part.statesFormat = true;
            break;
        case ValueKind::Still:
            part.isStill = true;
            break;
        case ValueKind::ChannelType:
            part.statesChannelType = true;
            break;
        case ValueKind::Channels:
            part.channelCount = ParseInt(value);
            break;
        case ValueKind::Other:
            break;
        }
    }

    // `item` is the part that the visit makes, null for what is no item. Visits are pushed in
    // reverse, so that the first is taken first.
    void TakeChildren(const Visit& visit, ItemPart* item)
    {
        const std::size_t first = open_.size();
        const ChildRange children = visit.node.GetChildren();
        for (auto child = children.begin(); child != children.end(); ++child) {
            const Kind kind = kinds_[child.EntryId()];
            if (kind == Kind::Filter)
                parts_.effects.push_back(
                    {visit.node, *child, (*child).GetChild("effect"), visit.type});
            else if (kind == Kind::Effect && visit.kind == Kind::GeneratorItem)
                parts_.effects.push_back({visit.node, {}, *child, visit.type});
            else if (kind == Kind::Labels)
                RecordLabels(*child);
            if (item && kind != Kind::Other)
                RecordChild(*item, kind, *child);
            if (IsVisited(visit.kind, kind) && (kind != Kind::File || HasContent(*child)))
                open_.push_back(
                    {*child, kind, visit.owner, visit.track, visit.type, visit.isInSequence});
        }
        std::reverse(open_.begin() + static_cast<std::ptrdiff_t>(first), open_.end());
    }

    // The `media` of a file has no tracks.
    static bool IsVisited(Kind parent, Kind kind)
    {
        return parent != Kind::File && kind != Kind::Other && kind < Kind::Filter;
    }

    static void RecordChild(ItemPart& part, Kind kind, ObjectHandle child)
    {
        if (kind == Kind::Filter) {
            part.hasFilters = true;
        } else if (kind == Kind::Sequence) {
            part.hasSequence = true;
        } else if (kind == Kind::SourceTrack && part.sourceTrack == 0) {
            part.sourceTrack = IntProperty(child, "trackindex");
        } else if (kind == Kind::File && !part.file) {
            part.file = child;
            part.fileId = child.GetProperty("id");
        }
    }

    const ValuesByName<Kind>& kinds_ = Kinds();
    const ValuesByName<ValueKind>& valueKinds_ = ValueKinds();
    TreeParts parts_;
    NodeSet visited_;
    std::vector<Visit> open_;
};

} // namespace

TreeParts FindParts(ObjectHandle root, std::size_t nodes)
{
    return Walk().Run(root, nodes);
}

NodeSet StillSequences(const TreeParts& parts)
{
    NodeSet stills;
    if (std::ranges::none_of(parts.items, &ItemPart::isStill))
        return stills;
    std::unordered_map<std::uint64_t, int> itemCounts; // by owner
    for (const ItemPart& part : parts.items)
        ++itemCounts[part.owner.UniqueId()];
    for (const ItemPart& part : parts.items)
        if (part.isStill && itemCounts[part.owner.UniqueId()] == 1)
            stills.Insert(part.owner);
    return stills;
}

} // namespace XPJ
