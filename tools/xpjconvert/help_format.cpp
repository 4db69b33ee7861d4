#include "xpjconvert/help_format.h"

#include "inspect/columns.h"

namespace XPJ {
namespace {

constexpr std::size_t kWidth = 79;
constexpr std::size_t kIndent = 28; // of descriptions

} // namespace

std::string OptionHeading(const CLI::Option& option)
{
    if (option.get_positional())
        return option.get_option_text();
    std::string names;
    for (const std::string& name : option.get_snames())
        names.append(names.empty() ? "" : ", ").append("-").append(name);
    for (const std::string& name : option.get_lnames())
        names.append(names.empty() ? "" : ", ").append("--").append(name);
    const std::string& value = option.get_option_text();
    return value.empty() ? names : names.append(value.starts_with('[') ? "" : " ").append(value);
}

std::string HelpFormat::make_usage(const CLI::App* /*app*/, std::string name) const
{
    return "Usage: " + name + " [OPTIONS] INPUT... [-o FILE|DIR]\n";
}

std::string HelpFormat::make_positionals(const CLI::App* app) const
{
    std::string text = "\n";
    for (const CLI::Option* option :
         app->get_options([](const CLI::Option* one) { return one->get_positional(); }))
        text += make_option(option, true);
    return text;
}

std::string HelpFormat::make_group(std::string group, bool isPositional,
                                   std::vector<const CLI::Option*> options) const
{
    std::string text = group + ":\n";
    for (const CLI::Option* option : options)
        text += make_option(option, isPositional);
    return text;
}

std::string HelpFormat::make_option(const CLI::Option* option, bool /*isPositional*/) const
{
    std::string text = "  " + OptionHeading(*option);
    std::size_t column = text.size();
    for (const std::string& line :
         Inspection::WrappedLines(option->get_description(), kWidth - kIndent)) {
        if (column + 2 > kIndent) {
            text += '\n';
            column = 0;
        }
        text.append(kIndent - column, ' ').append(line).append("\n");
        column = 0;
    }
    return text;
}

} // namespace XPJ
