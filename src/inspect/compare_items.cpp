#include "inspect/compare_items.h"

#include "core/numbers.h"
#include "core/text.h"
#include "effects/values.h"
#include "inspect/compare_parts.h"
#include "inspect/matching.h"
#include "inspect/title_differences.h"
#include "xmeml/item_times.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

constexpr std::size_t kNamedPartners = 8; // of a link; of more only the number is stated

struct ItemOnTrack {
    const Track* track;
    const Item* item;
    ItemIndex index;
};

// Track by track.
std::vector<ItemOnTrack> ItemsOf(const Sequence& sequence)
{
    std::vector<ItemOnTrack> items;
    for (std::size_t track = 0; track < sequence.tracks.size(); ++track)
        for (std::size_t item = 0; item < sequence.tracks[track].items.size(); ++item)
            items.push_back(
                {&sequence.tracks[track], &sequence.tracks[track].items[item], {track, item}});
    return items;
}

// The position of an item in `ItemsOf`.
class ItemNumbers {
public:
    explicit ItemNumbers(const Sequence& sequence)
    {
        std::size_t first = 0;
        for (const Track& track : sequence.tracks) {
            firsts_.push_back(first);
            first += track.items.size();
        }
    }
    std::size_t Of(const ItemIndex& index) const { return firsts_[index.track] + index.item; }

private:
    std::vector<std::size_t> firsts_;
};

// An item and its partner; of an item without one the other index has nothing.
ComparedSubject SubjectOf(const ItemOnTrack& entry, const ItemIndex& left, const ItemIndex& right)
{
    return {.subject = Subject::Item,
            .track = TrackText(*entry.track),
            .name = entry.item->name,
            .time = entry.item->start,
            .leftItem = left,
            .rightItem = right};
}

constexpr ItemIndex kNoItem = {kNothing, kNothing};

// The normal mode has a name in some documents.
std::string CompositeModeOf(const Item& item)
{
    return EqualsIgnoreCase(item.compositeMode, "normal") ? std::string() : item.compositeMode;
}

Matching MatchItems(const std::vector<ItemOnTrack>& left, const std::vector<ItemOnTrack>& right)
{
    Matching matching(left.size(), right.size());
    const auto trackOf = [](const ItemOnTrack& entry) {
        return std::pair(entry.track->kind, entry.track->number);
    };
    // Neither moved nor renamed
    MatchBy(matching, left, right, [&](const ItemOnTrack& entry) {
        return std::tuple(trackOf(entry), entry.item->start, std::string_view(entry.item->name));
    });
    // Moved on its track
    MatchBy(matching, left, right, [&](const ItemOnTrack& entry) {
        return std::tuple(trackOf(entry), std::string_view(entry.item->name), entry.item->in);
    });
    // Moved to another track
    MatchBy(matching, left, right, [](const ItemOnTrack& entry) {
        return std::tuple(entry.track->kind, std::string_view(entry.item->name), entry.item->in);
    });
    // Renamed
    MatchBy(matching, left, right, [&](const ItemOnTrack& entry) {
        return std::tuple(trackOf(entry), entry.item->start, entry.item->in);
    });
    // Trimmed at the head
    MatchBy(matching, left, right, [&](const ItemOnTrack& entry) {
        return std::tuple(trackOf(entry), std::string_view(entry.item->name), entry.item->end);
    });
    return matching;
}

class ItemComparison {
public:
    ItemComparison(const ComparedSequences& sequences, DifferenceList& differences)
        : sequences_(sequences), differences_(differences)
    {
    }

    void Run()
    {
        const std::vector<ItemOnTrack> left = ItemsOf(sequences_.left);
        const std::vector<ItemOnTrack> right = ItemsOf(sequences_.right);
        const Matching matching = MatchItems(left, right);
        NumberLinks(matching, left.size());
        for (std::size_t i = 0; i < left.size(); ++i)
            if (matching.PartnerInB(i) == kNothing)
                differences_.Add(SubjectOf(left[i], left[i].index, kNoItem), Change::Lost);
            else
                CompareItem(left[i], right[matching.PartnerInB(i)]);
        for (std::size_t i = 0; i < right.size(); ++i)
            if (matching.PartnerInA(i) == kNothing)
                differences_.Add(SubjectOf(right[i], kNoItem, right[i].index), Change::Added);
    }

private:
    // Groups of the same items get the same number in both sequences.
    void NumberLinks(const Matching& matching, std::size_t leftSize)
    {
        std::map<std::vector<std::size_t>, std::size_t> numbers;
        const auto numberOf = [&](std::vector<std::size_t> members) {
            std::ranges::sort(members);
            return numbers.emplace(std::move(members), numbers.size()).first->second;
        };
        const ItemNumbers numbersLeft(sequences_.left);
        for (const auto& group : sequences_.left.links) {
            std::vector<std::size_t> members;
            members.reserve(group.size());
            for (const ItemIndex& index : group)
                members.push_back(numbersLeft.Of(index));
            leftLinks_.push_back(numberOf(std::move(members)));
        }
        const ItemNumbers numbersRight(sequences_.right);
        for (const auto& group : sequences_.right.links) {
            std::vector<std::size_t> members;
            members.reserve(group.size());
            for (const ItemIndex& index : group) {
                const std::size_t number = numbersRight.Of(index);
                const std::size_t partner = matching.PartnerInA(number);
                members.push_back(partner == kNothing ? leftSize + number : partner);
            }
            rightLinks_.push_back(numberOf(std::move(members)));
        }
    }

    void CompareItem(const ItemOnTrack& left, const ItemOnTrack& right)
    {
        const ComparedSubject subject = SubjectOf(left, left.index, right.index);
        const Item& a = *left.item;
        const Item& b = *right.item;
        if (TrackText(*left.track) != TrackText(*right.track))
            differences_.Add(subject, Change::Moved, Property::Track, TrackText(*left.track),
                             TrackText(*right.track));
        // The end of an item that moves moves with it.
        const bool keepsLength = SubtractTicks(a.end, a.start) == SubtractTicks(b.end, b.start);
        differences_.CompareTimes(subject, Property::Start, sequences_.left.format, a.start,
                                  b.start, keepsLength ? Change::Moved : Change::Changed);
        if (!keepsLength)
            differences_.CompareTimes(subject, Property::End, sequences_.left.format, a.end, b.end);
        differences_.CompareTexts(subject, Property::Name, a.name, b.name);
        ComparePoints(subject, a, b);
        CompareSpeed(subject, a, b);
        CompareHeldFrames(subject, a, b);
        differences_.CompareSwitches(subject, Property::Enabled, a.enabled, b.enabled);
        differences_.CompareTexts(subject, Property::Label, a.label, b.label);
        if (a.channel > 0 && b.channel > 0)
            differences_.CompareTexts(subject, Property::SourceChannel, IntToString(a.channel),
                                      IntToString(b.channel));
        differences_.CompareTexts(subject, Property::CompositeMode, CompositeModeOf(a),
                                  CompositeModeOf(b));
        if (!a.isSlug || !b.isSlug)
            CompareSources(subject, a, b);
        CompareTitles(subject, a.title, b.title);
        CompareEffects(subject, {a, sequences_.leftProject.family},
                       {b, sequences_.rightProject.family}, differences_);
        CompareMarkers({.track = TrackText(*left.track) + " " + a.name,
                        .source = &a.sourceFormat,
                        .leftItem = left.index,
                        .rightItem = right.index},
                       {a.markers, b.markers, a.sourceFormat, sequences_.AreOfOneFamily()},
                       differences_);
        CompareLinks(subject, a, b);
    }

    // A project has the points that a document states exactly, where it does. What shows a still
    // needs none.
    void ComparePoints(const ComparedSubject& subject, const Item& a, const Item& b)
    {
        const bool isOfOneFamily = sequences_.AreOfOneFamily();
        if (!isOfOneFamily && (HasNoPoints(a) || HasNoPoints(b)))
            return;
        const auto exact = [&](const std::optional<Ticks>& point, Ticks inFrames) {
            return isOfOneFamily ? inFrames : point.value_or(inFrames);
        };
        differences_.CompareTimes(subject, Property::In, a.sourceFormat, exact(a.exactIn, a.in),
                                  exact(b.exactIn, b.in));
        differences_.CompareTimes(subject, Property::Out, a.sourceFormat, exact(a.exactOut, a.out),
                                  exact(b.exactOut, b.out));
    }

    static bool HasNoPoints(const Item& item) { return item.in == 0 && item.out == 0; }

    void CompareSpeed(const ComparedSubject& subject, const Item& a, const Item& b)
    {
        const auto speedText = [](const Item& item) {
            return NumberText(item.speed * 100) + "%" + (item.reverse ? " reversed" : "");
        };
        differences_.CompareTexts(subject, Property::Speed, speedText(a), speedText(b));
        differences_.CompareSwitches(subject, Property::FrameBlending, a.frameBlending,
                                     b.frameBlending);
        CompareKeyframes(subject, Property::Speed, a.sourceFormat, a.speedKeyframes,
                         b.speedKeyframes, differences_);
    }

    // A document has the frame that is nearest to the point of a project.
    void CompareHeldFrames(const ComparedSubject& subject, const Item& a, const Item& b)
    {
        const bool isOfOneFamily = sequences_.AreOfOneFamily();
        const TimecodeFormat& format =
            sequences_.rightProject.family == Family::Xmeml ? b.sourceFormat : a.sourceFormat;
        const auto heldText = [&](const Item& item) {
            if (!item.held)
                return std::string("none");
            const std::int64_t nearest = NearestFrame(*item.held, format.ticks);
            return TimeText(format,
                            isOfOneFamily ? *item.held : MultiplyTicks(nearest, format.ticks));
        };
        differences_.CompareTexts(subject, Property::HeldFrame, heldText(a), heldText(b));
    }

    void CompareSources(const ComparedSubject& subject, const Item& a, const Item& b)
    {
        const auto kindText = [](const Item& item) { return std::string(SourceText(item.source)); };
        if (AreBothGenerated(a, b))
            return;
        if (AreNamesComparable(a, b))
            differences_.CompareTexts(subject, Property::Source, kindText(a) + " " + a.sourceName,
                                      kindText(b) + " " + b.sourceName);
        else
            differences_.CompareTexts(subject, Property::Source, kindText(a), kindText(b));
        const auto pathOf = [](const Project& project, const Item& item) {
            return item.mediaFile == kNothing ? std::string()
                                              : project.mediaFiles[item.mediaFile].path;
        };
        differences_.CompareTexts(subject, Property::Path, pathOf(sequences_.leftProject, a),
                                  pathOf(sequences_.rightProject, b));
    }

    // What a project generates may be a file without a path in a document, of another name.
    bool AreBothGenerated(const Item& a, const Item& b) const
    {
        const auto isGenerated = [](const Project& project, const Item& item) {
            return item.source == SourceKind::Generator ||
                   (item.source == SourceKind::MediaFile &&
                    project.mediaFiles[item.mediaFile].path.empty());
        };
        return !sequences_.AreOfOneFamily() && a.source != b.source &&
               isGenerated(sequences_.leftProject, a) && isGenerated(sequences_.rightProject, b);
    }

    // Each family has names of its own for generators and for what carries the text of a title.
    // Media may have no name in a document.
    bool AreNamesComparable(const Item& a, const Item& b) const
    {
        if (sequences_.AreOfOneFamily())
            return true;
        const bool areGenerators =
            a.source == SourceKind::Generator && b.source == SourceKind::Generator;
        const bool areTitles = a.title != kNothing && b.title != kNothing;
        return !areGenerators && !areTitles && !a.sourceName.empty() && !b.sourceName.empty();
    }

    // Many items may share a title.
    void CompareTitles(const ComparedSubject& subject, std::size_t a, std::size_t b)
    {
        if (a == kNothing && b == kNothing)
            return;
        const auto [entry, isNew] = titleDifferences_.try_emplace({a, b});
        if (isNew)
            entry->second = TitleDifferences(TextsOf(sequences_.leftProject, a),
                                             TextsOf(sequences_.rightProject, b));
        for (const TitleDifference& difference : entry->second)
            differences_.Add(subject,
                             !difference.before  ? Change::Added
                             : !difference.after ? Change::Lost
                                                 : Change::Changed,
                             difference.property, difference.before.value_or(""),
                             difference.after.value_or(""));
    }

    static std::vector<TitleText> TextsOf(const Project& project, std::size_t title)
    {
        return title == kNothing ? std::vector<TitleText>() : project.titles[title];
    }

    void CompareLinks(const ComparedSubject& subject, const Item& a, const Item& b)
    {
        const std::size_t numberA = a.link == kNothing ? kNothing : leftLinks_[a.link];
        const std::size_t numberB = b.link == kNothing ? kNothing : rightLinks_[b.link];
        if (numberA != numberB)
            differences_.Add(subject, Change::Changed, Property::Links,
                             LinkText(sequences_.left, a), LinkText(sequences_.right, b));
    }

    // "V1 at 100, A1 at 100"
    static std::string LinkText(const Sequence& sequence, const Item& item)
    {
        if (item.link == kNothing)
            return "none";
        const std::vector<ItemIndex>& group = sequence.links[item.link];
        std::string text;
        for (std::size_t i = 0; i < group.size() && i < kNamedPartners; ++i) {
            const Track& track = sequence.tracks[group[i].track];
            text += fmt::format("{}{} at {}", i == 0 ? "" : ", ", TrackText(track),
                                sequence.format.Frames(track.items[group[i].item].start));
        }
        if (group.size() > kNamedPartners)
            text += fmt::format(" and {} more", group.size() - kNamedPartners);
        return text;
    }

    const ComparedSequences& sequences_;
    DifferenceList& differences_;
    std::vector<std::size_t> leftLinks_; // numbers of the groups of links
    std::vector<std::size_t> rightLinks_;
    std::map<std::pair<std::size_t, std::size_t>, std::vector<TitleDifference>> titleDifferences_;
};

} // namespace

void CompareItems(const ComparedSequences& sequences, DifferenceList& differences)
{
    ItemComparison(sequences, differences).Run();
}

} // namespace XPJ::Inspection
