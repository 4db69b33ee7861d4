// WAV and BWF, also with sizes of eight bytes: chunks with their size after their name.
//
//   RIFF size WAVE        RF64 and BW64 likewise
//     ds64                sizes that four bytes don't hold
//     bext                time of the first sample, in samples since midnight
//     fmt                 channels, samples a second
//     data                the samples
#include "media/header_readers.h"
#include "media/header_times.h"

#include <limits>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

constexpr std::uint64_t kElsewhere = std::numeric_limits<std::uint32_t>::max();

struct WaveChunks {
    std::string longSizes;
    std::string broadcast;
    std::string format;
    std::uint64_t dataSize = 0;
    bool isDataWhole = false;
};

WaveChunks FindChunks(HeaderBytes& bytes)
{
    constexpr std::uint64_t kHeader = 8;
    constexpr std::uint64_t kFirst = 12;
    WaveChunks chunks;
    for (std::uint64_t at = kFirst; at < bytes.Size();) {
        const std::string header = bytes.Read(at, kHeader);
        if (header.size() < kHeader)
            break;
        const std::string_view name = std::string_view(header).substr(0, 4);
        std::uint64_t size = LittleEndian(header, 4, 4);
        const std::uint64_t content = at + kHeader;
        if (name == "ds64") {
            chunks.longSizes = bytes.Read(content, 16);
        } else if (name == "bext") {
            chunks.broadcast = bytes.Read(content, 346);
        } else if (name == "fmt ") {
            chunks.format = bytes.Read(content, 16);
        } else if (name == "data") {
            if (size == kElsewhere)
                size = LittleEndian(chunks.longSizes, 8, 8);
            chunks.dataSize = size;
            chunks.isDataWhole = size <= bytes.Size() - content;
        }
        if (size > bytes.Size() - content)
            break;
        at = content + size + size % 2; // an odd chunk is followed by a byte of nothing
    }
    return chunks;
}

} // namespace

MediaFacts ReadWaveHeader(HeaderBytes& bytes)
{
    constexpr std::uint64_t kMaxRate = 10000000;
    const WaveChunks chunks = FindChunks(bytes);
    const std::uint64_t rate = LittleEndian(chunks.format, 4, 4);
    const std::uint64_t blockSize = LittleEndian(chunks.format, 12, 2);
    if (rate == 0 || rate > kMaxRate)
        return {};
    MediaFacts facts{.sampleRate = static_cast<int>(rate),
                     .channels = static_cast<int>(LittleEndian(chunks.format, 2, 2))};
    if (chunks.isDataWhole && blockSize > 0) {
        const std::uint64_t samples = chunks.dataSize / blockSize;
        facts.length = TimeOfUnits(static_cast<double>(samples), static_cast<double>(rate));
    }
    constexpr std::size_t kTimeReference = 338;
    if (chunks.broadcast.size() >= kTimeReference + 8)
        facts.start =
            TimeOfUnits(static_cast<double>(LittleEndian(chunks.broadcast, kTimeReference, 8)),
                        static_cast<double>(rate));
    return facts;
}

} // namespace XPJ
