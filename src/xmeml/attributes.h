// Attributes of start tags, as the table of elements knows them or not.
#pragma once

#include "tree/reading.h"
#include "xmeml/elements.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace XPJ {

struct AttributesOfTag {
    std::string_view tag;
    std::string_view attributes; // the text of the start tag
    const XmemlElement* element; // the row of its element, null for one that has none
    std::uint64_t node = 0;      // the identity of the element, or of the one around it
};

// Collects attributes that no row of the table has. An `id` is in none where nothing refers to it,
// and a switch that is off states nothing: neither counts.
//   <clipitem id="a" frameBlend="FALSE" rating="5">   // "xmeml/.../clipitem@rating"
class UnknownAttributes {
public:
    // `path`, of the element, is called for what is met the first time.
    void Take(const AttributesOfTag& taken, const std::function<std::string()>& path);

    // By path.
    std::vector<IgnoredElements> List() const;

private:
    std::map<std::pair<std::string, std::string>, IgnoredElements> found_; // by tag and name
};

} // namespace XPJ
