#include "grading/text_place.h"

namespace XPJ {

TextPlace PlaceAt(std::string_view text, std::size_t offset)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const bool isMarked = text.starts_with(kByteOrderMark) && offset >= kByteOrderMark.size();
    TextPlace place;
    std::size_t lineStart = isMarked ? kByteOrderMark.size() : 0;
    for (std::size_t i = lineStart; i < offset; ++i) {
        const bool isFirstOfTwo = text[i] == '\r' && text.substr(i + 1).starts_with('\n');
        if (isFirstOfTwo || (text[i] != '\n' && text[i] != '\r'))
            continue;
        ++place.line;
        lineStart = i + 1;
    }
    place.column = static_cast<int>(offset - lineStart) + 1;
    return place;
}

} // namespace XPJ
