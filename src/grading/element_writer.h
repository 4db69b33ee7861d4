// Writing the elements of a look, one a line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace XPJ {

// Appends to `text`, which must outlive the writer.
class ElementWriter {
public:
    explicit ElementWriter(std::string& text) : text_(text) {}

    // <tag>
    void Open(std::size_t indent, std::string_view tag);
    // </tag>
    void Close(std::size_t indent, std::string_view tag);
    // <tag>"value"</tag>
    void Quoted(std::size_t indent, std::string_view tag, std::string_view value);
    // The same for a value that is appended to `Text` in between.
    void OpenQuote(std::size_t indent, std::string_view tag);
    void CloseQuote(std::string_view tag);
    // <tag>value</tag>; in quotes if it would not be read back without them.
    void Bare(std::size_t indent, std::string_view tag, std::string_view value);
    // "value"
    void QuotedAlone(std::size_t indent, std::string_view value);

    std::string& Text() { return text_; }

private:
    void Start(std::size_t indent, std::string_view tag);

    std::string& text_;
};

// Fifteen significant digits, as times and strengths are written.
std::string LongNumberText(double value);

} // namespace XPJ
