// Appends indented elements to a text, in the layout that editors write: tabs, one leaf a line.
//
//   XmlText xml;
//   xml.Block("rate", [&] {
//       xml.Leaf("ntsc", "TRUE");
//       xml.Leaf("timebase", 30);
//   });
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace XPJ::Bench {

// Values are written as they stand; the caller escapes.
class XmlText {
public:
    explicit XmlText(std::size_t expectedBytes = 0) { text_.reserve(expectedBytes); }

    template <class Body>
    void Block(std::string_view tag, const Body& body)
    {
        Line("<", tag, ">\n");
        Inside(tag, body);
    }

    template <class Body>
    void Block(std::string_view tag, std::string_view attribute, std::string_view value,
               const Body& body)
    {
        Line("<", tag, " ", attribute, "=\"", value, "\">\n");
        Inside(tag, body);
    }

    void Leaf(std::string_view tag, std::string_view text)
    {
        Line("<", tag, ">", text, "</", tag, ">\n");
    }

    void Leaf(std::string_view tag, std::int64_t number)
    {
        char digits[24];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        Leaf(tag, std::string_view(digits, static_cast<std::size_t>(end - digits)));
    }

    void Flag(std::string_view tag, bool value) { Leaf(tag, value ? "TRUE" : "FALSE"); }

    // An element without a value has its end tag on a line of its own.
    void BlankLeaf(std::string_view tag)
    {
        Line("<", tag, ">\n");
        Line("</", tag, ">\n");
    }

    void Reference(std::string_view tag, std::string_view id)
    {
        Line("<", tag, " id=\"", id, "\"/>\n");
    }

    void Raw(std::string_view text) { text_ += text; }

    std::size_t Size() const { return text_.size(); }
    std::string Take() { return std::move(text_); }

private:
    template <class Body>
    void Inside(std::string_view tag, const Body& body)
    {
        ++depth_;
        body();
        --depth_;
        Line("</", tag, ">\n");
    }

    template <class... Pieces>
    void Line(const Pieces&... pieces)
    {
        text_.append(depth_, '\t');
        (text_.append(std::string_view(pieces)), ...);
    }

    std::string text_;
    std::size_t depth_ = 0;
};

} // namespace XPJ::Bench
