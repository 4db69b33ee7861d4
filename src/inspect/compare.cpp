#include "inspect/compare.h"

#include "core/numbers.h"
#include "effects/values.h"
#include "inspect/matching.h"
#include "inspect/title_differences.h"

#include <iterator>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kChangeTexts[] = {"added", "lost", "moved", "changed"};
constexpr std::string_view kSubjectTexts[] = {"sequence", "track", "clip", "transition", "marker"};
constexpr std::size_t kNamedPartners = 8; // of a link, before the rest is only counted

std::string SwitchText(bool on)
{
    return on ? "on" : "off";
}

// "100 (00:00:04:00)"
std::string TimeText(const FrameForm& form, Ticks time)
{
    return fmt::format("{} ({})", form.Frames(time), form.Timecode(time));
}

// Whether there is a clip on either side, the clips tell.
std::string WithoutBlack(const std::string& alignment)
{
    return alignment.substr(0, alignment.find("-black"));
}

// An item of a sequence and the track that it lies on.
struct Slot {
    const Track* track;
    const Item* item;
};

std::vector<Slot> SlotsOf(const Sequence& sequence)
{
    std::vector<Slot> slots;
    for (const Track& track : sequence.tracks)
        for (const Item& item : track.items)
            slots.push_back({&track, &item});
    return slots;
}

// The number of an item among the slots.
class SlotNumbers {
public:
    explicit SlotNumbers(const Sequence& sequence)
    {
        std::size_t first = 0;
        for (const Track& track : sequence.tracks) {
            firsts_.push_back(first);
            first += track.items.size();
        }
    }
    std::size_t Of(const ItemPlace& place) const { return firsts_[place.track] + place.item; }

private:
    std::vector<std::size_t> firsts_;
};

bool IsEmpty(const Track& track)
{
    return track.items.empty() && track.transitions.empty();
}

// Where differences are found.
struct Place {
    Subject subject = Subject::Sequence;
    std::string track = {};
    std::string name = {};
    Ticks time = 0;
    const FrameForm* source = nullptr; // counts the time, where it isn't one of the sequence
};

// Compares two sequences that belong together.
class SequenceComparison {
public:
    SequenceComparison(const Project& a, const Project& b, const Sequence& left,
                       const Sequence& right, std::vector<Difference>& found)
        : a_(a), b_(b), left_(left), right_(right), found_(found), sameFamily_(a.family == b.family)
    {
    }

    void Run()
    {
        CompareSequence();
        CompareTracks();
        CompareItems();
        CompareTransitions();
    }

private:
    void Add(const Place& place, Change change, std::string_view property = {},
             std::string before = {}, std::string after = {})
    {
        const Sequence& side = change == Change::Added && property.empty() ? right_ : left_;
        const FrameForm& form = place.source ? *place.source : side.form;
        const Ticks first = place.source ? 0 : side.start;
        found_.push_back({.change = change,
                          .subject = place.subject,
                          .sequence = left_.name,
                          .track = place.track,
                          .name = place.name,
                          .frame = form.Frames(place.time),
                          .timecode = form.Timecode(AddTicks(first, place.time)),
                          .property = std::string(property),
                          .before = std::move(before),
                          .after = std::move(after)});
    }
    void CompareTexts(const Place& place, std::string_view property, const std::string& before,
                      const std::string& after)
    {
        if (before != after)
            Add(place, Change::Changed, property, before, after);
    }
    void CompareSwitches(const Place& place, std::string_view property, bool before, bool after)
    {
        if (before != after)
            Add(place, Change::Changed, property, SwitchText(before), SwitchText(after));
    }
    // `form` counts both, so that the texts differ in what differs.
    void CompareTimes(const Place& place, std::string_view property, const FrameForm& form,
                      Ticks before, Ticks after, Change change = Change::Changed)
    {
        if (before != after)
            Add(place, change, property, TimeText(form, before), TimeText(form, after));
    }

    void CompareSequence()
    {
        const Place place{.name = left_.name};
        CompareTexts(place, "name", left_.name, right_.name);
        if (left_.form.ticks != right_.form.ticks)
            Add(place, Change::Changed, "frame length", TickText(left_.form.ticks),
                TickText(right_.form.ticks));
        CompareSwitches(place, "drop frame", left_.form.drop, right_.form.drop);
        CompareTimes(place, "start timecode", left_.form, left_.start, right_.start);
        const auto frameText = [](const Sequence& sequence) {
            return fmt::format("{}x{}", sequence.width, sequence.height);
        };
        if (left_.width > 0 && right_.width > 0)
            CompareTexts(place, "frame size", frameText(left_), frameText(right_));
        CompareMarkers({}, left_.markers, right_.markers, left_.form);
    }

    void CompareTracks()
    {
        Matching matching(left_.tracks.size(), right_.tracks.size());
        MatchBy(matching, left_.tracks, right_.tracks,
                [](const Track& track) { return std::pair(track.kind, track.number); });
        for (std::size_t i = 0; i < left_.tracks.size(); ++i) {
            const Track& track = left_.tracks[i];
            const Place place{Subject::Track, TrackText(track), track.name};
            if (matching.PartnerInB(i) == kNothing) {
                if (!IsEmpty(track))
                    Add(place, Change::Lost);
                continue;
            }
            const Track& other = right_.tracks[matching.PartnerInB(i)];
            CompareTexts(place, "name", track.name, other.name);
            CompareSwitches(place, "enabled", track.enabled, other.enabled);
            CompareSwitches(place, "locked", track.locked, other.locked);
        }
        for (std::size_t i = 0; i < right_.tracks.size(); ++i)
            if (matching.PartnerInA(i) == kNothing && !IsEmpty(right_.tracks[i]))
                Add({Subject::Track, TrackText(right_.tracks[i]), right_.tracks[i].name},
                    Change::Added);
    }

    static Place PlaceOf(const Slot& slot)
    {
        return {Subject::Item, TrackText(*slot.track), slot.item->name, slot.item->start};
    }

    void CompareItems()
    {
        const std::vector<Slot> left = SlotsOf(left_);
        const std::vector<Slot> right = SlotsOf(right_);
        Matching matching(left.size(), right.size());
        const auto trackOf = [](const Slot& slot) {
            return std::pair(slot.track->kind, slot.track->number);
        };
        MatchBy(matching, left, right, [&](const Slot& slot) {
            return std::tuple(trackOf(slot), slot.item->start, std::string_view(slot.item->name));
        });
        MatchBy(matching, left, right, [&](const Slot& slot) {
            return std::tuple(trackOf(slot), std::string_view(slot.item->name), slot.item->in);
        });
        MatchBy(matching, left, right, [](const Slot& slot) {
            return std::tuple(slot.track->kind, std::string_view(slot.item->name), slot.item->in);
        });
        MatchBy(matching, left, right, [&](const Slot& slot) {
            return std::tuple(trackOf(slot), slot.item->start, slot.item->in);
        });
        MatchBy(matching, left, right, [&](const Slot& slot) {
            return std::tuple(trackOf(slot), std::string_view(slot.item->name), slot.item->end);
        });
        NumberLinks(matching, left.size());
        for (std::size_t i = 0; i < left.size(); ++i)
            if (matching.PartnerInB(i) == kNothing)
                Add(PlaceOf(left[i]), Change::Lost);
            else
                CompareItem(left[i], right[matching.PartnerInB(i)]);
        for (std::size_t i = 0; i < right.size(); ++i)
            if (matching.PartnerInA(i) == kNothing)
                Add(PlaceOf(right[i]), Change::Added);
    }

    // Groups of the same items get the same number, on whichever side they stand.
    void NumberLinks(const Matching& matching, std::size_t leftSize)
    {
        std::map<std::vector<std::size_t>, std::size_t> numbers;
        const auto numberOf = [&](std::vector<std::size_t> members) {
            std::ranges::sort(members);
            return numbers.emplace(std::move(members), numbers.size()).first->second;
        };
        const SlotNumbers slotsLeft(left_);
        for (const auto& group : left_.links) {
            std::vector<std::size_t> members;
            members.reserve(group.size());
            for (const ItemPlace& place : group)
                members.push_back(slotsLeft.Of(place));
            leftLinks_.push_back(numberOf(std::move(members)));
        }
        const SlotNumbers slotsRight(right_);
        for (const auto& group : right_.links) {
            std::vector<std::size_t> members;
            members.reserve(group.size());
            for (const ItemPlace& place : group) {
                const std::size_t slot = slotsRight.Of(place);
                const std::size_t partner = matching.PartnerInA(slot);
                members.push_back(partner == kNothing ? leftSize + slot : partner);
            }
            rightLinks_.push_back(numberOf(std::move(members)));
        }
    }

    void CompareItem(const Slot& left, const Slot& right)
    {
        const Place place = PlaceOf(left);
        const Item& a = *left.item;
        const Item& b = *right.item;
        if (TrackText(*left.track) != TrackText(*right.track))
            Add(place, Change::Moved, "track", TrackText(*left.track), TrackText(*right.track));
        // An item that moves takes its end along.
        const bool keepsLength = SubtractTicks(a.end, a.start) == SubtractTicks(b.end, b.start);
        CompareTimes(place, "start", left_.form, a.start, b.start,
                     keepsLength ? Change::Moved : Change::Changed);
        if (!keepsLength)
            CompareTimes(place, "end", left_.form, a.end, b.end);
        CompareTexts(place, "name", a.name, b.name);
        CompareTimes(place, "in", a.sourceForm, a.in, b.in);
        CompareTimes(place, "out", a.sourceForm, a.out, b.out);
        CompareSpeed(place, a, b);
        CompareSwitches(place, "enabled", a.enabled, b.enabled);
        CompareTexts(place, "label", a.label, b.label);
        if (a.channel > 0 && b.channel > 0)
            CompareTexts(place, "source channel", IntToString(a.channel), IntToString(b.channel));
        if (sameFamily_)
            CompareTexts(place, "composite mode", a.compositeMode, b.compositeMode);
        CompareSources(place, a, b);
        CompareTitles(place, a.title, b.title);
        CompareEffects(place, a, b);
        CompareMarkers(TrackText(*left.track) + " " + a.name, a.markers, b.markers, a.sourceForm);
        CompareLinks(place, a, b);
    }

    void CompareSpeed(const Place& place, const Item& a, const Item& b)
    {
        const auto speedText = [](const Item& item) {
            return NumberText(item.speed * 100) + "%" + (item.reverse ? " reversed" : "");
        };
        CompareTexts(place, "speed", speedText(a), speedText(b));
        CompareSwitches(place, "frame blending", a.frameBlending, b.frameBlending);
        CompareKeyframes(place, "speed", a.sourceForm, a.speedKeyframes, b.speedKeyframes);
    }

    void CompareSources(const Place& place, const Item& a, const Item& b)
    {
        const auto kindText = [](const Item& item) { return std::string(SourceText(item.source)); };
        if (AreTitlesInTwoForms(a, b))
            CompareTexts(place, "source", kindText(a), kindText(b));
        else
            CompareTexts(place, "source", kindText(a) + " " + a.sourceName,
                         kindText(b) + " " + b.sourceName);
        const auto pathOf = [](const Project& project, const Item& item) {
            return item.medium == kNothing ? std::string() : project.media[item.medium].path;
        };
        CompareTexts(place, "path", pathOf(a_, a), pathOf(b_, b));
    }

    // Each family has a name and an effect of its own for the carrier of a title's words, which are
    // compared themselves.
    bool AreTitlesInTwoForms(const Item& a, const Item& b) const
    {
        return !sameFamily_ && a.title != kNothing && b.title != kNothing;
    }

    // A title may be that of many items.
    void CompareTitles(const Place& place, std::size_t a, std::size_t b)
    {
        if (a == kNothing && b == kNothing)
            return;
        const auto [entry, isNew] = titleDifferences_.try_emplace({a, b});
        if (isNew)
            entry->second = TitleDifferences(TextsOf(a_, a), TextsOf(b_, b));
        for (const TitleDifference& difference : entry->second)
            Add(place,
                !difference.before  ? Change::Added
                : !difference.after ? Change::Lost
                                    : Change::Changed,
                difference.property, difference.before.value_or(""), difference.after.value_or(""));
    }

    static std::vector<TitleText> TextsOf(const Project& project, std::size_t title)
    {
        return title == kNothing ? std::vector<TitleText>() : project.titles[title];
    }

    void CompareLinks(const Place& place, const Item& a, const Item& b)
    {
        const std::size_t numberA = a.link == kNothing ? kNothing : leftLinks_[a.link];
        const std::size_t numberB = b.link == kNothing ? kNothing : rightLinks_[b.link];
        if (numberA != numberB)
            Add(place, Change::Changed, "links", LinkText(left_, a), LinkText(right_, b));
    }

    // "V1 at 100, A1 at 100"
    static std::string LinkText(const Sequence& sequence, const Item& item)
    {
        if (item.link == kNothing)
            return "none";
        const std::vector<ItemPlace>& group = sequence.links[item.link];
        std::string text;
        for (std::size_t i = 0; i < group.size() && i < kNamedPartners; ++i) {
            const Track& track = sequence.tracks[group[i].track];
            text += fmt::format("{}{} at {}", i == 0 ? "" : ", ", TrackText(track),
                                sequence.form.Frames(track.items[group[i].item].start));
        }
        if (group.size() > kNamedPartners)
            text += fmt::format(" and {} more", group.size() - kNamedPartners);
        return text;
    }

    void CompareEffects(const Place& place, const Item& a, const Item& b)
    {
        Matching matching(a.effects.size(), b.effects.size());
        MatchBy(matching, a.effects, b.effects,
                [](const Effect& effect) { return std::string_view(effect.name); });
        const auto counts = [isTitle = AreTitlesInTwoForms(a, b)](const Effect& effect) {
            return !(isTitle && effect.isTitle);
        };
        for (std::size_t i = 0; i < a.effects.size(); ++i) {
            const Effect& effect = a.effects[i];
            if (matching.PartnerInB(i) == kNothing) {
                if (counts(effect))
                    Add(place, Change::Lost, "effect", effect.name);
                continue;
            }
            const Effect& other = b.effects[matching.PartnerInB(i)];
            CompareSwitches(place, "effect " + effect.name, effect.enabled, other.enabled);
            CompareParameters(place, effect.name + ": ", a.sourceForm, effect.parameters,
                              other.parameters);
        }
        for (std::size_t i = 0; i < b.effects.size(); ++i)
            if (matching.PartnerInA(i) == kNothing && counts(b.effects[i]))
                Add(place, Change::Added, "effect", {}, b.effects[i].name);
    }

    void CompareParameters(const Place& place, const std::string& prefix, const FrameForm& form,
                           const std::vector<Parameter>& a, const std::vector<Parameter>& b)
    {
        if (!sameFamily_)
            return;
        Matching matching(a.size(), b.size());
        MatchBy(matching, a, b,
                [](const Parameter& parameter) { return std::string_view(parameter.name); });
        for (std::size_t i = 0; i < a.size(); ++i) {
            const std::size_t partner = matching.PartnerInB(i);
            if (partner == kNothing) {
                Add(place, Change::Lost, prefix + a[i].name, a[i].value);
                continue;
            }
            CompareTexts(place, prefix + a[i].name, a[i].value, b[partner].value);
            CompareKeyframes(place, prefix + a[i].name, form, a[i].keyframes, b[partner].keyframes);
        }
        for (std::size_t i = 0; i < b.size(); ++i)
            if (matching.PartnerInA(i) == kNothing)
                Add(place, Change::Added, prefix + b[i].name, {}, b[i].value);
    }

    // The first one that differs stands for all.
    void CompareKeyframes(const Place& place, const std::string& property, const FrameForm& form,
                          const std::vector<Keyframe>& a, const std::vector<Keyframe>& b)
    {
        const auto [first, second] = std::ranges::mismatch(a, b);
        if (first == a.end() && second == b.end())
            return;
        const auto text = [&](const std::vector<Keyframe>& list, auto at) {
            const std::string count = fmt::format("{} keyframes", list.size());
            return at == list.end()
                       ? count
                       : fmt::format("{}, {} at {}", count, at->value, form.Timecode(at->time));
        };
        Add(place, Change::Changed, property + " keyframes", text(a, first), text(b, second));
    }

    // `owner` is the item they stand on, empty for those of the sequence.
    void CompareMarkers(const std::string& owner, const std::vector<Marker>& a,
                        const std::vector<Marker>& b, const FrameForm& form)
    {
        Matching matching(a.size(), b.size());
        MatchBy(matching, a, b, [](const Marker& marker) {
            return std::pair(marker.start, std::string_view(marker.name));
        });
        MatchBy(matching, a, b, [](const Marker& marker) { return std::string_view(marker.name); });
        MatchBy(matching, a, b, [](const Marker& marker) { return marker.start; });
        const auto placeOf = [&](const Marker& marker) {
            return Place{Subject::Marker, owner, marker.name, marker.start,
                         owner.empty() ? nullptr : &form};
        };
        for (std::size_t i = 0; i < a.size(); ++i) {
            const Place place = placeOf(a[i]);
            if (matching.PartnerInB(i) == kNothing) {
                Add(place, Change::Lost);
                continue;
            }
            const Marker& other = b[matching.PartnerInB(i)];
            CompareTimes(place, "start", form, a[i].start, other.start, Change::Moved);
            CompareTimes(place, "duration", form, a[i].duration, other.duration);
            CompareTexts(place, "name", a[i].name, other.name);
            CompareTexts(place, "comment", a[i].comment, other.comment);
        }
        for (std::size_t i = 0; i < b.size(); ++i)
            if (matching.PartnerInA(i) == kNothing)
                Add(placeOf(b[i]), Change::Added);
    }

    struct TransitionSlot {
        const Track* track;
        const Transition* transition;
    };
    static std::vector<TransitionSlot> TransitionsOf(const Sequence& sequence)
    {
        std::vector<TransitionSlot> slots;
        for (const Track& track : sequence.tracks)
            for (const Transition& transition : track.transitions)
                slots.push_back({&track, &transition});
        return slots;
    }

    void CompareTransitions()
    {
        const std::vector<TransitionSlot> left = TransitionsOf(left_);
        const std::vector<TransitionSlot> right = TransitionsOf(right_);
        const auto trackOf = [](const TransitionSlot& slot) {
            return std::pair(slot.track->kind, slot.track->number);
        };
        Matching matching(left.size(), right.size());
        MatchBy(matching, left, right, [&](const TransitionSlot& slot) {
            return std::pair(trackOf(slot), slot.transition->start);
        });
        MatchBy(matching, left, right, [&](const TransitionSlot& slot) {
            return std::pair(trackOf(slot), std::string_view(slot.transition->name));
        });
        const auto placeOf = [](const TransitionSlot& slot) {
            return Place{Subject::Transition, TrackText(*slot.track), slot.transition->name,
                         slot.transition->start};
        };
        for (std::size_t i = 0; i < left.size(); ++i)
            if (matching.PartnerInB(i) == kNothing)
                Add(placeOf(left[i]), Change::Lost);
            else
                CompareTransition(placeOf(left[i]), *left[i].transition,
                                  *right[matching.PartnerInB(i)].transition);
        for (std::size_t i = 0; i < right.size(); ++i)
            if (matching.PartnerInA(i) == kNothing)
                Add(placeOf(right[i]), Change::Added);
    }

    void CompareTransition(const Place& place, const Transition& a, const Transition& b)
    {
        CompareTimes(place, "start", left_.form, a.start, b.start, Change::Moved);
        CompareTimes(place, "end", left_.form, a.end, b.end);
        CompareTexts(place, "name", a.name, b.name);
        CompareTexts(place, "alignment", WithoutBlack(a.alignment), WithoutBlack(b.alignment));
        CompareParameters(place, "", left_.form, a.parameters, b.parameters);
    }

    const Project& a_;
    const Project& b_;
    const Sequence& left_;
    const Sequence& right_;
    std::vector<Difference>& found_;
    bool sameFamily_;
    std::vector<std::size_t> leftLinks_; // numbers of the groups of links
    std::vector<std::size_t> rightLinks_;
    std::map<std::pair<std::size_t, std::size_t>, std::vector<TitleDifference>> titleDifferences_;
};

} // namespace

std::vector<Difference> Compare(const Project& a, const Project& b)
{
    std::vector<Difference> found;
    Matching matching(a.sequences.size(), b.sequences.size());
    MatchBy(matching, a.sequences, b.sequences,
            [](const Sequence& sequence) { return std::string_view(sequence.name); });
    // Renamed ones hold the same number of items and are as long as before.
    MatchBy(matching, a.sequences, b.sequences, [](const Sequence& sequence) {
        return std::pair(SlotsOf(sequence).size(), sequence.Length());
    });
    const auto whole = [](Change change, const Sequence& sequence) {
        return Difference{.change = change,
                          .sequence = sequence.name,
                          .name = sequence.name,
                          .timecode = sequence.form.Timecode(sequence.start)};
    };
    for (std::size_t i = 0; i < a.sequences.size(); ++i)
        if (const std::size_t partner = matching.PartnerInB(i); partner == kNothing)
            found.push_back(whole(Change::Lost, a.sequences[i]));
        else
            SequenceComparison(a, b, a.sequences[i], b.sequences[partner], found).Run();
    for (std::size_t i = 0; i < b.sequences.size(); ++i)
        if (matching.PartnerInA(i) == kNothing)
            found.push_back(whole(Change::Added, b.sequences[i]));
    return found;
}

std::string_view ChangeText(Change change)
{
    return kChangeTexts[static_cast<std::size_t>(change)];
}

std::string_view SubjectText(Subject subject)
{
    return kSubjectTexts[static_cast<std::size_t>(subject)];
}

} // namespace XPJ::Inspection
