// QuickTime and MP4: atoms in atoms, each with its size and type before its content.
//
//   moov                             the movie
//     trak                           a track of it, as often as there are
//       tkhd                         frame size
//       mdia
//         mdhd                       length, in units of its own
//         hdlr                       "vide", "soun" or "tmcd"
//         minf
//           stbl
//             stsd                   format of the samples
//             stts                   length of a frame
//             stco, co64             where the samples are; that of "tmcd" is the first frame
#include "core/ticks.h"
#include "media/header_readers.h"
#include "media/header_times.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

// Calls `take` with type and content of each atom; one that exceeds its surroundings ends the walk,
// and so does `take` with false.
template <class Take>
void ForEachAtom(HeaderBytes& bytes, Extent around, Take take)
{
    constexpr std::uint64_t kHeader = 8;
    constexpr std::uint64_t kLongHeader = 16;
    while (around.Size() >= kHeader) {
        const std::string header = bytes.Read(around.begin, kLongHeader);
        std::uint64_t headerSize = kHeader;
        std::uint64_t size = BigEndian(header, 0, 4);
        if (size == 1) {
            headerSize = kLongHeader;
            size = BigEndian(header, 8, 8);
        } else if (size == 0) {
            size = around.Size(); // to the end
        }
        if (header.size() < headerSize || size < headerSize || size > around.Size())
            return;
        const Extent content{around.begin + headerSize, around.begin + size};
        if (!take(std::string_view(header).substr(4, 4), content))
            return;
        around.begin += size;
    }
}

// The first atom of that type; empty without one.
Extent FindAtom(HeaderBytes& bytes, Extent around, std::string_view type)
{
    Extent found;
    ForEachAtom(bytes, around, [&](std::string_view each, Extent content) {
        if (each == type)
            found = content;
        return each != type;
    });
    return found;
}

std::string StartOf(HeaderBytes& bytes, Extent atom, std::size_t count)
{
    return bytes.Read(atom.begin,
                      static_cast<std::size_t>(std::min<std::uint64_t>(count, atom.Size())));
}

struct TrackTimes {
    std::uint64_t unitsPerSecond = 0;
    std::uint64_t length = 0; // 0: not stated
};

// The times of version 1 have eight bytes.
TrackTimes ReadTimes(std::string_view mdhd)
{
    const bool isLong = BigEndian(mdhd, 0, 1) == 1;
    TrackTimes times{.unitsPerSecond = BigEndian(mdhd, isLong ? 20 : 12, 4),
                     .length = BigEndian(mdhd, isLong ? 24 : 16, isLong ? 8 : 4)};
    const std::uint64_t unknown = isLong ? std::numeric_limits<std::uint64_t>::max()
                                         : std::numeric_limits<std::uint32_t>::max();
    if (times.length == unknown)
        times.length = 0;
    return times;
}

class QuickTimeHeader {
public:
    explicit QuickTimeHeader(HeaderBytes& bytes) : bytes_(bytes) {}

    MediaFacts Read()
    {
        const Extent movie = FindAtom(bytes_, {0, bytes_.Size()}, "moov");
        ForEachAtom(bytes_, movie, [this](std::string_view type, Extent content) {
            if (type == "trak")
                ReadTrack(content);
            return true;
        });
        if (facts_.length == 0)
            facts_.length = audioLength_;
        return facts_;
    }

private:
    void ReadTrack(Extent track)
    {
        const Extent media = FindAtom(bytes_, track, "mdia");
        const std::string handler = StartOf(bytes_, FindAtom(bytes_, media, "hdlr"), 12);
        const TrackTimes times = ReadTimes(StartOf(bytes_, FindAtom(bytes_, media, "mdhd"), 32));
        const Extent samples = FindAtom(bytes_, FindAtom(bytes_, media, "minf"), "stbl");
        const std::string_view kind = std::string_view(handler).substr(handler.size() < 12 ? 0 : 8);
        if (kind == "vide" && facts_.width == 0)
            ReadVideo(track, samples, times);
        else if (kind == "soun")
            ReadAudio(samples, times);
        else if (kind == "tmcd" && !facts_.start)
            ReadTimecode(samples);
    }

    // The entry of the first format, with its own header.
    std::string ReadFormat(Extent samples)
    {
        const std::string formats = StartOf(bytes_, FindAtom(bytes_, samples, "stsd"), 72);
        return formats.size() > 8 ? formats.substr(8) : std::string();
    }

    // The format states the pixels that are stored, which documents state too; the track those that
    // are shown.
    void ReadVideo(Extent track, Extent samples, const TrackTimes& times)
    {
        const std::string format = ReadFormat(samples);
        facts_.width = static_cast<int>(BigEndian(format, 32, 2));
        facts_.height = static_cast<int>(BigEndian(format, 34, 2));
        if (facts_.width == 0 || facts_.height == 0) {
            const std::string header = StartOf(bytes_, FindAtom(bytes_, track, "tkhd"), 96);
            const std::size_t size = BigEndian(header, 0, 1) == 1 ? 88 : 76;
            facts_.width = static_cast<int>(BigEndian(header, size, 2));
            facts_.height = static_cast<int>(BigEndian(header, size + 4, 2));
        }
        const std::string lengths = StartOf(bytes_, FindAtom(bytes_, samples, "stts"), 16);
        facts_.frameTicks = FrameOfUnits(BigEndian(lengths, 12, 4), times.unitsPerSecond);
        facts_.length = TimeOfUnits(static_cast<double>(times.length),
                                    static_cast<double>(times.unitsPerSecond));
    }

    // Channels may be divided over many tracks.
    void ReadAudio(Extent samples, const TrackTimes& times)
    {
        constexpr int kMaxChannels = 1024;
        constexpr double kMaxRate = 10e6;
        const std::string format = ReadFormat(samples);
        std::uint64_t channels = BigEndian(format, 24, 2);
        double rate = static_cast<double>(BigEndian(format, 32, 2));
        if (BigEndian(format, 16, 2) == 2) {
            rate = std::bit_cast<double>(BigEndian(format, 40, 8));
            channels = BigEndian(format, 48, 4);
        }
        if (channels <= kMaxChannels && facts_.channels <= kMaxChannels)
            facts_.channels += static_cast<int>(channels);
        if (facts_.sampleRate == 0 && rate >= 1.0 && rate <= kMaxRate)
            facts_.sampleRate = static_cast<int>(rate);
        if (audioLength_ == 0)
            audioLength_ = TimeOfUnits(static_cast<double>(times.length),
                                       static_cast<double>(times.unitsPerSecond));
    }

    // Its one sample is the number of the first frame.
    void ReadTimecode(Extent samples)
    {
        const std::string format = ReadFormat(samples);
        const Ticks frame = FrameOfUnits(BigEndian(format, 28, 4), BigEndian(format, 24, 4));
        if (format.substr(std::min<std::size_t>(format.size(), 4), 4) != "tmcd" || frame == 0)
            return;
        const std::string offsets = StartOf(bytes_, FindAtom(bytes_, samples, "stco"), 12);
        const std::string longOffsets = StartOf(bytes_, FindAtom(bytes_, samples, "co64"), 16);
        const std::uint64_t offset =
            offsets.size() == 12 ? BigEndian(offsets, 8, 4) : BigEndian(longOffsets, 8, 8);
        const std::string number = offset > 0 ? bytes_.Read(offset, 4) : std::string();
        if (number.size() == 4)
            facts_.start = MultiplyTicks(
                static_cast<std::int32_t>(static_cast<std::uint32_t>(BigEndian(number, 0, 4))),
                frame);
    }

    HeaderBytes& bytes_;
    MediaFacts facts_;
    Ticks audioLength_ = 0;
};

} // namespace

MediaFacts ReadQuickTimeHeader(HeaderBytes& bytes)
{
    return QuickTimeHeader(bytes).Read();
}

} // namespace XPJ
