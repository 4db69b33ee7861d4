// The differences between two documents while they are being found.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace XPJ::Inspection {

// Two sequences that belong together, and their documents.
struct ComparedSequences {
    const Project& leftProject;
    const Project& rightProject;
    const Sequence& left;
    const Sequence& right;

    bool AreOfOneFamily() const { return leftProject.family == rightProject.family; }
};

// `sequence` is one of the project's.
std::size_t IndexOf(const Project& project, const Sequence& sequence);

// What is being compared.
struct ComparedSubject {
    Subject subject = Subject::Sequence;
    std::string track = {};
    std::string name = {};
    Ticks time = 0;
    const TimecodeFormat* source = nullptr;     // of the time, if it isn't one of the sequence
    ItemIndex leftItem = {kNothing, kNothing};  // of the item that it is or belongs to
    ItemIndex rightItem = {kNothing, kNothing}; // likewise
    std::string bin = {};                       // of what is in the browser
};

// A property with the text that a difference shows for it.
struct ComparedProperty {
    ComparedProperty(Property named) : property(named), text(PropertyText(named)) {}
    ComparedProperty(Property detailed, std::string details)
        : property(detailed), text(std::move(details))
    {
    }

    Property property;
    std::string text;
};

// "100 (00:00:04:00)"
std::string TimeText(const TimecodeFormat& format, Ticks time);

// Adds to the list what differs.
class DifferenceList {
public:
    // Of the browser.
    explicit DifferenceList(std::vector<Difference>& differences) : differences_(differences) {}
    // Of two sequences, which must outlive it.
    DifferenceList(const ComparedSequences& sequences, std::vector<Difference>& differences)
        : sequences_(&sequences), differences_(differences)
    {
    }

    void Add(const ComparedSubject& subject, Change change,
             const ComparedProperty& property = Property::None, std::string before = {},
             std::string after = {});
    void CompareTexts(const ComparedSubject& subject, const ComparedProperty& property,
                      const std::string& before, const std::string& after);
    void CompareSwitches(const ComparedSubject& subject, const ComparedProperty& property,
                         bool before, bool after);
    // Both in `format`, so that the texts differ in what differs.
    void CompareTimes(const ComparedSubject& subject, const ComparedProperty& property,
                      const TimecodeFormat& format, Ticks before, Ticks after,
                      Change change = Change::Changed);

private:
    void Locate(const ComparedSubject& subject, Difference& difference) const;

    const ComparedSequences* sequences_ = nullptr;
    std::vector<Difference>& differences_;
};

} // namespace XPJ::Inspection
