#include "media/media_bytes.h"
#include "media/media_header.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <sstream>

namespace XPJ {
namespace {

constexpr Ticks kFilmFrame = 10594584000; // 23.976 frames a second

MediaFacts FactsOf(const std::string& bytes)
{
    std::istringstream file(bytes);
    return ReadMediaHeader(file);
}

std::string TextOf(const MediaFacts& facts)
{
    return fmt::format("{}x{} frame {} length {} start {} rate {} channels {}", facts.width,
                       facts.height, facts.frameTicks, facts.length, facts.start.value_or(-1),
                       facts.sampleRate, facts.channels);
}

void ExpectFacts(const std::string& bytes, const MediaFacts& facts, std::string_view what)
{
    EXPECT_EQ(TextOf(FactsOf(bytes)), TextOf(facts)) << what;
}

std::string Movie(const std::string& tracks)
{
    return Atom("ftyp", "isom") + Atom("moov", tracks);
}

TEST(MediaHeader, Movie)
{
    ExpectFacts(SmallMovie(1920, 1080, 250, 90000),
                {.width = 1920,
                 .height = 1080,
                 .frameTicks = kPalFrameTicks,
                 .length = 10 * kTicksPerSecond,
                 .start = 3600 * kTicksPerSecond,
                 .sampleRate = 48000,
                 .channels = 2},
                "all three tracks");
    // A day before midnight.
    EXPECT_EQ(FactsOf(SmallMovie(1920, 1080, 250, 0xFFFFFFFF)).start, -kPalFrameTicks);
}

TEST(MediaHeader, TracksOfMovies)
{
    const struct {
        std::string what;
        TrackBytes track;
        MediaFacts facts;
    } kCases[] = {
        {"times of eight bytes; 24000 units, of 1001 a frame",
         {.handler = "vide",
          .unitsPerSecond = 24000,
          .length = 24024,
          .format = VideoFormat(720, 576),
          .frame = 1001,
          .isLong = true},
         {.width = 720, .height = 576, .frameTicks = kFilmFrame, .length = 24 * kFilmFrame}},
        {"a rounded rate; the size of the track, as none is stored",
         {.handler = "vide",
          .unitsPerSecond = 2398,
          .length = 2398,
          .format = VideoFormat(0, 0),
          .header = Zeros(76) + Big(1280, 2) + Zeros(2) + Big(720, 2) + Zeros(2),
          .frame = 100},
         {.width = 1280, .height = 720, .frameTicks = kFilmFrame, .length = kTicksPerSecond}},
        {"no units, an unknown length",
         {.handler = "vide", .length = 0xFFFFFFFF, .format = VideoFormat(8, 8), .frame = 1},
         {.width = 8, .height = 8}},
        {"audio whose format has numbers of its own",
         {.handler = "soun",
          .unitsPerSecond = 96000,
          .length = 192000,
          .format = Big(2, 2) + Zeros(6) + Big(3, 2) + Big(16, 2) + Zeros(4) + Big(1, 2) +
                    Zeros(2) + Big(72, 4) + Big(0x40F7700000000000, 8) + Big(6, 4) + Zeros(20)},
         {.length = 2 * kTicksPerSecond, .sampleRate = 96000, .channels = 6}},
        {"a timecode that is beyond the end",
         {.handler = "tmcd",
          .unitsPerSecond = 25,
          .format = TimecodeFormatBytes(25, 1),
          .offset = 1000000},
         {}},
        {"a timecode that counts nothing",
         {.handler = "tmcd", .format = TimecodeFormatBytes(0, 0), .offset = 8},
         {}},
    };
    for (const auto& row : kCases)
        ExpectFacts(Movie(Track(row.track)), row.facts, row.what);
    const std::string mono = Track({.handler = "soun", .format = AudioFormat(1, 44100)});
    ExpectFacts(Movie(mono + mono + mono), {.sampleRate = 44100, .channels = 3}, "three tracks");
}

TEST(MediaHeader, Wave)
{
    const std::string format = Chunk("fmt ", WaveFormat(2, 48000, 24));
    const std::string data = Zeros(28800); // a tenth of a second
    const MediaFacts facts{.length = kTicksPerSecond / 10, .sampleRate = 48000, .channels = 2};
    MediaFacts broadcast = facts;
    broadcast.start = 3600 * kTicksPerSecond;
    const std::string bext =
        Chunk("bext", Zeros(338) + Little(std::uint64_t{3600} * 48000, 8) + Zeros(257));
    MediaFacts endless = facts;
    endless.length = 0;
    const struct {
        std::string_view what;
        std::string bytes;
        MediaFacts facts;
    } kCases[] = {
        {"plain", "RIFF" + Zeros(4) + "WAVE" + format + Chunk("data", data), facts},
        {"a time, after a chunk of odd size",
         "RIFF" + Zeros(4) + "WAVE" + Chunk("junk", "abc") + bext + format + Chunk("data", data),
         broadcast},
        {"sizes of eight bytes",
         "RF64\xFF\xFF\xFF\xFFWAVE" + Chunk("ds64", Zeros(8) + Little(data.size(), 8) + Zeros(12)) +
             format + "data\xFF\xFF\xFF\xFF" + data,
         facts},
        {"more data than there are",
         "RIFF" + Zeros(4) + "WAVE" + format + "data" + Little(1000000, 4) + data, endless},
        {"a format of nothing", "RIFF" + Zeros(4) + "WAVE" + Chunk("fmt ", Zeros(16)), {}},
    };
    for (const auto& row : kCases)
        ExpectFacts(row.bytes, row.facts, row.what);
}

TEST(MediaHeader, Aiff)
{
    // 44100 is 0xAC44, in 64 bits 0xAC44 << 48 with an exponent of 16383 + 15.
    const std::string common = Big(1, 2) + Big(88200, 4) + Big(16, 2) + Big(16383 + 15, 2) +
                               Big(std::uint64_t{0xAC44} << 48, 8);
    const MediaFacts facts{.length = 2 * kTicksPerSecond, .sampleRate = 44100, .channels = 1};
    const std::string head = "FORM" + Zeros(4);
    ExpectFacts(head + "AIFF" + Atom("NAME", "abcd").replace(0, 8, "NAME" + Big(4, 4)) + "COMM" +
                    Big(18, 4) + common,
                facts, "a name before");
    ExpectFacts(head + "AIFC" + "COMM" + Big(18, 4) + common, facts, "compressed");
    ExpectFacts(head + "AIFF" + "COMM" + Big(18, 4) + Zeros(18), {}, "no rate");
}

// Whatever is cut off or overwritten: no size is trusted, and reading ends.
TEST(MediaHeader, DamagedFilesAreReadToTheirEnd)
{
    const std::string whole[] = {
        SmallMovie(1920, 1080, 250, 90000),
        "RIFF" + Zeros(4) + "WAVE" + Chunk("bext", Zeros(602)) +
            Chunk("fmt ", WaveFormat(2, 48000, 16)) + Chunk("data", Zeros(64)),
        "FORM" + Zeros(4) + "AIFF" + "COMM" + Big(18, 4) + Zeros(18),
    };
    for (const std::string& bytes : whole)
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            FactsOf(bytes.substr(0, i));
            for (const char byte : {'\0', '\1', '\x7f', '\xff'}) {
                std::string damaged = bytes;
                damaged[i] = byte;
                FactsOf(damaged);
            }
        }
    EXPECT_EQ(FactsOf(""), MediaFacts());
    EXPECT_EQ(FactsOf("\x89PNG\r\n\x1a\n and more"), MediaFacts());
    std::string many = Atom("ftyp", "isom");
    for (int i = 0; i < 20000; ++i)
        many += Atom("free", "");
    EXPECT_EQ(
        FactsOf(many + Atom("moov", Track({.handler = "soun", .format = AudioFormat(1, 8000)}))),
        MediaFacts())
        << "beyond the reads that a header may take";
}

} // namespace
} // namespace XPJ
