// The bytes of a media file of which its header is read. Nothing a file states is trusted: what
// lies beyond its end is absent, and however often a damaged header leads back or onwards, reading
// it ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

namespace XPJ {

class HeaderBytes {
public:
    explicit HeaderBytes(std::istream& file);

    std::uint64_t Size() const { return size_; }
    // Less than `count` at the file's end, and nothing when a header has taken too many reads.
    std::string Read(std::uint64_t offset, std::size_t count);

private:
    std::istream& file_;
    std::uint64_t size_ = 0;
    int readsLeft_ = 10000;
};

// The part of a file from `begin` up to `end`.
struct Extent {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;

    std::uint64_t Size() const { return end > begin ? end - begin : 0; }
};

// Numbers of up to eight bytes; bytes that are not there count as 0.
std::uint64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count);
std::uint64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count);

} // namespace XPJ
