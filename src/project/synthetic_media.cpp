#include "project/synthetic_media.h"

#include "core/channel_types.h"
#include "tree/blob.h"

#include <cstdint>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kSyntheticImporter = "42008e7a-de6f-4270-96de-7e287abb9b4b";

struct SyntheticRow {
    std::string_view title;
    MediaKind kind;
    bool fitsAnyFrame;
};

constexpr SyntheticRow kSyntheticRows[] = {
    {"Bars and Tone", MediaKind::BarsAndTone, false},
    {"Black Video", MediaKind::BlackVideo, true},
    {"Color Matte", MediaKind::ColorMatte, false},
    {"Graphic", MediaKind::Graphic, false},
    {"Transparent Video", MediaKind::TransparentVideo, true},
};

const SyntheticRow& RowOf(MediaKind kind)
{
    for (const SyntheticRow& row : kSyntheticRows)
        if (row.kind == kind)
            return row;
    return kSyntheticRows[0];
}

} // namespace

MediaSources MakeSyntheticSources(Document& document, MediaKind kind, Ticks frameTicks,
                                  const FrameFormat& frame)
{
    const SyntheticRow& row = RowOf(kind);
    const ObjectHandle media = MakeMedia(document, {.importer = kSyntheticImporter,
                                                    .path = GeneratedPath(kind),
                                                    .title = row.title,
                                                    .infinite = true});
    VideoStreamFields video{.kind = VideoKind::Generated,
                            .frameTicks = frameTicks,
                            .duration = kEndlessDuration,
                            .frame = frame,
                            .isStill = true};
    if (row.fitsAnyFrame) {
        video.frameTicks = kAnyFrameTicks;
        video.frame = {};
        video.frame.rect = kDefaultFrameRect;
        video.frame.par = kDefaultPixelAspect;
    }
    media.AddChild("VideoStream", MakeVideoStream(document, video));
    MediaSources sources;
    sources.video.push_back(
        MakeMediaSource(document, media, {.rate = video.frameTicks, .duration = kEndlessDuration}));
    if (kind == MediaKind::BarsAndTone) {
        media.AddChild("AudioStream",
                       MakeAudioStream(document, kSampleTicks48k, kEndlessDuration, kStereo, 2));
        sources.audio.push_back(MakeMediaSource(
            document, media,
            {.type = MediaType::Audio, .rate = kSampleTicks48k, .duration = kEndlessDuration}));
    }
    return sources;
}

void SetMatteColor(const MatteColor& color, ObjectHandle media)
{
    std::uint32_t packed = 0;
    for (const int channel : {color.alpha, color.blue, color.green, color.red})
        packed = packed << 8 | static_cast<std::uint32_t>(channel);
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(packed >> shift & 0xFF);
    bytes.append("\1\0\0\0", 4);
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", bytes);
}

} // namespace XPJ
