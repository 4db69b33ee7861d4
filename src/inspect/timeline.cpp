#include "inspect/timeline.h"

#include "core/frame_rate.h"
#include "xmeml/files.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

constexpr std::string_view kSourceTexts[] = {"none", "medium", "sequence", "multiclip",
                                             "generator"};

// As XML documents state rates; dropping numbers is another matter.
std::int64_t NumbersPerSecond(Ticks frameTicks)
{
    return TimecodeBaseOf(frameTicks, 0).base;
}

std::string WithRest(std::string timecode, Ticks rest)
{
    return rest == 0 ? timecode : fmt::format("{}{:+}t", timecode, rest);
}

// A document has its length in whole frames.
bool HasLengthOfSlug(const Item& item, const TimecodeFormat& format)
{
    const Ticks missing = SubtractTicks(kSlugSequenceDuration, SubtractTicks(item.end, item.start));
    return missing >= 0 && missing < format.ticks;
}

const Item* OnlyItemOf(const Sequence& sequence)
{
    const Item* only = nullptr;
    for (const Track& track : sequence.tracks)
        for (const Item& item : track.items) {
            if (only)
                return nullptr;
            only = &item;
        }
    return only;
}

} // namespace

std::string TimecodeFormat::Timecode(Ticks time) const
{
    return WithRest(FormatTimecode(time / ticks, NumbersPerSecond(ticks), drop), time % ticks);
}

std::string TimecodeFormat::Clock(Ticks time) const
{
    return WithRest(ClockTimecode(time / ticks, NumbersPerSecond(ticks), drop), time % ticks);
}

std::string_view Marker::PlainComment() const
{
    std::string_view plain = comment;
    if (kind == kChapterKind && plain.starts_with(kChapterPrefix))
        plain.remove_prefix(kChapterPrefix.size());
    return plain;
}

Ticks Sequence::Length() const
{
    Ticks end = 0;
    for (const Track& track : tracks)
        for (const Item& item : track.items)
            end = std::max(end, item.end);
    return end;
}

std::size_t Project::AddTitle(std::vector<TitleText> texts)
{
    if (texts.empty())
        return kNothing;
    titles.push_back(std::move(texts));
    return titles.size() - 1;
}

void MarkSlugs(Project& project)
{
    for (Sequence& sequence : project.sequences) {
        const Item* const item = OnlyItemOf(sequence);
        sequence.isSlug = item && item->isSlug && HasLengthOfSlug(*item, sequence.format);
    }
    for (Sequence& sequence : project.sequences)
        for (Track& track : sequence.tracks)
            for (Item& item : track.items)
                item.isSlug |= item.sequence != kNothing && project.sequences[item.sequence].isSlug;
}

std::string_view SourceText(SourceKind source)
{
    return kSourceTexts[static_cast<std::size_t>(source)];
}

std::string TrackText(const Track& track)
{
    return fmt::format("{}{}", track.kind == MediaType::Video ? 'V' : 'A', track.number);
}

} // namespace XPJ::Inspection
