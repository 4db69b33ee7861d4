// Media files of a few hundred bytes: a header without media.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ {

inline std::string Big(std::uint64_t number, int size)
{
    std::string bytes;
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

inline std::string Little(std::uint64_t number, int size)
{
    const std::string bytes = Big(number, size);
    return {bytes.rbegin(), bytes.rend()};
}

inline std::string Zeros(std::size_t count)
{
    return std::string(count, '\0');
}

inline std::string Atom(std::string_view type, const std::string& content)
{
    return Big(content.size() + 8, 4).append(type).append(content);
}

// A track of samples whose format has `format` behind its reserved bytes.
struct TrackBytes {
    std::string_view handler; // "vide"
    std::uint64_t unitsPerSecond = 0;
    std::uint64_t length = 0;
    std::string format = {};
    std::string header = {};  // tkhd
    std::uint64_t frame = 0;  // of stts, in units
    std::uint64_t offset = 0; // of stco
    bool isLong = false;      // times of eight bytes
};

inline std::string Track(const TrackBytes& track)
{
    const std::string times =
        track.isLong
            ? Big(1, 1) + Zeros(19) + Big(track.unitsPerSecond, 4) + Big(track.length, 8) + Zeros(4)
            : Zeros(12) + Big(track.unitsPerSecond, 4) + Big(track.length, 4) + Zeros(4);
    const std::string type = track.handler == "vide" ? "apcn" : std::string(track.handler);
    const std::string entry = Atom(type, Zeros(6) + Big(1, 2) + track.format);
    const std::string samples =
        Atom("stsd", Zeros(4) + Big(1, 4) + entry) +
        Atom("stts", Zeros(4) + Big(1, 4) + Big(1, 4) + Big(track.frame, 4)) +
        Atom("stco", Zeros(4) + Big(1, 4) + Big(track.offset, 4));
    return Atom("trak", Atom("tkhd", track.header) +
                            Atom("mdia", Atom("mdhd", times) +
                                             Atom("hdlr", Zeros(8) + std::string(track.handler) +
                                                              Zeros(12)) +
                                             Atom("minf", Atom("stbl", samples))));
}

inline std::string VideoFormat(int width, int height)
{
    return Zeros(16) + Big(static_cast<std::uint64_t>(width), 2) +
           Big(static_cast<std::uint64_t>(height), 2) + Zeros(12);
}

inline std::string AudioFormat(int channels, int rate)
{
    return Zeros(8) + Big(static_cast<std::uint64_t>(channels), 2) + Big(16, 2) + Zeros(4) +
           Big(static_cast<std::uint64_t>(rate), 2) + Zeros(2);
}

inline std::string TimecodeFormatBytes(int unitsPerSecond, int frame)
{
    return Zeros(8) + Big(static_cast<std::uint64_t>(unitsPerSecond), 4) +
           Big(static_cast<std::uint64_t>(frame), 4) + Big(25, 1) + Zeros(1);
}

// 25 frames a second and 48 kHz stereo: `frames` of them, from the one with the number `start`.
inline std::string SmallMovie(int width, int height, int frames, std::uint32_t start)
{
    constexpr std::uint64_t kFirstFrame = 16 + 8;
    const auto length = static_cast<std::uint64_t>(frames);
    return Atom("ftyp", "qt  " + Zeros(4)) + Atom("mdat", Big(start, 4) + Zeros(12)) +
           Atom("moov", Atom("mvhd", Zeros(100)) +
                            Track({.handler = "vide",
                                   .unitsPerSecond = 25,
                                   .length = length,
                                   .format = VideoFormat(width, height),
                                   .frame = 1}) +
                            Track({.handler = "soun",
                                   .unitsPerSecond = 48000,
                                   .length = length * 1920,
                                   .format = AudioFormat(2, 48000)}) +
                            Track({.handler = "tmcd",
                                   .unitsPerSecond = 25,
                                   .length = length,
                                   .format = TimecodeFormatBytes(25, 1),
                                   .offset = kFirstFrame}));
}

inline std::string Chunk(std::string_view name, const std::string& content)
{
    return std::string(name) + Little(content.size(), 4) + content + Zeros(content.size() % 2);
}

inline std::string WaveFormat(int channels, int rate, int bits)
{
    const auto block = static_cast<std::uint64_t>(channels * bits / 8);
    return Little(1, 2) + Little(static_cast<std::uint64_t>(channels), 2) +
           Little(static_cast<std::uint64_t>(rate), 4) +
           Little(block * static_cast<std::uint64_t>(rate), 4) + Little(block, 2) +
           Little(static_cast<std::uint64_t>(bits), 2);
}

} // namespace XPJ
