#include "core/base64.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

std::string Bytes(std::initializer_list<int> values)
{
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

TEST(Base64, EncodesWithPadding)
{
    const struct {
        std::string_view bytes, text;
    } kCases[] = {
        {"", ""},        {"f", "Zg=="},          {"fo", "Zm8="},
        {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}, {"\xff\xfe\xfd", "//79"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(EncodeBase64(row.bytes), row.text);
        EXPECT_EQ(DecodeBase64(row.text), row.bytes);
    }
}

TEST(Base64, DecoderSkipsForeignBytesAndStopsAtPadding)
{
    EXPECT_EQ(DecodeBase64("Zm\r\n 9v\tYm-Fy"), "foobar");
    EXPECT_EQ(DecodeBase64("Zg==Zm9v"), "f");
    EXPECT_EQ(DecodeBase64("Z"), "");
    EXPECT_EQ(DecodeBase64("===="), "");
}

// Values that the host's own files bear.
TEST(Base64, BlobChecksum)
{
    EXPECT_EQ(BlobChecksum(Bytes({0, 0, 0})), 4287466893u);
    EXPECT_EQ(BlobChecksum(Bytes({0xff, 0, 0, 0xff, 1, 0, 0, 0})), 462261645u);
    EXPECT_EQ(BlobChecksum(Bytes({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15})),
              1989261662u);
    EXPECT_EQ(BlobChecksum(""), 0xffffffffu);
}

} // namespace
} // namespace XPJ
