// A line names a description and a style by number; the style names a shader for its face, and the
// shader holds the color. All three lists may be anywhere in the document.
#include "effects/legacy_title_reader.h"

#include "core/numbers.h"
#include "core/text.h"
#include "tree/tokeniser.h"

#include <map>
#include <utility>

namespace XPJ {

namespace {

constexpr int kFacePainter = 15;

int NumberOf(std::string_view attributes, std::string_view name)
{
    std::string_view value;
    return GetAttribute(attributes, name, value) ? ParseInt(value) : -1;
}

struct Description {
    std::string family;
    std::string style;
    int height = 0;
    bool isBold = false;
    bool isItalic = false;
};

struct Line {
    std::string text;
    int description = 0;
    int style = 0;
    Alignment alignment = Alignment::Left;
};

// A bold italic face is marked as neither: its name alone states it.
FontStyle FaceOf(const Description& description)
{
    if (description.style == "BoldItalic" || (description.isBold && description.isItalic))
        return FontStyle::BoldItalic;
    if (description.isBold)
        return FontStyle::Bold;
    return description.isItalic ? FontStyle::Italic : FontStyle::Regular;
}

Alignment AlignmentOf(std::string_view text)
{
    if (text == "center")
        return Alignment::Center;
    return text == "right" ? Alignment::Right : Alignment::Left;
}

TitleMotion MotionOf(int effectType)
{
    return effectType == 1 || effectType == 2 ? static_cast<TitleMotion>(effectType)
                                              : TitleMotion::Still;
}

// Takes the tags and texts of a document in turn. Nothing is nested in itself, so that the tag
// opened last defines what a text means.
class Reader {
public:
    void Open(std::string_view name, std::string_view attributes)
    {
        tag_ = name;
        if (name == "TextDescription") {
            description_ = NumberOf(attributes, "Reference");
        } else if (name == "Style") {
            style_ = NumberOf(attributes, "ID");
        } else if (name == "ShaderRef") {
            painter_ = NumberOf(attributes, "PainterNumber");
        } else if (name == "ColorSpec") {
            color_ = NumberOf(attributes, "index");
        } else if (name == "Position" || name == "Size") {
            isPosition_ = name == "Position";
        } else if (name == "TextLine") {
            lines_.emplace_back();
        } else if (name == "CharacterAttributes" && !lines_.empty()) {
            lines_.back().style = NumberOf(attributes, "StyleRef");
            lines_.back().description = NumberOf(attributes, "TextRef");
        }
    }

    void Close() { tag_ = {}; }

    void Take(std::string_view text)
    {
        if (tag_ == "TRString" && !lines_.empty())
            lines_.back().text += UnescapeXML(text);
        else if (tag_ == "Alignment" && !lines_.empty())
            lines_.back().alignment = AlignmentOf(text);
        else if (isPosition_ && tag_ == "x")
            title_.position.horiz = ParseDouble(text);
        else if (isPosition_ && tag_ == "y")
            title_.position.vert = ParseDouble(text);
        else if (tag_ == "EffectType")
            title_.motion = MotionOf(ParseInt(text));
        else if (tag_ == "pXPIXELS")
            title_.frame.width = ParseInt(text);
        else if (tag_ == "pYLINES")
            title_.frame.height = ParseInt(text);
        else if (tag_ == "fiBold")
            descriptions_[description_].isBold = ParseInt(text) != 0;
        else if (tag_ == "fiItalic")
            descriptions_[description_].isItalic = ParseInt(text) != 0;
        else if (tag_ == "txHeight")
            descriptions_[description_].height = ParseInt(text);
        else if (tag_ == "fifontFamilyName")
            descriptions_[description_].family = UnescapeXML(text);
        else if (tag_ == "fifontStyle")
            descriptions_[description_].style = UnescapeXML(text);
        else if (tag_ == "shaderRef" && painter_ == kFacePainter)
            shaderOfStyle_[style_] = ParseInt(text);
        else if (tag_ == "cReference")
            shader_ = ParseInt(text);
        else if (color_ == 0)
            TakeChannel(ParseInt(text));
    }

    LegacyTitle Finish()
    {
        title_.texts = Texts();
        // A title document has the vertical position of a generator times the scale of its sizes.
        if (title_.frame.height > 0)
            title_.position.vert *= 480.0 / title_.frame.height;
        return std::move(title_);
    }

private:
    std::vector<LegacyTitleText> Texts() const
    {
        std::vector<LegacyTitleText> texts;
        const Line* last = nullptr;
        for (const Line& line : lines_) {
            if (!last || last->description != line.description || last->style != line.style)
                texts.push_back(LookOf(line));
            texts.back().lines.push_back(line.text);
            last = &line;
        }
        return texts;
    }

    void TakeChannel(int value)
    {
        Color& color = colors_[shader_];
        color.alpha = 255;
        if (tag_ == "red")
            color.red = value;
        else if (tag_ == "green")
            color.green = value;
        else if (tag_ == "blue")
            color.blue = value;
    }

    template <class Value>
    static Value Find(const std::map<int, Value>& values, int number)
    {
        const auto found = values.find(number);
        return found == values.end() ? Value() : found->second;
    }

    LegacyTitleText LookOf(const Line& line) const
    {
        const Description description = Find(descriptions_, line.description);
        return {.lines = {},
                .family = description.family,
                .style = description.style,
                .height = description.height,
                .color = Find(colors_, Find(shaderOfStyle_, line.style)),
                .face = FaceOf(description),
                .alignment = line.alignment};
    }

    LegacyTitle title_;
    std::string_view tag_;
    bool isPosition_ = false;
    int description_ = 0; // the current numbers
    int style_ = 0;
    int painter_ = 0;
    int shader_ = 0;
    int color_ = -1; // of the shader
    std::vector<Line> lines_;
    std::map<int, Description> descriptions_;
    std::map<int, int> shaderOfStyle_;
    std::map<int, Color> colors_;
};

} // namespace

LegacyTitle ReadLegacyTitle(std::string_view document)
{
    Document scratch;
    Tokeniser tokens(document, scratch);
    Reader reader;
    while (true) {
        switch (tokens.Next(Content::All)) {
        case Token::Start:
            reader.Open(tokens.Name(), tokens.Attributes());
            if (tokens.IsSelfClosed())
                reader.Close();
            break;
        case Token::End:
            reader.Close();
            break;
        case Token::Text:
            reader.Take(tokens.Text());
            break;
        case Token::CData:
            reader.Take(EscapeXML(tokens.Text()));
            break;
        case Token::EndOfInput:
        case Token::SyntaxError:
        case Token::Cancelled:
            return reader.Finish();
        }
    }
}

} // namespace XPJ
