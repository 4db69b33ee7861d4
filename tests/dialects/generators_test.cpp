// Generated video on its way to other programs and back: what the generators of a document are
// after so many conversions to a project and back.
#include "support/document_text.h"
#include "support/open_conversion.h"

#include <string>
#include <string_view>
#include <vector>

namespace XPJ {
namespace {

// A sequence of 1920 by 1080 in 25 frames a second with the tracks, and the entries of a bin.
std::string DocumentOf(std::string_view video, std::string_view audio = {},
                       std::string_view entries = {})
{
    return "<xmeml version=\"5\"><project><name>Case</name><children>" + std::string(entries) +
           "<sequence id=\"cut\"><name>Cut</name><duration>100</duration>"
           "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><media><video>"
           "<format><samplecharacteristics><width>1920</width><height>1080</height>"
           "<pixelaspectratio>square</pixelaspectratio></samplecharacteristics></format>"
           "<track>" +
           std::string(video) + "</track></video><audio><track>" + std::string(audio) +
           "</track></audio></media></sequence></children></project></xmeml>";
}

std::string Parameter(std::string_view id, std::string_view value)
{
    return "<parameter><parameterid>" + std::string(id) + "</parameterid><value>" +
           std::string(value) + "</value></parameter>";
}

std::string Generator(std::string_view id, std::string_view effect, std::string_view parameters,
                      int start = 0)
{
    return "<generatoritem id=\"" + std::string(id) + "\"><name>G</name><start>" +
           std::to_string(start) + "</start><end>" + std::to_string(start + 25) +
           "</end><in>0</in><out>25</out><duration>3000</duration>"
           "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><masterclipid>m</masterclipid>"
           "<effect><name>" +
           std::string(effect) + "</name><effectid>" + std::string(effect) + "</effectid>" +
           std::string(parameters) + "</effect></generatoritem>";
}

std::string Converted(std::string text, int passes, bool graphics)
{
    OpenConversion conversion;
    if (graphics)
        conversion.Set("FCP.ConvertTitleToGraphicAndType");
    for (int pass = 0; pass < passes; ++pass)
        text = conversion.ToXmeml(conversion.ToProject(text));
    return text;
}

// All elements of that name, in document order.
void Find(const Element& element, std::string_view name, std::vector<const Element*>& found)
{
    if (element.name == name)
        found.push_back(&element);
    for (const Element& child : element.children)
        Find(child, name, found);
}

std::vector<const Element*> FindAll(const Element& element, std::string_view name)
{
    std::vector<const Element*> found;
    Find(element, name, found);
    return found;
}

// "Text 0-25 str=Hi fontsize=64 origin=0,-0.1"
std::string Described(const Element& generator)
{
    const Element& effect = generator.Child("effect");
    std::string text = effect.Child("effectid").text + " " + generator.Child("start").text + "-" +
                       generator.Child("end").text;
    for (const Element* const parameter : FindAll(effect, "parameter")) {
        const Element& value = parameter->Child("value");
        text += " " + parameter->Child("parameterid").text + "=" + value.text;
        for (const Element& part : value.children)
            text += (&part == &value.children.front() ? "" : ",") + part.text;
    }
    return text;
}

// The generators of the sequence, one a line.
std::string GeneratorsOf(const std::string& document)
{
    const Element root = ParseElements(document);
    std::string text;
    for (const Element* const sequence : FindAll(root, "sequence"))
        for (const Element* const generator : FindAll(*sequence, "generatoritem"))
            text += Described(*generator) + "\n";
    return text;
}

std::size_t ElementCount(const std::string& document, std::string_view element)
{
    return FindAll(ParseElements(document), element).size();
}

std::string Color(int red, int green, int blue)
{
    return "<alpha>255</alpha><red>" + std::to_string(red) + "</red><green>" +
           std::to_string(green) + "</green><blue>" + std::to_string(blue) + "</blue>";
}

struct GeneratorCase {
    std::string_view effect;
    std::string parameters;
    std::string_view expected;
};

TEST(GeneratorDialect, GivesTheSameGeneratorBack)
{
    const std::string look = Parameter("fontname", "Georgia") + Parameter("fontsize", "64") +
                             Parameter("fontalign", "3") +
                             Parameter("fontcolor", Color(245, 240, 225)) +
                             Parameter("origin", "<horiz>-0.2</horiz><vert>0.333333</vert>");
    const GeneratorCase cases[] = {
        {"Text", Parameter("str", "Salt &amp; Ice&#13;  two") + look + Parameter("fontstyle", "4"),
         "Text 0-25 str=Salt &amp; Ice&#13;  two fontname=Georgia fontsize=64"
         " fontcolor=255,245,240,225 fontstyle=4 fontalign=3 origin=-0.2,0.333333\n"},
        {"Crawl", Parameter("str", "Over") + look + Parameter("fontstyle", "1"),
         "Crawl 0-25 str=Over fontname=Georgia fontsize=64 fontcolor=255,245,240,225"
         " fontstyle=1 fontalign=3 origin=-0.2,0.333333\n"},
        {"Scrolling Text", Parameter("str", "Up") + look + Parameter("fontstyle", "3"),
         "Scrolling Text 0-25 str=Up fontname=Georgia fontsize=64 fontcolor=255,245,240,225"
         " fontstyle=3 fontalign=3 origin=-0.2,0.333333\n"},
        {"Lower 3rd",
         Parameter("str1", "Ada") + Parameter("font1", "Arial") + Parameter("size1", "31") +
             Parameter("color1", Color(1, 2, 3)) + Parameter("str2", "Captain") +
             Parameter("font2", "Times") + Parameter("size2", "17") +
             Parameter("color2", Color(4, 5, 6)) + Parameter("fontstyle", "2"),
         "Lower 3rd 0-25 str1=Ada font1=Arial size1=31 color1=255,1,2,3 str2=Captain font2=Times"
         " size2=17 color2=255,4,5,6 fontstyle=2 fontalign=2 origin=0,0\n"},
        // The outline has no location in a title document.
        {"Outline Text", Parameter("str", "Hi"),
         "Text 0-25 str=Hi fontname=Lucida Grande fontsize=36 fontcolor=255,255,255,255"
         " fontstyle=1 fontalign=2 origin=0,0\n"},
        {"Slug", "", "Slug 0-25\n"},
        {"Transparent Video", "", "Transparent Video 0-25\n"},
        {"Clouds", "", "Transparent Video 0-25\n"},
        {"Color", Parameter("fillcolor", Color(10, 20, 30)), "Color 0-25 fillcolor=255,10,20,30\n"},
        {"Color", Parameter("fillcolor", Color(300, -20, 30)),
         "Color 0-25 fillcolor=255,255,0,30\n"},
        {"Crawl", Parameter("str", "Over") + Parameter("fontcolor", Color(256, 20, -1)),
         "Crawl 0-25 str=Over fontname=Lucida Grande fontsize=36 fontcolor=255,255,20,0"
         " fontstyle=1 fontalign=2 origin=0,0\n"},
    };
    for (const GeneratorCase& row : cases)
        for (const int passes : {1, 3}) {
            const std::string document =
                Converted(DocumentOf(Generator("g", row.effect, row.parameters)), passes, false);
            EXPECT_EQ(GeneratorsOf(document), row.expected) << row.effect;
            EXPECT_EQ(ElementCount(document, "sequence"), 1u) << row.effect;
            EXPECT_EQ(ElementCount(document, "clip"), 1u) << row.effect << ", in the bin";
            EXPECT_EQ(ElementCount(document, "file"), 0u) << row.effect;
        }
}

// In half the lines the same letters are twice as large a part of the frame, as is their distance
// from its center.
TEST(GeneratorDialect, ATitleKeepsItsSizeInAFrameOfAnother)
{
    const std::string document = DocumentOf(
        Generator("g", "Text",
                  Parameter("str", "Hi") + Parameter("fontsize", "32") +
                      "<parameter><parameterid>origin</parameterid><value><horiz>0.2</horiz>"
                      "<vert>-0.1</vert></value></parameter>"));
    for (const bool graphics : {false, true}) {
        OpenConversion conversion;
        if (graphics)
            conversion.Set("FCP.ConvertTitleToGraphicAndType");
        std::string project = conversion.ToProject(document);
        constexpr std::string_view kRect = "<FrameRect>0,0,1920,1080</FrameRect>";
        const std::size_t group = project.find("<VideoTrackGroup ");
        ASSERT_NE(group, project.npos);
        project.replace(project.find(kRect, group), kRect.size(),
                        "<FrameRect>0,0,960,540</FrameRect>");
        const Element written = ParseElements(conversion.ToXmeml(project));
        const std::string text = Described(*FindAll(written, "generatoritem").back());
        EXPECT_TRUE(Has(text, "fontsize=64")) << text;
        EXPECT_TRUE(Has(text, "origin=0.4,-0.2")) << text;
    }
}

TEST(GeneratorDialect, ItemsOfOneClipShareItsMasterIfTheirTextsAreEqual)
{
    const std::string first = Parameter("str", "One");
    const std::string tracks = Generator("a", "Text", first) + Generator("b", "Text", first, 25) +
                               Generator("c", "Text", Parameter("str", "Two"), 50);
    const std::string clip = "<clip id=\"m\"><name>Title</name><masterclipid>m</masterclipid>"
                             "<media><video><format><samplecharacteristics><width>1920</width>"
                             "<height>1080</height></samplecharacteristics></format><track>" +
                             Generator("d", "Text", first) + "</track></video></media></clip>";
    for (const int passes : {1, 3}) {
        const std::string document = Converted(DocumentOf(tracks, {}, clip), passes, false);
        EXPECT_EQ(ElementCount(document, "clip"), 2u) << passes;
        EXPECT_EQ(ElementCount(document, "generatoritem"), 5u) << passes;
    }
}

TEST(GeneratorDialect, KeepsTheEffectsOfAMaster)
{
    std::string generator = Generator("g", "Text", Parameter("str", "One"));
    generator.insert(
        generator.rfind("</generatoritem>"),
        "<filter><effect><name>Gaussian Blur</name><effectid>Gaussian Blur</effectid>" +
            Parameter("radius", "5") + Parameter("channel", "1") + "</effect></filter>");
    const std::string clip = "<clip id=\"m\"><name>Title</name><media><video><track>" + generator +
                             "</track></video></media></clip>";
    for (const int passes : {1, 3})
        EXPECT_EQ(ElementCount(Converted(DocumentOf({}, {}, clip), passes, false), "filter"), 1u);
}

TEST(GeneratorDialect, KeepsTheWholeGraphicBesideItsText)
{
    const std::string text = Parameter("str", "Salt") + Parameter("fontsize", "40");
    for (const int passes : {1, 3}) {
        const std::string document =
            Converted(DocumentOf(Generator("g", "Text", text)), passes, true);
        const Element root = ParseElements(document);
        const std::vector<const Element*> generators = FindAll(root, "generatoritem");
        ASSERT_EQ(generators.size(), 1u);
        EXPECT_EQ(Described(*generators[0]),
                  "Text 0-25 str=Salt fontname=Lucida Grande fontsize=40"
                  " fontcolor=255,255,255,255 fontstyle=1 fontalign=2 origin=0,0");
        const std::vector<const Element*> filters = FindAll(*generators[0], "filter");
        ASSERT_EQ(filters.size(), 1u);
        EXPECT_EQ(filters[0]->Child("effect").Child("effectid").text, "GraphicAndType");
    }
}

// The slug is longer than its file states; its audio is silence. One of another name replaces media
// and stays a file.
TEST(GeneratorDialect, ASlugWithAFileIsGeneratedVideo)
{
    const auto item = [](std::string_view id, std::string_view file) {
        return "<clipitem id=\"" + std::string(id) +
               "\"><name>Gap</name><duration>10</duration><start>0</start><end>25</end>"
               "<in>0</in><out>25</out><rate><timebase>25</timebase></rate>" +
               std::string(file) + "</clipitem>";
    };
    const struct {
        std::string_view name;
        std::string_view expected;
    } cases[] = {{"Slug", "Slug 0-25\n"},
                 {"Black Video", "Slug 0-25\n"},
                 {"Transparent Video", "Transparent Video 0-25\n"}};
    for (const auto& row : cases)
        for (const int passes : {1, 3}) {
            const std::string file =
                "<file id=\"s\"><name>" + std::string(row.name) +
                "</name><mediaSource>Slug</mediaSource><rate><timebase>25</timebase></rate>"
                "<media><video/><audio/></media></file>";
            const std::string document = Converted(
                DocumentOf(item("v", file), item("a", "<file id=\"s\"/>")), passes, false);
            EXPECT_EQ(GeneratorsOf(document), row.expected) << row.name;
            EXPECT_EQ(ElementCount(document, "clipitem"), 0u) << row.name;
            EXPECT_EQ(ElementCount(document, "sequence"), 1u) << row.name;
        }
    const std::string media = item("v", "<file id=\"s\"><name>A001.mov</name>"
                                        "<mediaSource>Slug</mediaSource><rate>"
                                        "<timebase>25</timebase></rate></file>");
    const std::string document = Converted(DocumentOf(media), 1, false);
    EXPECT_GT(ElementCount(document, "clipitem"), 0u);
}

} // namespace
} // namespace XPJ
