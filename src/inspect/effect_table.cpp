#include "inspect/effect_table.h"

#include "effects/effect_list.h"

#include <string_view>

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

} // namespace

std::string EffectTableText()
{
    std::string text = "| Family | Effect | `effectid` | Outcome | Parameters with keyframes | "
                       "Parameters without | Note |\n|---|---|---|---|---|---|---|\n";
    for (const EffectListing& effect : ListEffects())
        text +=
            fmt::format("| {} | {} | {} | {} | {} | {} | {} |\n", Cell(effect.family),
                        Cell(effect.name), Cell(effect.effectId), OutcomeText(effect.outcome),
                        ParametersOf(effect, true), ParametersOf(effect, false), Cell(effect.note));
    return text;
}

} // namespace XPJ::Inspection
