// The manual as pages for people.
#pragma once

#include "manual/manual.h"

namespace XPJ::Manual {

struct Release {
    std::string_view version;
    std::string_view date; // year-month-day
};

// For `man`, section 1.
std::string ManualPage(const Content& content, const Release& release);

// In Markdown, without a title: the options and the sections of the help text, as tables.
std::string Reference(const Content& content);

} // namespace XPJ::Manual
