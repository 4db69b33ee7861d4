#include "tree/tokeniser.h"

#include "core/byte_scan.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace XPJ {

namespace {

constexpr std::ptrdiff_t kBlockSize = 1024;
constexpr std::string_view kCDataMark = "CDATA[";
constexpr std::string_view kEmptyFileEnd = "</file>";

// Bytes at which the scan of a tag must look twice.
constexpr std::array<bool, 256> kTagStop = [] {
    std::array<bool, 256> stop{};
    for (const char byte : {'\0', '\r', ' ', '/', '<', '>', '"', '\''})
        stop[static_cast<unsigned char>(byte)] = true;
    return stop;
}();

bool IsTagStop(char byte)
{
    return kTagStop[static_cast<unsigned char>(byte)];
}

// Where a byte follows that may be a stop, or less than eight bytes are left.
const char* SkipPlainBytes(const char* next, const char* end)
{
    while (end - next >= static_cast<std::ptrdiff_t>(sizeof(EightBytes))) {
        const EightBytes low = LoadBytes(next) & ~kHighBits;
        // All stops but the brackets are below the digits.
        const EightBytes stops = BytesBelow(low, '0') | AngleBrackets(low);
        if (stops != 0)
            return next + FirstByteOf(stops);
        next += sizeof(EightBytes);
    }
    return next;
}

bool IsControl(char byte)
{
    return static_cast<unsigned char>(byte) < 32;
}

std::string_view View(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

bool HasControl(const char* begin, const char* end)
{
    EightBytes controls = 0;
    for (; end - begin >= static_cast<std::ptrdiff_t>(sizeof(EightBytes));
         begin += sizeof(EightBytes)) {
        const EightBytes bytes = LoadBytes(begin);
        controls |= BytesBelow(bytes & ~kHighBits, ' ') & ~bytes; // none above 0x7F is one
    }
    return controls != 0 || std::any_of(begin, end, IsControl);
}

// The first byte that does not count unchanged.
const char* FirstOdd(const char* begin, const char* end)
{
    const char* const odd =
        std::find_if(begin, end, [](char byte) { return byte == '\0' || byte == '\r'; });
    return odd == end ? nullptr : odd;
}

} // namespace

Tokeniser::Tokeniser(std::string_view input, Document& document, StageScope* stage, TagRules rules)
    : begin_(input.data()), next_(begin_), end_(begin_ + input.size()),
      nextBlock_(stage ? begin_ : end_), document_(document), stage_(stage), rules_(rules)
{
}

Token Tokeniser::Next(Content content)
{
    Step step = Step::Content;
    while (step != Step::Done) {
        if (next_ >= nextBlock_ && !EnterBlocks())
            return Token::Cancelled;
        step = step == Step::Content ? ScanContent(content) : ScanMarkup(content);
    }
    return token_;
}

Tokeniser::Step Tokeniser::ScanContent(Content content)
{
    const char* const open = Find('<');
    if (!open)
        return FinishInput();
    if (content != Content::Tags && TakeText(next_, open)) {
        next_ = open;
        return Finish(Token::Text);
    }
    next_ = open + 1;
    return Step::Markup;
}

Tokeniser::Step Tokeniser::ScanMarkup(Content content)
{
    for (; next_ != end_; ++next_) {
        switch (*next_) {
        case '\0':
        case ' ':
        case '>':
            break;
        case '<':
            return Finish(Token::SyntaxError);
        case '/':
            ++next_;
            return ScanEndTag();
        case '!':
            ++next_;
            return ScanDeclaration(content);
        default:
            return ScanStartTag(content);
        }
    }
    return FinishInput();
}

Tokeniser::Step Tokeniser::ScanStartTag(Content content)
{
    const char* const begin = next_;
    const char* firstOdd = nullptr;
    selfClosed_ = false;
    attributes_ = {};
    for (; next_ != end_; ++next_) {
        next_ = SkipPlainBytes(next_, end_);
        if (next_ == end_)
            break;
        const char byte = *next_;
        if (EndsName(byte)) {
            name_ = Clean(begin, next_, firstOdd, Slash::Drop);
            ++next_;
            return byte == '>' ? Finish(Token::Start) : ScanAttributes(content);
        }
        if (!IsTagStop(byte) || byte == '"' || byte == '\'')
            continue;
        if (byte == '<') {
            ++next_;
            return Step::Markup;
        }
        selfClosed_ |= byte == '/';
        if (!firstOdd)
            firstOdd = next_;
    }
    return FinishInput();
}

Tokeniser::Step Tokeniser::ScanAttributes(Content content)
{
    const char* const begin = next_;
    const char* firstOdd = nullptr;
    char quote = '\0';
    for (; next_ != end_; ++next_) {
        next_ = SkipPlainBytes(next_, end_);
        if (next_ == end_)
            break;
        const char byte = *next_;
        if (!IsTagStop(byte) || byte == ' ')
            continue;
        if (byte == '<') {
            ++next_;
            return Step::Markup;
        }
        if (byte == '"' || byte == '\'') {
            if (quote == '\0')
                quote = byte;
            else if (quote == byte)
                quote = '\0';
            continue;
        }
        if (quote != '\0' && (byte == '>' || byte == '/'))
            continue;
        if (byte == '>') {
            attributes_ = Clean(begin, next_, firstOdd, Slash::DropUnquoted);
            ++next_;
            return FinishStartTag(content);
        }
        selfClosed_ |= byte == '/';
        if (!firstOdd)
            firstOdd = next_;
    }
    return FinishInput();
}

// An empty `file` with attributes is as good as a self-closed one.
Tokeniser::Step Tokeniser::FinishStartTag(Content content)
{
    if (content != Content::Leaf && name_ == "file" &&
        View(next_, end_).starts_with(kEmptyFileEnd)) {
        next_ += kEmptyFileEnd.size();
        selfClosed_ = true;
    }
    return Finish(Token::Start);
}

Tokeniser::Step Tokeniser::ScanEndTag()
{
    const char* const begin = next_;
    const char* firstOdd = nullptr;
    for (; next_ != end_; ++next_) {
        next_ = SkipPlainBytes(next_, end_);
        if (next_ == end_)
            break;
        const char byte = *next_;
        if (!IsTagStop(byte))
            continue;
        if (byte == '>') {
            name_ = Clean(begin, next_, firstOdd, Slash::Keep);
            while (rules_ == TagRules::Xml && !name_.empty() && EndsName(name_.back()))
                name_.remove_suffix(1);
            ++next_;
            return Finish(Token::End);
        }
        if (byte == '<') {
            ++next_;
            return Step::Markup;
        }
        if (!firstOdd && (byte == '\0' || byte == '\r'))
            firstOdd = next_;
    }
    return FinishInput();
}

// Behind "<!": a "[" or "-" at any distance opens CDATA or a comment.
Tokeniser::Step Tokeniser::ScanDeclaration(Content content)
{
    if (rules_ == TagRules::Xml && next_ != end_ && *next_ != '[' && *next_ != '-')
        return SkipToMarkup();
    for (;;) {
        switch (TakeByte()) {
        case -1:
            return FinishInput();
        case '<':
            return Step::Markup;
        case '[':
            return ScanCDataMark(content);
        case '-':
            return ScanComment();
        default:
            break;
        }
    }
}

// Behind the first "-". The byte that spoils a comment is taken, even if it is a "<".
Tokeniser::Step Tokeniser::ScanComment()
{
    if (TakeByte() != '-')
        return SkipToMarkup();
    for (;;) {
        const char* const dash = Find('-');
        if (!dash)
            return FinishInput();
        next_ = dash + 1;
        if (TakeByte() == '-')
            return TakeByte() == '>' ? Step::Content : SkipToMarkup();
    }
}

Tokeniser::Step Tokeniser::ScanCDataMark(Content content)
{
    for (const char expected : kCDataMark) {
        const int byte = TakeByte();
        if (byte == '<')
            return Step::Markup;
        if (byte != expected)
            return SkipToMarkup();
    }
    return ScanCData(content);
}

Tokeniser::Step Tokeniser::ScanCData(Content content)
{
    const char* const begin = next_;
    for (const char* close = Find('>'); close; close = Find('>')) {
        next_ = close + 1;
        // "]]" before it, whatever NUL bytes are between.
        const char* end = close;
        int brackets = 0;
        while (end != begin && brackets < 2 && (end[-1] == ']' || end[-1] == '\0'))
            brackets += *--end == ']';
        if (brackets < 2)
            continue;
        if (content == Content::Tags)
            return Step::Content;
        text_ = Clean(begin, end, FirstOdd(begin, end), Slash::Keep);
        return text_.empty() ? Step::Content : Finish(Token::CData);
    }
    return FinishInput();
}

Tokeniser::Step Tokeniser::SkipToMarkup()
{
    const char* const open = Find('<');
    if (!open)
        return FinishInput();
    next_ = open + 1;
    return Step::Markup;
}

Tokeniser::Step Tokeniser::Finish(Token token)
{
    token_ = token;
    return Step::Done;
}

Tokeniser::Step Tokeniser::FinishInput()
{
    next_ = end_;
    return Finish(EnterBlocks() ? Token::EndOfInput : Token::Cancelled);
}

bool Tokeniser::EndsName(char byte) const
{
    return byte == ' ' || byte == '>' ||
           (rules_ == TagRules::Xml && (byte == '\t' || byte == '\n' || byte == '\r'));
}

const char* Tokeniser::Find(char byte) const
{
    if (next_ == end_)
        return nullptr;
    return static_cast<const char*>(
        std::memchr(next_, byte, static_cast<std::size_t>(end_ - next_)));
}

// The next byte that counts, -1 at the end.
int Tokeniser::TakeByte()
{
    while (next_ != end_) {
        const char byte = *next_++;
        if (byte != '\0')
            return byte == '\r' ? '\n' : static_cast<unsigned char>(byte);
    }
    return -1;
}

bool Tokeniser::TakeText(const char* begin, const char* end)
{
    while (begin != end && IsControl(*begin))
        ++begin;
    while (begin != end && IsControl(end[-1]))
        --end;
    text_ = View(begin, end);
    rawText_ = text_;
    if (HasControl(begin, end)) {
        char* const copy = document_.AllocateText(text_.size());
        text_ = View(copy, std::remove_copy_if(begin, end, copy, IsControl));
    }
    return !text_.empty();
}

// What counts of [begin, end); `firstOdd` is the first byte of it that may not count unchanged.
std::string_view Tokeniser::Clean(const char* begin, const char* end, const char* firstOdd,
                                  Slash slash)
{
    if (!firstOdd)
        return View(begin, end);
    if (firstOdd + 1 == end && *firstOdd == '/')
        return View(begin, firstOdd);
    char* const copy = document_.AllocateText(static_cast<std::size_t>(end - begin));
    char* out = copy;
    char quote = '\0';
    for (const char* byte = begin; byte != end; ++byte) {
        if (slash == Slash::DropUnquoted && (*byte == '"' || *byte == '\'')) {
            if (quote == '\0')
                quote = *byte;
            else if (quote == *byte)
                quote = '\0';
        }
        const bool isDropped =
            *byte == '\0' || (*byte == '/' && slash != Slash::Keep && quote == '\0');
        if (!isDropped)
            *out++ = *byte == '\r' ? '\n' : *byte;
    }
    return View(copy, out);
}

// A step of progress for each block that the scan has reached; false after a cancellation.
bool Tokeniser::EnterBlocks()
{
    while (nextBlock_ <= next_ && nextBlock_ != end_) {
        nextBlock_ += std::min(kBlockSize, end_ - nextBlock_);
        if (!stage_->Step())
            return false;
    }
    return true;
}

bool GetAttribute(std::string_view attributes, std::string_view name, std::string_view& value)
{
    std::size_t start = 0;
    while ((start = attributes.find(name, start)) != attributes.npos) {
        const std::string_view rest = attributes.substr(start + name.size());
        if (rest.starts_with("=\"")) {
            value = rest.substr(2, rest.find('"', 2) - 2);
            return true;
        }
        ++start;
    }
    return false;
}

bool GetXmlAttribute(std::string_view attributes, std::string_view name, std::string_view& value)
{
    while (true) {
        std::size_t equals = 0; // names are short: a search would cost more than it saves
        while (equals < attributes.size() && attributes[equals] != '=')
            ++equals;
        if (equals == attributes.size())
            return false;
        const std::string_view key = Trimmed(attributes.substr(0, equals));
        std::size_t open = equals + 1;
        while (open < attributes.size() && attributes[open] != '"' && attributes[open] != '\'')
            ++open;
        if (open >= attributes.size())
            return false;
        const std::size_t close = attributes.find(attributes[open], open + 1);
        if (key == name) {
            value = attributes.substr(open + 1, close - open - 1);
            return true;
        }
        if (close == attributes.npos)
            return false;
        attributes.remove_prefix(close + 1);
    }
}

} // namespace XPJ
