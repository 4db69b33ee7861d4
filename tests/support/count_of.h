// How often a part is in a text.
#pragma once

#include <cstddef>
#include <string_view>

namespace XPJ {

inline std::size_t CountOf(std::string_view text, std::string_view part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

} // namespace XPJ
