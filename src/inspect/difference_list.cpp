#include "inspect/difference_list.h"

#include <utility>

#include <fmt/format.h>

namespace XPJ::Inspection {

namespace {

std::string SwitchText(bool on)
{
    return on ? "on" : "off";
}

} // namespace

std::string TimeText(const TimecodeFormat& format, Ticks time)
{
    return fmt::format("{} ({})", format.Frames(time), format.Timecode(time));
}

void DifferenceList::Add(const ComparedSubject& subject, Change change, std::string_view property,
                         std::string before, std::string after)
{
    const Sequence& side = change == Change::Added && property.empty() ? right_ : left_;
    const TimecodeFormat& format = subject.source ? *subject.source : side.format;
    const Ticks first = subject.source ? 0 : side.start;
    differences_.push_back({.change = change,
                            .subject = subject.subject,
                            .sequence = left_.name,
                            .track = subject.track,
                            .name = subject.name,
                            .frame = format.Frames(subject.time),
                            .timecode = format.Timecode(AddTicks(first, subject.time)),
                            .property = std::string(property),
                            .before = std::move(before),
                            .after = std::move(after)});
}

void DifferenceList::CompareTexts(const ComparedSubject& subject, std::string_view property,
                                  const std::string& before, const std::string& after)
{
    if (before != after)
        Add(subject, Change::Changed, property, before, after);
}

void DifferenceList::CompareSwitches(const ComparedSubject& subject, std::string_view property,
                                     bool before, bool after)
{
    if (before != after)
        Add(subject, Change::Changed, property, SwitchText(before), SwitchText(after));
}

void DifferenceList::CompareTimes(const ComparedSubject& subject, std::string_view property,
                                  const TimecodeFormat& format, Ticks before, Ticks after,
                                  Change change)
{
    if (before != after)
        Add(subject, change, property, TimeText(format, before), TimeText(format, after));
}

} // namespace XPJ::Inspection
