#include "grading/digest.h"

#include <boost/uuid/detail/md5.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <climits>

namespace XPJ {

// The library reads whole machine words in place, so it gets aligned blocks and nothing else until
// the end.
class DigestStream::State {
public:
    boost::uuids::detail::md5 md5;
    alignas(std::uint64_t) std::array<char, 4096> block{};
    std::size_t used = 0;

    void Flush()
    {
        md5.process_bytes(block.data(), used);
        used = 0;
    }
};

DigestStream::DigestStream() : state_(std::make_unique<State>()) {}
DigestStream::~DigestStream() = default;

void DigestStream::Add(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::size_t size = std::min(bytes.size(), state_->block.size() - state_->used);
        bytes.copy(state_->block.data() + state_->used, size);
        bytes.remove_prefix(size);
        state_->used += size;
        if (state_->used == state_->block.size())
            state_->Flush();
    }
}

Digest DigestStream::Finish()
{
    state_->Flush();
    boost::uuids::detail::md5::digest_type words;
    state_->md5.get_digest(words);
    // Older releases of the library give four integers, the first byte highest; newer ones bytes.
    constexpr std::size_t kWordSize = sizeof(words[0]);
    Digest digest{};
    for (std::size_t i = 0; i < digest.size(); ++i) {
        const std::size_t shift = CHAR_BIT * (kWordSize - 1 - i % kWordSize);
        digest[i] = static_cast<std::uint8_t>(words[i / kWordSize] >> shift);
    }
    return digest;
}

Digest DigestOf(std::string_view bytes)
{
    DigestStream stream;
    stream.Add(bytes);
    return stream.Finish();
}

std::string DigestText(const Digest& digest)
{
    std::string text;
    for (const std::uint8_t byte : digest)
        text += fmt::format("{:02x}", byte);
    return text;
}

} // namespace XPJ
