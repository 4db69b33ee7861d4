// The help text: as wide as a terminal, options in groups.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace XPJ {

class HelpFormat final : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_positionals(const CLI::App* app) const override;
    std::string make_group(std::string group, bool isPositional,
                           std::vector<const CLI::Option*> options) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;
};

// "-o, --output FILE|DIR"
std::string OptionHeading(const CLI::Option& option);

} // namespace XPJ
