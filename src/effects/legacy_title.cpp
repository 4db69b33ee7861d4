// A title becomes a document of fixed layout. Each of its fonts has a text description, a style and
// a shader of its own, which the lines refer to by number; the second font's numbers follow on the
// first's. All lines are in one block.
#include "effects/legacy_title.h"

#include "core/text.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include <fmt/format.h>

namespace XPJ {

namespace {

// ---- The fixed text of a legacy title document, laid out for reading
//
// The document itself has no blank between two elements; `Layout` drops those of the text below.
// Names in braces are filled in.

// A text without the line ends and blanks between its elements. Blanks within an element stay.
template <std::size_t length>
class Layout {
public:
    explicit constexpr Layout(const char (&text)[length])
    {
        for (std::size_t i = 0; i + 1 < length;) {
            std::size_t next = i;
            while (IsBlank(text[next]))
                ++next;
            if (next == i)
                ++next;
            else if (EndsPart() && BeginsPart(text[next]))
                i = next;
            while (i < next)
                text_[size_++] = text[i++];
        }
    }

    constexpr operator std::string_view() const { return {text_.data(), size_}; }

private:
    static constexpr bool IsBlank(char c) { return c == ' ' || c == '\n'; }
    static constexpr bool BeginsPart(char c) { return c == '<' || c == '{' || c == '\0'; }
    constexpr bool EndsPart() const
    {
        return size_ == 0 || text_[size_ - 1] == '>' || text_[size_ - 1] == '}';
    }

    std::array<char, length> text_{};
    std::size_t size_ = 0;
};

constexpr Layout kTitleDocument(R"(
<?xml version="1.0" encoding="UTF-8" ?>
<Orrin_Root>
  <Orrin_Title>
    <Version>20080702</Version>
    <Motion_Settings>
      <Play_Forward>true</Play_Forward> <Start_on_Screen>{moves}</Start_on_Screen>
      <Pre_Roll>0</Pre_Roll> <Ease_In>0</Ease_In> <End_off_Screen>{moves}</End_off_Screen>
      <Post_Roll>0</Post_Roll> <Ease_Out>0</Ease_Out>
    </Motion_Settings>
  </Orrin_Title>
  <InscriberLayouts Version="1.0">
    <Layout>
      <LayoutEffectInfo Version="1">
        <EffectType>{motion}</EffectType>
      </LayoutEffectInfo>
      <LayoutDimension Version="2">
        <pXPIXELS>{width}</pXPIXELS> <pYLINES>{height}</pYLINES>
        <pSCREENAR>{pixelAspect}</pSCREENAR> <growthDirection>growRightDown</growthDirection>
      </LayoutDimension>
      <LayoutAttributes>
        <SafeTitleArea>
          <left>0.1</left> <top>0.1</top> <right>0.9</right> <bottom>0.9</bottom>
        </SafeTitleArea>
        <SafeActionArea>
          <left>0.05</left> <top>0.05</top> <right>0.95</right> <bottom>0.95</bottom>
        </SafeActionArea>
      </LayoutAttributes>
      <Background Version="4">
        <ShaderReference>4098</ShaderReference> <On>false</On>
        <paintingRange>normalLayout</paintingRange>
      </Background>
      <DefaultStyle>
        <Reference>4097</Reference>
      </DefaultStyle>
      <DefaultTextDescription>
        <Reference>4097</Reference>
      </DefaultTextDescription>
      <GraphicObjectDefaults>
        <endCapType>square</endCapType> <joinTypeClosed>round</joinTypeClosed>
        <joinTypeOpen>round</joinTypeOpen> <lineWidth>5</lineWidth> <miterLimit>5</miterLimit>
        <windBeziers>false</windBeziers>
        <roundCornerFillets>37.5 37.5 37.5 37.5 37.5 37.5 37.5 37.5 </roundCornerFillets>
        <clippedCornerFillets>37.5 37.5 37.5 37.5 37.5 37.5 37.5 37.5 </clippedCornerFillets>
      </GraphicObjectDefaults>
      <TextChainDefaults>{chainDefaults}</TextChainDefaults>
      <TextDescriptions Version="4">{textDescriptions}</TextDescriptions>
      <Styles>{styles}</Styles>
      <Shaders>{shaders}</Shaders>
      <Textures>
        <Texture Version="7">
          <textureRef>4097</textureRef> <textureNameRef>1000</textureNameRef>
          <compositeRule>4</compositeRule> <invertComposite>false</invertComposite>
          <autoReflect>false</autoReflect> <autoRotate>true</autoRotate>
          <scaleXRule>1</scaleXRule> <scaleX>1</scaleX> <scaleYRule>1</scaleYRule>
          <scaleY>1</scaleY> <tileX>true</tileX> <tileY>true</tileY> <alignXRule>1</alignXRule>
          <alignXSubRule>0</alignXSubRule> <textureXDelta>0</textureXDelta>
          <alignYRule>1</alignYRule> <alignYSubRule>0</alignYSubRule>
          <textureYDelta>0</textureYDelta> <textureMix>1</textureMix> <alphaScale>1</alphaScale>
          <textureAlphavsKey>1</textureAlphavsKey> <rampAlphavsKey>0</rampAlphavsKey>
          <classicTint>false</classicTint> <textureOn>false</textureOn>
          <pixelAspect>1</pixelAspect>
        </Texture>
      </Textures>
      <Logos></Logos>
      <Layers>
        <Layer>
          <DrawPage></DrawPage>
          <TextPage>
            <TextChain>
              <ChainProperty Version="9">
                <wordWrap>false</wordWrap>
                <Position>
                  <x>{posX}</x> <y>{posY}</y>
                </Position>
                <Size>
                  <x>600</x> <y>600</y>
                </Size>
                <leading>0</leading> <lockedLinesX>true</lockedLinesX>
                <lockedLinesY>true</lockedLinesY> <boxCanGrow>false</boxCanGrow>
                <tabModeStyle>Word</tabModeStyle> <implicitTabSpacing>100</implicitTabSpacing>
                <implicitTabType>left</implicitTabType>
              </ChainProperty>
              <ChainTabs>
                <TabList></TabList>
              </ChainTabs>
              {textLines}
            </TextChain>
          </TextPage>
          <MergeGroups>
            <Group groupID="1">
              <punchThru>false</punchThru> <opacity>1</opacity> <ObjectID value="1" />
            </Group>
          </MergeGroups>
        </Layer>
      </Layers>
      <VLS>
        <FileReference Version="1">
          <fileString></fileString> <seClass>2</seClass> <seCode>1000</seCode>
        </FileReference>
      </VLS>
    </Layout>
  </InscriberLayouts>
</Orrin_Root>
)");

// How lines are set in one kind of text block; {tag} is the kind.
constexpr Layout kChainDefaults(R"(
<{tag}>
  <leading>0</leading> <boxCanGrow>false</boxCanGrow> <wordWrap>{wordWrap}</wordWrap>
  <lockedLinesX>{locked}</lockedLinesX> <lockedLinesY>{locked}</lockedLinesY>
  <Alignment>left</Alignment> <tabModeStyle>Word</tabModeStyle>
  <implicitTabSpacing>100</implicitTabSpacing> <implicitTabType>left</implicitTabType>
  <tabs></tabs>
</{tag}>
)");

constexpr Layout kTextDescription(R"(
<TextDescription Reference="{reference}">
  <TypeSpec>
    <size>612</size> <txHeight>{textSize}</txHeight> <txKern>0</txKern>
    <baselineShift>0</baselineShift> <leading>0</leading> <txSCaps>75</txSCaps>
    <txSCapsOn>false</txSCapsOn> <txSlant>0</txSlant> <txUnderline>false</txUnderline>
    <txWidth>{textSize}</txWidth> <linked>false</linked>
    <fiBold>{bold}</fiBold> <fiItalic>{italic}</fiItalic> <fifullName>{fullName}</fifullName>
    <fifontFamilyName>{family}</fifontFamilyName> <fifontStyle>{style}</fifontStyle>
    <fifontType>{type}</fifontType> <ficategory>{category}</ficategory>
  </TypeSpec>
</TextDescription>
)");

constexpr Layout kStyle(R"(
<Style ID="{reference}">
  <StyleBase Version="4">
    <type>50000</type> <positionDominance>0</positionDominance>
    <lineGradient>false</lineGradient> <styleRef>{reference}</styleRef>
    <faceDistortX>0</faceDistortX> <faceDistortY>0</faceDistortY>
    <shadow_softness>0</shadow_softness> <personality>0</personality> <linked>false</linked>
    <EmbellishmentSizeRule>false</EmbellishmentSizeRule>
    <PainterRampType>Basic</PainterRampType>
  </StyleBase>
  <FragmentList Version="5">
    <Fragment>
      <size>0</size> <offset>0</offset> <angle>0</angle> <ghost>false</ghost>
      <isExtendedShadowFragment>false</isExtendedShadowFragment>
      <eFragmentType>0</eFragmentType> <fragmentOff>false</fragmentOff>
      <placeHolder>false</placeHolder> <annotation>65538</annotation>
      <placeHolderShaderIndex>4294967295</placeHolderShaderIndex>
      <painterMix>15 15 15 15 15 15 15 15 15 15 15 15 15 15 15 15 </painterMix>
    </Fragment>
    <Fragment>
      <size>0</size> <offset>10</offset> <angle>45</angle> <ghost>false</ghost>
      <isExtendedShadowFragment>true</isExtendedShadowFragment>
      <eFragmentType>0</eFragmentType> <fragmentOff>true</fragmentOff>
      <placeHolder>false</placeHolder> <annotation>65537</annotation>
      <placeHolderShaderIndex>4294967295</placeHolderShaderIndex>
      <painterMix>0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 </painterMix>
    </Fragment>
  </FragmentList>
  <ShaderList Version="1">
    {shaderRefs}
  </ShaderList>
</Style>
)");

constexpr Layout kShaderRef(R"(
<ShaderRef PainterNumber="{painter}">
  <shaderRef>{shader}</shaderRef>
</ShaderRef>
)");

constexpr Layout kShader(R"(
<Shader Version="4">
  <cReference>{reference}</cReference> <textureRef>{texture}</textureRef>
  <colorOption>{colorOption}</colorOption> <shaderOn>true</shaderOn>
  <glintSize>{glintSize}</glintSize> <glintOffset>0</glintOffset>
  <rampPosTop>75</rampPosTop> <rampPosBottom>25</rampPosBottom> <rampAngle>0</rampAngle>
  <bevelBalance>0</bevelBalance> <rampCycle>0</rampCycle> <classicStyle>0</classicStyle>
  <rampType>0</rampType>
  <ColorSpec index="0">
    <red>{red}</red> <green>{green}</green> <blue>{blue}</blue> <xpar>{transparency}</xpar>
  </ColorSpec>
  <ColorSpec index="1">
    <red>0</red> <green>0</green> <blue>0</blue> <xpar>0</xpar>
  </ColorSpec>
  <ColorSpec index="2">
    <red>0</red> <green>0</green> <blue>0</blue> <xpar>0</xpar>
  </ColorSpec>
  <ColorSpec index="3">
    <red>0</red> <green>0</green> <blue>0</blue> <xpar>0</xpar>
  </ColorSpec>
  <ColorSpec index="4">
    <red>{glint}</red> <green>{glint}</green> <blue>{glint}</blue> <xpar>0</xpar>
  </ColorSpec>
  <glintAngle>0</glintAngle> <bevelSize>0</bevelSize> <bevelDirection>0</bevelDirection>
  <bevelPipe>false</bevelPipe> <bevelAngle>0</bevelAngle> <bevelShape>1</bevelShape>
  <bevelShining>0</bevelShining> <bevelLight>false</bevelLight> <bevelMerge>true</bevelMerge>
  <sheenOn>false</sheenOn>
</Shader>
)");

constexpr Layout kTextLine(R"(
<TextLine Version="2" objectID="{line}" persistentID="{line}">
  <BaseProperties Version="5">
    <txBase>{base}</txBase> <XPos>{posX}</XPos> <angle>0</angle>
    <verticalText>false</verticalText> <objectLeading>20</objectLeading>
  </BaseProperties>
  <EnclosingObjectType>block</EnclosingObjectType> <Alignment>{alignment}</Alignment>
  <TRString{marker}>{text}</TRString>
  <RunLengthEncodedCharacterAttributes>
    <CharacterAttributes RunCount="{count}" StyleRef="{reference}" TextRef="{reference}" TXKerning="0" TXPostKerning="0" BaselineShifting="0" />
  </RunLengthEncodedCharacterAttributes>
  <tagName>
    <name />
  </tagName>
</TextLine>
)");

// ---- What is filled in

constexpr std::size_t kFirstFont = 4097; // number of its description and of its style
constexpr std::size_t kFirstColor = 268500994;
constexpr std::size_t kBackground = 4098; // number of its shader
constexpr std::size_t kColorTexture = 4097;

constexpr double kFirstBase = 142.293; // of the first line
constexpr double kLineDistance = 100;  // on 480 lines

constexpr std::string_view kAlignments[] = {"left", "center", "right"};

struct ChainDefaults {
    std::string_view tag;
    bool wordWrap;
    bool locked;
};

constexpr ChainDefaults kChains[] = {
    {"normal", true, false},
    {"boxNormal", true, true},
    {"blockNormal", false, true},
    {"spline", false, false},
};

struct Shader {
    std::size_t reference = 0;
    std::size_t texture = 0;
    int colorOption = 4;
    int glintSize = 10;
    int glint = 250;      // each channel
    Color color = {};     // alpha is not used
    int transparency = 0; // of the color
};

// Behind the shaders of the fonts.
std::size_t ShadowNumber(const Title& title)
{
    return kFirstColor + title.texts.size();
}

template <typename... Arguments>
void Append(std::string& text, std::string_view layout, const Arguments&... arguments)
{
    fmt::format_to(std::back_inserter(text), fmt::runtime(layout), arguments...);
}

std::string ChainDefaultsText()
{
    std::string text;
    for (const ChainDefaults& chain : kChains)
        Append(text, kChainDefaults, fmt::arg("tag", chain.tag),
               fmt::arg("wordWrap", chain.wordWrap), fmt::arg("locked", chain.locked));
    return text;
}

std::string TextDescriptions(const Title& title)
{
    std::string text;
    std::size_t reference = kFirstFont;
    for (const TitleText& part : title.texts) {
        const TitleFont& font = part.font;
        const LegacyFontRecord record = LegacyFont(font.family, font.style);
        // A bold italic face is neither: its name alone states it.
        Append(text, kTextDescription, fmt::arg("reference", reference++),
               fmt::arg("textSize", title.TextHeight(font)),
               fmt::arg("bold", font.style == FontStyle::Bold ? 1 : 0),
               fmt::arg("italic", font.style == FontStyle::Italic ? 1 : 0),
               fmt::arg("fullName", record.fullName), fmt::arg("family", record.family),
               fmt::arg("style", record.style), fmt::arg("type", record.type),
               fmt::arg("category", record.category));
    }
    return text;
}

void AppendShaderRef(std::string& text, int painter, std::size_t shader)
{
    Append(text, kShaderRef, fmt::arg("painter", painter), fmt::arg("shader", shader));
}

// Painters from `first` up to `end`, which have no shader.
std::string UnusedPainters(int first, int end)
{
    std::string text;
    for (int painter = first; painter < end; ++painter)
        AppendShaderRef(text, painter, 0);
    return text;
}

// The face and the shadow of a style have a shader.
std::string ShaderRefs(std::size_t face, std::size_t shadow)
{
    static const std::string kInner = UnusedPainters(2, 15);
    static const std::string kOuter = UnusedPainters(1000, 1016);
    std::string text = kInner;
    AppendShaderRef(text, 15, face);
    AppendShaderRef(text, -1, shadow);
    return text += kOuter;
}

std::string Styles(const Title& title)
{
    std::string text;
    for (std::size_t i = 0; i < title.texts.size(); ++i)
        Append(text, kStyle, fmt::arg("reference", kFirstFont + i),
               fmt::arg("shaderRefs", ShaderRefs(kFirstColor + i, ShadowNumber(title))));
    return text;
}

void AppendShader(std::string& text, const Shader& shader)
{
    Append(text, kShader, fmt::arg("reference", shader.reference),
           fmt::arg("texture", shader.texture), fmt::arg("colorOption", shader.colorOption),
           fmt::arg("glintSize", shader.glintSize), fmt::arg("red", shader.color.red),
           fmt::arg("green", shader.color.green), fmt::arg("blue", shader.color.blue),
           fmt::arg("transparency", shader.transparency), fmt::arg("glint", shader.glint));
}

std::string Shaders(const Title& title)
{
    std::string text;
    AppendShader(text, {.reference = kBackground});
    AppendShader(text, {.reference = ShadowNumber(title),
                        .colorOption = 0,
                        .glintSize = 0,
                        .glint = 0,
                        .transparency = 127});
    std::size_t reference = kFirstColor;
    for (const TitleText& part : title.texts)
        AppendShader(
            text, {.reference = reference++, .texture = kColorTexture, .color = part.font.color});
    return text;
}

std::size_t LineCount(const Title& title)
{
    std::size_t count = 0;
    for (const TitleText& part : title.texts)
        count += part.lines.size();
    return count;
}

// Texts of a source that is not well-formed are corrected, or this document would not be either.
std::string TextLines(const Title& title)
{
    const std::size_t last = LineCount(title);
    std::string text;
    std::size_t number = 0;
    std::size_t reference = kFirstFont;
    for (const TitleText& part : title.texts) {
        for (const std::string_view line : part.lines) {
            const std::string content = WellFormedText(line);
            const double above = static_cast<double>(number) * kLineDistance * title.Scale();
            ++number;
            Append(
                text, kTextLine, fmt::arg("line", number),
                fmt::arg("base", NumberText(kFirstBase + above)),
                fmt::arg("posX", NumberText(title.position.horiz)),
                fmt::arg("alignment", kAlignments[static_cast<std::size_t>(part.font.alignment)]),
                fmt::arg("marker", number < last ? " TXMarker=\"Booyah\"" : ""),
                fmt::arg("text", content), fmt::arg("count", ToUTF16(UnescapeXML(content)).size()),
                fmt::arg("reference", reference));
        }
        ++reference;
    }
    return text;
}

} // namespace

std::string LegacyTitleDocument(const Title& title)
{
    static const std::string kChainDefaultsText = ChainDefaultsText();
    std::string text;
    Append(text, kTitleDocument, fmt::arg("moves", title.motion != TitleMotion::Still),
           fmt::arg("motion", static_cast<int>(title.motion)), fmt::arg("width", title.frame.width),
           fmt::arg("height", title.frame.height),
           fmt::arg("pixelAspect", NumberText(1 / title.frame.pixelAspect)),
           fmt::arg("chainDefaults", kChainDefaultsText),
           fmt::arg("textDescriptions", TextDescriptions(title)), fmt::arg("styles", Styles(title)),
           fmt::arg("shaders", Shaders(title)), fmt::arg("posX", NumberText(title.position.horiz)),
           fmt::arg("posY", NumberText(title.position.vert * title.Scale())),
           fmt::arg("textLines", TextLines(title)));
    return text;
}

} // namespace XPJ
