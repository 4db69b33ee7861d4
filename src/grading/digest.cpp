#include "grading/digest.h"

#include <boost/uuid/detail/md5.hpp>
#include <fmt/format.h>

#include <climits>

namespace XPJ {

class DigestStream::State {
public:
    boost::uuids::detail::md5 md5;
};

DigestStream::DigestStream() : state_(std::make_unique<State>()) {}
DigestStream::~DigestStream() = default;

void DigestStream::Add(std::string_view bytes)
{
    state_->md5.process_bytes(bytes.data(), bytes.size());
}

Digest DigestStream::Finish()
{
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
