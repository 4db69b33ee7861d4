// The bytes of a document as tokens. One scanner for both document families.
//
// It is lenient by design: no declaration, entity or encoding is looked at, a start tag that is
// never closed is no fault, and values are the file's bytes. These rules give its shape:
//   - NUL bytes count nowhere; a carriage return counts as a line feed.
//   - Only a space ends a tag name; a tab or line feed there belongs to it.
//   - A "/" anywhere in a start tag outside quotes makes it self-closed.
//   - A "<" ends any tag, declaration or quoted value that is not complete; what it cut off is
//     dropped. A second "<" before a name starts is the one syntax error.
//   - Text loses its bytes below 32. What follows the last "<" of the input is dropped.
//   - A comment with "--" inside lasts to the next "<".
// With TagRules::Xml, tabs and line ends are blanks too, blanks may stand before the ">" of an end
// tag, a comment begins with "<!--" alone, and attributes are as XML has them.
//
//   Tokeniser tokens(text, document);
//   while (tokens.Next(Content::All) == Token::Start) Use(tokens.Name(), tokens.Attributes());
#pragma once

#include "core/progress.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

enum class Token {
    Start,       // Name, Attributes, IsSelfClosed
    End,         // Name
    Text,        // Text: not empty, up to the next "<"
    CData,       // Text: not empty, unchanged
    EndOfInput,  // also inside an element or tag
    SyntaxError, // a second "<"; Offset is its position
    Cancelled,
};

enum class TagRules { Letter, Xml };

// What the element at hand keeps.
enum class Content {
    Tags, // no text: it is passed over unseen
    All,
    Leaf, // text; `<file ...></file>` is not taken for a self-closed tag
};

class Tokeniser {
public:
    // The texts given out are in the input or, where they differ from it, in the document. Each KB
    // entered is a step of `stage`.
    Tokeniser(std::string_view input, Document& document, StageScope* stage = nullptr,
              TagRules rules = TagRules::Letter);

    Token Next(Content content);

    std::string_view Name() const { return name_; }
    // The text between the name and ">", quotes included, without the "/".
    std::string_view Attributes() const { return attributes_; }
    bool IsSelfClosed() const { return selfClosed_; }
    std::string_view Text() const { return text_; }
    // Of Token::Text: with the bytes below 32 that are inside it.
    std::string_view TextWithControls() const { return rawText_; }
    // Bytes from the start of the input to the next unread one.
    std::size_t Offset() const { return static_cast<std::size_t>(next_ - begin_); }

private:
    enum class Step {
        Content, // between tags
        Markup,  // behind a "<"
        Done,    // token_ is set
    };
    enum class Slash { Keep, Drop, DropUnquoted };

    Step ScanContent(Content content);
    Step ScanMarkup(Content content);
    Step ScanStartTag(Content content);
    Step ScanAttributes(Content content);
    Step ScanEndTag();
    Step ScanDeclaration(Content content);
    Step ScanComment();
    Step ScanCDataMark(Content content);
    Step ScanCData(Content content);
    Step SkipToMarkup();
    Step FinishStartTag(Content content);
    Step Finish(Token token);
    Step FinishInput();

    bool EndsName(char byte) const;
    const char* Find(char byte) const;
    int TakeByte();
    bool TakeText(const char* begin, const char* end);
    std::string_view Clean(const char* begin, const char* end, const char* firstOdd, Slash slash);
    bool EnterBlocks();

    const char* begin_;
    const char* next_;
    const char* end_;
    const char* nextBlock_;
    Document& document_;
    StageScope* stage_;
    TagRules rules_;

    Token token_ = Token::EndOfInput;
    std::string_view name_;
    std::string_view attributes_;
    std::string_view text_;
    std::string_view rawText_;
    bool selfClosed_ = false;
};

// The text from the first `name="` to the next quote, or to the end without one; false if there is
// no such text. A hit inside a longer attribute name counts, single quotes do not.
bool GetAttribute(std::string_view attributes, std::string_view name, std::string_view& value);

// The value of the attribute of that name as XML defines it: blanks may be around the "=", and both
// kinds of quotes enclose values.
bool GetXmlAttribute(std::string_view attributes, std::string_view name, std::string_view& value);

} // namespace XPJ
