// Subjects and properties that a comparison skips at the request of its user.
#pragma once

#include "inspect/difference.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

// By the names that differences show: "marker", "label", "bin" for both the subject and the
// property of that name.
class Ignored {
public:
    // False for a name that neither a subject nor a property has.
    bool Add(std::string_view text);
    bool Has(const Difference& difference) const;

    void RemoveFrom(std::vector<Difference>& differences) const;

private:
    std::set<Subject> subjects_;
    std::set<Property> properties_;
};

// "sequence, track, clip": all the names, each once.
std::string IgnorableNames();

} // namespace XPJ::Inspection
