#include "manual/completions.h"

#include <algorithm>

#include <fmt/format.h>

namespace XPJ::Manual {
namespace {

std::string Joined(const std::vector<std::string>& parts, std::string_view separator)
{
    std::string text;
    for (const std::string& part : parts)
        text.append(text.empty() ? "" : separator).append(part);
    return text;
}

// In single quotes, for bash and zsh: they end where the text has one.
std::string PosixQuoted(std::string_view text)
{
    std::string result = "'";
    for (const char character : text)
        result += character == '\'' ? "'\\''" : std::string(1, character);
    return result + "'";
}

// ---- bash ----

// What runs when an option's value is completed.
std::string BashValue(const Option& option)
{
    switch (option.kind) {
    case ValueKind::File:
        return "_xpjconvert_files";
    case ValueKind::Folder:
        return "_xpjconvert_folders";
    case ValueKind::Choice:
        return "_xpjconvert_words " + Joined(option.choices, " ");
    case ValueKind::ChoiceList: {
        std::string words;
        for (const std::string& choice : option.choices)
            words += " " + PosixQuoted(choice);
        return "_xpjconvert_list" + words;
    }
    case ValueKind::None:
    case ValueKind::Text:
        break;
    }
    return ":";
}

constexpr const char* kBashHead =
    R"(# bash completion for xpjconvert; printed from the options of the tool.

# Each of these completes $current.
_xpjconvert_words()
{
    mapfile -t COMPREPLY < <(compgen -W "$*" -- "$current")
}

_xpjconvert_files()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

_xpjconvert_folders()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
}

# The last of several words with commas in between.
_xpjconvert_list()
{
    local word plain=${current//\\/} before=
    [[ $plain == *,* ]] && before=${plain%,*},
    compopt -o filenames -o nospace 2>/dev/null
    for word in "$@"; do
        [[ $word == "${plain#"$before"}"* ]] && COMPREPLY+=("$before$word")
    done
}

)";

std::string AnyCase(std::string_view extension)
{
    std::string pattern;
    for (const char c : extension)
        pattern += c >= 'a' && c <= 'z' ? fmt::format("[{}{}]", c, static_cast<char>(c - 'a' + 'A'))
                                        : std::string(1, c);
    return pattern;
}

std::string BashDocuments(const Content& content)
{
    std::string text = "_xpjconvert_documents()\n{\n    local files folders=()\n"
                       "    compopt -o filenames 2>/dev/null\n"
                       "    mapfile -t folders < <(compgen -d -- \"$current\")\n"
                       "    COMPREPLY=(\"${folders[@]}\")\n";
    for (const std::string& extension : content.extensions)
        text += fmt::format("    mapfile -t files < <(compgen -f -X '!*.{}' -- \"$current\")\n"
                            "    COMPREPLY+=(\"${{files[@]}}\")\n",
                            AnyCase(extension));
    return text + "}\n\n";
}

// ---- zsh ----

// Inside a specification of _arguments.
std::string ZshText(std::string_view text)
{
    std::string result;
    for (const char character : text)
        result
            .append(std::string_view("[]:\\").find(character) != std::string_view::npos ? "\\" : "")
            .push_back(character);
    return result;
}

std::string ZshAction(const Option& option)
{
    switch (option.kind) {
    case ValueKind::File:
        return "_files";
    case ValueKind::Folder:
        return "_files -/";
    case ValueKind::Choice:
        return "(" + Joined(option.choices, " ") + ")";
    case ValueKind::ChoiceList: {
        std::string words;
        for (const std::string& choice : option.choices)
            words += " \"" + choice + "\"";
        return "_values -s , value" + words;
    }
    case ValueKind::None:
    case ValueKind::Text:
        break;
    }
    return " ";
}

// '(-o --output)'{-o+,--output=}'[The file]:FILE:_files'
std::string ZshOption(const Option& option)
{
    std::vector<std::string> names;
    for (const std::string& name : option.names) {
        std::string_view valueMark;
        if (option.valueIsOptional)
            valueMark = "=-";
        else if (option.kind != ValueKind::None)
            valueMark = name.starts_with("--") ? "=" : "+";
        names.push_back(name + std::string(valueMark));
    }
    std::string rest = "[" + ZshText(option.description) + "]";
    if (option.kind != ValueKind::None)
        rest += fmt::format("{}{}:{}", option.valueIsOptional ? "::" : ":", ZshText(option.value),
                            ZshAction(option));
    const std::string head =
        names.size() == 1
            ? names.front()
            : fmt::format("'({})'{{{}}}", Joined(option.names, " "), Joined(names, ","));
    return names.size() == 1 ? PosixQuoted("*" + head + rest) : head + PosixQuoted(rest);
}

// ---- fish ----

std::string FishQuoted(std::string_view text)
{
    std::string result = "'";
    for (const char character : text)
        result.append(character == '\'' || character == '\\' ? "\\" : "").push_back(character);
    return result + "'";
}

std::string FishValue(const Option& option)
{
    switch (option.kind) {
    case ValueKind::File:
        return " -r -F";
    case ValueKind::Folder:
        return " -x -a '(__fish_complete_directories)'";
    case ValueKind::Choice:
        return (option.valueIsOptional ? " -f -a " : " -x -a ") +
               FishQuoted(Joined(option.choices, " "));
    case ValueKind::ChoiceList: {
        std::string words;
        for (const std::string& choice : option.choices)
            words += " \"" + choice + "\"";
        return " -x -a " + FishQuoted("(__fish_append , (printf '%s\\n'" + words + "))");
    }
    case ValueKind::Text:
        return " -x";
    case ValueKind::None:
        break;
    }
    return " -f";
}

} // namespace

std::string BashCompletion(const Content& content)
{
    std::string names;
    std::string cases;
    std::string optionalCases;
    for (const Option& option : content.options) {
        if (option.names.empty())
            continue;
        names += " " + Joined(option.names, " ");
        if (option.kind == ValueKind::None)
            continue;
        (option.valueIsOptional ? optionalCases : cases) +=
            fmt::format("    {}) {}; return ;;\n", Joined(option.names, "|"), BashValue(option));
    }
    std::string text = kBashHead + BashDocuments(content);
    text += "_xpjconvert()\n{\n"
            "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
            "    local behind_equals=false\n"
            "    COMPREPLY=()\n"
            "    # bash makes three words of \"--from=xmeml\".\n"
            "    if [[ $current == = ]]; then\n"
            "        behind_equals=true current=\n"
            "    elif [[ $previous == = ]]; then\n"
            "        behind_equals=true previous=${COMP_WORDS[COMP_CWORD-2]}\n"
            "    fi\n"
            "    case $previous in\n" +
            cases + "    esac\n";
    if (!optionalCases.empty())
        text += "    $behind_equals && case $previous in\n" + optionalCases + "    esac\n";
    text += "    if [[ $current == -* ]]; then\n"
            "        _xpjconvert_words" +
            names +
            "\n    else\n"
            "        _xpjconvert_documents\n"
            "    fi\n}\n\n"
            "complete -F _xpjconvert xpjconvert\n";
    return text;
}

std::string ZshCompletion(const Content& content)
{
    std::string text =
        "#compdef xpjconvert\n# Printed from the options of the tool.\n\n_arguments -s -S";
    for (const Option& option : content.options)
        if (!option.names.empty())
            text += " \\\n    " + ZshOption(option);
    return text + fmt::format(" \\\n    '*:document:_files -g \"(#i)*.({})(-.)\"'\n",
                              Joined(content.extensions, "|"));
}

std::string FishCompletion(const Content& content)
{
    std::string text = "# Completion for xpjconvert; printed from the options of the tool.\n";
    std::string suffixes;
    for (const std::string& extension : content.extensions)
        suffixes += " ." + extension;
    text += fmt::format("complete -c xpjconvert -f -a '(__fish_complete_suffix{})'\n", suffixes);
    for (const Option& option : content.options) {
        if (option.names.empty())
            continue;
        text += "complete -c xpjconvert";
        for (const std::string& name : option.names)
            text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
        text += FishValue(option) + " -d " + FishQuoted(option.description) + "\n";
    }
    return text;
}

} // namespace XPJ::Manual
