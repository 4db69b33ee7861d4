// The rows of which the table of `xmeml` elements is made.
#pragma once

#include "tree/field_use.h"
#include "tree/object.h"

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

// How rows are written in the table.
namespace ElementRows {

// No document type of the format has it: it brings exact values back, and other readers skip it.
// Documents can be written without additions, and are then valid.
constexpr FieldUse Addition(FieldUse use = {})
{
    use.isAddition = true;
    return use;
}

constexpr XmemlField Required(Name name, FieldUse use = {})
{
    return {.kind = FieldKind::Required, .name = name, .use = use};
}

constexpr XmemlField RequiredOr(Name name, std::string_view missing)
{
    return {.kind = FieldKind::Required, .name = name, .text = missing};
}

constexpr XmemlField RequiredFrom(Name property, Name name)
{
    return {.kind = FieldKind::Required, .name = name, .property = property};
}

constexpr XmemlField Leaf(Name name, FieldUse use = {})
{
    return {.kind = FieldKind::Leaf, .name = name, .use = use};
}

constexpr XmemlField Fixed(Name name, std::string_view text, FieldUse use)
{
    return {.kind = FieldKind::Fixed, .name = name, .use = use, .text = text};
}

constexpr XmemlField LeafBy(XmemlRule rule, Name name, FieldUse use = {})
{
    return {.kind = FieldKind::LeafBy, .name = name, .use = use, .rule = rule};
}

constexpr XmemlField Child(Name name, FieldUse use = {})
{
    return {.kind = FieldKind::Child, .name = name, .use = use};
}

constexpr XmemlField ReferableChild(Name name, Name reference, FieldUse use = {})
{
    return {.kind = FieldKind::Child, .name = name, .use = use, .reference = reference};
}

// A child that is written by a row of its own.
constexpr XmemlField ChildAs(Name name, std::string_view element)
{
    return {.kind = FieldKind::Child, .name = name, .element = element};
}

constexpr XmemlField Each(Name name, FieldUse use = {})
{
    return {.kind = FieldKind::Each, .name = name, .use = use};
}

constexpr XmemlField ReferableEach(Name name, Name reference)
{
    return {.kind = FieldKind::Each, .name = name, .reference = reference};
}

constexpr XmemlField Mixed(Name name, FieldUse use = {})
{
    return {.kind = FieldKind::Mixed, .name = name, .use = use};
}

constexpr XmemlField ReferableMixed(Name name, Name reference)
{
    return {.kind = FieldKind::Mixed, .name = name, .reference = reference};
}

constexpr XmemlField WholeOrReference(Name name, Name reference, FieldUse use = {})
{
    return {.kind = FieldKind::Whole, .name = name, .use = use, .reference = reference};
}

constexpr XmemlField ChildBy(XmemlRule rule, Name name)
{
    return {.kind = FieldKind::ChildBy, .name = name, .rule = rule};
}

constexpr XmemlAttribute Always(Name name)
{
    return {.kind = AttributeKind::Always, .name = name};
}

constexpr XmemlAttribute Present(Name name, FieldUse use = {})
{
    return {.kind = AttributeKind::Present, .name = name, .use = use};
}

constexpr XmemlAttribute Equal(Name name, std::string_view text, FieldUse use = {})
{
    return {.kind = AttributeKind::Equal, .name = name, .use = use, .text = text};
}

constexpr XmemlAttribute FixedText(Name name, std::string_view text, FieldUse use = {})
{
    return {.kind = AttributeKind::Fixed, .name = name, .use = use, .text = text};
}

constexpr XmemlAttribute ListOf(std::span<const Name> (*list)(), FieldUse use = {})
{
    return {.kind = AttributeKind::List, .use = use, .list = list};
}

constexpr XmemlAttribute OrLeaf(XmemlAttribute attribute, FieldUse use = {})
{
    attribute.isLeafToo = true;
    if (!use.reason.empty())
        attribute.use = use;
    return attribute;
}

} // namespace ElementRows

} // namespace XPJ
