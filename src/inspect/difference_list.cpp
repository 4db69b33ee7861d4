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

std::size_t IndexOf(const Project& project, const Sequence& sequence)
{
    return static_cast<std::size_t>(&sequence - project.sequences.data());
}

std::string TimeText(const TimecodeFormat& format, Ticks time)
{
    return fmt::format("{} ({})", format.Frames(time), format.Timecode(time));
}

// What was added is in the second document alone, what was lost in the first.
void DifferenceList::Locate(const ComparedSubject& subject, Difference& difference) const
{
    const bool isWhole = difference.kind == Property::None;
    if (!isWhole || difference.change != Change::Added)
        difference.first = {IndexOf(sequences_->leftProject, sequences_->left), subject.leftItem};
    if (!isWhole || difference.change != Change::Lost)
        difference.second = {IndexOf(sequences_->rightProject, sequences_->right),
                             subject.rightItem};
}

void DifferenceList::Add(const ComparedSubject& subject, Change change,
                         const ComparedProperty& property, std::string before, std::string after)
{
    Difference difference{.change = change,
                          .subject = subject.subject,
                          .bin = subject.bin,
                          .track = subject.track,
                          .name = subject.name,
                          .kind = property.property,
                          .property = property.text,
                          .before = std::move(before),
                          .after = std::move(after)};
    const TimecodeFormat* format = subject.source;
    Ticks first = 0;
    if (sequences_) {
        const bool isRight = change == Change::Added && property.property == Property::None;
        const Sequence& side = isRight ? sequences_->right : sequences_->left;
        difference.sequence = sequences_->left.name;
        first = format ? 0 : side.start;
        format = format ? format : &side.format;
        Locate(subject, difference);
    }
    if (format) {
        difference.frame = format->Frames(subject.time);
        difference.timecode = format->Clock(AddTicks(first, subject.time));
    }
    differences_.push_back(std::move(difference));
}

void DifferenceList::CompareTexts(const ComparedSubject& subject, const ComparedProperty& property,
                                  const std::string& before, const std::string& after)
{
    if (before != after)
        Add(subject, Change::Changed, property, before, after);
}

void DifferenceList::CompareSwitches(const ComparedSubject& subject,
                                     const ComparedProperty& property, bool before, bool after)
{
    if (before != after)
        Add(subject, Change::Changed, property, SwitchText(before), SwitchText(after));
}

void DifferenceList::CompareTimes(const ComparedSubject& subject, const ComparedProperty& property,
                                  const TimecodeFormat& format, Ticks before, Ticks after,
                                  Change change)
{
    if (before != after)
        Add(subject, change, property, TimeText(format, before), TimeText(format, after));
}

} // namespace XPJ::Inspection
