#include "inspect/timeline.h"

#include "core/frame_rate.h"

#include <algorithm>

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

} // namespace

std::string TimecodeFormat::Timecode(Ticks time) const
{
    const std::string text = FormatTimecode(time / ticks, NumbersPerSecond(ticks), drop);
    const Ticks rest = time % ticks;
    return rest == 0 ? text : fmt::format("{}{:+}t", text, rest);
}

Ticks Sequence::Length() const
{
    Ticks end = 0;
    for (const Track& track : tracks)
        for (const Item& item : track.items)
            end = std::max(end, item.end);
    return end;
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
