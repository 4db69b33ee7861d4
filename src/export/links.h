// Links between items: a project states them as groups, documents item by item.
#pragma once

#include "export/export_context.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ::RVX {

// A written item as links name it: the `position`th on the `track`th written track of its type,
// both from 1. `isGrouped` marks channels that belong together.
struct LinkTarget {
    ObjectHandle element = {};
    std::string_view id = {};
    MediaType type = MediaType::Video;
    int track = 1;
    int position = 1;
    bool isGrouped = false;
};

// The `link` that names an item.
ObjectHandle WriteLink(Document& document, const LinkTarget& target);

// An item of the project, and its location for remarks.
struct LinkedItem {
    TrackItem item;
    const ItemLocation& location;
};

// The items that the project links, in the order in which they are written.
class LinkGroups {
public:
    // Opens a group for each link of a sequence, before its items are written.
    void AddLinksOf(ConstHandle sequence);
    // True for an item that has a group.
    bool Contains(TrackItem item) const;
    // A group for an item that the project links to nothing, so that its written channels find
    // each other.
    void AddGroupOf(TrackItem item);

    // Adds what is written for an item to the item's group, if it has one. `source` is the id of
    // what it shows, empty if that has none.
    void Add(Document& document, const LinkedItem& item, const LinkTarget& target,
             std::string_view source);

    // The last pass: adds to every element a `link` to each one of its group that shows the
    // same source, itself included, in the order of the group. In open interchange to each one of
    // its group.
    void WriteLinks(ExportContext& context) const;

private:
    struct Member {
        ObjectHandle element;
        ObjectHandle link;
        std::string_view source;
        std::uint64_t item; // of the project
    };
    struct Group {
        std::vector<Member> members;
        ItemLocation location = {}; // of the first one
    };
    static bool WriteBySource(const Group& group);
    static void WriteAll(const Group& group);

    std::vector<Group> groups_;
    std::unordered_map<std::uint64_t, std::size_t> groupOfItem_; // by the identity of the item
};

} // namespace XPJ::RVX
