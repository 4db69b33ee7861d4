#include "tree/input.h"

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

bool ReadInput(CoreFile& file, Document& document, std::string_view& bytes, const BlockStep& step)
{
    std::size_t size = file.Size();
    if (size == 0) {
        std::string all;
        if (!ReadBlocks(file, all, step))
            return false;
        bytes = document.Adopt(std::move(all));
        return true;
    }
    char* const buffer = static_cast<char*>(document.Allocate(size, 1));
    if (!ReadSized(file, buffer, size, step))
        return false;
    bytes = {buffer, size};
    return true;
}

std::string_view ReadInput(std::istream& input, Document& document)
{
    std::string bytes;
    while (input) {
        const std::size_t start = bytes.size();
        bytes.resize(start + kStreamBlock);
        input.read(bytes.data() + start, static_cast<std::streamsize>(kStreamBlock));
        bytes.resize(start + static_cast<std::size_t>(input.gcount()));
    }
    return document.Adopt(std::move(bytes));
}

std::string_view DecodeInput(std::string_view bytes, Document& document, EncodingFaults& faults)
{
    std::string decoded;
    const std::string_view text = DecodeDocument(bytes, decoded, faults);
    return text.data() == bytes.data() ? text : document.Adopt(std::move(decoded));
}

} // namespace XPJ
