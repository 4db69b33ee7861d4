// Attributes of start tags, as the table of elements knows them or not.
#pragma once

#include "tree/reading.h"
#include "xmeml/elements.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace XPJ {

// Collects attributes that no row of the table has. An `id` is in none where nothing refers to it,
// and a switch that is off states nothing: neither counts.
//   <clipitem id="a" frameBlend="FALSE" rating="5">   // "xmeml/.../clipitem@rating"
class UnknownAttributes {
public:
    // `attributes` is the text of a start tag; `element` the row of its element, null for one that
    // has none. `path` is called for what is met the first time.
    void Take(std::string_view tag, std::string_view attributes, const XmemlElement* element,
              const std::function<std::string()>& path);

    // By path.
    std::vector<IgnoredElements> List() const;

private:
    std::map<std::pair<std::string, std::string>, IgnoredElements> found_; // by tag and name
};

} // namespace XPJ
