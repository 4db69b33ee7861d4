// Text on its way to a stream: collected in one block, handed over when the block is full. Without
// a stream the block grows.
#pragma once

#include "core/text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <memory>
#include <string_view>

namespace XPJ {

class TextOut {
public:
    TextOut() = default;
    explicit TextOut(std::ostream& stream) : stream_(&stream) {}
    TextOut(const TextOut&) = delete;
    TextOut& operator=(const TextOut&) = delete;

    void Write(std::string_view text)
    {
        if (text.empty())
            return;
        if (text.size() > blockSize_ - size_)
            return WriteAcrossBlocks(text);
        std::memcpy(block_.get() + size_, text.data(), text.size());
        size_ += text.size();
    }

    template <class... Texts>
    void Write(std::string_view first, Texts... rest)
    {
        Write(first);
        (Write(std::string_view(rest)), ...);
    }

    // A document's value: it is escaped in the tree, but damaged input may have come through.
    void WriteValue(std::string_view value)
    {
        Write(IsPlainText(value) ? value : std::string_view(WellFormedText(value)));
    }

    // A document's value with the text around it.
    void WriteValue(std::string_view before, std::string_view value, std::string_view after)
    {
        const std::size_t length = before.size() + value.size() + after.size();
        if (length > blockSize_ - size_ || !IsPlainText(value)) {
            Write(before);
            WriteValue(value);
            return Write(after);
        }
        char* next = block_.get() + size_;
        next = std::copy(before.begin(), before.end(), next);
        next = std::copy(value.begin(), value.end(), next);
        std::copy(after.begin(), after.end(), next);
        size_ += length;
    }

    // A line of its own: "\t\t<name>value</name>".
    void WriteElement(int tabs, std::string_view name, std::string_view value)
    {
        constexpr std::size_t kMarks = std::string_view("<></>\n").size();
        const std::size_t indent = static_cast<std::size_t>(std::max(tabs, 0));
        const std::size_t length = indent + 2 * name.size() + value.size() + kMarks;
        if (length > blockSize_ - size_ || !IsPlainText(value))
            return WriteElementInParts(tabs, name, value);
        char* next = block_.get() + size_;
        next = std::fill_n(next, indent, '\t');
        *next++ = '<';
        next = std::copy(name.begin(), name.end(), next);
        *next++ = '>';
        next = std::copy(value.begin(), value.end(), next);
        *next++ = '<';
        *next++ = '/';
        next = std::copy(name.begin(), name.end(), next);
        *next++ = '>';
        *next++ = '\n';
        size_ += length;
    }

    void WriteNumber(std::uint64_t number)
    {
        char digits[20];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        Write(std::string_view(digits, static_cast<std::size_t>(end - digits)));
    }

    void WriteTabs(int count)
    {
        constexpr std::string_view kTabs = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
        constexpr int kMost = static_cast<int>(kTabs.size());
        for (; count > kMost; count -= kMost)
            Write(kTabs);
        Write(kTabs.substr(0, static_cast<std::size_t>(count)));
    }

    // What was not handed over.
    std::string_view Text() const { return {block_.get(), size_}; }
    void Clear() { size_ = 0; }

    // To be called at the end, too: a destructor could not report a stream that throws.
    void Flush();

private:
    static constexpr std::size_t kFirstBlock = std::size_t{64} * 1024;

    void WriteElementInParts(int tabs, std::string_view name, std::string_view value);
    void HandOver();
    void WriteAcrossBlocks(std::string_view text);
    void Grow(std::size_t added);

    std::ostream* stream_ = nullptr;
    std::size_t blockSize_ = kFirstBlock;
    std::unique_ptr<char[]> block_ = std::make_unique_for_overwrite<char[]>(kFirstBlock);
    std::size_t size_ = 0;
};

} // namespace XPJ
