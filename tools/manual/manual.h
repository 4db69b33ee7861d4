// What the manual of the tool is made of, as the tool's own table of options has it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Manual {

// What a shell completes after an option.
enum class ValueKind {
    None,
    Text, // nothing that could be listed
    File,
    Folder,
    Choice,     // one of a few words
    ChoiceList, // some of them, separated by commas
};

struct Option {
    std::vector<std::string> names; // "-o", "--output"; none for the documents
    std::string value;              // "FILE|DIR"
    std::string description;
    std::string group;
    ValueKind kind = ValueKind::None;
    bool valueIsOptional = false;     // and is then given behind "="
    std::vector<std::string> choices; // of the last two kinds
};

// A line of a section: "2" and "no FCP data in the input"; without text a paragraph.
struct Row {
    std::string term;
    std::string text;
};

// What the help text has below the options: examples, exit statuses.
struct Section {
    std::string title;
    std::vector<Row> rows;
};

struct Content {
    std::string description;
    std::vector<Option> options;
    std::vector<Section> sections;
    std::vector<std::string> extensions; // of the documents, without dots
};

// From the options of the tool.
Content ReadContent();

// The groups of the options in their order, those of no group first.
std::vector<std::string> Groups(const Content& content);

// "-o, --output FILE|DIR"
std::string Heading(const Option& option);

} // namespace XPJ::Manual
