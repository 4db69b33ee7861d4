#include "media/media_header.h"

#include "media/header_readers.h"

#include <fstream>
#include <string_view>

namespace XPJ {

namespace {

// A file of the format has one of `marks` at `offset`.
struct HeaderFormat {
    std::size_t offset;
    std::string_view marks; // four bytes each
    MediaFacts (*read)(HeaderBytes& bytes);
};

constexpr HeaderFormat kFormats[] = {
    {4, "ftypmoovmdatwidefreeskippnot", ReadQuickTimeHeader},
    {8, "WAVE", ReadWaveHeader},
    {8, "AIFFAIFC", ReadAiffHeader},
};

bool Has(const HeaderFormat& format, std::string_view start)
{
    constexpr std::size_t kMarkSize = 4;
    for (std::size_t i = 0; i < format.marks.size(); i += kMarkSize)
        if (start.substr(format.offset, kMarkSize) == format.marks.substr(i, kMarkSize))
            return true;
    return false;
}

} // namespace

MediaFacts ReadMediaHeader(std::istream& file)
{
    constexpr std::size_t kStartSize = 12;
    HeaderBytes bytes(file);
    const std::string start = bytes.Read(0, kStartSize);
    if (start.size() == kStartSize)
        for (const HeaderFormat& format : kFormats)
            if (Has(format, start))
                return format.read(bytes);
    return {};
}

MediaFacts ReadMediaHeaderOfFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return file ? ReadMediaHeader(file) : MediaFacts();
}

} // namespace XPJ
