#include "inspect/effect_table.h"

#include "effects/effect_list.h"
#include "inspect/columns.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

std::string Cell(std::string_view text)
{
    std::string cell;
    for (const char c : text) {
        if (c == '|')
            cell += '\\';
        cell += c == '\n' ? ' ' : c;
    }
    return cell;
}

std::string ParametersOf(const EffectListing& effect, bool takesKeyframes)
{
    std::string names;
    for (const ListedParameter& parameter : effect.parameters)
        if (parameter.takesKeyframes == takesKeyframes)
            names.append(names.empty() ? "" : ", ").append(Cell(parameter.name));
    return names;
}

// The condition, then the note in parentheses, in lines of that width; at least one.
std::vector<std::string> RemarksOn(const EffectListing& effect, std::size_t width)
{
    std::vector<std::string> lines;
    if (!effect.onlyWhen.empty())
        lines = WrappedLines(effect.onlyWhen, width);
    if (!effect.note.empty() || lines.empty())
        std::ranges::move(
            WrappedLines(effect.note.empty() ? "" : fmt::format("({})", effect.note), width),
            std::back_inserter(lines));
    return lines;
}

} // namespace

std::string EffectTable()
{
    std::string text =
        "| Family | Effect | `effectid` | Outcome | Only when | Parameters with "
        "keyframes | Parameters without | Note |\n|---|---|---|---|---|---|---|---|\n";
    for (const EffectListing& effect : ListEffects())
        text += fmt::format("| {} | {} | {} | {} | {} | {} | {} | {} |\n", Cell(effect.family),
                            Cell(effect.name), Cell(effect.effectId), OutcomeText(effect.outcome),
                            Cell(effect.onlyWhen), ParametersOf(effect, true),
                            ParametersOf(effect, false), Cell(effect.note));
    return text;
}

std::string EffectListText()
{
    constexpr std::size_t kEffectWidth = 29;
    constexpr std::size_t kOutcomeWidth = 14;
    constexpr std::size_t kTextWidth = 79 - kEffectWidth - kOutcomeWidth;
    std::string text;
    std::string_view family;
    for (const EffectListing& effect : ListEffects()) {
        if (effect.family != family)
            text += fmt::format("{}{:<{}}{:<{}}Only when, (note)\n", text.empty() ? "" : "\n",
                                effect.family, kEffectWidth, "Outcome", kOutcomeWidth);
        family = effect.family;
        const std::vector<std::string> lines = RemarksOn(effect, kTextWidth);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            text += fmt::format("{:<{}}{:<{}}{}", i > 0 ? "" : fmt::format("  {}", effect.name),
                                kEffectWidth, i > 0 ? "" : OutcomeText(effect.outcome),
                                kOutcomeWidth, lines[i]);
            text.erase(text.find_last_not_of(' ') + 1);
            text += '\n';
        }
    }
    return text;
}

} // namespace XPJ::Inspection
