#include "core/text.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(Text, EncodingsConvertBothWays)
{
    constexpr std::string_view kText = "Caf\xc3\xa9 \xe6\x97\xa5 \xf0\x9f\x8e\xac";
    EXPECT_EQ(ToUTF16(kText), u"Café 日 🎬");
    EXPECT_EQ(ToUTF8(u"Café 日 🎬"), kText);
}

TEST(Text, IllFormedInputIsReplaced)
{
    EXPECT_EQ(ToUTF16("a\xff\xc3z"), u"a��z");
    const char16_t kHalves[] = {'a', 0xD83C, 'b', 0xDFAC, 0};
    EXPECT_EQ(ToUTF8(kHalves), "a\xef\xbf\xbd"
                               "b\xef\xbf\xbd");
}

TEST(Text, FieldEndsInAZeroAndLeavesTheRest)
{
    char16_t field[6] = {'#', '#', '#', '#', '#', '#'};
    ToUTF16("ab", field, 6);
    EXPECT_EQ(std::u16string(field, 6), std::u16string(u"ab\0###", 6));
    ToUTF16("abcdefgh", field, 6);
    EXPECT_EQ(std::u16string(field), u"abcde");
    // The pair would be cut in half.
    ToUTF16("abcd\xf0\x9f\x8e\xac", field, 6);
    EXPECT_EQ(std::u16string(field), u"abcd");
    ToUTF16("a", field, 0);
    EXPECT_EQ(std::u16string(field), u"abcd");
}

TEST(Text, EscapingTouchesNoEntity)
{
    const struct {
        std::string_view plain, escaped;
    } kCases[] = {
        {"a < b > c & d", "a &lt; b &gt; c &amp; d"},
        {"&lt;&gt;&amp;&quot;&apos;", "&lt;&gt;&amp;&quot;&apos;"},
        {"&#13; &#xE9;", "&#13; &#xE9;"},
        {"&#; &#x; &#1", "&amp;#; &amp;#x; &amp;#1"},
        {"&nbsp;", "&amp;nbsp;"},
        {"a\r\nb\rc", "a&#13;\nb\rc"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(EscapeXML(row.plain), row.escaped);
        EXPECT_EQ(EscapeXML(row.escaped), row.escaped);
    }
}

TEST(Text, UnescapingTakesEntitiesAndReferences)
{
    EXPECT_EQ(UnescapeXML("a &lt;&gt;&amp;&quot;&apos; b"), "a <>&\"' b");
    EXPECT_EQ(UnescapeXML("&#65;&#xe9;&#X1F3AC;"), "A\xc3\xa9\xf0\x9f\x8e\xac");
    // No characters: half a pair, beyond the last, none at all.
    for (const std::string_view text :
         {"&#xD800;", "&#x110000;", "&#0;", "&#;", "&x;", "&", "&#99"})
        EXPECT_EQ(UnescapeXML(text), text);
    EXPECT_EQ(UnescapeXML("&amp;lt;"), "&lt;");
}

TEST(Text, WellFormedTextKeepsWhatIsLegalAndNothingElse)
{
    const struct {
        std::string_view text, wellFormed;
    } kCases[] = {
        {"Reel 4 &amp; &lt;5&gt; &#13;&#xE9;\t\r\n", "Reel 4 &amp; &lt;5&gt; &#13;&#xE9;\t\r\n"},
        {"\xc3\xa9 \xf0\x9f\x8e\xac > ]>", "\xc3\xa9 \xf0\x9f\x8e\xac > ]>"},
        {"R&D <b> ]]>", "R&amp;D &lt;b> ]]&gt;"},
        {"&nbsp; &#0; &#XE9; &#xD800; &#xFFFF; &#8;",
         "&amp;nbsp; &amp;#0; &amp;#XE9; &amp;#xD800; &amp;#xFFFF; &amp;#8;"},
        {"a\x01\x1f"
         "b",
         "ab"},
        {"Gr\xfc\xdf"
         "e",
         "Gr\xef\xbf\xbd\xef\xbf\xbd"
         "e"},
        {"a\xef\xbf\xbf\xef\xbf\xbe", "a"},
    };
    for (const auto& row : kCases) {
        EXPECT_EQ(WellFormedText(row.text), row.wellFormed);
        EXPECT_EQ(WellFormedText(row.wellFormed), row.wellFormed);
    }
}

TEST(Text, ComparesWithoutCase)
{
    EXPECT_TRUE(EqualsIgnoreCase("TRUE", "true"));
    EXPECT_TRUE(EqualsIgnoreCase("", ""));
    EXPECT_FALSE(EqualsIgnoreCase("true", "true "));
    EXPECT_FALSE(EqualsIgnoreCase("\xc3\x84", "\xc3\xa4"));
}

} // namespace
} // namespace XPJ
