#include "inspect/effect_names.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/values.h"

#include <algorithm>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

std::string OwnName(std::string_view name, std::string_view id)
{
    return UnescapeXML(name.empty() ? id : name);
}

// Null for what the converter doesn't know.
const EffectListing* FindById(bool isTransition, std::string_view effectId)
{
    if (effectId.empty())
        return nullptr;
    for (const EffectListing& row : KnownEffects())
        if (row.isTransition == isTransition && effectId == row.effectId)
            return &row;
    return nullptr;
}

// The longest beginning counts: "Matte" is one of "Matte 8", which has a row of its own.
const EffectListing* FindByMatch(bool isTransition, std::string_view matchName)
{
    const EffectListing* found = nullptr;
    for (const EffectListing& row : KnownEffects())
        if (row.isTransition == isTransition && !row.matchName.empty() &&
            matchName.starts_with(row.matchName) &&
            (!found || row.matchName.size() > found->matchName.size()))
            found = &row;
    return found;
}

// The name of an effect may be an id. One without an id goes by its name.
const EffectListing* FindByName(std::string_view name, bool hasId)
{
    if (name.empty())
        return nullptr;
    for (const EffectListing& row : KnownEffects())
        if (!row.isTransition && (name == row.effectId || (!hasId && name == row.effectName)))
            return &row;
    return nullptr;
}

// What has no name for people goes by its own.
std::string NameOf(const EffectListing* row, std::string_view name, std::string_view id)
{
    return row && !row->userName.empty() ? std::string(row->userName) : OwnName(name, id);
}

bool IsNameOf(const EffectListing& row, std::string_view name)
{
    return name.empty() || name == row.effectId || name == row.effectName ||
           name == row.displayName || name == row.userName;
}

Effect Named(const EffectListing* row, std::string name, std::string_view given)
{
    Effect effect{.kind = row ? KindOf(*row) : name};
    if (row && !IsNameOf(*row, given))
        effect.ownName = UnescapeXML(given);
    effect.name = std::move(name);
    return effect;
}

// Longer texts are data, not text for people.
constexpr std::size_t kLongestValue = 64;

bool IsNumber(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    const auto isPart = [](char c) { return (c >= '0' && c <= '9') || c == '.'; };
    const auto end =
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(sign), text.end(), isPart);
    return end == text.end() && text.size() > sign && std::count(text.begin(), text.end(), '.') < 2;
}

std::string PlainPart(std::string_view part)
{
    return IsNumber(part) ? NumberText(ParseDouble(part)) : std::string(part);
}

} // namespace

std::string KindOf(const EffectListing& row)
{
    for (const std::string_view name : {row.userName, row.effectName, row.effectId})
        if (!name.empty())
            return std::string(name);
    return std::string(row.displayName);
}

Effect NamedById(std::string_view effectId, std::string_view name)
{
    const EffectListing* const row = FindById(false, effectId);
    return Named(row ? row : FindByName(name, !effectId.empty()), NameOf(row, name, effectId),
                 name);
}

Effect NamedByMatch(std::string_view matchName, std::string_view displayName,
                    std::string_view instanceName)
{
    const EffectListing* const row = FindByMatch(false, matchName);
    return Named(row, NameOf(row, displayName, matchName), instanceName);
}

std::string TransitionNameOfId(std::string_view effectId, std::string_view name)
{
    return NameOf(FindById(true, effectId), name, effectId);
}

std::string TransitionNameOfMatch(std::string_view matchName, std::string_view displayName)
{
    return NameOf(FindByMatch(true, matchName), displayName, matchName);
}

std::string PlainText(std::string_view value)
{
    const std::string text = UnescapeXML(Trimmed(value));
    if (text.size() > kLongestValue)
        return fmt::format("{} characters, checksum {}", text.size(), BlobChecksum(text));
    std::string plain;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t to = std::min(text.find(':', from), text.size());
        plain += PlainPart(std::string_view(text).substr(from, to - from));
        if (to < text.size())
            plain += ':';
        from = to + 1;
    }
    return plain;
}

} // namespace XPJ::Inspection
