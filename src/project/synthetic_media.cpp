#include "project/synthetic_media.h"

#include "project/channel_types.h"
#include "tree/blob.h"

#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kSyntheticImporter = "42008e7a-de6f-4270-96de-7e287abb9b4b";

struct SyntheticRow {
    std::string_view path; // four characters as a number
    std::string_view title;
    SyntheticKind kind;
    bool fitsAnyFrame;
};

constexpr SyntheticRow kSyntheticRows[] = {
    {"1111577171", "Bars and Tone", SyntheticKind::BarsAndTone, false},         // "BARS"
    {"1112293707", "Black Video", SyntheticKind::BlackVideo, true},             // "BLAK"
    {"1129270354", "Color Matte", SyntheticKind::ColorMatte, false},            // "COLR"
    {"1196574294", "Graphic", SyntheticKind::Graphic, false},                   // "GRFV"
    {"1414680150", "Transparent Video", SyntheticKind::TransparentVideo, true}, // "TRNV"
};

const SyntheticRow& RowOf(SyntheticKind kind)
{
    for (const SyntheticRow& row : kSyntheticRows)
        if (row.kind == kind)
            return row;
    return kSyntheticRows[0];
}

} // namespace

MediaSources MakeSyntheticSources(Document& document, SyntheticKind kind, Ticks frameTicks,
                                  const FrameFormat& frame)
{
    const SyntheticRow& row = RowOf(kind);
    const ObjectHandle media = MakeMedia(
        document,
        {.importer = kSyntheticImporter, .path = row.path, .title = row.title, .infinite = true});
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
    if (kind == SyntheticKind::BarsAndTone) {
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
    std::string bytes;
    for (const std::uint8_t channel : {color.red, color.green, color.blue, color.alpha})
        bytes += static_cast<char>(channel);
    bytes.append("\1\0\0\0", 4);
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", bytes);
}

} // namespace XPJ
