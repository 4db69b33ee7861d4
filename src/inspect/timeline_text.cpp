#include "inspect/timeline_text.h"

#include "effects/values.h"
#include "inspect/titles.h"

#include <array>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

std::string Quoted(const std::string& name)
{
    return '"' + name + '"';
}

// Names may hold line ends and other control characters.
void AppendPrintable(std::string_view line, std::string& text)
{
    for (const char c : line)
        text += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
}

// `text` after two blanks and the label; nothing for an empty one.
std::string Labelled(std::string_view label, const std::string& text)
{
    return text.empty() ? std::string() : fmt::format("  {}{}", label, text);
}

class TreeWriter {
public:
    TreeWriter(const Project& project, const IsOnline& isOnline)
        : project_(project), isOnline_(isOnline)
    {
    }

    std::string Write()
    {
        Line(0, "{} {}{}", project_.family == Family::Xmeml ? "xmeml" : "project", project_.version,
             Labelled("", project_.name.empty() ? "" : Quoted(project_.name)));
        for (const Entry& entry : project_.entries)
            WriteEntry(entry);
        for (const Sequence& sequence : project_.sequences)
            WriteSequence(sequence);
        return std::move(text_);
    }

private:
    template <class... Args>
    void Line(int depth, fmt::format_string<Args...> pattern, Args&&... args)
    {
        text_.append(static_cast<std::size_t>(depth) * 2, ' ');
        AppendPrintable(fmt::format(pattern, std::forward<Args>(args)...), text_);
        text_ += '\n';
    }

    void WriteEntry(const Entry& entry)
    {
        constexpr std::string_view kKinds[] = {"bin", "clip", "sequence"};
        Line(entry.depth + 1, "{} {}{}{}", kKinds[static_cast<std::size_t>(entry.kind)],
             Quoted(entry.name), Labelled("label ", entry.label), MediaFileText(entry.mediaFile));
        if (entry.mediaFile != kNothing)
            WriteMarkers(entry.depth + 2, entry.markers,
                         project_.mediaFiles[entry.mediaFile].format, 0);
    }

    // "  /path/a.mov (offline)"
    std::string MediaFileText(std::size_t number) const
    {
        if (number == kNothing || project_.mediaFiles[number].path.empty())
            return {};
        const std::string& path = project_.mediaFiles[number].path;
        return Labelled("", path) + (isOnline_ && !isOnline_(path) ? " (offline)" : "");
    }

    void WriteSequence(const Sequence& sequence)
    {
        text_ += '\n';
        const std::string size = sequence.width > 0
                                     ? fmt::format("{}x{}", sequence.width, sequence.height)
                                     : std::string();
        Line(0, "sequence {}{}  {} fps{}  starts {}  lasts {} ({} frames)", Quoted(sequence.name),
             Labelled("", size),
             NumberText(static_cast<double>(kTicksPerSecond) /
                        static_cast<double>(sequence.format.ticks)),
             sequence.format.drop ? " drop" : "", sequence.format.Clock(sequence.start),
             sequence.format.Timecode(sequence.Length()),
             sequence.format.Frames(sequence.Length()));
        WriteMarkers(1, sequence.markers, sequence.format, sequence.start);
        for (const Track& track : sequence.tracks)
            WriteTrack(sequence, track);
    }

    void WriteTrack(const Sequence& sequence, const Track& track)
    {
        const std::string name = track.name.empty() ? "" : Quoted(track.name);
        Line(1, "{}{}{}{}{}", TrackText(track), name.empty() ? "" : " ", name,
             track.enabled ? "" : "  disabled", track.locked ? "  locked" : "");
        auto transition = track.transitions.begin();
        for (const Item& item : track.items) {
            for (; transition != track.transitions.end() && transition->start < item.start;
                 ++transition)
                WriteTransition(sequence, *transition);
            WriteItem(sequence, item);
        }
        for (; transition != track.transitions.end(); ++transition)
            WriteTransition(sequence, *transition);
    }

    std::string RangeText(const Sequence& sequence, Ticks from, Ticks to) const
    {
        return fmt::format("{} - {}", sequence.format.Clock(AddTicks(sequence.start, from)),
                           sequence.format.Clock(AddTicks(sequence.start, to)));
    }

    void WriteTransition(const Sequence& sequence, const Transition& transition)
    {
        Line(2, "{}  transition {}  {}{}", RangeText(sequence, transition.start, transition.end),
             Quoted(transition.name), transition.alignment, ParametersText(transition.parameters));
    }

    void WriteItem(const Sequence& sequence, const Item& item)
    {
        const bool isPlaced = item.start >= 0 && item.end >= 0;
        Line(2, "{}  {}{}{}", isPlaced ? RangeText(sequence, item.start, item.end) : "no place",
             Quoted(item.name), item.enabled ? "" : "  disabled", Labelled("label ", item.label));
        Line(3, "source {}{}", SourceLine(item), MediaFileText(item.mediaFile));
        if (item.title != kNothing)
            for (const TitleText& text : project_.titles[item.title])
                Line(3, "title {}  {} {}  {}", Quoted(PreviewOf(text)), text.font,
                     NumberText(text.size), text.color);
        if (item.speed != 1.0 || item.reverse || item.frameBlending || !item.speedKeyframes.empty())
            Line(3, "speed {}%{}{}{}", NumberText(item.speed * 100),
                 item.reverse ? " reversed" : "", item.frameBlending ? " frame blending" : "",
                 KeyframesText(item.speedKeyframes));
        if (item.held)
            Line(3, "holds {}",
                 item.sourceFormat.Clock(AddTicks(MediaFileStart(item), *item.held)));
        if (!item.compositeMode.empty() && item.compositeMode != "normal")
            Line(3, "composite mode {}", item.compositeMode);
        for (const Effect& effect : item.effects)
            Line(3, "effect {}{}{}", Quoted(effect.name), effect.enabled ? "" : " off",
                 ParametersText(effect.parameters));
        WriteMarkers(3, item.markers, item.sourceFormat, MediaFileStart(item));
        if (item.link != kNothing)
            Line(3, "linked with {}", LinkText(sequence, item));
    }

    Ticks MediaFileStart(const Item& item) const
    {
        return item.mediaFile == kNothing ? 0 : project_.mediaFiles[item.mediaFile].start;
    }

    // "medium "a.mov" 01:00:00:00 - 01:00:04:00, channel 1"; in timecode of the media.
    std::string SourceLine(const Item& item) const
    {
        const Ticks start = MediaFileStart(item);
        std::string text(SourceText(item.source));
        if (!item.sourceName.empty())
            text += ' ' + Quoted(item.sourceName);
        text += fmt::format(" {} - {}", item.sourceFormat.Clock(AddTicks(start, item.in)),
                            item.sourceFormat.Clock(AddTicks(start, item.out)));
        return item.channel > 0 ? fmt::format("{}, channel {}", text, item.channel) : text;
    }

    static std::string KeyframesText(const std::vector<Keyframe>& keyframes)
    {
        return keyframes.empty() ? std::string() : fmt::format(" ({} keyframes)", keyframes.size());
    }

    // ": radius 10, angle 0 (2 keyframes)"
    static std::string ParametersText(const std::vector<Parameter>& parameters)
    {
        std::string text;
        for (const Parameter& parameter : parameters)
            text += fmt::format("{}{} {}{}", text.empty() ? ": " : ", ", parameter.name,
                                parameter.value, KeyframesText(parameter.keyframes));
        return text;
    }

    void WriteMarkers(int depth, const std::vector<Marker>& markers, const TimecodeFormat& format,
                      Ticks start)
    {
        for (const Marker& marker : markers) {
            const Ticks from = AddTicks(start, marker.start);
            const std::string length =
                marker.duration == 0 ? "" : " - " + format.Clock(AddTicks(from, marker.duration));
            Line(depth, "marker {}{} {}{}", format.Clock(from), length, Quoted(marker.name),
                 Labelled("", marker.comment));
        }
    }

    // The others of the group: "A1 at 01:00:00:00, A2 at 01:00:00:00".
    static std::string LinkText(const Sequence& sequence, const Item& item)
    {
        constexpr std::size_t kMost = 8;
        const std::vector<ItemIndex>& group = sequence.links[item.link];
        std::string text;
        std::size_t count = 0;
        for (const ItemIndex& index : group) {
            const Track& track = sequence.tracks[index.track];
            const Item& other = track.items[index.item];
            if (&other == &item)
                continue;
            if (++count > kMost)
                return fmt::format("{} and {} more", text, group.size() - 1 - kMost);
            text += fmt::format("{}{} at {}", text.empty() ? "" : ", ", TrackText(track),
                                sequence.format.Clock(AddTicks(sequence.start, other.start)));
        }
        return text;
    }

    const Project& project_;
    const IsOnline& isOnline_;
    std::string text_;
};

// A sequence without a name has a heading of its own too.
std::string HeadingOf(const Difference& difference)
{
    return difference.first.sequence == kNothing && difference.second.sequence == kNothing
               ? "browser"
               : "sequence " + Quoted(difference.sequence);
}

std::string DifferenceLine(const Difference& difference)
{
    std::string text = fmt::format("  {:<8}", ChangeText(difference.change));
    for (const std::string& at : {difference.track, difference.timecode})
        if (!at.empty())
            text += at + ' ';
    text += SubjectText(difference.subject);
    if (!difference.name.empty())
        text += ' ' + Quoted(difference.name);
    if (!difference.bin.empty())
        text += " in " + Quoted(difference.bin);
    if (difference.property.empty())
        return text;
    text += ": " + difference.property;
    if (difference.change == Change::Added)
        return text + ' ' + Quoted(difference.after);
    if (difference.change == Change::Lost)
        return text + ' ' + Quoted(difference.before);
    const auto shown = [](const std::string& value) { return value.empty() ? "nothing" : value; };
    return text + ' ' + shown(difference.before) + " -> " + shown(difference.after);
}

} // namespace

std::string TreeText(const Project& project, const IsOnline& isOnline)
{
    return TreeWriter(project, isOnline).Write();
}

std::string DifferencesText(const std::vector<Difference>& differences)
{
    if (differences.empty())
        return "No differences.\n";
    std::string text;
    std::array<std::size_t, 4> counts{}; // by Change
    std::string heading;
    for (const Difference& difference : differences) {
        if (std::string next = HeadingOf(difference); next != heading) {
            AppendPrintable(next, text);
            text += '\n';
            heading = std::move(next);
        }
        AppendPrintable(DifferenceLine(difference), text);
        text += '\n';
        ++counts[static_cast<std::size_t>(difference.change)];
    }
    text += fmt::format("{} difference{}:", differences.size(), differences.size() == 1 ? "" : "s");
    std::string_view separator = " ";
    for (const Change change : {Change::Added, Change::Lost, Change::Moved, Change::Changed})
        if (const std::size_t count = counts[static_cast<std::size_t>(change)]; count > 0) {
            text += fmt::format("{}{} {}", separator, count, ChangeText(change));
            separator = ", ";
        }
    return text + '\n';
}

} // namespace XPJ::Inspection
