#include "inspect/titles.h"

#include "core/json.h"
#include "inspect/compare.h"
#include "inspect/timeline_json.h"
#include "inspect/timeline_text.h"
#include "inspect/title_font_names.h"
#include "inspect_fixture.h"
#include "support/import_text.h"

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {
namespace {

constexpr const char* kDocument = R"(<xmeml version="5"><sequence id="s"><name>Cut</name>
<rate><timebase>25</timebase></rate><media><video><format><samplecharacteristics><width>1920</width>
<height>1080</height><pixelaspectratio>square</pixelaspectratio></samplecharacteristics></format>
<track><generatoritem id="g"><name>Name</name><rate><timebase>25</timebase></rate>
<duration>1000</duration><in>0</in><out>50</out><start>0</start><end>50</end><masterclipid>m</masterclipid>
<effect><name>Lower 3rd</name><effectid>Lower 3rd</effectid>
<parameter><parameterid>str1</parameterid><value>Tom &amp; Co&#13;live</value></parameter>
<parameter><parameterid>font1</parameterid><value>Arial</value></parameter>
<parameter><parameterid>style</parameterid><value>2</value></parameter>
<parameter><parameterid>size1</parameterid><value>48</value></parameter>
<parameter><parameterid>str2</parameterid><value>second</value></parameter>
<parameter><parameterid>size2</parameterid><value>20</value></parameter>
<parameter><parameterid>color2</parameterid><value><red>255</red><green>204</green><blue>0</blue></value>
</parameter></effect></generatoritem></track></video></media></sequence></xmeml>)";

constexpr Settings kSettings[] = {
    {},
    {.convertTitles = true},
    {.convertTitles = true, .titlesAsMasterEffects = true},
};

std::string Imported(const std::string& xmeml, const Settings& settings)
{
    ImportOptions options;
    options.settings = settings;
    return ImportText(xmeml, options).project;
}

// "title: a -> b; title font: c -> d"
std::string TitleDifferencesText(const std::vector<Difference>& differences)
{
    std::string text;
    for (const Difference& difference : differences)
        if (difference.property.starts_with("title"))
            text += std::string(text.empty() ? "" : "; ") + difference.property + ": " +
                    difference.before + " -> " + difference.after;
    return text;
}

TEST(Titles, AreTheSameInEveryDocument)
{
    const Project document = Timelines(kDocument);
    ASSERT_EQ(document.titles.size(), 1U);
    const std::vector<TitleText> expected = {
        {.text = "Tom & Co\nlive", .font = "Arial Bold", .size = 108, .color = "#ffffff"},
        {.text = "second", .font = "Lucida Grande Bold", .size = 45, .color = "#ffcc00"}};
    EXPECT_EQ(document.titles[0], expected);
    for (const Settings& settings : kSettings) {
        SCOPED_TRACE(&settings - kSettings);
        const Project project = Timelines(Imported(kDocument, settings));
        ASSERT_EQ(project.titles.size(), 1U);
        EXPECT_EQ(project.sequences.at(0).tracks.at(0).items.at(0).title, 0U);
        EXPECT_EQ(project.titles[0].at(0).text, expected[0].text);
        EXPECT_EQ(project.titles[0].at(1).text, expected[1].text);
        for (const Difference& difference : Compare(document, project))
            EXPECT_EQ(difference.property, "") << difference.before << " -> " << difference.after;
    }
}

TEST(Titles, EveryCarriageReturnEndsALine)
{
    const std::string document = Replaced(kDocument, "live", "live&#xD;here");
    EXPECT_EQ(Timelines(document).titles.at(0).at(0).text, "Tom & Co\nlive\nhere");
    for (const Settings& settings : kSettings)
        EXPECT_EQ(Timelines(Imported(document, settings)).titles.at(0).at(0).text,
                  "Tom & Co\nlive\nhere");
}

TEST(Titles, DifferencesBetweenThem)
{
    std::string changed = Replaced(kDocument, "live", "now");
    changed = Replaced(changed, "<value>Arial</value>", "<value>Unheard Of</value>");
    changed = Replaced(changed, "<value>48</value>", "<value>24</value>");
    changed = Replaced(changed, "<red>255</red>", "<red>254</red>");
    const Project before = Timelines(kDocument);
    EXPECT_EQ(TitleDifferencesText(Compare(before, Timelines(changed))),
              "title: Tom & Co / live -> Tom & Co / now; "
              "title font: Arial Bold -> Unheard Of Bold; title size: 108 -> 54; "
              "title color: #ffcc00 -> #fecc00");
    EXPECT_EQ(TitleDifferencesText(Compare(before, Timelines(Replaced(kDocument, "second", "")))),
              "title: second -> ");
    // What no project knows is set in another font, which is a difference.
    EXPECT_EQ(TitleDifferencesText(
                  Compare(Timelines(changed), Timelines(Imported(changed, kSettings[0])))),
              "title font: Unheard Of Bold -> Apple Casual Bold");
    EXPECT_EQ(TitleDifferencesText(
                  Compare(Timelines(changed), Timelines(Imported(changed, kSettings[1])))),
              "title font: Unheard Of Bold -> LucidaGrande");
}

TEST(Titles, AreListedAsTextAndAsJson)
{
    const Project project = Timelines(kDocument);
    const std::string text = TreeText(project, {});
    EXPECT_NE(text.find("title \"Tom & Co / live\"  Arial Bold 108  #ffffff\n"), text.npos);
    EXPECT_NE(text.find("title \"second\"  Lucida Grande Bold 45  #ffcc00\n"), text.npos);
    const nlohmann::json json = ParseJson(TreeJson(project, {}));
    EXPECT_EQ(json["sequences"][0]["tracks"][0]["items"][0]["title"], 0);
    EXPECT_EQ(json["titles"][0][0]["text"], "Tom & Co\nlive");
    EXPECT_EQ(json["titles"][0][1]["color"], "#ffcc00");
}

TEST(Titles, PreviewsEndBetweenCharacters)
{
    EXPECT_EQ(PreviewOf({.text = "a\n\nb"}), "a /  / b");
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "\xE6\x9D\xB1";
    const std::string preview = PreviewOf({.text = text});
    EXPECT_EQ(preview, text.substr(0, 198) + "...");
}

TEST(Titles, FontsByTheNamesOfTwoDocuments)
{
    const struct {
        const char* a;
        const char* b;
        bool same;
    } rows[] = {
        {"Arial Bold", "Arial-BoldMT", true},
        {"Arial Bold", "Arial-ItalicMT", false},
        {"Arial Bold Italic", "Arial Bold Italic", true},
        {"Futura", "Futura Condensed Medium", true},
        {"Lucida Grande", "LucidaGrande", true},
        {"Zapfino", "LucidaGrande", false},
        {"Apple Casual", "Apple Casual", true},
        {"Unheard Of", "Apple Casual", false},
        {"", "LucidaGrande", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IsSameFont(row.a, row.b), row.same) << row.a << ", " << row.b;
        EXPECT_EQ(IsSameFont(row.b, row.a), row.same) << row.a << ", " << row.b;
    }
}

} // namespace
} // namespace XPJ::Inspection
