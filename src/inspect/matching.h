// Pairs of what two lists have in common, by one key after the other.
#pragma once

#include "inspect/timeline.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace XPJ::Inspection {

// By index; kNothing means no partner.
class Matching {
public:
    Matching(std::size_t sizeA, std::size_t sizeB) : toB_(sizeA, kNothing), toA_(sizeB, kNothing) {}

    // Pairs what has no partner yet and the same key, equal keys in their order.
    template <class KeyA, class KeyB>
    void By(KeyA keyA, KeyB keyB)
    {
        const auto left = Sorted(toB_, keyA);
        const auto right = Sorted(toA_, keyB);
        auto a = left.begin();
        auto b = right.begin();
        while (a != left.end() && b != right.end()) {
            const auto ka = keyA(*a);
            const auto kb = keyB(*b);
            if (ka < kb) {
                ++a;
            } else if (kb < ka) {
                ++b;
            } else {
                toB_[*a] = *b;
                toA_[*b] = *a;
                ++a;
                ++b;
            }
        }
    }

    std::size_t PartnerInB(std::size_t a) const { return toB_[a]; }
    std::size_t PartnerInA(std::size_t b) const { return toA_[b]; }

private:
    template <class Key>
    static std::vector<std::size_t> Sorted(const std::vector<std::size_t>& partners, Key key)
    {
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < partners.size(); ++i)
            if (partners[i] == kNothing)
                indices.push_back(i);
        std::ranges::stable_sort(indices, {}, key);
        return indices;
    }

    std::vector<std::size_t> toB_;
    std::vector<std::size_t> toA_;
};

// Pairs of two lists of one kind, each entry by a key that it gives.
template <class T, class Key>
void MatchBy(Matching& matching, const std::vector<T>& a, const std::vector<T>& b, Key key)
{
    matching.By([&](std::size_t i) { return key(a[i]); }, [&](std::size_t i) { return key(b[i]); });
}

} // namespace XPJ::Inspection
