#include "inspect/title_differences.h"

#include "effects/values.h"
#include "inspect/title_font_names.h"
#include "inspect/titles.h"

#include <algorithm>

namespace XPJ::Inspection {

std::vector<TitleDifference> TitleDifferences(const std::vector<TitleText>& a,
                                              const std::vector<TitleText>& b)
{
    std::vector<TitleDifference> found;
    const auto add = [&found](Property property, bool isSame, std::string before,
                              std::string after) {
        if (!isSame)
            found.push_back({property, std::move(before), std::move(after)});
    };
    const std::size_t both = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < both; ++i) {
        const TitleText& left = a[i];
        const TitleText& right = b[i];
        add(Property::Title, left.text == right.text, PreviewOf(left), PreviewOf(right));
        add(Property::TitleFont, IsSameFont(left.font, right.font), left.font, right.font);
        add(Property::TitleSize, left.size == right.size, NumberText(left.size),
            NumberText(right.size));
        add(Property::TitleColor, left.color == right.color, left.color, right.color);
    }
    for (std::size_t i = both; i < a.size(); ++i)
        found.push_back({Property::Title, PreviewOf(a[i]), {}});
    for (std::size_t i = both; i < b.size(); ++i)
        found.push_back({Property::Title, {}, PreviewOf(b[i])});
    return found;
}

} // namespace XPJ::Inspection
