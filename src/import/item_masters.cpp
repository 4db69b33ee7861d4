#include "import/item_masters.h"

#include "import/effects.h"
#include "import/master_builder.h"
#include "xmeml/file_audio.h"

#include <algorithm>

namespace XPJ {

namespace {

BuiltMaster FindFile(const Import& import, const MediaQuery& query, ConstHandle item)
{
    if (const FileElement file = FileOfItem(import.files, item))
        return FindMedia(import.masters.registry, query, import.files.IdOf(file));
    return {};
}

BuiltMaster FindReferenced(const Import& import, const MediaQuery& query, ConstHandle item)
{
    const ConstHandle nested = item.GetChild("sequence");
    if (const BuiltMaster master = import.sequences.MasterOf(import.sequences.IdOf(nested)))
        return master;
    const std::string_view fileId = item.GetProperty("fileid");
    if (const BuiltMaster master = FindMedia(import.masters.registry, query, fileId))
        return master;
    return import.sequences.MasterOf(item.GetProperty("sequenceid"));
}

BuiltMaster FindInMedia(const Import& import, const MediaQuery& query, ConstHandle item)
{
    for (const FileElement& file : FilesOfMedia(import.files, item.GetChild("media")))
        if (const BuiltMaster master =
                FindMedia(import.masters.registry, query, import.files.IdOf(file)))
            return master;
    return {};
}

BuiltMaster FindSelf(const Import& import, const MediaQuery& query, ConstHandle item)
{
    const std::string_view id = item.GetProperty("id");
    if (const BuiltMaster master =
            import.masters.registry.Find({query.masterClipId, id, 0, query.type}))
        return master;
    return import.sequences.MasterOf(id);
}

using Search = BuiltMaster (*)(const Import&, const MediaQuery&, ConstHandle);
constexpr Search kSearches[] = {FindFile, FindReferenced, FindInMedia, FindSelf};

} // namespace

BuiltMaster FindMedia(const MasterRegistry& registry, const MediaQuery& query,
                      std::string_view mediaId)
{
    for (const int index : {query.sourceTrack, query.trackIndex, 0})
        if (index >= 0)
            if (const BuiltMaster master =
                    registry.Find({query.masterClipId, mediaId, index, query.type}))
                return master;
    return registry.Find({{}, mediaId, 0, query.type});
}

int SourceTrackOf(ConstHandle item)
{
    return std::max(IntProperty(item.GetChild("sourcetrack"), "trackindex"), 0) - 1;
}

BuiltMaster MasterForItem(const Import& import, ConstHandle item, MediaType type, int trackIndex)
{
    if (const ConstHandle multiclip = FindMulticlip(item)) {
        if (!IsCollapsed(multiclip))
            return import.masters.OfMulticlip(multiclip.GetProperty("id"));
        item = import.angles.Of(multiclip).clip;
    }
    const MediaQuery query{.masterClipId = item.GetProperty("masterclipid"),
                           .type = type,
                           .sourceTrack = SourceTrackOf(item),
                           .trackIndex = trackIndex};
    for (const Search search : kSearches)
        if (const BuiltMaster master = search(import, query, item))
            return master.FirstClip(type) ? master : BuiltMaster();
    return {};
}

FileMaster BuildFileMaster(Import& import, const ClipItem& element, const FileUse& use,
                           bool exploded)
{
    FileMaster result;
    result.sources = MakeFileSources(import, import.files, use);
    if (result.sources.IsEmpty())
        return result;
    const AudioKind audio = SplitStereo(import.options, AudioKindOfFile(use.file), exploded);
    const BuiltMaster built =
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
