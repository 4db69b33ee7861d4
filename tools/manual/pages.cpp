#include "manual/pages.h"

#include "inspect/columns.h"

#include <algorithm>

#include <fmt/format.h>

namespace XPJ::Manual {
namespace {

// ---- man ----

// As text of a man page: no character is a command, and what is copied from it are the same ones.
std::string Roff(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        if (character == '\\')
            result += "\\e";
        else if (character == '-')
            result += "\\-";
        else if (character == '"')
            result += "\\(dq";
        else
            result += character;
    }
    return result.starts_with('.') || result.starts_with('\'') ? "\\&" + result : result;
}

std::string RoffLines(std::string_view text)
{
    constexpr std::size_t kWidth = 68; // some characters are longer there
    std::string result;
    for (const std::string& line : Inspection::WrappedLines(text, kWidth))
        result += Roff(line) + "\n";
    return result;
}

std::string UpperCase(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return result;
}

std::string RoffParagraph(std::string_view head, std::string_view text)
{
    return fmt::format(".TP\n.B {}\n{}", Roff(head), RoffLines(text));
}

std::string RoffOptions(const Content& content, std::string_view group)
{
    std::string text;
    for (const Option& option : content.options)
        if (!option.names.empty() && option.group == group)
            text += RoffParagraph(Heading(option), option.description + ".");
    return text;
}

std::string RoffSection(const Section& section)
{
    std::string text = fmt::format(".SH {}\n", Roff(UpperCase(section.title)));
    for (std::size_t i = 0; i < section.rows.size(); ++i) {
        const Row& row = section.rows[i];
        if (!row.text.empty())
            text += RoffParagraph(row.term, row.text);
        else // the first paragraph follows its heading
            text += (i == 0 ? "" : ".PP\n") + RoffLines(row.term);
    }
    return text;
}

// ---- Markdown ----

std::string Cell(std::string_view text)
{
    std::string result;
    for (const char character : text)
        result.append(character == '|' ? "\\" : "").push_back(character);
    return result;
}

std::string Code(std::string_view text)
{
    return "`" + Cell(text) + "`";
}

std::string MarkdownOptions(const Content& content, std::string_view group)
{
    std::string text = group.empty() ? "" : fmt::format("\n### {}\n", group);
    text += "\n| Option | Meaning |\n|---|---|\n";
    for (const Option& option : content.options) {
        if (option.group != group)
            continue;
        text += fmt::format("| {} | {} |\n", Code(Heading(option)), Cell(option.description));
    }
    return text;
}

std::string MarkdownSection(const Section& section)
{
    std::string text = fmt::format("\n## {}\n\n", section.title);
    bool inTable = false;
    for (const Row& row : section.rows) {
        if (row.text.empty()) {
            text += fmt::format("{}{}\n", inTable ? "\n" : "", row.term);
            inTable = false;
            continue;
        }
        text += fmt::format("{}| {} | {} |\n", inTable ? "" : "| | |\n|---|---|\n", Code(row.term),
                            Cell(row.text));
        inTable = true;
    }
    return text;
}

} // namespace

std::string ManualPage(const Content& content, const Release& release)
{
    std::string text =
        fmt::format(".\\\" Printed from the table of options of the tool.\n"
                    ".TH XPJCONVERT 1 {} \"xpjconvert {}\" \"User Commands\"\n"
                    ".SH NAME\n"
                    "xpjconvert \\- convert between Final Cut Pro XML documents and Vela projects\n"
                    ".SH SYNOPSIS\n"
                    ".B xpjconvert\n"
                    "[\\fIOPTIONS\\fR] \\fIINPUT\\fR... [\\fB\\-o\\fR \\fIFILE\\fR|\\fIDIR\\fR]\n"
                    ".SH DESCRIPTION\n{}",
                    release.date, release.version, RoffLines(content.description));
    for (const Option& option : content.options)
        if (option.names.empty())
            text += RoffParagraph(option.value, option.description + ".");
    text += ".SH OPTIONS\n";
    for (const std::string& group : Groups(content)) {
        if (!group.empty())
            text += fmt::format(".SS {}\n", Roff(group));
        text += RoffOptions(content, group);
    }
    for (const Section& section : content.sections)
        text += RoffSection(section);
    text += ".SH SEE ALSO\n"
            "The documents in\n"
            ".IR share/doc/vela\\-fcpxml/docs ,\n"
            "on reports, on inspecting and comparing documents, on effects, and on\n"
            "other programs.\n";
    return text;
}

std::string Reference(const Content& content)
{
    std::string text;
    for (const std::string& group : Groups(content))
        text += MarkdownOptions(content, group);
    for (const Section& section : content.sections)
        text += MarkdownSection(section);
    return text;
}

} // namespace XPJ::Manual
