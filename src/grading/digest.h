// MD5 digests: they name tables and make GUIDs for gradings without one. No safety rests on them.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace XPJ {

using Digest = std::array<std::uint8_t, 16>;

// The digest of bytes that come in pieces.
class DigestStream {
public:
    DigestStream();
    ~DigestStream();
    DigestStream(const DigestStream&) = delete;
    DigestStream& operator=(const DigestStream&) = delete;

    void Add(std::string_view bytes);
    // Once, behind the last piece.
    Digest Finish();

private:
    class State;
    std::unique_ptr<State> state_;
};

// The digest of `bytes`.   DigestText(DigestOf("abc")) == "900150983cd24fb0d6963f7d28e17f72"
Digest DigestOf(std::string_view bytes);
// 32 hexadecimal digits in lower case.
std::string DigestText(const Digest& digest);

} // namespace XPJ
