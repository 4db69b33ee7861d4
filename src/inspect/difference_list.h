// The differences between two sequences while they are being found.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

// What is being compared.
struct ComparedSubject {
    Subject subject = Subject::Sequence;
    std::string track = {};
    std::string name = {};
    Ticks time = 0;
    const TimecodeFormat* source = nullptr; // of the time, if it isn't one of the sequence
};

// "100 (00:00:04:00)"
std::string TimeText(const TimecodeFormat& format, Ticks time);

// Adds to the list what differs between `left` and `right`.
class DifferenceList {
public:
    DifferenceList(const Sequence& left, const Sequence& right,
                   std::vector<Difference>& differences)
        : left_(left), right_(right), differences_(differences)
    {
    }

    void Add(const ComparedSubject& subject, Change change, std::string_view property = {},
             std::string before = {}, std::string after = {});
    void CompareTexts(const ComparedSubject& subject, std::string_view property,
                      const std::string& before, const std::string& after);
    void CompareSwitches(const ComparedSubject& subject, std::string_view property, bool before,
                         bool after);
    // Both in `format`, so that the texts differ in what differs.
    void CompareTimes(const ComparedSubject& subject, std::string_view property,
                      const TimecodeFormat& format, Ticks before, Ticks after,
                      Change change = Change::Changed);

private:
    const Sequence& left_;
    const Sequence& right_;
    std::vector<Difference>& differences_;
};

} // namespace XPJ::Inspection
