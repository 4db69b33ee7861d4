#include "dialects/parts.h"

#include "core/numbers.h"

#include <algorithm>
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

// By length first: most children of an item are none of them.
Kind KindOf(std::string_view name)
{
    switch (name.size()) {
    case 3:
        return name == "bin" ? Kind::Bin : Kind::Other;
    case 4:
        return name == "file" ? Kind::File : name == "clip" ? Kind::Clip : Kind::Other;
    case 5:
        if (name == "media" || name == "angle" || name == "xmeml")
            return Kind::Container;
        return name == "track"   ? Kind::Track
               : name == "video" ? Kind::Video
               : name == "audio" ? Kind::Audio
                                 : Kind::Other;
    case 6:
        return name == "filter"   ? Kind::Filter
               : name == "effect" ? Kind::Effect
               : name == "labels" ? Kind::Labels
                                  : Kind::Other;
    case 7:
        return name == "project" ? Kind::Bin : Kind::Other;
    case 8:
        return name == "clipitem"   ? Kind::ClipItem
               : name == "sequence" ? Kind::Sequence
               : name == "children" ? Kind::Container
                                    : Kind::Other;
    case 9:
        return name == "multiclip" ? Kind::Container : Kind::Other;
    case 11:
        return name == "sourcetrack" ? Kind::SourceTrack : Kind::Other;
    case 13:
        return name == "generatoritem" ? Kind::GeneratorItem : Kind::Other;
    case 14:
        return name == "transitionitem" ? Kind::TransitionItem : Kind::Other;
    default:
        return Kind::Other;
    }
}

bool IsTime(std::string_view name)
{
    return name == "in" || name == "out" || name == "end" || name == "start";
}

bool IsOfFormat(std::string_view name)
{
    return name == "width" || name == "height" || name == "anamorphic" ||
           name == "fielddominance" || name == "pixelaspectratio";
}

// True for a `file` that states something beside its id.
bool HasContent(ConstHandle file)
{
    if (file.HasChildren())
        return true;
    for (const Property* property = file.FirstProperty(); property; property = property->next)
        if (property->NameView() != "id")
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
};

class Walk {
public:
    TreeParts Run(ObjectHandle root)
    {
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
            visit.owner = visit.node;
            break;
        case Kind::Sequence:
            parts_.sequences.push_back(visit.node);
            visit.owner = visit.node;
            break;
        case Kind::File:
            parts_.files.push_back(visit.node);
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

    void TakeItem(const Visit& visit, ItemKind kind)
    {
        ItemPart part{.item = visit.node,
                      .track = visit.track,
                      .owner = visit.owner,
                      .type = visit.type,
                      .kind = kind,
                      .hasChildren = visit.node.HasChildren()};
        RecordValues(part);
        TakeChildren(visit, &part);
        parts_.items.push_back(part);
    }

    static void RecordValues(ItemPart& part)
    {
        for (const Property* property = part.item.FirstProperty(); property;
             property = property->next) {
            const std::string_view name = property->NameView();
            const std::string_view value = property->Value();
            if (value.empty())
                continue;
            part.statesTimes = part.statesTimes || IsTime(name);
            part.statesFormat = part.statesFormat || IsOfFormat(name);
            part.isStill = part.isStill || name == "stillframeoffset";
            part.statesChannelType = part.statesChannelType || name == "velaChannelType";
            if (name == "id")
                part.id = value;
            else if (name == "out")
                part.out = value;
            else if (name == "channelcount")
                part.channelCount = ParseInt64(value);
        }
    }

    // `item` is the part that the visit makes, null for what is no item. Visits are pushed in
    // reverse, so that the first is taken first.
    void TakeChildren(const Visit& visit, ItemPart* item)
    {
        const std::size_t first = open_.size();
        const ChildRange children = visit.node.GetChildren();
        for (auto child = children.begin(); child != children.end(); ++child) {
            const Kind kind = KindOf(child.EntryName());
            if (kind == Kind::Filter)
                parts_.effects.push_back(
                    {visit.node, *child, (*child).GetChild("effect"), visit.type});
            else if (kind == Kind::Effect && visit.kind == Kind::GeneratorItem)
                parts_.effects.push_back({visit.node, {}, *child, visit.type});
            if (item && kind != Kind::Other)
                RecordChild(*item, kind, *child);
            if (IsVisited(visit.kind, kind) && (kind != Kind::File || HasContent(*child)))
                open_.push_back({*child, kind, visit.owner, visit.track, visit.type});
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
        } else if (kind == Kind::Labels) {
            part.hasLabels = true;
        } else if (kind == Kind::Sequence) {
            part.hasSequence = true;
        } else if (kind == Kind::SourceTrack && part.sourceTrack == 0) {
            part.sourceTrack = Int64Property(child, "trackindex");
        } else if (kind == Kind::File && !part.file) {
            part.file = child;
            part.fileId = child.GetProperty("id");
        }
    }

    TreeParts parts_;
    NodeSet visited_;
    std::vector<Visit> open_;
};

} // namespace

TreeParts FindParts(ObjectHandle root)
{
    return Walk().Run(root);
}

bool StatesFormat(ConstHandle node)
{
    for (const Property* property = node.FirstProperty(); property; property = property->next)
        if (property->valueSize > 0 && IsOfFormat(property->NameView()))
            return true;
    return false;
}

} // namespace XPJ
