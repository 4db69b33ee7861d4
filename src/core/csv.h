// Comma-separated values as RFC 4180 has them: quotes around a field, "" for a quote in it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

// A field as it is written: in quotes where it needs them.
std::string CsvField(std::string_view text);

struct CsvRecord {
    std::size_t line = 0; // on which it starts, from 1
    std::vector<std::string> fields = {};
    std::string_view fault = {}; // why the record can't be used; empty for one that can
};

// Reads record by record; lines end with LF or CRLF, and lines without anything are skipped. A byte
// order mark at the start counts as nothing.
class CsvReader {
public:
    explicit CsvReader(std::string_view text);
    // Nothing at the end, and after a record with a fault.
    std::optional<CsvRecord> Next();

private:
    bool IsAtEnd() const { return at_ >= text_.size(); }
    bool SkipLineEnd();
    std::string_view ReadField(std::string& field);

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
};

} // namespace XPJ
