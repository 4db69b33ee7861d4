#pragma once

#include <string>
#include <vector>

namespace XPJ {

// A named text of a grading; `weak` is a mark that is only carried.
struct CZvProperty {
    std::string name;
    std::string value;
    bool weak = false;
};

// The properties of one grading, in the order of the document.
struct CZvPropertyList {
    std::vector<CZvProperty> properties;
};

} // namespace XPJ
