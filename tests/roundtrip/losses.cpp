#include "roundtrip/losses.h"

#include "support/rows.h"

namespace XPJ {

namespace {

std::vector<Loss> ReadLosses(std::string_view name)
{
    std::vector<Loss> losses;
    for (const std::vector<std::string>& row : ReadRows(name, 3))
        losses.push_back({row[0], row[1], row[2]});
    return losses;
}

// "*" matches any text, also none.
bool Matches(std::string_view text, std::string_view pattern)
{
    std::size_t star = pattern.npos; // the last one met
    std::size_t resume = 0;          // where the text behind it is tried next
    std::size_t at = 0;
    std::size_t i = 0;
    while (i < text.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = at++;
            resume = i;
        } else if (at < pattern.size() && pattern[at] == text[i]) {
            ++at;
            ++i;
        } else if (star != pattern.npos) {
            at = star + 1;
            i = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', at) == pattern.npos;
}

} // namespace

std::span<const Loss> LossesOfProjects()
{
    static const std::vector<Loss> losses = ReadLosses("roundtrip/losses_of_projects.txt");
    return losses;
}

std::span<const Loss> LossesOfSecondPass()
{
    static const std::vector<Loss> losses = ReadLosses("roundtrip/losses_of_a_second_pass.txt");
    return losses;
}

const Loss* FindLoss(std::span<const Loss> losses, std::string_view document,
                     std::string_view difference)
{
    for (const Loss& loss : losses)
        if ((loss.document == "*" || loss.document == document) &&
            Matches(difference, loss.difference))
            return &loss;
    return nullptr;
}

} // namespace XPJ
