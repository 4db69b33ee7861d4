#include "grading/xml_file.h"

#include "core/text.h"
#include "grading/text_place.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kNameEnds = " \t\r\n<>/";

bool IsBlank(char c)
{
    return kBlanks.find(c) != kBlanks.npos;
}

bool IsLineEnd(char c)
{
    return kLineEnds.find(c) != kLineEnds.npos;
}

std::uint32_t HashOf(std::string_view name)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : name) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        hash ^= static_cast<unsigned char>(isUpper ? c - 'A' + 'a' : c);
        hash *= 16777619U;
    }
    return hash;
}

} // namespace

void CZvXMLFile::Open(std::string_view text)
{
    *this = CZvXMLFile();
    isOpen_ = true;
    text_ = text;
    if (StartsWith(kByteOrderMark))
        text_.remove_prefix(kByteOrderMark.size());
}

CZvXMLFile::Status CZvXMLFile::Next()
{
    if (!isOpen_)
        FailAt(0, LookMessage::XMLFileIsNotOpen);
    if (isEmptyElement_)
        return CloseElement();
    if (openElements_.empty())
        SkipMisc();
    else
        SkipBlanks();
    tokenStart_ = position_;
    if (position_ < text_.size()) {
        if (text_[position_] == '<')
            return ReadTag();
        if (openElements_.empty())
            Fail(LookMessage::Expected, "<");
        return ReadValue();
    }
    if (!openElements_.empty())
        Fail(LookMessage::UnexpectedEndOfFileWhileLookingFor, EndTagOfInnermost());
    return Status::End;
}

void CZvXMLFile::SkipElement()
{
    const std::size_t depth = openElements_.size();
    while (openElements_.size() >= depth && !openElements_.empty())
        Next();
}

void CZvXMLFile::Fail(LookMessage message, std::string_view argument) const
{
    FailAt(tokenStart_, message, argument);
}

void CZvXMLFile::FailAt(std::size_t position, LookMessage message, std::string_view argument) const
{
    const auto [line, column] = PlaceAt(text_, position);
    throw CZvError{
        .message = GetMessage(message, argument), .file = {}, .line = line, .column = column};
}

bool CZvXMLFile::StartsWith(std::string_view prefix) const
{
    return text_.substr(position_, prefix.size()) == prefix;
}

void CZvXMLFile::SkipBlanks()
{
    position_ = std::min(text_.find_first_not_of(kBlanks, position_), text_.size());
}

void CZvXMLFile::SkipMisc()
{
    for (;;) {
        SkipBlanks();
        if (StartsWith("<?"))
            SkipPast("?>", position_);
        else if (StartsWith("<!--"))
            SkipPast("-->", position_ + 4);
        else if (StartsWith("<!"))
            SkipPast(">", position_);
        else
            return;
    }
}

void CZvXMLFile::SkipPast(std::string_view end, std::size_t start)
{
    const std::size_t found = text_.find(end, start);
    if (found == text_.npos)
        FailAt(text_.size(), LookMessage::UnexpectedEndOfFileWhileLookingFor, end);
    position_ = found + end.size();
}

// ---- Tags

CZvXMLFile::Status CZvXMLFile::ReadTag()
{
    bareValueBefore_ = false;
    ++position_;
    const bool isEndTag = StartsWith("/");
    if (isEndTag)
        ++position_;
    tagName_ = ReadName();
    tagHash_ = HashOf(tagName_);
    const bool isEmptyElement = !isEndTag && StartsWith("/");
    if (isEmptyElement)
        ++position_;
    CheckInsideBrackets();
    if (!StartsWith(">"))
        FailAt(position_, LookMessage::Expected, ">");
    ++position_;
    if (isEndTag)
        return CloseElement();
    isEmptyElement_ = isEmptyElement;
    return OpenElement();
}

std::string_view CZvXMLFile::ReadName()
{
    const std::size_t start = position_;
    position_ = std::min(text_.find_first_of(kNameEnds, start), text_.size());
    CheckInsideBrackets();
    if (position_ == start)
        FailAt(position_, LookMessage::Expected, "name");
    return text_.substr(start, position_ - start);
}

void CZvXMLFile::CheckInsideBrackets() const
{
    if (position_ == text_.size())
        FailAt(position_, LookMessage::UnexpectedEndOfFileWhileLookingFor, ">");
    if (IsLineEnd(text_[position_]))
        FailAt(position_, LookMessage::NewlineUnexpectedInBrackets);
    if (IsBlank(text_[position_]))
        FailAt(position_, LookMessage::WhitespaceUnexpectedInBrackets);
}

CZvXMLFile::Status CZvXMLFile::OpenElement()
{
    if (openElements_.size() >= maxDepth_)
        Fail(LookMessage::Expected, EndTagOfInnermost());
    openElements_.push_back(tagName_);
    return Status::StartTag;
}

CZvXMLFile::Status CZvXMLFile::CloseElement()
{
    if (openElements_.empty())
        Fail(LookMessage::UnexpectedEndTagAtRootLevel);
    if (!EqualsIgnoreCase(openElements_.back(), tagName_))
        Fail(LookMessage::Expected, EndTagOfInnermost());
    isEmptyElement_ = false;
    openElements_.pop_back();
    return Status::EndTag;
}

std::string CZvXMLFile::EndTagOfInnermost() const
{
    return "</" + openElements_.back() + ">";
}

// ---- Values

CZvXMLFile::Status CZvXMLFile::ReadValue()
{
    const bool isQuoted = StartsWith("\"");
    if (!isQuoted && bareValueBefore_)
        Fail(LookMessage::UnexpectedNewlineInValue);
    value_ = isQuoted ? ReadQuoted() : ReadBare();
    bareValueBefore_ = !isQuoted;
    return Status::Value;
}

std::string_view CZvXMLFile::ReadQuoted()
{
    const std::size_t start = position_ + 1;
    SkipPast("\"", start);
    return text_.substr(start, position_ - 1 - start);
}

std::string_view CZvXMLFile::ReadBare()
{
    const std::size_t start = position_;
    position_ = std::min(text_.find_first_of("<\"\r\n", start), text_.size());
    const std::string_view value = text_.substr(start, position_ - start);
    return value.substr(0, value.find_last_not_of(kBlanks) + 1);
}

} // namespace XPJ
