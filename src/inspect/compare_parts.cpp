#include "inspect/compare_parts.h"

#include "inspect/matching.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

void CompareParameters(const ComparedSubject& subject, const std::string& prefix,
                       const TimecodeFormat& format, const std::vector<Parameter>& a,
                       const std::vector<Parameter>& b, DifferenceList& differences)
{
    Matching matching(a.size(), b.size());
    MatchBy(matching, a, b,
            [](const Parameter& parameter) { return std::string_view(parameter.name); });
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::string name = prefix + a[i].name;
        if (const std::size_t partner = matching.PartnerInB(i); partner != kNothing) {
            differences.CompareTexts(subject, name, a[i].value, b[partner].value);
            CompareKeyframes(subject, name, format, a[i].keyframes, b[partner].keyframes,
                             differences);
        } else {
            differences.Add(subject, Change::Lost, name, a[i].value);
        }
    }
    for (std::size_t i = 0; i < b.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            differences.Add(subject, Change::Added, prefix + b[i].name, {}, b[i].value);
}

// One difference for the whole list: the first keyframe that differs.
void CompareKeyframes(const ComparedSubject& subject, const std::string& property,
                      const TimecodeFormat& format, const std::vector<Keyframe>& a,
                      const std::vector<Keyframe>& b, DifferenceList& differences)
{
    const auto [first, second] = std::ranges::mismatch(a, b);
    if (first == a.end() && second == b.end())
        return;
    const auto text = [&](const std::vector<Keyframe>& list, auto at) {
        const std::string count = fmt::format("{} keyframes", list.size());
        return at == list.end()
                   ? count
                   : fmt::format("{}, {} at {}", count, at->value, format.Timecode(at->time));
    };
    differences.Add(subject, Change::Changed, property + " keyframes", text(a, first),
                    text(b, second));
}

void CompareEffects(const ComparedSubject& subject, const Item& a, const Item& b,
                    EffectComparison counts, DifferenceList& differences)
{
    Matching matching(a.effects.size(), b.effects.size());
    MatchBy(matching, a.effects, b.effects,
            [](const Effect& effect) { return std::string_view(effect.name); });
    const auto isCounted = [&](const Effect& effect) { return counts.titles || !effect.isTitle; };
    for (std::size_t i = 0; i < a.effects.size(); ++i) {
        const Effect& effect = a.effects[i];
        if (matching.PartnerInB(i) == kNothing) {
            if (isCounted(effect))
                differences.Add(subject, Change::Lost, "effect", effect.name);
            continue;
        }
        const Effect& other = b.effects[matching.PartnerInB(i)];
        differences.CompareSwitches(subject, "effect " + effect.name, effect.enabled,
                                    other.enabled);
        if (counts.parameters)
            CompareParameters(subject, effect.name + ": ", a.sourceFormat, effect.parameters,
                              other.parameters, differences);
    }
    for (std::size_t i = 0; i < b.effects.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && isCounted(b.effects[i]))
            differences.Add(subject, Change::Added, "effect", {}, b.effects[i].name);
}

void CompareMarkers(const std::string& owner, const TimecodeFormat& format,
                    const std::vector<Marker>& a, const std::vector<Marker>& b,
                    DifferenceList& differences)
{
    Matching matching(a.size(), b.size());
    MatchBy(matching, a, b, [](const Marker& marker) {
        return std::pair(marker.start, std::string_view(marker.name));
    });
    MatchBy(matching, a, b, [](const Marker& marker) { return std::string_view(marker.name); });
    MatchBy(matching, a, b, [](const Marker& marker) { return marker.start; });
    const auto subjectOf = [&](const Marker& marker) {
        return ComparedSubject{Subject::Marker, owner, marker.name, marker.start,
                               owner.empty() ? nullptr : &format};
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        const ComparedSubject subject = subjectOf(a[i]);
        if (matching.PartnerInB(i) == kNothing) {
            differences.Add(subject, Change::Lost);
            continue;
        }
        const Marker& other = b[matching.PartnerInB(i)];
        differences.CompareTimes(subject, "start", format, a[i].start, other.start, Change::Moved);
        differences.CompareTimes(subject, "duration", format, a[i].duration, other.duration);
        differences.CompareTexts(subject, "name", a[i].name, other.name);
        differences.CompareTexts(subject, "comment", a[i].comment, other.comment);
    }
    for (std::size_t i = 0; i < b.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            differences.Add(subjectOf(b[i]), Change::Added);
}

} // namespace XPJ::Inspection
