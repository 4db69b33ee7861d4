#include "import/title_media.h"

#include "effects/legacy_title.h"
#include "xmeml/files.h"
#include "tree/blob.h"

namespace XPJ {

namespace {

constexpr std::string_view kTitleImporter = "ad0be7ce-e015-4877-9777-93c98f30dcac";
constexpr std::string_view kTitlePath = "1414091852"; // "TITL" read as a number

} // namespace

FileSources MakeTitleSources(const ImportState& state, const Title& title, Ticks frameTicks,
                             const FrameFormat& frame)
{
    Document& document = state.document;
    const ObjectHandle media = MakeMedia(
        document,
        {.importer = kTitleImporter, .path = kTitlePath, .title = title.name, .infinite = true});
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", LegacyTitleDocument(title));
    media.AddChild("VideoStream",
                   MakeVideoStream(document, {.kind = PictureKind::Generated,
                                              .frameTicks = frameTicks,
                                              .duration = kEndlessDuration,
                                              .frame = frame,
                                              .isStill = title.motion == TitleMotion::Still}));
    FileSources sources;
    sources.video.push_back(
        MakeMediaSource(document, MediaType::Video, media, frameTicks, kEndlessDuration));
    return sources;
}

} // namespace XPJ
