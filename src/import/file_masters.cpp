#include "import/file_masters.h"

#include "import/effect_contexts.h"
#include "import/master_builder.h"
#include "xmeml/file_audio.h"

namespace XPJ {

FileMaster BuildFileMaster(Import& import, const ClipItem& element, const FileUse& use,
                           bool exploded)
{
    FileMaster result;
    result.sources = MakeFileSources(import, import.files, use);
    if (result.sources.IsEmpty())
        return result;
    const AudioKind audio = SplitStereo(import.options, AudioKindOfFile(use.file), exploded);
    const MasterClip built =
        BuildMasterClip(import, import.files, element, {.sources = result.sources, .audio = audio});
    MasterRegistry& registry = import.masters.registry;
    const std::string_view masterClipId = element.GetProperty("masterclipid");
    const std::string_view fileId = import.files.IdOf(use.file);
    const bool hasVideo = !result.sources.video.empty();
    RegisterMaster(registry,
                   {.masterClipId = masterClipId,
                    .mediaId = fileId,
                    .hasVideo = hasVideo,
                    .hasAudio = !result.sources.audio.empty()},
                   built);
    result.master =
        registry.Find({masterClipId, fileId, 0, hasVideo ? MediaType::Video : MediaType::Audio});
    result.isNew = result.master == built;
    if (result.isNew)
        AddMasterEffects(import, element, use.file, built);
    return result;
}

} // namespace XPJ
