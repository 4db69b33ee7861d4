#include "inspect/compare_parts.h"

#include "effects/distort.h"
#include "effects/motion.h"
#include "inspect/matching.h"
#include "inspect/neutral_effects.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

// "2 keyframes, 12.5 at 00:00:08:20", with the keyframe `at`, if there is one.
std::string KeyframesText(const TimecodeFormat& format, const std::vector<Keyframe>& keyframes,
                          std::vector<Keyframe>::const_iterator at)
{
    const std::string count = fmt::format("{} keyframes", keyframes.size());
    return at == keyframes.end()
               ? count
               : fmt::format("{}, {} at {}", count, at->value, format.Timecode(at->time));
}

void CompareParameter(const ComparedSubject& subject, const ComparedParameters& compared,
                      const Parameter& a, const Parameter& b, DifferenceList& differences)
{
    const std::string name = compared.prefix + a.name;
    const std::optional<std::string_view> stillA = StillValue(a);
    const std::optional<std::string_view> stillB = StillValue(b);
    if (!stillA || !stillB)
        CompareKeyframes(subject, {Property::Parameter, name}, compared.format, a.keyframes,
                         b.keyframes, differences);
    else if (!IsSameStillValue(compared.a, compared.family, a, *stillA, *stillB))
        differences.Add(subject, Change::Changed, {Property::Parameter, name}, std::string(*stillA),
                        std::string(*stillB));
}

// ---- Effects

// Projects have no Distort, and no Basic 3D that moves its clip: their Motion does it.
bool IsDoneByMotion(const Effect& effect)
{
    return effect.kind == kBasic3D.xmeml.name ||
           (effect.kind == kDistort.name && IsAspectOnly(effect));
}

bool IsMotion(const Effect& effect)
{
    return effect.kind == kMotion.name;
}

// True for an effect that only scales, by which each family shows pixels of another aspect: a
// document stretches them, a project knows their aspect and scales them where the document doesn't
// stretch them.
bool IsForOtherPixels(const Effect& effect, const ItemOfFamily& own)
{
    return (effect.kind == kDistort.name && IsAspectOnly(effect)) ||
           (IsMotion(effect) && IsScaleOnly(effect, own.family));
}

// True for an effect that the other item, of another family, has as a part of another effect.
bool IsPartOfOther(const Effect& effect, const ItemOfFamily& own, const ItemOfFamily& other)
{
    if ((own.item.hasOtherPixels || other.item.hasOtherPixels) && IsForOtherPixels(effect, own))
        return true;
    if (other.family == Family::Project)
        return IsDoneByMotion(effect) && std::ranges::any_of(other.item.effects, IsMotion);
    return IsMotion(effect) && std::ranges::any_of(other.item.effects, IsDoneByMotion);
}

// Whether an effect counts that the other item doesn't have. What the item shows is compared as its
// source.
bool CountsAlone(const Effect& effect, const ItemOfFamily& own, const ItemOfFamily& other)
{
    if (IsNeutral(effect, own.family))
        return false;
    if (own.family != other.family)
        return !effect.isSource && !IsPartOfOther(effect, own, other);
    return !effect.isSource || own.item.sourceName == other.item.sourceName;
}

void CompareEffect(const ComparedSubject& subject, const ComparedParameters& compared,
                   bool areOfOneFamily, DifferenceList& differences)
{
    const Effect& a = compared.a;
    const Effect& b = compared.b;
    // A project may have a name where its document has none: that of a look's file.
    if (areOfOneFamily || !a.ownName.empty())
        differences.CompareTexts(subject, {Property::EffectName, "name of effect " + a.kind},
                                 a.ownName, b.ownName);
    if (!a.enabled && !b.enabled)
        return;
    differences.CompareSwitches(subject, {Property::Effect, "effect " + a.name}, a.enabled,
                                b.enabled);
    if (areOfOneFamily)
        CompareParameters(subject, compared, differences);
}

} // namespace

void CompareParameters(const ComparedSubject& subject, const ComparedParameters& compared,
                       DifferenceList& differences)
{
    const std::vector<Parameter>& a = compared.a.parameters;
    const std::vector<Parameter>& b = compared.b.parameters;
    Matching matching(a.size(), b.size());
    MatchBy(matching, a, b,
            [](const Parameter& parameter) { return std::string_view(parameter.name); });
    const auto counts = [&](const Effect& effect, const Parameter& parameter) {
        return !IsOfItem(effect, compared.family, parameter);
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (!counts(compared.a, a[i]))
            continue;
        if (const std::size_t partner = matching.PartnerInB(i); partner != kNothing)
            CompareParameter(subject, compared, a[i], b[partner], differences);
        else if (!IsDefault(compared.a, compared.family, a[i]))
            differences.Add(subject, Change::Lost,
                            {Property::Parameter, compared.prefix + a[i].name}, a[i].value);
    }
    for (std::size_t i = 0; i < b.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && counts(compared.b, b[i]) &&
            !IsDefault(compared.b, compared.family, b[i]))
            differences.Add(subject, Change::Added,
                            {Property::Parameter, compared.prefix + b[i].name}, {}, b[i].value);
}

// The first keyframe that differs is shown.
void CompareKeyframes(const ComparedSubject& subject, const ComparedProperty& property,
                      const TimecodeFormat& format, const std::vector<Keyframe>& a,
                      const std::vector<Keyframe>& b, DifferenceList& differences)
{
    const auto [first, second] =
        std::ranges::mismatch(a, b, [](const Keyframe& x, const Keyframe& y) {
            return x.time == y.time && IsSameValue(x.value, y.value);
        });
    if (first != a.end() || second != b.end())
        differences.Add(subject, Change::Changed, {property.property, property.text + " keyframes"},
                        KeyframesText(format, a, first), KeyframesText(format, b, second));
}

void CompareEffects(const ComparedSubject& subject, const ItemOfFamily& a, const ItemOfFamily& b,
                    DifferenceList& differences)
{
    const std::vector<Effect>& left = a.item.effects;
    const std::vector<Effect>& right = b.item.effects;
    Matching matching(left.size(), right.size());
    MatchBy(matching, left, right, [](const Effect& effect) {
        return std::pair(std::string_view(effect.kind), std::string_view(effect.ownName));
    });
    MatchBy(matching, left, right,
            [](const Effect& effect) { return std::string_view(effect.kind); });
    for (std::size_t i = 0; i < left.size(); ++i) {
        const Effect& effect = left[i];
        if (const std::size_t partner = matching.PartnerInB(i); partner != kNothing)
            CompareEffect(
                subject,
                {effect, right[partner], a.family, a.item.sourceFormat, effect.name + ": "},
                a.family == b.family, differences);
        else if (CountsAlone(effect, a, b))
            differences.Add(subject, Change::Lost, Property::Effect, effect.name);
    }
    for (std::size_t i = 0; i < right.size(); ++i)
        if (matching.PartnerInA(i) == kNothing && CountsAlone(right[i], b, a))
            differences.Add(subject, Change::Added, Property::Effect, {}, right[i].name);
}

void CompareMarkers(const ComparedSubject& owner, const ComparedMarkers& compared,
                    DifferenceList& differences)
{
    const std::vector<Marker>& a = compared.a;
    const std::vector<Marker>& b = compared.b;
    const TimecodeFormat& format = compared.format;
    const Ticks leastDistance = compared.areOfOneFamily ? 1 : format.ticks;
    Matching matching(a.size(), b.size());
    MatchBy(matching, a, b, [](const Marker& marker) {
        return std::pair(marker.start, std::string_view(marker.name));
    });
    MatchBy(matching, a, b, [](const Marker& marker) { return std::string_view(marker.name); });
    MatchBy(matching, a, b, [](const Marker& marker) { return marker.start; });
    const auto subjectOf = [&](const Marker& marker) {
        ComparedSubject subject = owner;
        subject.subject = Subject::Marker;
        subject.name = marker.name;
        subject.time = marker.start;
        return subject;
    };
    const auto isSame = [leastDistance](Ticks before, Ticks after) {
        const Ticks distance = SubtractTicks(std::max(before, after), std::min(before, after));
        return distance < leastDistance;
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        const ComparedSubject subject = subjectOf(a[i]);
        if (matching.PartnerInB(i) == kNothing) {
            differences.Add(subject, Change::Lost);
            continue;
        }
        const Marker& other = b[matching.PartnerInB(i)];
        if (!isSame(a[i].start, other.start))
            differences.CompareTimes(subject, Property::Start, format, a[i].start, other.start,
                                     Change::Moved);
        if (!isSame(a[i].duration, other.duration))
            differences.CompareTimes(subject, Property::Duration, format, a[i].duration,
                                     other.duration);
        differences.CompareTexts(subject, Property::Name, a[i].name, other.name);
        differences.CompareTexts(subject, Property::Comment, std::string(a[i].PlainComment()),
                                 std::string(other.PlainComment()));
        differences.CompareTexts(subject, Property::MarkerKind, a[i].kind, other.kind);
    }
    for (std::size_t i = 0; i < b.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            differences.Add(subjectOf(b[i]), Change::Added);
}

} // namespace XPJ::Inspection
