// The classes of a project document, one row each for both directions: identity and body, in file
// order. The reader's rules and the writer follow from them.
//
// A document is a flat list of objects under `VelaData`, which refer to each other by number or
// GUID. The body of a class nests the parts of its bases; in the tree an object is one node with
// the fields and references of all of them. What a row states of a part is valid wherever a part of
// that name is, because the reader has one rule for it; a wrapper is transparent for the reader.
//
// Both passes of the writer use the rows of a body: printing, and finding the objects that need a
// number. So a body cannot mention an object that was never numbered.
#pragma once

#include "project/class_rows.h"
#include "tree/reading_table.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

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
    FieldUse use = {};
};

std::span<const ProjectClass> ProjectClasses();
// Null for a class that has no objects and no children that have some.
const ProjectClass* FindProjectClass(std::string_view name);
// What the document node itself prints: the reference to the top object.
std::span<const BodyRow> DocumentBody();

// What the reader takes. Made at the first call.
const ReadingTable& ProjectReadingTable();

} // namespace XPJ
