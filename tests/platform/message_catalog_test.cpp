#include "core/text.h"
#include "platform/default_platform.h"
#include "platform/message_catalog.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(MessageCatalog, IgnoresLinesThatAreNone)
{
    MessageCatalog catalog;
    catalog.Add("\xEF\xBB\xBF$$$/A=erstens\r\n"
                "# $$$/Comment=x\n"
                "$$$/NoText=\n"
                "$$$/NoEquals\n"
                "Key=x\n"
                "\n"
                "$$$/Invalid=\xFF\n"
                "  $$$/B=a = b \n"
                "$$$/A=later\n"
                "$$$/Last=ohne Zeilenende");
    EXPECT_EQ(catalog.Keys(), (std::vector<std::string_view>{"$$$/A", "$$$/B", "$$$/Last"}));
    EXPECT_EQ(catalog.Find("$$$/A=first"), "erstens");
    EXPECT_EQ(catalog.Find("$$$/B=x"), "a = b");
    EXPECT_EQ(catalog.Find("$$$/Last=x"), "ohne Zeilenende");
}

TEST(MessageCatalog, PlaceholdersAreThoseOfTheDefault)
{
    const struct {
        std::string_view standard;
        std::string_view text;
        bool isUsed;
    } rows[] = {
        {"$1 on $2", "Auf $2: $1", true},  {"$1 on $2", "Auf $2", false},
        {"One", "Eins, $1", false},        {"$1", "$1 und $1", false},
        {"\"%s\" lost", "„%s“", true},     {"\"%s\" lost", "fehlt", false},
        {"$ 5, 100%", "5 $, 100 %", true}, {"", "Etwas", false},
    };
    for (const auto& [standard, text, isUsed] : rows) {
        MessageCatalog catalog;
        catalog.Add("$$$/K=" + std::string(text));
        EXPECT_EQ(catalog.Find("$$$/K=" + std::string(standard)).has_value(), isUsed)
            << standard << " / " << text;
    }
}

TEST(MessageCatalog, NamesOfALocale)
{
    using Names = std::vector<std::string>;
    const struct {
        std::string_view locale;
        Names expected;
    } rows[] = {
        {"de_AT.UTF-8", {"de_AT", "de"}},
        {"de_DE@euro", {"de_DE", "de"}},
        {"de", {"de"}},
        {"C", {}},
        {"C.UTF-8", {}},
        {"POSIX", {}},
        {"", {}},
        {".UTF-8", {}},
        {"../../etc/x", {}},
        {"_DE", {"_DE"}},
    };
    for (const auto& [locale, expected] : rows)
        EXPECT_EQ(CatalogNames(locale), expected) << locale;
}

TEST(DefaultPlatformTexts, ComeFromTheCatalog)
{
    DefaultPlatform platform;
    EXPECT_EQ(platform.Localize("$$$/A=Layer $1"), u"Layer $1");
    MessageCatalog catalog;
    catalog.Add("$$$/A=Überlagerung $1");
    platform.UseCatalog(catalog);
    EXPECT_EQ(platform.Localize("$$$/A=Layer $1"), u"\u00DCberlagerung $1");
    EXPECT_EQ(platform.Localize("$$$/B=Other"), u"Other");
}

} // namespace
} // namespace XPJ
