// The elements of an `xmeml` document, one row each for both directions: attributes and fields, in
// file order. The reader's rules, the writer and the tables in docs/xmeml.md follow from them.
#pragma once

#include "tree/field_use.h"
#include "tree/object.h"
#include "tree/reading_table.h"

#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

// What is written from more than one property or child.
enum class XmemlRule : std::uint8_t {
    ClipDuration,       // of a clip's `media`, else the clip's own, else 0
    ClipRate,           // the `rate` of a clip, else of its `media`, else the default rate
    RateOrDefault,      // the `rate`, else the default rate
    OfOwnFile,          // of a clip item whose file is no reference: the leaf of the file's video
    SequenceUnlessFile, // an item shows either a file or a sequence
    AudioOfFile,        // one element or more, by `channeltype` and `channelcount`
};

// How a field is written. The reader takes any leaf, and any child.
enum class FieldKind : std::uint8_t {
    Required, // <tag>value</tag>, the default if the node lacks the property
    Leaf,     // the same, only if the node has it
    Fixed,    // <tag>text</tag>
    LeafBy,   // by a rule
    Child,    // the first child of that name
    Each,     // each child of that name
    Mixed,    // with the rows of this kind beside it: each child, in the node's order
    Whole,    // the child, or a reference to it if the node has the property `reference`
    ChildBy,  // by a rule
};

struct XmemlField {
    FieldKind kind;
    Name name;
    FieldUse use = {};
    Name property = name;                   // what a leaf is written from
    std::string_view text = {};             // default, fixed text
    std::string_view element = name.View(); // row by which a child is written
    // Of a child: a self-closed element with an id is a reference to the element of that tag and
    // id, wherever it is in the document; the node keeps the id under this name.
    Name reference = {};
    XmemlRule rule = {};

    constexpr bool IsChild() const { return kind >= FieldKind::Child; }
};

enum class AttributeKind : std::uint8_t {
    Always,  // name="value"
    Present, // the same if the node has the property
    Equal,   // the same if the value is `text`
    Fixed,   // name="text"
    List,    // each name of a list that the node has
};

struct XmemlAttribute {
    AttributeKind kind;
    Name name = {};
    FieldUse use = {};
    std::string_view text = {};
    std::span<const Name> (*list)() = nullptr;
    bool isLeafToo = false; // read from an element of that name as well; the attribute wins
};

// An element with child nodes is what references of its tag and id lead to.
struct Definition {
    enum NoId : std::uint8_t {
        NotEntered,
        EnteredUnderNumber, // under a key that no reference names
        GivenNumber,        // which becomes its id as well
    };
    NoId noId = NotEntered;
    bool firstWins = false; // a second one is dropped from the table without a word
    std::atomic<int>* lastNumber = nullptr;
};

struct XmemlElement {
    std::string_view name; // the tag, or the row's own name where a tag has several variants
    Name tag;
    std::span<const XmemlField> fields;
    std::span<const XmemlAttribute> attributes = {};
    const Definition* definition = nullptr; // of an element with an id
    Name text = {};                         // property that keeps the element's own text
    bool selfClosed = false;
};

std::span<const XmemlElement> XmemlElements();
// Null for a name without a row.
const XmemlElement* FindXmemlElement(std::string_view name);

// What the reader takes: for each tag the fields of all its rows. Made at the first call.
const ReadingTable& XmemlReadingTable();

} // namespace XPJ
