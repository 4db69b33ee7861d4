#include "grading/digest.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

// The test suite of RFC 1321.
TEST(Digest, PublishedVectors)
{
    const struct {
        std::string_view bytes, text;
    } kCases[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"a", "0cc175b9c0f1b6a831c399e269772661"},
        {"abc", "900150983cd24fb0d6963f7d28e17f72"},
        {"message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
        {"abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
         "d174ab98d277d9f5a5611c2c9f419d9f"},
        {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
         "57edf4a22be3c955ac49da2e2107b67a"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(DigestText(DigestOf(row.bytes)), row.text) << row.bytes;
        DigestStream pieces;
        pieces.Add(row.bytes.substr(0, row.bytes.size() / 3));
        pieces.Add(row.bytes.substr(row.bytes.size() / 3));
        EXPECT_EQ(DigestText(pieces.Finish()), row.text) << row.bytes << " in two pieces";
    }
}

// A million times the letter a, in pieces that lie at any address.
TEST(Digest, LongText)
{
    const std::string bytes(1'000'000, 'a');
    DigestStream pieces;
    for (std::size_t at = 0; at < bytes.size(); at += 777)
        pieces.Add(std::string_view(bytes).substr(at, 777));
    EXPECT_EQ(DigestText(pieces.Finish()), "7707d6ae4e027c70eea2a935c2296f21");
    EXPECT_EQ(DigestText(DigestOf(bytes)), "7707d6ae4e027c70eea2a935c2296f21");
}

} // namespace
} // namespace XPJ
