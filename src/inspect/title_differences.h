// What differs between the texts of two titles.
#pragma once

#include "inspect/difference.h"
#include "inspect/timeline.h"

#include <optional>
#include <string>
#include <vector>

namespace XPJ::Inspection {

// A text that only one of the two has is nothing on the other side.
struct TitleDifference {
    Property property = Property::Title; // or its font, size or color
    std::optional<std::string> before;
    std::optional<std::string> after;
};

std::vector<TitleDifference> TitleDifferences(const std::vector<TitleText>& a,
                                              const std::vector<TitleText>& b);

} // namespace XPJ::Inspection
