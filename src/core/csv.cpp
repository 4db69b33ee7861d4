#include "core/csv.h"

#include <algorithm>

namespace XPJ {

std::string CsvField(std::string_view text)
{
    if (text.find_first_of(",\"\r\n") == text.npos)
        return std::string(text);
    std::string quoted = "\"";
    for (const char c : text)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted += '"';
}

CsvReader::CsvReader(std::string_view text) : text_(text)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text_.starts_with(kByteOrderMark))
        text_.remove_prefix(kByteOrderMark.size());
}

bool CsvReader::SkipLineEnd()
{
    const std::string_view rest = text_.substr(at_);
    const std::size_t size = rest.starts_with('\n') ? 1 : rest.starts_with("\r\n") ? 2 : 0;
    at_ += size;
    line_ += size > 0;
    return size > 0;
}

// Gives the fault of the field, an empty text for none.
std::string_view CsvReader::ReadField(std::string& field)
{
    if (IsAtEnd() || text_[at_] != '"') {
        std::size_t end = std::min(text_.find_first_of(",\n", at_), text_.size());
        if (end > at_ && end < text_.size() && text_[end] == '\n' && text_[end - 1] == '\r')
            --end;
        field = text_.substr(at_, end - at_);
        at_ = end;
        return field.find('"') == field.npos ? "" : "a quote inside a field without quotes";
    }
    for (++at_; !IsAtEnd(); ++at_) {
        if (text_[at_] == '"' && !text_.substr(at_ + 1).starts_with('"')) {
            ++at_;
            const bool isEnded = IsAtEnd() || text_[at_] == ',' || text_[at_] == '\n' ||
                                 text_.substr(at_).starts_with("\r\n");
            return isEnded ? "" : "text after the closing quote of a field";
        }
        at_ += text_[at_] == '"';
        line_ += text_[at_] == '\n';
        field += text_[at_];
    }
    return "the closing quote of a field is missing";
}

std::optional<CsvRecord> CsvReader::Next()
{
    while (SkipLineEnd()) {
    }
    if (IsAtEnd())
        return std::nullopt;
    CsvRecord record{.line = line_};
    for (;;) {
        record.fault = ReadField(record.fields.emplace_back());
        if (!record.fault.empty()) {
            at_ = text_.size();
            return record;
        }
        if (IsAtEnd() || text_[at_] != ',') {
            SkipLineEnd();
            return record;
        }
        ++at_;
    }
}

} // namespace XPJ
