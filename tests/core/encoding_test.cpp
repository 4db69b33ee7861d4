#include "core/encoding.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

using namespace std::string_literals;

// ASCII text in units of `size` bytes, the given byte of each set.
std::string Wide(std::string_view text, std::size_t size, std::size_t at)
{
    std::string bytes;
    for (const char c : text) {
        std::string unit(size, '\0');
        unit[at] = c;
        bytes += unit;
    }
    return bytes;
}

std::string Declared(const std::string& encoding, const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" + content;
}

TEST(DecodeDocument, FindsTheEncoding)
{
    const struct {
        std::string bytes;
        std::string encoding;
        std::string ending; // of the text
    } rows[] = {
        {"<a>\xC3\xA9</a>", "UTF-8", "<a>\xC3\xA9</a>"},
        {"", "UTF-8", ""},
        {"\xEF\xBB\xBF" + Declared("ISO-8859-1", "\xC3\xA9"), "UTF-8", "\xC3\xA9"}, // the mark wins
        {Declared("utf-8", "\xC3\xA9"), "UTF-8", "\xC3\xA9"},
        {Declared("US-ASCII", "\xC3\xA9"), "UTF-8", "\xC3\xA9"},
        {Declared("ISO-8859-1", "<n>\xE9</n>"), "ISO-8859-1", "<n>\xC3\xA9</n>"},
        {"<?xml version='1.0' encoding = 'windows-1252' ?>\x80", "windows-1252", "\xE2\x82\xAC"},
        {Declared("x-mac-roman", "\x8E"), "MACINTOSH", "\xC3\xA9"},
        {Declared("Shift_JIS", "\x93\xFA\x96\x7B"), "Shift_JIS", "\xE6\x97\xA5\xE6\x9C\xAC"},
        // Claims what can't be.
        {Declared("UTF-16", "\xC3\xA9"), "UTF-8", "\xC3\xA9"},
        {Declared("EBCDIC-US", "\xC3\xA9"), "UTF-8", "\xC3\xA9"},
        {Declared("//TRANSLIT", "\xC3\xA9"), "UTF-8", "\xC3\xA9"},
        {"<a encoding=\"ISO-8859-1\">\xC3\xA9", "UTF-8", "\xC3\xA9"},
        // Wide characters, with a mark and without.
        {"\xFF\xFE" + Wide("<a>", 2, 0) + "\xE9\0"s, "UTF-16LE", "<a>\xC3\xA9"},
        {"\xFE\xFF" + Wide("<a>", 2, 1) + "\0\xE9"s, "UTF-16BE", "<a>\xC3\xA9"},
        {Wide(Declared("UTF-16", "<a>"), 2, 0) + "\x34\xD8\x1E\xDD", "UTF-16LE",
         "<a>\xF0\x9D\x84\x9E"},
        {Wide("<xmeml>", 2, 1) + "\0\xE9"s, "UTF-16BE", "<xmeml>\xC3\xA9"},
        {"\xFF\xFE\0\0"s + Wide("<a>", 4, 0) + "\xE9\0\0\0"s, "UTF-32LE", "<a>\xC3\xA9"},
        {Wide("<a>", 4, 3) + "\0\0\0\xE9"s, "UTF-32BE", "<a>\xC3\xA9"},
    };
    for (const auto& [bytes, encoding, ending] : rows) {
        std::string decoded;
        EncodingFaults faults;
        const std::string_view text = DecodeDocument(bytes, decoded, faults);
        EXPECT_EQ(faults.encoding, encoding) << bytes;
        EXPECT_TRUE(text.ends_with(ending)) << bytes << "\n" << text;
        EXPECT_EQ(faults.badRuns, 0u) << bytes;
        EXPECT_EQ(faults.unknown, "") << bytes;
        EXPECT_EQ(text.data() == bytes.data(), encoding == "UTF-8") << bytes; // nothing is copied
    }
}

TEST(DecodeDocument, NotesBadBytes)
{
    const std::string longRun(300, '\xE9');
    const struct {
        std::string bytes;
        std::string text; // empty: the bytes
        std::size_t places;
        std::size_t line;
        std::size_t column;
    } rows[] = {
        {"<a>\n<b>\xE9</b>", "", 1, 2, 4},
        {"a\xE9\xE8z\xC3\xA9\xE9", "", 2, 1, 2},
        {"\xC3", "", 1, 1, 1},
        {"\xED\xA0\x80", "", 1, 1, 1}, // half a surrogate pair
        {"abcdefgh\r\nabcdefghi\xFF", "", 1, 2, 10},
        {longRun + "\xC3\xA9" + longRun, "", 2, 1, 1},
        {"\xFF\xFE<\0\0\xD8>\0"s, "\xEF\xBB\xBF<\xEF\xBF\xBD>", 1, 1, 5},
        {"\xFF\xFE<\0\n\0\x3E"s, "\xEF\xBB\xBF<\n\xEF\xBF\xBD", 1, 2, 1},
    };
    for (const auto& [bytes, expected, places, line, column] : rows) {
        std::string decoded;
        EncodingFaults faults;
        const std::string_view text = DecodeDocument(bytes, decoded, faults);
        EXPECT_EQ(faults.badRuns, places) << bytes;
        EXPECT_EQ(faults.firstLine, line) << bytes;
        EXPECT_EQ(faults.firstColumn, column) << bytes;
        if (!expected.empty()) {
            // A mark may stay or go.
            EXPECT_TRUE(std::string_view(expected).ends_with(text)) << text;
        }
    }
}

TEST(DecodeDocument, AnUnknownEncodingIsReadAsUtf8)
{
    std::string decoded;
    EncodingFaults faults;
    const std::string bytes = Declared("Klingon-7", "\xC3\xA9\n\xE9");
    EXPECT_EQ(DecodeDocument(bytes, decoded, faults), bytes);
    EXPECT_EQ(faults.unknown, "Klingon-7");
    EXPECT_EQ(faults.encoding, "UTF-8");
    EXPECT_EQ(faults.badRuns, 1u);
    EXPECT_EQ(faults.firstLine, 2u);
}

// Text that grows threefold, and in blocks.
TEST(DecodeDocument, LongTexts)
{
    const std::string head = Declared("windows-1252", "");
    const std::string bytes = head + std::string(200000, '\x80');
    std::string decoded;
    EncodingFaults faults;
    const std::string_view text = DecodeDocument(bytes, decoded, faults);
    ASSERT_EQ(text.size(), head.size() + 600000);
    EXPECT_TRUE(text.ends_with("\xE2\x82\xAC"));
    EXPECT_EQ(faults.badRuns, 0u);
    EXPECT_EQ(faults.unknown, "");
}

} // namespace
} // namespace XPJ
