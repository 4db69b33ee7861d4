#include "grading/element_writer.h"

#include <fmt/format.h>

namespace XPJ {

namespace {

bool CanStandBare(std::string_view value)
{
    constexpr std::string_view kBlanks = " \t";
    return !value.empty() && value.find_first_of("<\"\r\n") == value.npos &&
           kBlanks.find(value.front()) == kBlanks.npos &&
           kBlanks.find(value.back()) == kBlanks.npos;
}

} // namespace

void ElementWriter::Start(std::size_t indent, std::string_view tag)
{
    text_.append(indent, ' ').append("<").append(tag).append(">");
}

void ElementWriter::Open(std::size_t indent, std::string_view tag)
{
    Start(indent, tag);
    text_ += '\n';
}

void ElementWriter::Close(std::size_t indent, std::string_view tag)
{
    text_.append(indent, ' ').append("</").append(tag).append(">\n");
}

void ElementWriter::Quoted(std::size_t indent, std::string_view tag, std::string_view value)
{
    OpenQuote(indent, tag);
    text_ += value;
    CloseQuote(tag);
}

void ElementWriter::OpenQuote(std::size_t indent, std::string_view tag)
{
    Start(indent, tag);
    text_ += '"';
}

void ElementWriter::CloseQuote(std::string_view tag)
{
    text_ += '"';
    Close(0, tag);
}

void ElementWriter::Bare(std::size_t indent, std::string_view tag, std::string_view value)
{
    if (!CanStandBare(value))
        return Quoted(indent, tag, value);
    Start(indent, tag);
    text_ += value;
    Close(0, tag);
}

void ElementWriter::QuotedAlone(std::size_t indent, std::string_view value)
{
    text_.append(indent, ' ').append("\"").append(value).append("\"\n");
}

std::string LongNumberText(double value)
{
    return fmt::format("{:.15g}", value);
}

} // namespace XPJ
