// The rows of which the table of project classes is made.
#pragma once

#include "tree/field_use.h"
#include "tree/object.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

enum class RowKind : std::uint8_t {
    Part,         // <Tag Version="V">, whose fields count only there; of the object's node
    Member,       // the same, a node of its own
    Wrapper,      // the same, transparent for the reader
    End,          // </Tag>
    Include,      // the rows of a block that several classes share
    Fixed,        // <Tag>text</Tag>
    FixedIf,      // the same if the node has the property `key`
    FixedUnless,  // the same if it lacks the property `tag`
    Value,        // <Tag>value of `key`</Tag>, or of `text`; none if the node and the row lack it
    PropertyList, // one such line for each name of a list

    Reference,     // <Tag ObjectRef="N"/>, the first child `key`
    ReferenceList, // <Tag Index="I" ObjectRef="N"/> for each child `key`, or each of the child
                   // `via`
    Pairs,         // <Tag Version="1" Index="I">, <First>, <Second ObjectRef="N"/> for each child

    GuidReference,         // <Tag ObjectURef="G"/>; a missing child is an error
    OptionalGuidReference, // the same, skipped when there is no child
    GuidList,              // <Tag Index="I" ObjectURef="G" /> for each child

    Blob,         // <Tag Encoding="base64" Checksum="C">data</Tag>, checksum under `key`
    SharedBlob,   // the same; without data <Tag Encoding="base64" Checksum=""/>
    AudioLayout,  // the property, else built from channel type and count, else mono
    MarkerRecord, // the JSON record of a marker

    ReadLeaf, // not written
    ReadPart, // not written; other classes state its fields
};

struct BodyRow {
    RowKind kind;
    unsigned version = 0;
    Name tag;
    FieldUse use = {};
    Name key = tag; // property or child; the property of `First` in a pair
    Name via = {};  // the child that holds a list's children, itself by default
    std::string_view text = {};
    std::span<const Name> (*list)() = nullptr;
    std::span<const BodyRow> rows = {};
    bool isNoted = false; // of a part: one that was read is a property of its name, without value
};

// How rows are written in the table.
namespace ClassRows {

constexpr BodyRow Part(Name tag, unsigned version)
{
    return {.kind = RowKind::Part, .version = version, .tag = tag};
}

// A part that means something without content.
constexpr BodyRow NotedPart(Name tag, unsigned version)
{
    return {.kind = RowKind::Part, .version = version, .tag = tag, .isNoted = true};
}

constexpr BodyRow Member(Name tag, unsigned version)
{
    return {.kind = RowKind::Member, .version = version, .tag = tag};
}

constexpr BodyRow Wrapper(Name tag, unsigned version)
{
    return {.kind = RowKind::Wrapper, .version = version, .tag = tag};
}

constexpr BodyRow End(Name tag)
{
    return {.kind = RowKind::End, .tag = tag};
}

constexpr BodyRow Include(std::span<const BodyRow> rows)
{
    return {.kind = RowKind::Include, .tag = {}, .rows = rows};
}

constexpr BodyRow ReadLeaf(Name tag, FieldUse use)
{
    return {.kind = RowKind::ReadLeaf, .tag = tag, .use = use};
}

constexpr BodyRow ReadList(std::span<const Name> (*list)(), FieldUse use)
{
    return {.kind = RowKind::ReadLeaf, .tag = {}, .use = use, .list = list};
}

constexpr BodyRow ReadPart(Name tag, FieldUse use)
{
    return {.kind = RowKind::ReadPart, .tag = tag, .use = use};
}

constexpr FieldUse kConstantValue = WriteOnly("always the same");

constexpr BodyRow Fixed(Name tag, std::string_view text, FieldUse use = kConstantValue)
{
    return {.kind = RowKind::Fixed, .tag = tag, .use = use, .text = text};
}

constexpr BodyRow FixedIf(Name key, Name tag, std::string_view text)
{
    return {.kind = RowKind::FixedIf, .tag = tag, .use = kConstantValue, .key = key, .text = text};
}

constexpr BodyRow FixedUnless(Name tag, std::string_view text)
{
    return {.kind = RowKind::FixedUnless, .tag = tag, .use = kConstantValue, .text = text};
}

constexpr BodyRow Value(Name tag, FieldUse use = {})
{
    return {.kind = RowKind::Value, .tag = tag, .use = use};
}

// Nodes that don't have the property have `usual`.
constexpr BodyRow ValueOr(Name tag, std::string_view usual, FieldUse use = {})
{
    return {.kind = RowKind::Value, .tag = tag, .use = use, .text = usual};
}

constexpr BodyRow ValueAs(Name tag, Name key, FieldUse use = {})
{
    return {.kind = RowKind::Value, .tag = tag, .use = use, .key = key};
}

constexpr BodyRow PropertyList(std::span<const Name> (*list)())
{
    return {.kind = RowKind::PropertyList, .tag = {}, .list = list};
}

constexpr BodyRow Reference(Name tag, FieldUse use = {})
{
    return {.kind = RowKind::Reference, .tag = tag, .use = use};
}

constexpr BodyRow ReferenceList(Name tag, FieldUse use = {})
{
    return {.kind = RowKind::ReferenceList, .tag = tag, .use = use};
}

constexpr BodyRow ReferencesVia(Name tag, Name via)
{
    return {.kind = RowKind::ReferenceList, .tag = tag, .via = via};
}

// `missing` is written for a child without the property of `First`.
constexpr BodyRow Pairs(Name tag, Name first, std::string_view missing = {})
{
    return {.kind = RowKind::Pairs, .tag = tag, .key = first, .text = missing};
}

constexpr BodyRow GuidReference(Name tag)
{
    return {.kind = RowKind::GuidReference, .tag = tag};
}

constexpr BodyRow OptionalGuidReference(Name tag, FieldUse use = {})
{
    return {.kind = RowKind::OptionalGuidReference, .tag = tag, .use = use};
}

constexpr BodyRow GuidList(Name tag)
{
    return {.kind = RowKind::GuidList, .tag = tag};
}

constexpr BodyRow Blob(Name tag, Name checksum)
{
    return {.kind = RowKind::Blob, .tag = tag, .key = checksum};
}

constexpr BodyRow SharedBlob(Name tag, Name checksum)
{
    return {.kind = RowKind::SharedBlob, .tag = tag, .key = checksum};
}

constexpr BodyRow AudioLayout(Name tag)
{
    return {.kind = RowKind::AudioLayout, .tag = tag, .use = WriteOnly("the media states it")};
}

constexpr BodyRow MarkerRecord(Name tag)
{
    return {.kind = RowKind::MarkerRecord, .tag = tag};
}

} // namespace ClassRows

} // namespace XPJ
