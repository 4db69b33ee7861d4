#include "effects/legacy_title.h"
#include "effects/title_writer.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

Title TitleOf(std::vector<TitleText> texts, TitleMotion motion)
{
    Title title;
    title.texts = std::move(texts);
    title.motion = motion;
    title.frame = {.width = 1280, .height = 720};
    return title;
}

TitleText TextOf(std::string_view line, FontStyle style = FontStyle::Regular)
{
    TitleText text{.font = {}, .lines = {line}};
    text.font.style = style;
    return text;
}

std::string ValueOf(ConstHandle effect, std::string_view id)
{
    return std::string(FindParameter(effect, id).GetProperty("value"));
}

// A generator has one look, a lower third two that share style and alignment.
TEST(TitleWriter, StatesWhatAGeneratorHas)
{
    const struct {
        Title title;
        bool isWhole;
        std::string_view effect;
        std::string_view parameter;
        std::string_view text;
    } cases[] = {
        {TitleOf({TextOf("One")}, TitleMotion::Still), true, "Text", "str", "One"},
        {TitleOf({TextOf("One"), TextOf("Two")}, TitleMotion::Still), true, "Lower 3rd", "str2",
         "Two"},
        {TitleOf({TextOf("One"), TextOf("Two", FontStyle::Bold)}, TitleMotion::Still), false,
         "Lower 3rd", "str2", "Two"},
        {TitleOf({TextOf("One"), TextOf("Two")}, TitleMotion::Crawl), false, "Crawl", "str",
         "One&#13;Two"},
        {TitleOf({TextOf("One"), TextOf("Two"), TextOf("Three")}, TitleMotion::Still), false,
         "Text", "str", "One&#13;Two&#13;Three"},
    };
    for (const auto& row : cases) {
        const LegacyTitle read = ReadLegacyTitle(LegacyTitleDocument(row.title));
        Document document;
        const ObjectHandle effect = MakeTitleEffect(document, read);
        EXPECT_EQ(IsStatedInFull(read), row.isWhole) << row.text;
        EXPECT_EQ(effect.GetProperty("effectid"), row.effect) << row.text;
        EXPECT_EQ(ValueOf(effect, row.parameter), row.text);
    }
}

// Every face of the tables, and every size in frames of any height.
TEST(TitleWriter, MakesTheSameTitleDocument)
{
    for (const std::string_view family : {"Georgia", "Futura", "American Typewriter", "Zapfino"})
        for (const FontStyle style :
             {FontStyle::Regular, FontStyle::Italic, FontStyle::Bold, FontStyle::BoldItalic})
            for (const int height : {240, 480, 576, 1080, 2160}) {
                Title title = TitleOf({TextOf("A", style)}, TitleMotion::Still);
                title.texts[0].font.family = family;
                title.texts[0].font.size = 7 + height % 31;
                title.frame.height = height;
                const std::string written = LegacyTitleDocument(title);
                Document document;
                const ObjectHandle generator = document.NewObject("generatoritem");
                generator.AddChild(MakeTitleEffect(document, ReadLegacyTitle(written)));
                EXPECT_EQ(LegacyTitleDocument(ReadTitle(generator, title.frame)), written)
                    << family << " " << static_cast<int>(style) << " " << height;
            }
}

TEST(TitleWriter, NoTitleHasNoTexts)
{
    for (const std::string_view bytes : {"", "<a><b>", "\x80\xff", "<TRString>A</TRString>"})
        EXPECT_TRUE(ReadLegacyTitle(bytes).texts.empty()) << bytes;
}

} // namespace
} // namespace XPJ
