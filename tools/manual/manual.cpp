#include "manual/manual.h"

#include "frame/formats.h"
#include "inspect/columns.h"
#include "inspect/ignored.h"
#include "xpjconvert/options.h"

#include <algorithm>
#include <sstream>
#include <string>

#include <CLI/CLI.hpp>

namespace XPJ::Manual {
namespace {

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        part.erase(0, part.find_first_not_of(' '));
        if (!part.empty())
            parts.push_back(part);
    }
    return parts;
}

// The check of a set describes itself as "{full,summary}".
std::vector<std::string> Choices(CLI::Option& option)
{
    if (option.check_lname("ignore"))
        return Split(Inspection::IgnorableNames(), ',');
    try {
        const std::string set = option.get_validator(0)->get_description();
        if (set.size() > 2 && set.front() == '{' && set.back() == '}')
            return Split(set.substr(1, set.size() - 2), ',');
    } catch (const CLI::OptionNotFound&) {
        // an option without any check
    }
    return {};
}

ValueKind KindOf(const Option& option)
{
    if (option.value.empty())
        return ValueKind::None;
    if (!option.choices.empty())
        return option.value.ends_with(",...") ? ValueKind::ChoiceList : ValueKind::Choice;
    if (option.value.find("FILE") != option.value.npos || option.value == "CSV" ||
        option.names.empty())
        return ValueKind::File;
    return option.value == "DIR" ? ValueKind::Folder : ValueKind::Text;
}

Option Read(CLI::Option& source)
{
    Option option;
    for (const std::string& name : source.get_snames())
        option.names.push_back("-" + name);
    for (const std::string& name : source.get_lnames())
        option.names.push_back("--" + name);
    option.value = source.get_option_text();
    option.description = source.get_description();
    option.group =
        option.names.empty() || source.get_group() == "Options" ? "" : source.get_group();
    option.choices = Choices(source);
    option.kind = KindOf(option);
    option.valueIsOptional = option.value.starts_with('[');
    // "-j archive": the number may be missing, and what follows is a document then.
    if (source.check_lname("jobs"))
        option.kind = ValueKind::None;
    return option;
}

void Append(std::string& text, const std::string& more)
{
    text.append(text.empty() ? "" : " ").append(more);
}

// Rows are indented by two; what is indented further continues the row above.
//   "  2   no FCP data in the input"
void ReadRow(const std::string& line, std::vector<Row>& rows)
{
    constexpr std::size_t kIndent = 2;
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin > kIndent && !rows.empty()) {
        Append(rows.back().text, line.substr(begin));
        return;
    }
    const std::size_t gap = line.find("  ", begin);
    if (gap != line.npos)
        rows.push_back(
            {line.substr(begin, gap - begin), line.substr(line.find_first_not_of(' ', gap))});
    else if (!rows.empty() && rows.back().text.empty() && rows.back().term.find(' ') != line.npos &&
             !rows.back().term.starts_with("xpjconvert"))
        Append(rows.back().term, line.substr(begin)); // the same paragraph
    else
        rows.push_back({line.substr(begin), ""});
}

std::vector<Section> ReadSections(const std::string& footer)
{
    std::vector<Section> sections;
    std::istringstream lines(footer);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty())
            continue;
        if (line.front() != ' ')
            sections.push_back({line.substr(0, line.find_last_not_of(':') + 1), {}});
        else if (!sections.empty())
            ReadRow(line, sections.back().rows);
    }
    return sections;
}

} // namespace

Content ReadContent()
{
    CommandLine line;
    CLI::App app;
    AddOptions(app, line);
    Content content;
    for (const std::string& words :
         Inspection::WrappedLines(app.get_description(), std::string::npos))
        content.description = words;
    for (CLI::Option* const option : app.get_options())
        content.options.push_back(Read(*option));
    content.sections = ReadSections(app.get_footer());
    for (const Format& format : AllFormats())
        if (std::ranges::find(content.extensions, format.extension) == content.extensions.end())
            content.extensions.emplace_back(format.extension);
    return content;
}

std::vector<std::string> Groups(const Content& content)
{
    std::vector<std::string> groups = {""};
    for (const Option& option : content.options)
        if (std::ranges::find(groups, option.group) == groups.end())
            groups.push_back(option.group);
    return groups;
}

std::string Heading(const Option& option)
{
    std::string text;
    for (const std::string& name : option.names)
        text.append(text.empty() ? "" : ", ").append(name);
    const bool needsSpace = !text.empty() && !option.value.empty() && !option.valueIsOptional;
    return text.append(needsSpace ? " " : "").append(option.value);
}

} // namespace XPJ::Manual
