#include "tree/text_out.h"

#include <ostream>
#include <utility>

namespace XPJ {

void TextOut::Flush()
{
    HandOver();
    stream_->flush();
}

void TextOut::WriteElementInParts(int tabs, std::string_view name, std::string_view value)
{
    WriteTabs(tabs);
    Write("<", name, ">");
    WriteValue(value);
    Write("</", name, ">\n");
}

void TextOut::HandOver()
{
    stream_->write(block_.get(), static_cast<std::streamsize>(size_));
    size_ = 0;
}

void TextOut::WriteAcrossBlocks(std::string_view text)
{
    if (!stream_) {
        Grow(text.size());
        return Write(text);
    }
    HandOver();
    if (text.size() > blockSize_)
        stream_->write(text.data(), static_cast<std::streamsize>(text.size()));
    else
        Write(text);
}

void TextOut::Grow(std::size_t added)
{
    const std::size_t larger = std::max(2 * blockSize_, size_ + added);
    auto block = std::make_unique_for_overwrite<char[]>(larger);
    std::copy_n(block_.get(), size_, block.get());
    block_ = std::move(block);
    blockSize_ = larger;
}

} // namespace XPJ
