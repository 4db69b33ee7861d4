#pragma once

#include <string>
#include <vector>

namespace XPJ {

// A named text of a grading. A weak one gives way to a property of the same name elsewhere.
struct CZvProperty {
    std::string name;
    std::string value;
    bool weak = false;
};

// The properties of one grading, in the order of the document.
struct CZvPropertyList {
    std::vector<CZvProperty> properties;
};

}  // namespace XPJ
