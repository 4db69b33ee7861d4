// The classes of a project document: how each is identified and what its body holds, in file order.
//
// The rows of a body serve both passes of the writer: printing, and finding the objects that need a
// number. So a body cannot mention an object that was never numbered.
#pragma once

#include "tree/object.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

enum class RowKind : std::uint8_t {
    Open,         // <Tag Version="V">
    Close,        // </Tag>
    Include,      // the rows of a block that several classes share
    Fixed,        // <Tag>text</Tag>
    FixedIf,      // the same if the node has the property `key`
    FixedUnless,  // the same if it lacks the property `tag`
    Value,        // <Tag>value of `key`</Tag>, if the node has it
    PropertyList, // one such line for each name of a side table

    Reference,     // <Tag ObjectRef="N"/>, the first child `key`
    ReferenceList, // <Tag Index="I" ObjectRef="N"/> for each child `key`, or each of the child
                   // `via`
    Pairs,         // <Tag Version="1" Index="I">, <First>, <Second ObjectRef="N"/> for each child

    GuidReference,         // <Tag ObjectURef="G"/>; a missing child is an error
    OptionalGuidReference, // the same, left out when there is no child
    GuidList,              // <Tag Index="I" ObjectURef="G" /> for each child `tag` or `key`

    Blob,         // <Tag Encoding="base64" Checksum="C">data</Tag>, checksum under `key`
    BlobOrEmpty,  // the same; without data <Tag Encoding="base64" Checksum=""/>
    AudioLayout,  // the property, else built from channel type and count, else mono
    MarkerRecord, // the JSON record of a marker
};

struct BodyRow {
    RowKind kind;
    unsigned version = 0;
    Name tag;
    Name key = tag; // property or child; the property of `First` in a pair
    Name via = {};  // the child that holds a list's children, itself by default
    std::string_view text = {};
    std::span<const Name> (*list)() = nullptr;
    std::span<const BodyRow> rows = {};
};

enum class Identity : std::uint8_t {
    None,     // no object of its own: only its children count
    Number,   // ObjectID
    GuidText, // ObjectUID
};

struct ProjectClass {
    std::string_view name;
    Identity identity;
    unsigned version;
    std::string_view classId; // empty: the node's property `classid`
    std::span<const BodyRow> body;
};

std::span<const ProjectClass> ProjectClasses();
// Null for a class that has no objects and no children that have some.
const ProjectClass* FindProjectClass(std::string_view name);
// What the document node itself prints: the reference to the top object.
std::span<const BodyRow> DocumentBody();

} // namespace XPJ
