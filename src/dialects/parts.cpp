#include "dialects/parts.h"

#include <algorithm>
#include <utility>

namespace XPJ {

namespace {

// What the walk still has to visit. Documents may nest sequences in one another without end.
struct Visit {
    ObjectHandle node;
    ObjectHandle owner = {};
    ObjectHandle track = {};
    MediaType type = MediaType::Video;
};

class Walk {
public:
    TreeParts Run(ObjectHandle root)
    {
        Push({root});
        while (!open_.empty()) {
            const Visit visit = open_.back();
            open_.pop_back();
            if (visited_.Insert(visit.node))
                Take(visit);
        }
        return std::move(parts_);
    }

private:
    void Push(const Visit& visit)
    {
        if (visit.node)
            open_.push_back(visit);
    }

    void Take(const Visit& visit)
    {
        const Name name = visit.node.GetName();
        Visit inside = visit;
        if (name == "sequence" || name == "clip") {
            (name == "clip" ? parts_.clips : parts_.sequences).push_back(visit.node);
            inside.owner = visit.node;
        } else if (name == "bin" || name == "project") {
            parts_.bins.push_back(visit.node);
        } else if (name == "file") {
            parts_.files.push_back(visit.node);
            return; // its `media` has no tracks
        } else if (name == "video" || name == "audio") {
            inside.type = name == "video" ? MediaType::Video : MediaType::Audio;
        } else if (name == "track") {
            inside.track = visit.node;
            parts_.tracks.push_back(visit.node);
        } else if (name == "clipitem" || name == "generatoritem" || name == "transitionitem") {
            parts_.items.push_back({visit.node, visit.track, visit.owner, visit.type});
            LookInto(parts_.items.back());
        }
        PushChildren(inside);
    }

    static void LookInto(ItemPart& part)
    {
        for (const ObjectHandle& child : part.item.GetChildren()) {
            const Name name = child.GetName();
            if (name == "filter")
                part.hasFilters = true;
            else if (!part.file && name == "file")
                part.file = child;
        }
    }

    // In reverse, so that the first is taken first.
    void PushChildren(Visit inside)
    {
        const std::size_t first = open_.size();
        for (const ObjectHandle& child : inside.node.GetChildren()) {
            if (!IsContainer(child.GetName()))
                continue;
            inside.node = child;
            Push(inside);
        }
        std::reverse(open_.begin() + static_cast<std::ptrdiff_t>(first), open_.end());
    }

    // By length first: most children of an item are none of them.
    static bool IsContainer(Name name)
    {
        const std::string_view tag = name.View();
        switch (tag.size()) {
        case 3:
            return tag == "bin";
        case 4:
            return tag == "file" || tag == "clip";
        case 5:
            return tag == "track" || tag == "video" || tag == "audio" || tag == "media" ||
                   tag == "angle" || tag == "xmeml";
        case 7:
            return tag == "project";
        case 8:
            return tag == "clipitem" || tag == "sequence" || tag == "children";
        case 9:
            return tag == "multiclip";
        case 13:
            return tag == "generatoritem";
        case 14:
            return tag == "transitionitem";
        default:
            return false;
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

} // namespace XPJ
