// The elements of an `xmeml` document, one row each for both directions: attributes and fields, in
// file order. The reader's rules, the writer and the tables in docs/xmeml.md follow from them.
#pragma once

#include "tree/reading_table.h"
#include "xmeml/element_rows.h"

#include <atomic>
#include <cstdint>
#include <span>
#include <string_view>

namespace XPJ {

// An element with child nodes is what references of its tag and id lead to.
struct Definition {
    enum NoId : std::uint8_t {
        NotEntered,
        EnteredUnderNumber, // under a key that no reference names
        GivenNumber,        // which becomes its id as well
    };
    NoId noId = NotEntered;
    bool firstWins = false; // a second one is not entered, without a report
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

// How freely a document is read. In the open manner elements count where the format has none for
// them (clip items beside `track`s), and attributes are written in any way that XML allows.
enum class ReadingManner { Letter, Open };
constexpr bool IsReadIn(ReadingManner manner, const FieldUse& use)
{
    return use.isRead && (manner == ReadingManner::Open || !use.isOpenOnly);
}

// What the reader takes: for each tag the fields of all its rows. Made at the first call.
const ReadingTable& XmemlReadingTable(ReadingManner manner = ReadingManner::Letter);

} // namespace XPJ
