#include "core/text_hash.h"

#include <array>
#include <cstdint>
#include <random>

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace XPJ {

namespace {

using Key = std::array<std::uint32_t, XXH3_SECRET_SIZE_MIN / sizeof(std::uint32_t)>;

Key NewKey()
{
    std::random_device random;
    Key key;
    for (std::uint32_t& part : key)
        part = random();
    return key;
}

} // namespace

std::size_t TextHash::operator()(std::string_view text) const noexcept
{
    static const Key kKey = NewKey();
    return XXH3_64bits_withSecret(text.data(), text.size(), kKey.data(), sizeof(kKey));
}

} // namespace XPJ
