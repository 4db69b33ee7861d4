#include "import/layered_images.h"

#include "core/messages.h"
#include "core/numbers.h"
#include "core/text.h"
#include "import/masters.h"
#include "import/project_items.h"
#include "platform/platform.h"
#include "project/media.h"
#include "tree/blob.h"
#include "xmeml/formats.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

void AppendField(std::uint32_t field, std::string& bytes)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(field >> shift & 0xFF);
}

// The still importer's settings: which layer of the file to show, all of them where there is one.
std::string LayerPrefs(int index, int count)
{
    const bool isOneOfMany = count >= 2;
    std::string bytes;
    for (const std::uint32_t field :
         {std::uint32_t{9}, std::uint32_t{0x09090909},
          isOneOfMany ? static_cast<std::uint32_t>(index) : std::uint32_t{0xFFFFFFFF},
          std::uint32_t{1}, std::uint32_t{isOneOfMany}, std::uint32_t{0}, std::uint32_t{3}})
        AppendField(field, bytes);
    return bytes;
}

// Layers are numbered from the bottom, and stated from the top.
std::string LayerName(int index, int count, std::string_view title)
{
    const std::int64_t number = std::int64_t{count} - index - 1;
    return EscapeXML(GetMessage(Message::kLayer, {IntToString(number)})).append("/").append(title);
}

struct Layer {
    int index = 0; // as the file states it, from the top
    std::string name;
    ObjectHandle source; // VideoMediaSource
};

ObjectHandle MakeLayerSource(const ImportState& state, FileElement file, const FrameFormat& frame,
                             std::string_view prefs)
{
    Document& document = state.document;
    const std::string path = PathOfFile(file, state.folder);
    const ObjectHandle media =
        MakeMedia(document, {.path = path, .title = file.GetProperty("name"), .infinite = true});
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", prefs);
    media.AddChild("VideoStream", MakeVideoStream(document, {.kind = VideoKind::Generated,
                                                             .frameTicks = kAnyFrameTicks,
                                                             .duration = kEndlessDuration,
                                                             .frame = frame,
                                                             .isStill = true}));
    return MakeMediaSource(document, media,
                           {.rate = kNtscFrameTicks, .duration = kEndlessDuration});
}

std::vector<Layer> MakeLayers(const ImportState& state, const FileUse& use)
{
    const ConstChildRange videos = use.file.GetChild("media").GetChildren("video");
    int count = 0;
    for ([[maybe_unused]] const ConstHandle& video : videos)
        ++count;
    const FrameFormat frame = FrameOfFile(use.element, use.file, use.characteristics);
    std::vector<Layer> layers;
    for (const ConstHandle& video : videos) {
        const int index = IntProperty(video, "layerindex");
        const ObjectHandle source =
            MakeLayerSource(state, use.file, frame, LayerPrefs(index, count));
        if (count >= 2)
            source.GetChild("Media").SetProperty("StreamNumber", IntToString(index));
        layers.push_back({index, LayerName(index, count, use.element.GetProperty("name")), source});
    }
    return layers;
}

// To the letter all items have the name of the clip, and only their masters that of a layer.
void NameItem(const ImportState& state, const Layer& layer, ObjectHandle item)
{
    if (IsOpen(state))
        item.SetProperty("Name", layer.name);
}

} // namespace

void TranslateLayers(ImportState& state, const ClipItem& element, const FileUse& use,
                     ObjectHandle parentItem)
{
    AddRemark(state.account, RemarkKind::LayersAsClips, LocationOfClip(state, element));
    for (const Layer& layer : MakeLayers(state, use)) {
        const MediaSources sources{.video = {layer.source}, .audio = {}};
        const MasterClipHandle master =
            BuildMasterClip(state, element, {.sources = sources, .name = layer.name});
        if (RegisterMaster(state.masters.registry,
                           {.masterClipId = element.GetProperty("masterclipid"),
                            .mediaId = state.files.IdOf(use.file),
                            .layer = layer.index},
                           master))
            NameItem(state, layer, MakeClipProjectItem(state, element, master, parentItem));
    }
}

} // namespace XPJ
