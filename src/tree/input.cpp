#include "tree/input.h"

#include "platform/pages_ahead.h"

#include <algorithm>
#include <istream>

namespace XPJ {

namespace {

constexpr std::size_t kFileBlock = std::size_t{1024} * 1024;
constexpr std::size_t kStreamBlock = std::size_t{64} * 1024;

// A file of known size is read into its final memory at once.
bool ReadSized(CoreFile& file, char* buffer, std::size_t& size, const BlockStep& step)
{
    std::size_t offset = 0;
    while (offset < size) {
        const std::size_t wanted = std::min(kFileBlock, size - offset);
        std::size_t count = 0;
        if (!file.Read(buffer + offset, wanted, count) || (step && !step(count)))
            return false;
        offset += count;
        if (count < wanted) // it has become shorter
            size = offset;
    }
    return true;
}

// Pipes and devices don't report their size.
bool ReadBlocks(CoreFile& file, std::string& bytes, const BlockStep& step)
{
    for (std::size_t count = kStreamBlock; count == kStreamBlock;) {
        const std::size_t start = bytes.size();
        bytes.resize(start + kStreamBlock);
        if (!file.Read(bytes.data() + start, kStreamBlock, count) || (step && !step(count)))
            return false;
        bytes.resize(start + count);
    }
    return true;
}

} // namespace

bool InputText::Read(CoreFile& file, const BlockStep& step)
{
    std::size_t size = file.Size();
    if (size == 0) {
        if (!ReadBlocks(file, collected_, step))
            return false;
        bytes_ = collected_;
        return true;
    }
    buffer_ = MakeBlock(size);
    PagesAhead ahead;
    if (size >= kLargeBlock) {
        // This thread comes to the second half when it has used the first.
        const std::size_t half = size / 2 / kLargePage * kLargePage;
        ahead.Prepare(buffer_.get() + half, size - half);
    }
    if (!ReadSized(file, buffer_.get(), size, step))
        return false;
    bytes_ = {buffer_.get(), size};
    return true;
}

void InputText::Read(std::istream& input)
{
    while (input) {
        const std::size_t start = collected_.size();
        collected_.resize(start + kStreamBlock);
        input.read(collected_.data() + start, static_cast<std::streamsize>(kStreamBlock));
        collected_.resize(start + static_cast<std::size_t>(input.gcount()));
    }
    bytes_ = collected_;
}

std::string_view InputText::Decode(EncodingFaults& faults)
{
    return DecodeDocument(bytes_, decoded_, faults);
}

} // namespace XPJ
