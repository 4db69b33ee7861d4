#include "effects/graphic_effects.h"
#include "effects/graphic_title.h"

#include "core/base64.h"
#include "core/text.h"
#include "effects/effect_text.h"
#include "effects/video_chain.h"
#include "effects/video_effects.h"
#include "text/shape_path.h"
#include "text/shape_style.h"
#include "text/text_document.h"

namespace XPJ {
namespace {

constexpr FrameSize kHdFrame = {1920, 1080, 1.0};

class GraphicTitlesTest : public VideoEffectsTest {
protected:
    ObjectHandle Generator(const std::string& effectId, const std::string& parameters)
    {
        const std::string text =
            "<xmeml version=\"5\"><sequence id=\"s\"><media><video><track>"
            "<generatoritem id=\"g\"><name>Lower &amp; third</name><effect><name>Any</name>"
            "<effectid>" +
            effectId + "</effectid>" + parameters +
            "</effect></generatoritem></track></video></media></sequence></xmeml>";
        ObjectHandle root;
        EXPECT_EQ(ParseFCPXML(document_.Store(text), document_, root), kReadDone);
        return FindPath(root, {"sequence", "media", "video", "track", "generatoritem"});
    }
    ObjectHandle EffectOf(const std::string& effectId, const std::string& parameters,
                          const FrameSize& frame = kHdFrame)
    {
        return MakeGraphicEffect(document_, Generator(effectId, parameters), frame);
    }
    ObjectHandle ComponentOf(const std::string& effectId, const std::string& parameters)
    {
        const ObjectHandle chain = document_.NewObject("VideoComponentChain");
        AddMasterChainEffect(context_, EffectOf(effectId, parameters), chain);
        return chain.GetChild("Component");
    }
    GVE::Document TextOf(const std::string& effectId, const std::string& parameters)
    {
        return GVE::Document(BlobOf(ComponentOf(effectId, parameters), "SourceText"));
    }
    static std::string BlobOf(ObjectHandle component, std::string_view name)
    {
        return DecodeBase64(Param(component, name).GetProperty("StartKeyframeValue"));
    }
    // "2 PointComponentParam class control lower upper start", one line a parameter.
    static std::string Fields(ObjectHandle component)
    {
        std::string text;
        for (const ObjectHandle& param : component.GetChildren("Param")) {
            text += param.GetName().View();
            for (const Name key :
                 {Name("ParameterID"), Name("Name"), Name("classid"), Name("ParameterControlType"),
                  Name("IsTimeVarying"), Name("LowerBound"), Name("UpperBound"),
                  Name("StartKeyframe"), Name("StartKeyframePosition"), Name("CurrentValue")})
                text += "|" + std::string(param.GetProperty(key));
            text += "\n";
        }
        return text;
    }
};

std::string Color(const std::string& id, int red, int green, int blue, int alpha)
{
    return "<parameter><parameterid>" + id + "</parameterid><value><alpha>" +
           std::to_string(alpha) + "</alpha><red>" + std::to_string(red) + "</red><green>" +
           std::to_string(green) + "</green><blue>" + std::to_string(blue) +
           "</blue></value></parameter>";
}

constexpr std::string_view kTransformFields =
    "VideoComponentParam|2|Transform|cc12343e-f113-4d3b-ae05-b287db77d461|11|false|false|false|"
    "-91445760000000000,false,0,0,0.,0.,0.,0.||\n"
    "PointComponentParam|3|Position|ca81d347-309b-44d2-acc7-1c572efb973c|6|false|||"
    "-91445760000000000,0.25:0.9,0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.||\n"
    "VideoComponentParam|4|Scale|fe47129e-6c94-4fc0-95d5-c056a517aaf3|2|false|0.|4000|"
    "-91445760000000000,100.0,0,0,0.,0.,0.,0.||\n"
    "VideoComponentParam|5|Horizontal Scale|fe47129e-6c94-4fc0-95d5-c056a517aaf3|2|false|0.|4000|"
    "-91445760000000000,100.0,0,0,0.,0.,0.,0.||\n"
    "VideoComponentParam|6| |cc12343e-f113-4d3b-ae05-b287db77d461|4|false|false|true|"
    "-91445760000000000,true,0,0,0.,0.,0.,0.||\n"
    "VideoComponentParam|7|Rotation|fe47129e-6c94-4fc0-95d5-c056a517aaf3|2|false|-32768|32768|"
    "-91445760000000000,0.,0,0,0.,0.,0.,0.||\n"
    "VideoComponentParam|8|Opacity|fe47129e-6c94-4fc0-95d5-c056a517aaf3|2|false|0.|100.|"
    "-91445760000000000,100.0,0,0,0.,0.,0.,0.||\n"
    "PointComponentParam|9|Anchor Point|ca81d347-309b-44d2-acc7-1c572efb973c|6|false|||"
    "-91445760000000000,0.5:0.5,0,0,0.,0.,0.,0.,5,4,0.,0.,0.,0.||\n"
    "VideoComponentParam|10||cc12343e-f113-4d3b-ae05-b287db77d461|12|false|false|false|"
    "-91445760000000000,false,0,0,0.,0.,0.,0.||\n";

// The rows of a text, their ids raised by one and behind a second blob.
std::string ShapeFields()
{
    std::string text = "ArbVideoComponentParam|1|Path||9|false||||-91445760000000000|\n"
                       "ArbVideoComponentParam|2|Appearance||9|false||||-91445760000000000|\n";
    std::string_view rows = kTransformFields;
    for (int id = 3; !rows.empty(); ++id) {
        const std::string_view row = rows.substr(0, rows.find('\n') + 1);
        const std::size_t start = row.find('|');
        const std::size_t end = row.find('|', start + 1);
        text += std::string(row.substr(0, start + 1)) + std::to_string(id);
        text += row.substr(end);
        rows.remove_prefix(row.size());
    }
    return text;
}

TEST_F(GraphicTitlesTest, EveryParameterOfATextAndAShape)
{
    const ObjectHandle text =
        ComponentOf("Text", Parameter("str", "Hi") + Parameter("origin", "-0.25:0.4"));
    EXPECT_EQ(Fields(text),
              "ArbVideoComponentParam|1|SourceText||9|false||||-91445760000000000|\n" +
                  std::string(kTransformFields));
    EXPECT_EQ(text.GetProperty("MatchName"), "KX.ORRN Text");
    EXPECT_EQ(text.GetProperty("DisplayName"), "Text");
    EXPECT_EQ(text.GetProperty("InstanceName"), "Lower &amp; third");
    EXPECT_EQ(text.GetProperty("VideoFilterType"), "2");
    EXPECT_EQ(text.GetProperty("Bypass"), "false");

    const ObjectHandle shape =
        ComponentOf("Oval", Parameter("center", "-0.25:0.4") + Parameter("size", "20"));
    EXPECT_EQ(Fields(shape), ShapeFields());
    EXPECT_EQ(shape.GetProperty("MatchName"), "KX.ORRN Shape");
    EXPECT_EQ(shape.GetProperty("InstanceName"), "Shape");
}

TEST_F(GraphicTitlesTest, TextOfATitle)
{
    const GVE::Document document =
        TextOf("Text", Parameter("str", "Tom &amp; Co&#13;&#13;&lt;two&gt;&#13;") +
                           Parameter("fontname", "Georgia") + Parameter("fontsize", "37") +
                           Parameter("fontstyle", "3") + Parameter("fontalign", "3") +
                           Color("fontcolor", 255, 128, 0, 0));
    EXPECT_EQ(document.Text(), "Tom & Co\r\r<two>\r");
    EXPECT_EQ(document.Parameters().alignment, GVE::kRightAlign);
    EXPECT_EQ(document.Parameters().runs.size(), 1u);
    const GVE::StyleParam& style = document.Style();
    EXPECT_EQ(style.fontName, "Georgia-BoldItalic");
    EXPECT_EQ(style.fontSize, 83); // 37 * 1080 / 480 = 83.25
    EXPECT_EQ(FillColor(style).value, 0x0080ffu);
    EXPECT_FALSE(style.fillVisible);
    EXPECT_FALSE(style.strokeVisible);
    EXPECT_EQ(document.Parameters().defaultRun.style, style);

    for (const auto& [number, alignment] :
         {std::pair(1, GVE::kLeftAlign), std::pair(2, GVE::kCenterAlign),
          std::pair(3, GVE::kRightAlign), std::pair(9, GVE::kCenterAlign)})
        EXPECT_EQ(TextOf("Text", Parameter("align", std::to_string(number))).Parameters().alignment,
                  alignment)
            << number;
}

TEST_F(GraphicTitlesTest, TitleWithoutParameters)
{
    const GVE::Document document = TextOf("Crawl", "");
    EXPECT_EQ(document.Text(), "");
    ASSERT_EQ(document.Parameters().runs.size(), 1u);
    EXPECT_EQ(document.Style().fontName, "LucidaGrande");
    EXPECT_EQ(document.Style().fontSize, 81);
    EXPECT_EQ(FillColor(document.Style()).value, 0xffffffu);
    EXPECT_TRUE(document.Style().fillVisible);
    EXPECT_EQ(document.Parameters().alignment, GVE::kCenterAlign);
}

TEST_F(GraphicTitlesTest, OutlineOfATitle)
{
    const std::string line = Parameter("linewidth", "4") + Color("linecolor", 1, 2, 3, 255);
    const GVE::StyleParam outlined = TextOf("Outline Text", line).Style();
    EXPECT_TRUE(outlined.strokeVisible);
    EXPECT_EQ(outlined.strokeWidth, 9); // 4 * 1080 / 480
    EXPECT_EQ(StrokeColor(outlined).value, 0x030201u);
    EXPECT_FALSE(TextOf("Outline Text", Parameter("linewidth", "0")).Style().strokeVisible);
    EXPECT_FALSE(TextOf("Text", line).Style().strokeVisible);
}

TEST_F(GraphicTitlesTest, LowerThirdHasTwoRuns)
{
    const GVE::Document document =
        TextOf("Lower 3rd", Parameter("str1", "Name&#13;Surname") + Parameter("str2", "Role") +
                                Parameter("font1", "Arial") + Parameter("font2", "Courier") +
                                Parameter("size1", "48") + Parameter("size2", "24") +
                                Color("color1", 9, 0, 0, 255) + Color("color2", 0, 0, 7, 0));
    const std::vector<GVE::TextRun>& runs = document.Parameters().runs;
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].text, "Name\rSurname\r");
    EXPECT_EQ(runs[1].text, "Role");
    EXPECT_EQ(runs[0].style.fontName, "ArialMT");
    EXPECT_EQ(runs[1].style.fontName, "Courier");
    EXPECT_EQ(runs[0].style.fontSize, 108);
    EXPECT_EQ(runs[1].style.fontSize, 54);
    EXPECT_EQ(FillColor(runs[0].style).value, 9u);
    EXPECT_EQ(FillColor(runs[1].style).value, 7u << 16);
    EXPECT_TRUE(runs[0].style.fillVisible);
    EXPECT_FALSE(runs[1].style.fillVisible);

    EXPECT_EQ(TextOf("Lower 3rd", Parameter("str1", "Only")).Parameters().runs.size(), 1u);
}

TEST_F(GraphicTitlesTest, TextThatIsHardToWrite)
{
    std::string lines = "first";
    for (int i = 0; i < 100'000; ++i)
        lines += "&#13;l";
    const struct {
        std::string str, text;
    } kCases[] = {
        {"&#1;&#9;x", "\x01\tx"},
        {"\u202e\u05e9\u05dc\u05d5\u05dd", "\u202e\u05e9\u05dc\u05d5\u05dd"},
        {"\xf0\x9f\x8e\xac \u5b57", "\xf0\x9f\x8e\xac \u5b57"},
        {"\xed\xa0\x80 lone", "\xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd lone"},
        {"&unknown; &", "&unknown; &"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(TextOf("Text", Parameter("str", row.str)).Text(), row.text) << row.str;
    EXPECT_EQ(TextOf("Text", Parameter("str", lines)).Text().size(), 200'005u);
}

TEST_F(GraphicTitlesTest, OutlineAndAppearanceOfAShape)
{
    const std::string parameters = Parameter("size", "25") + Parameter("a", "2") +
                                   Color("fontcolor", 10, 20, 30, 255) +
                                   Parameter("linewidth", "2") + Color("linecolor", 1, 0, 0, 255);
    const struct {
        const char* effectId;
        GVE::ShapePath path;
    } kCases[] = {
        {"Rectangle", GVE::ShapePath::Rectangle(540, 270)},
        {"Square", GVE::ShapePath::Rectangle(270, 270)},
        {"Oval", GVE::ShapePath::Ellipse(540, 270)},
        {"Circle", GVE::ShapePath::Ellipse(270, 270)},
    };
    for (const auto& row : kCases) {
        const ObjectHandle component = ComponentOf(row.effectId, parameters);
        EXPECT_EQ(GVE::ShapePath::FromBlob(BlobOf(component, "Path")), row.path) << row.effectId;
        const GVE::ShapeStyle style = GVE::ShapeStyle::FromBlob(BlobOf(component, "Appearance"));
        EXPECT_EQ(style.fillColor.value, 0x1e140au);
        EXPECT_TRUE(style.fillVisible);
        EXPECT_EQ(style.strokeColor.value, 1u);
        EXPECT_TRUE(style.strokeVisible);
        EXPECT_EQ(style.strokeWidth, 4.5);
    }
    const GVE::ShapeStyle clear = GVE::ShapeStyle::FromBlob(
        BlobOf(ComponentOf("Circle", Color("fontcolor", 0, 0, 0, 0)), "Appearance"));
    EXPECT_FALSE(clear.fillVisible);
    EXPECT_FALSE(clear.strokeVisible);
}

// What an export wrote: the project's fields, and blobs that nobody looks into.
TEST_F(GraphicTitlesTest, ReturningEffects)
{
    const ObjectHandle text = FilterOf(
        "<filter><effect><name>Mine</name><effectid>GraphicAndType</effectid>"
        "<velaBypass>true</velaBypass><velaExpanded>true</velaExpanded>" +
        Parameter("12", "-9,0.5,x", "<name>Soft</name><LowerUIBound>0.1</LowerUIBound>") +
        Parameter("1", "SGVs\n bG8=", "<name>Words</name><hash>x</hash>") +
        Parameter("4", "-9,1,a") + Parameter("4", "-9,2,b", "<Keyframes>0,1,0;</Keyframes>") +
        Parameter("15", "-9,3,c") + Parameter("0", "no") + Parameter("x", "no") +
        "</effect></filter>");
    EXPECT_EQ(text.GetProperty("InstanceName"), "Mine");
    EXPECT_EQ(text.GetProperty("Bypass"), "true");
    EXPECT_EQ(text.GetProperty("ECP.Filter.Expanded"), "true");
    EXPECT_EQ(Fields(text),
              "ArbVideoComponentParam|1|Words||9|false||||-91445760000000000|\n"
              "VideoComponentParam|4||fe47129e-6c94-4fc0-95d5-c056a517aaf3|2|true|||-9,2,b||\n"
              "VideoComponentParam|12|Soft|a4ff2d6e-7ac2-44f8-9d52-17d9ca50e542|8|false|||"
              "-9,0.5,x||\n");
    EXPECT_EQ(BlobOf(text, "Words"), "Hello");
    EXPECT_EQ(Param(text, "Words").GetProperty("StartKeyframeValueChecksum"),
              std::to_string(BlobChecksum("Hello")));
    EXPECT_EQ(Param(text, "Soft").GetProperty("LowerUIBound"), "0.1");

    for (const char* const empty : {"/v4=", "", " /v4= "})
        EXPECT_EQ(Fields(FilterOf(
                      Filter("GraphicAndShape", Parameter("1", empty) + Parameter("2", "QQ==")))),
                  "ArbVideoComponentParam|2|||9|false||||-91445760000000000|\n")
            << empty;

    // Of a doubled blob the last that has a value counts.
    EXPECT_EQ(
        BlobOf(FilterOf(Filter("GraphicAndType", Parameter("1", "QQ==", "<name>Words</name>") +
                                                     Parameter("1", "Qg==", "<name>Words</name>") +
                                                     Parameter("1", "/v4=", "<name>Words</name>"))),
               "Words"),
        "B");
}

} // namespace
} // namespace XPJ
