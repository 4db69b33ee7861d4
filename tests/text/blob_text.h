// Blobs put together and taken apart by hand, so that the code under test is held against the
// format and not against itself.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ::GVE {

// Of ASCII text; `count` is the stated number of bytes, the true one if negative.
inline std::string BlobOf(std::string_view json, std::int64_t count = -1)
{
    const auto bytes = count < 0 ? 2 * json.size() : static_cast<std::uint64_t>(count);
    std::string blob;
    for (int i = 0; i < 8; ++i)
        blob += static_cast<char>(bytes >> (8 * i) & 0xff);
    for (const char c : json) {
        blob += c;
        blob += '\0';
    }
    return blob;
}

// The UTF-16 text behind the count.
inline std::u16string UnitsOf(std::string_view blob)
{
    std::u16string units;
    for (std::size_t i = 8; i + 1 < blob.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(blob[i]) |
                                       static_cast<unsigned char>(blob[i + 1]) << 8);
    return units;
}

// Of a blob of ASCII text.
inline std::string AsciiOf(std::string_view blob)
{
    std::string text;
    for (const char16_t unit : UnitsOf(blob))
        text += unit < 0x80 ? static_cast<char>(unit) : '?';
    return text;
}

// `parameters` are the inside of the object of text parameters.
inline std::string TextBlob(std::string_view parameters)
{
    return BlobOf(R"({"SerializerWrappedObject":{"mVersion":1,"mTextParam":{)" +
                  std::string(parameters) + "}}}");
}

} // namespace XPJ::GVE
