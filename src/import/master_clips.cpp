#include "import/master_clips.h"

#include "core/numbers.h"
#include "import/generators.h"
#include "import/item_effects.h"
#include "import/layered_images.h"
#include "import/master_builder.h"
#include "xmeml/files.h"
#include "import/multiclips.h"
#include "import/project_items.h"
#include "import/sequences.h"

#include <algorithm>
#include <initializer_list>

namespace XPJ {

namespace {

constexpr int kVideoTrackKind = 1;

bool IsMergeable(ObjectHandle file)
{
    return HasValue(file, "id") && !file.GetProperty("id").starts_with("Slug");
}

ClipSignature SignatureOf(ObjectHandle clip, std::string_view mediaId)
{
    return {mediaId,
            clip.GetProperty("masterclipid"),
            clip.GetProperty("name"),
            clip.GetProperty("duration"),
            clip.GetProperty("in"),
            clip.GetProperty("out")};
}

// The type under which a file's master is found.
MediaType LeadingTypeOf(ObjectHandle file)
{
    const bool hasPicture = IsBarsAndTone(file) || IsGraphic(file) ||
                            static_cast<bool>(FindPath(file, {"media", "video"}));
    return hasPicture ? MediaType::Video : MediaType::Audio;
}

// A newly built master and the one that the registry holds, which differ when the key was taken.
struct Registered {
    ObjectHandle master; // null if there are no sources
    FileSources sources;
    bool isNew = false;
};

Registered BuildFileMaster(ImportState& state, ObjectHandle element, ObjectHandle file,
                           ObjectHandle fallback, bool exploded)
{
    Registered result;
    result.sources = AddFileStreams(state, element, file, fallback);
    if (result.sources.IsEmpty())
        return result;
    const bool hasVideo = !result.sources.video.empty();
    const bool hasAudio = !result.sources.audio.empty();
    const ObjectHandle built = BuildMasterClip(state, element, result.sources,
                                               SplitStereo(state, AudioKindOfFile(file), exploded));
    const std::string_view masterClipId = element.GetProperty("masterclipid");
    const std::string_view fileId = file.GetProperty("id");
    RegisterMaster(state, masterClipId, fileId, 0, hasVideo, hasAudio, built);
    result.master = state.masterClips.Find(masterClipId, fileId, 0,
                                           hasVideo ? MediaType::Video : MediaType::Audio);
    result.isNew = result.master == built;
    if (result.isNew)
        AddMasterEffects(state, element, file, built);
    return result;
}

// "V1A2": sources of picture and of sound. A file that is part of another has a "-" in its id.
std::string KindText(const FileSources& sources, std::string_view fileId)
{
    std::string kind;
    if (!sources.video.empty())
        kind += "V" + UintToString(sources.video.size());
    if (!sources.audio.empty())
        kind += "A" + UintToString(sources.audio.size());
    if (fileId.find('-') != std::string_view::npos)
        kind += ",SUBCLIP";
    return kind;
}

void NoteComponent(ImportState& state, ObjectHandle clip, ObjectHandle file,
                   const Registered& built)
{
    const std::string_view mergeId = MergeIdOf(clip);
    const std::string_view fileId = file.GetProperty("id");
    const ObjectHandle master = built.master;
    master.SetProperty("FCPMergedMasterClipID", mergeId);
    master.SetProperty("FCPMergedMasterFileID", fileId);
    CopyProperty(file, "FCPMergedTrackOrderIndex", master, "FCPMergedTrackOrderIndex");
    master.SetProperty("FCPMergedMasterKind", KindText(built.sources, fileId));
    state.componentClips.emplace(master.UniqueId(), clip);
    state.mergedClipIds.Add(mergeId);
}

// Builds the master of one of a clip's files, unless another clip's serves, and signs the clip for
// it.
void BuildCandidate(ImportState& state, ObjectHandle clip, ObjectHandle file, bool merged)
{
    const std::string_view fileId = file.GetProperty("id");
    ObjectHandle master =
        state.masterClips.Find(clip.GetProperty("masterclipid"), fileId, 0, LeadingTypeOf(file));
    if (!master) {
        const Registered built =
            BuildFileMaster(state, clip, file, {}, IsTrue(clip, "explodedTracks"));
        if (built.isNew && merged)
            NoteComponent(state, clip, file, built);
        master = built.master;
    }
    if (master)
        state.clipSignatures.emplace(SignatureOf(clip, fileId), master);
}

// Layered images and slugs wait for who needs them, since they bring more than one clip.
bool IsOpen(const ImportState& state, ObjectHandle clip, ObjectHandle file)
{
    return !IsLayeredImage(file) && !IsSlug(file) &&
           !state.clipSignatures.contains(SignatureOf(clip, file.GetProperty("id")));
}

void CollectMediaFiles(ImportState& state, ObjectHandle clip, ObjectHandle media)
{
    std::vector<ObjectHandle> files = FilesOfMedia(state, media);
    std::erase_if(files, [](ObjectHandle file) { return !IsMergeable(file); });
    // Files are shared by clips, so the order holds for this clip's candidates alone.
    int order = 0;
    for (const ObjectHandle& file : files)
        file.SetProperty("FCPMergedTrackOrderIndex", IntToString(order++));
    const bool merged = files.size() > 1 && !MergeIdOf(clip).empty();
    for (const ObjectHandle& file : files)
        if (IsOpen(state, clip, file))
            BuildCandidate(state, clip, file, merged);
}

ObjectHandle FirstGenerator(ObjectHandle media)
{
    for (const ObjectHandle& medium : {media.GetChild("video"), media.GetChild("audio")})
        for (const ObjectHandle& track : medium.GetChildren("track"))
            if (const ObjectHandle generator = track.GetChild("generatoritem"))
                return generator;
    return {};
}

void AddGeneratorIssue(ImportState& state, ObjectHandle clip, ObjectHandle generator)
{
    const ObjectHandle effect = generator.GetChild("effect");
    if (!effect || !state.reportedGenerators.insert(generator.UniqueId()).second)
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ImportIssue::GeneratorNotTranslated);
    issue.subject = effect.GetProperty("name");
    issue.clip = generator.GetProperty("name");
    issue.sequence = clip.GetProperty("name");
    issue.trackKind = kVideoTrackKind;
    state.issues.insert(issue);
}

void CollectGenerator(ImportState& state, ObjectHandle clip, ObjectHandle generator)
{
    const GeneratorResult result = TranslateGenerator(state, generator, clip);
    if (!result.translated)
        AddGeneratorIssue(state, clip, generator);
    const std::string_view id = generator.GetProperty("id");
    if (result.master && !id.empty())
        state.clipSignatures.emplace(SignatureOf(clip, id), result.master);
}

// `trackindex` of a `sourcetrack`, from 0; -1 without one.
int SourceTrackOf(ObjectHandle item)
{
    return std::max(IntProperty(item.GetChild("sourcetrack"), "trackindex"), 0) - 1;
}

// Layers are entered under their own index, everything else under 0: an item asks for its source
// track, then for its place in the sequence, then for the medium as a whole.
struct MediumQuery {
    std::string_view masterClipId;
    MediaType type = MediaType::Video;
    int sourceTrack = -1;
    int trackIndex = 0;
};

ObjectHandle FindMedium(const ImportState& state, const MediumQuery& query,
                        std::string_view mediaId)
{
    const MasterRegistry& masters = state.masterClips;
    for (const int index : {query.sourceTrack, query.trackIndex, 0})
        if (index >= 0)
            if (const ObjectHandle master =
                    masters.Find(query.masterClipId, mediaId, index, query.type))
                return master;
    return masters.Find({}, mediaId, 0, query.type);
}

ObjectHandle FindById(const ImportState::ById& map, std::string_view id)
{
    const auto found = map.find(id);
    return found == map.end() || id.empty() ? ObjectHandle() : found->second;
}

ObjectHandle FindFileOf(const ImportState& state, const MediumQuery& query, ObjectHandle item)
{
    if (const ObjectHandle file = FileOfItem(state, item))
        if (const ObjectHandle master = FindMedium(state, query, file.GetProperty("id")))
            return master;
    return {};
}

ObjectHandle FindReferenced(const ImportState& state, const MediumQuery& query, ObjectHandle item)
{
    const std::string_view nested = item.GetChild("sequence").GetProperty("id");
    if (const ObjectHandle master = FindById(state.sequences, nested))
        return master;
    if (const ObjectHandle master = FindMedium(state, query, item.GetProperty("fileid")))
        return master;
    return FindById(state.sequences, item.GetProperty("sequenceid"));
}

ObjectHandle FindInMedia(const ImportState& state, const MediumQuery& query, ObjectHandle item)
{
    for (const ObjectHandle& file : FilesOfMedia(state, item.GetChild("media")))
        if (const ObjectHandle master = FindMedium(state, query, file.GetProperty("id")))
            return master;
    return {};
}

ObjectHandle FindSelf(const ImportState& state, const MediumQuery& query, ObjectHandle item)
{
    const std::string_view id = item.GetProperty("id");
    if (const ObjectHandle master = state.masterClips.Find(query.masterClipId, id, 0, query.type))
        return master;
    return FindById(state.sequences, id);
}

using Search = ObjectHandle (*)(const ImportState&, const MediumQuery&, ObjectHandle);
constexpr Search kSearches[] = {FindFileOf, FindReferenced, FindInMedia, FindSelf};

bool HasClipOf(ObjectHandle master, MediaType type)
{
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        if (clip.GetProperty("mediatype") == MediaTypeText(type))
            return true;
    return false;
}

// A file of a browser clip, and the item of its media that brings it; null for the clip's own.
struct ClipFile {
    ObjectHandle file;
    ObjectHandle item;
    MediaType type = MediaType::Video;
};

// Files of a browser clip in the order of its tracks, then its own, each once.
class ClipFileList {
public:
    ClipFileList(const ImportState& state, ObjectHandle clip)
    {
        const ObjectHandle media = clip.GetChild("media");
        AddTracks(state, media.GetChild("video"), MediaType::Video);
        AddTracks(state, media.GetChild("audio"), MediaType::Audio);
        const ObjectHandle own = ResolveFile(state, clip.GetChild("file"));
        Add({own, {}, LeadingTypeOf(own)});
    }
    const std::vector<ClipFile>& Files() const { return files_; }

private:
    void AddTracks(const ImportState& state, ObjectHandle medium, MediaType type)
    {
        for (const ObjectHandle& track : medium.GetChildren("track")) {
            const ObjectHandle item = track.GetChild("clipitem");
            Add({FileOfItem(state, item), item, type});
        }
    }
    void Add(const ClipFile& entry)
    {
        if (entry.file && seen_.insert(entry.file.UniqueId()).second)
            files_.push_back(entry);
    }

    std::vector<ClipFile> files_;
    std::unordered_set<std::uint64_t> seen_;
};

ObjectHandle FindForClip(const ImportState& state, ObjectHandle clip, const ClipFile& entry)
{
    const std::string_view fileId = entry.file.GetProperty("id");
    if (const ObjectHandle master = MasterBySignature(state, clip, fileId))
        return master;
    const ObjectHandle sourceTrack = entry.item.GetChild("sourcetrack");
    const bool isLayer = sourceTrack.GetProperty("mediatype") == "video";
    MediumQuery query{.masterClipId = clip.GetProperty("masterclipid"),
                      .type = entry.type,
                      .sourceTrack = isLayer ? SourceTrackOf(entry.item) : -1};
    if (const ObjectHandle master = FindMedium(state, query, fileId))
        return master;
    query.type = entry.type == MediaType::Video ? MediaType::Audio : MediaType::Video;
    return FindMedium(state, query, fileId);
}

// The project items of one file of a browser clip. True when there is a master.
bool AddFileItem(ImportState& state, ObjectHandle clip, const ClipFile& entry,
                 ObjectHandle parentItem)
{
    const ObjectHandle item = entry.item ? entry.item : clip;
    ObjectHandle master = FindForClip(state, clip, entry);
    if (!master && IsSlug(entry.file)) {
        TranslateSlugItem(state, clip, entry.file, parentItem, {});
        return true;
    }
    if (IsLayeredImage(entry.file)) {
        if (!master)
            TranslateLayeredItem(state, clip, entry.file, parentItem, {});
        return true;
    }
    if (!master)
        master = MasterClipForTrackItem(state, item, entry.file, parentItem, {},
                                        IsTrue(clip, "explodedTracks"), false)
                     .master;
    if (!master)
        return false;
    AddClipItem(state, clip, master, entry.file.GetProperty("id"), parentItem);
    return true;
}

// A clip without a file shows a generator or a sequence.
int AddFilelessItem(ImportState& state, ObjectHandle clip, ObjectHandle parentItem)
{
    const ObjectHandle media = clip.GetChild("media");
    if (const ObjectHandle generator = FirstGenerator(media)) {
        const std::string_view id = generator.GetProperty("id");
        ObjectHandle master = MasterBySignature(state, clip, id);
        if (!master)
            master =
                state.masterClips.Find(clip.GetProperty("masterclipid"), id, 0, MediaType::Video);
        if (!master)
            return 0;
        AddClipItem(state, clip, master, id, parentItem);
        return 1;
    }
    const ObjectHandle sequence = FirstClipItem(media).GetChild("sequence");
    if (!sequence)
        return 0;
    TranslateSequence(state, sequence, parentItem);
    return 1;
}

} // namespace

void CollectClip(ImportState& state, ObjectHandle clip)
{
    if (const ObjectHandle media = clip.GetChild("media")) {
        CollectMediaFiles(state, clip, media);
        if (const ObjectHandle generator = FirstGenerator(media))
            CollectGenerator(state, clip, generator);
    }
    const ObjectHandle own = ResolveFile(state, clip.GetChild("file"));
    if (own && HasValue(clip, "masterclipid") && IsOpen(state, clip, own))
        BuildCandidate(state, clip, own, false);
}

bool RegisterMaster(ImportState& state, std::string_view masterClipId, std::string_view mediaId,
                    int layer, bool hasVideo, bool hasAudio, ObjectHandle master)
{
    MasterRegistry& masters = state.masterClips;
    if (hasVideo && !masters.Add(masterClipId, mediaId, layer, MediaType::Video, master))
        return false;
    return !hasAudio || masters.Add(masterClipId, mediaId, layer, MediaType::Audio, master);
}

ObjectHandle MasterBySignature(const ImportState& state, ObjectHandle clip,
                               std::string_view mediaId)
{
    const auto found = state.clipSignatures.find(SignatureOf(clip, mediaId));
    return found == state.clipSignatures.end() ? ObjectHandle() : found->second;
}

ObjectHandle MasterForItem(const ImportState& state, ObjectHandle item, MediaType type,
                           int trackIndex)
{
    if (const ObjectHandle multiclip = FindMulticlip(item)) {
        if (!IsCollapsed(multiclip))
            return FindById(state.multiclips, multiclip.GetProperty("id"));
        item = ActiveClip(state, multiclip);
    }
    const MediumQuery query{.masterClipId = item.GetProperty("masterclipid"),
                            .type = type,
                            .sourceTrack = SourceTrackOf(item),
                            .trackIndex = trackIndex};
    for (const Search search : kSearches)
        if (const ObjectHandle master = search(state, query, item))
            return HasClipOf(master, type) ? master : ObjectHandle();
    return {};
}

ItemMaster MasterClipForTrackItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                                  ObjectHandle parentItem, ObjectHandle fallback, bool exploded,
                                  bool addProjectItem)
{
    const Registered built = BuildFileMaster(state, item, file, fallback, exploded);
    if (built.isNew && addProjectItem)
        MakeClipProjectItem(state, item, built.master, parentItem);
    return {built.master, built.sources.VideoMedia()};
}

void TranslateLayeredItem(ImportState& state, ObjectHandle item, ObjectHandle file,
                          ObjectHandle parentItem, ObjectHandle fallback)
{
    const std::string_view masterClipId = item.GetProperty("masterclipid");
    const std::string_view fileId = file.GetProperty("id");
    for (const ImageLayer& layer : MakeImageLayers(state, item, file, fallback)) {
        const ObjectHandle master = BuildMasterClip(
            state, item, {.video = {layer.source}, .audio = {}}, {}, {.name = layer.name});
        if (RegisterMaster(state, masterClipId, fileId, layer.index, true, false, master))
            MakeClipProjectItem(state, item, master, parentItem).SetProperty("Name", layer.name);
    }
}

int TranslateMasterClipItems(ImportState& state, ObjectHandle clip, ObjectHandle parentItem)
{
    if (const ObjectHandle multiclip = FindMulticlip(clip))
        clip = ActiveClip(state, multiclip);
    const ClipFileList list(state, clip);
    if (list.Files().empty())
        return AddFilelessItem(state, clip, parentItem);
    int count = 0;
    for (const ClipFile& entry : list.Files())
        count += AddFileItem(state, clip, entry, parentItem) ? 1 : 0;
    return count;
}

} // namespace XPJ
