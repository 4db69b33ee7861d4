// Pull reader of the dialect in which looks are stored. It is simpler than XML:
//
//   <keyframe>                    tags have no attributes and no blanks; case doesn't matter
//     <time>0.5</time>            a bare value ends with its line, or at a "<" or a quote
//     <name>"two
//     lines"</name>               a quoted one at the next quote, whatever comes before
//     <mask/>
//   </keyframe>
//
// Nothing is decoded: entities are plain text. Comments, declarations and a byte-order mark may
// come before and behind elements, never inside. At most `kMaxDepth` elements are open at once.
#pragma once

#include "grading/error.h"
#include "grading/look_messages.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

class CZvXMLFile {
public:
    enum class Status { StartTag, EndTag, Value, End };

    static constexpr std::size_t kMaxDepth = 64;

    // Begins anew with a text that must outlive the reading.
    void Open(std::string_view text);

    // The next token. "<a/>" gives a StartTag and an EndTag. Throws CZvError for text that is none
    // of the dialect, and before `Open`.
    Status Next();
    // Behind a StartTag: goes to behind its EndTag.
    void SkipElement();

    // Of the last tag: 32-bit FNV-1a of the name in lower case, and the name as spelled.
    std::uint32_t TagHash() const { return tagHash_; }
    const std::string& TagName() const { return tagName_; }
    // Of the last Value, without quotes. An element may hold several.
    const std::string& Value() const { return value_; }

    // Leaves room for elements that will be written around those of this text.
    void LimitDepth(std::size_t depth) { maxDepth_ = depth; }
    // What is left of the text behind the last token.
    std::string_view Rest() const { return text_.substr(position_); }
    // Throws the error at the last token, for faults in what the tokens say.
    [[noreturn]] void Fail(LookMessage message, std::string_view argument = {}) const;

private:
    [[noreturn]] void FailAt(std::size_t position, LookMessage message,
                             std::string_view argument = {}) const;
    bool StartsWith(std::string_view prefix) const;
    void SkipBlanks();
    void SkipMisc();
    // To behind the first `end` at or behind `start`.
    void SkipPast(std::string_view end, std::size_t start);
    Status ReadTag();
    std::string_view ReadName();
    void CheckInsideBrackets() const;
    Status OpenElement();
    Status CloseElement();
    Status ReadValue();
    std::string_view ReadQuoted();
    std::string_view ReadBare();
    std::string EndTagOfInnermost() const;

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t tokenStart_ = 0;
    std::vector<std::string> openElements_;
    std::size_t maxDepth_ = kMaxDepth;
    bool isOpen_ = false;
    bool isEmptyElement_ = false;  // "<a/>" has given its StartTag only
    bool bareValueBefore_ = false; // only a newline can part it from another bare one
    std::uint32_t tagHash_ = 0;
    std::string tagName_;
    std::string value_;
};

} // namespace XPJ
