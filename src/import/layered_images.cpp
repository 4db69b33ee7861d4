#include "import/layered_images.h"

#include "core/messages.h"
#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/formats.h"
#include "xmeml/files.h"
#include "project/streams.h"
#include "platform/platform.h"
#include "tree/blob.h"

#include <algorithm>
#include <cstdint>

namespace XPJ {

namespace {

void AppendWord(std::uint32_t word, std::string& bytes)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(word >> shift & 0xFF);
}

// The still importer's settings: which layer of the file to show, all of them where there is one.
std::string LayerPrefs(int index, int count)
{
    const bool isOneOfMany = count >= 2;
    std::string bytes;
    for (const std::uint32_t word :
         {std::uint32_t{9}, std::uint32_t{0x09090909},
          isOneOfMany ? static_cast<std::uint32_t>(index) : std::uint32_t{0xFFFFFFFF},
          std::uint32_t{1}, std::uint32_t{isOneOfMany}, std::uint32_t{0}, std::uint32_t{3}})
        AppendWord(word, bytes);
    return bytes;
}

// Layers are numbered from the bottom, and stated from the top.
std::string LayerName(int index, int count, std::string_view title)
{
    const std::int64_t number = std::int64_t{count} - index - 1;
    return EscapeXML(GetMessage(Message::kLayer, {IntToString(number)})).append("/").append(title);
}

ObjectHandle MakeLayerSource(const ImportState& state, ObjectHandle file, int index, int count,
                             const FrameFormat& frame)
{
    Document& document = state.document;
    const std::string path = PathOfFile(state, file);
    const ObjectHandle media =
        MakeMedia(document, {.path = path, .title = file.GetProperty("name"), .infinite = true});
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", LayerPrefs(index, count));
    if (count >= 2)
        media.SetProperty("StreamNumber", IntToString(index));
    media.AddChild("VideoStream", MakeVideoStream(document, {.kind = PictureKind::Generated,
                                                             .frameTicks = kAnyFrameTicks,
                                                             .duration = kEndlessDuration,
                                                             .frame = frame,
                                                             .isStill = true}));
    return MakeMediaSource(document, MediaType::Video, media, kNtscFrameTicks, kEndlessDuration);
}

} // namespace

std::vector<ImageLayer> MakeImageLayers(const ImportState& state, ObjectHandle element,
                                        ObjectHandle file, ObjectHandle fallback)
{
    const ChildRange videos = file.GetChild("media").GetChildren("video");
    int count = 0;
    for ([[maybe_unused]] const ObjectHandle& video : videos)
        ++count;
    const FrameFormat frame = FrameOfFile(element, file, fallback);
    std::vector<ImageLayer> layers;
    for (const ObjectHandle& video : videos) {
        const int index = IntProperty(video, "layerindex");
        layers.push_back({index, LayerName(index, count, element.GetProperty("name")),
                          MakeLayerSource(state, file, index, count, frame)});
    }
    return layers;
}

} // namespace XPJ
