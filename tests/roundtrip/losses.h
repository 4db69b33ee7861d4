// What does not survive the way through both documents, by design.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace XPJ {

struct Loss {
    std::string document;   // file name without extension; "*" for all
    std::string difference; // a line of the comparison; "*" matches any text
    std::string why;
};

// Between a project and what comes back when its XML document is imported.
std::span<const Loss> LossesOfProjects();

// Between that XML document and the one that the returned project gives: what goes on changing.
std::span<const Loss> LossesOfSecondPass();

// Null for a difference that nobody lists.
const Loss* FindLoss(std::span<const Loss> losses, std::string_view document,
                     std::string_view difference);

} // namespace XPJ
