// The elements of an `xmeml` document as it is written: start tag and contents, in file order.
#pragma once

#include "tree/object.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

// What depends on more than one property or child.
enum class XmemlRule : std::uint8_t {
    ClipDuration,        // of a clip's `media`, else the clip's own, else 0
    ClipRate,            // the `rate` of a clip, else of its `media`, else the default rate
    RateOrDefault,       // the `rate`, else the default rate
    PixelAspect,         // of a clip item, from the picture of its own `file`
    Source,              // of a clip item: its file or sequence, whole or as a reference
    SequenceOrReference, // of an angle
    AudioOfFile,         // one element or more, by `channeltype` and `channelcount`
};

enum class FieldKind : std::uint8_t {
    Required, // <tag>value</tag>, the default if the node lacks the property
    Optional, // the same, only if the node has it
    Fixed,    // <tag>text</tag>
    Child,    // the first child of that name
    Each,     // each child of that name
    InOrder,  // the children of several names, in the node's order
    Rule,
};

struct XmemlField {
    FieldKind kind;
    XmemlRule rule = {};
    Name name = {};
    Name property = name;
    std::string_view text = {};             // default, fixed text
    std::string_view element = name.View(); // row of a child
    std::span<const Name> names = {};
};

enum class AttributeKind : std::uint8_t {
    Always,  // name="value"
    Present, // the same if the node has the property
    Equal,   // the same if the value is `text`
    Fixed,   // name="text"
    List,    // each name of a side table that the node has
};

struct XmemlAttribute {
    AttributeKind kind;
    Name name = {};
    std::string_view text = {};
    std::span<const Name> (*list)() = nullptr;
};

struct XmemlElement {
    std::string_view name; // the tag, or the row's own name where a tag has several forms
    Name tag;
    std::span<const XmemlField> fields;
    std::span<const XmemlAttribute> attributes = {};
    bool selfClosed = false;
};

// Null for a name that is not written.
const XmemlElement* FindXmemlElement(std::string_view name);

} // namespace XPJ
