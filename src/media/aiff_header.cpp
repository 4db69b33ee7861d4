// AIFF and AIFF-C: chunks with their size after their name; COMM states all that is of interest.
//
//   FORM size AIFF
//     COMM size           channels (2 bytes), samples a channel (4), bits (2), rate (10)
#include "media/header_readers.h"
#include "media/header_times.h"

#include <cmath>
#include <string>

namespace XPJ {

namespace {

// A number with 15 bits of exponent and 64 of mantissa.
double ExtendedNumber(std::string_view bytes, std::size_t at)
{
    constexpr int kBias = 16383 + 63;
    const int exponent = static_cast<int>(BigEndian(bytes, at, 2));
    return std::ldexp(static_cast<double>(BigEndian(bytes, at + 2, 8)), exponent - kBias);
}

} // namespace

MediaFacts ReadAiffHeader(HeaderBytes& bytes)
{
    constexpr std::uint64_t kHeader = 8;
    constexpr std::uint64_t kFirst = 12;
    constexpr std::size_t kCommonSize = 18;
    constexpr double kMaxRate = 10e6;
    for (std::uint64_t at = kFirst; at < bytes.Size();) {
        const std::string chunk = bytes.Read(at, kHeader + kCommonSize);
        if (chunk.starts_with("COMM") && chunk.size() == kHeader + kCommonSize) {
            const double rate = ExtendedNumber(chunk, 16);
            if (!(rate >= 1.0 && rate <= kMaxRate))
                return {};
            return {.length = TimeOfUnits(static_cast<double>(BigEndian(chunk, 10, 4)), rate),
                    .sampleRate = static_cast<int>(rate),
                    .channels = static_cast<int>(BigEndian(chunk, 8, 2))};
        }
        const std::uint64_t size = BigEndian(chunk, 4, 4);
        at += kHeader + size + size % 2;
        if (chunk.size() < kHeader)
            break;
    }
    return {};
}

} // namespace XPJ
