// What a writer and its reader do not carry, for the tests of both vocabularies.
#pragma once

#include <map>
#include <set>
#include <string>

namespace XPJ {

// Lost names by the class or element that holds them, sorted.
using Losses = std::map<std::string, std::set<std::string>>;

// A line for each holder.
inline std::string Print(const Losses& losses)
{
    std::string text;
    for (const auto& [holder, names] : losses) {
        text += holder + ":";
        for (const std::string& name : names)
            text += " " + name;
        text += "\n";
    }
    return text;
}

} // namespace XPJ
