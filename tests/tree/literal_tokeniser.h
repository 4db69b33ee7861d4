// The tokeniser's state table, written down byte for byte and slowly: what the fast one is held
// against, by the tests and by the fuzz target.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

struct Event {
    enum Kind { Start, SelfClosed, Text, CData, End, SyntaxError };
    Kind kind;
    std::string text; // the name, or the text
    std::string attributes;

    bool operator==(const Event&) const = default;
};

// For a failing test: one event a line.
std::string Describe(const std::vector<Event>& events);

// The events of a whole input, read as an element's content or, with `asLeaf`, as a leaf's.
std::vector<Event> LiteralEvents(std::string_view input, bool asLeaf);
// The same from the tokeniser that the readers use.
std::vector<Event> FastEvents(std::string_view input, bool asLeaf);

} // namespace XPJ
