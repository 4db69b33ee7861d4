#include "import/clips.h"

#include "core/numbers.h"
#include "import/generators.h"
#include "import/layered_images.h"
#include "import/logging.h"
#include "import/masters.h"
#include "import/multiclips.h"
#include "import/project_items.h"
#include "import/sequence_walk.h"
#include "import/slugs.h"
#include "xmeml/sequences.h"

#include <unordered_set>
#include <vector>

namespace XPJ {

namespace {

constexpr int kVideoTrackKind = 1;

// The type under which a file's master is found.
MediaType LeadingTypeOf(FileElement file)
{
    const bool hasVideo = file.IsBarsAndTone() || file.IsGraphic() ||
                          static_cast<bool>(FindPath(file, {"media", "video"}));
    return hasVideo ? MediaType::Video : MediaType::Audio;
}

// ---- The collect pass

// A new master that is one file of a clip with several. The host keeps these values too.
void AddComponent(ImportState& state, ConstHandle clip, const FileUse& use, const FileMaster& built,
                  int order)
{
    const MergeComponent component{
        .master = built.master,
        .clip = clip,
        .mergeId = MergeIdOf(clip),
        .fileId = state.files.IdOf(use.file),
        .order = order,
        // A file that is part of another has a "-" in its id.
        .kind = {.video = static_cast<int>(built.sources.video.size()),
                 .audio = static_cast<int>(built.sources.audio.size()),
                 .isSubclip = state.files.IdOf(use.file).find('-') != std::string_view::npos},
        .hasCodec = !built.sources.codec.empty()};
    component.master.SetProperty("FCPMergedMasterClipID", component.mergeId);
    component.master.SetProperty("FCPMergedMasterFileID", component.fileId);
    component.master.SetProperty("FCPMergedTrackOrderIndex", IntToString(order));
    component.master.SetProperty("FCPMergedMasterKind", component.kind.Text());
    state.masters.AddComponent(component);
}

// The order of a file that is no component of a merged clip.
constexpr int kNoComponent = -1;

// Builds the master of one of a clip's files, unless another clip's serves, and enters the clip's
// signature for it.
void BuildMaster(ImportState& state, ConstHandle clip, FileElement file, int order)
{
    const std::string_view fileId = state.files.IdOf(file);
    MasterClipHandle master = state.masters.registry.Find(
        {clip.GetProperty("masterclipid"), fileId, 0, LeadingTypeOf(file)});
    if (!master) {
        const FileUse use{clip, file};
        const FileMaster built = BuildFileMaster(state, ClipItem(clip), use, IsExploded(clip));
        if (built.isNew && order != kNoComponent)
            AddComponent(state, clip, use, built, order);
        master = built.master;
    }
    if (master)
        state.masters.AddSignature(SignatureOf(clip, fileId), master);
}

// Layered images and slugs are deferred until something needs them, since they bring more than one
// clip.
bool NeedsMaster(const ImportState& state, ConstHandle clip, FileElement file)
{
    return !file.IsLayeredImage() && !file.IsSlug() &&
           !state.masters.HasSignature(SignatureOf(clip, state.files.IdOf(file)));
}

void CollectMediaFiles(ImportState& state, ConstHandle clip, ConstHandle media)
{
    std::vector<FileElement> files = FilesOfMedia(state.files, media);
    std::erase_if(files, [&](FileElement file) {
        const std::string_view id = state.files.IdOf(file);
        return id.empty() || id.starts_with("Slug");
    });
    const bool merged = files.size() > 1 && !MergeIdOf(clip).empty();
    int order = 0;
    for (const FileElement& file : files) {
        if (NeedsMaster(state, clip, file))
            BuildMaster(state, clip, file, merged ? order : kNoComponent);
        ++order;
    }
}

ConstHandle FirstGenerator(ConstHandle media)
{
    for (const ConstHandle& group : {media.GetChild("video"), media.GetChild("audio")})
        for (const ConstHandle& track : group.GetChildren("track"))
            if (const ConstHandle generator = track.GetChild("generatoritem"))
                return generator;
    return {};
}

void AddGeneratorIssue(ImportState& state, ConstHandle clip, ConstHandle generator)
{
    const ConstHandle effect = generator.GetChild("effect");
    if (!effect || !state.generators.Report(generator))
        return;
    TranslationIssue issue;
    issue.kind = static_cast<int>(ImportIssue::GeneratorNotTranslated);
    issue.subject = effect.GetProperty("name");
    issue.clip = generator.GetProperty("name");
    issue.sequence = clip.GetProperty("name");
    issue.trackKind = kVideoTrackKind;
    const std::size_t before = state.account.remarks.size();
    AddIssue(state.account, Direction::Import, issue,
             {.bin = state.bin, .node = generator.UniqueId()});
    if (state.account.remarks.size() == before)
        return;
    // The issue has the clip as its sequence; the remark says where it is.
    Remark& remark = state.account.remarks.back();
    remark.clip = remark.sequence;
    remark.sequence = {};
    remark.trackKind = kNoTrack;
    remark.bin = state.account.texts.Keep(state.bin);
}

void CollectGenerator(ImportState& state, ConstHandle clip, ConstHandle generator)
{
    const GeneratorResult result = TranslateGenerator(state, ClipItem(generator), clip);
    if (!result.translated)
        AddGeneratorIssue(state, clip, generator);
    if (result.isNew)
        RemarkOnGenerator(state, generator, result, LocationOfClip(state, clip));
    const std::string_view id = generator.GetProperty("id");
    if (result.master && !id.empty())
        state.masters.AddSignature(SignatureOf(clip, id), result.master);
}

// ---- Project items

// A file of a browser clip, and the item of its media that brings it; null for the clip's own.
struct ClipFile {
    FileElement file;
    ConstHandle item;
    MediaType type = MediaType::Video;
};

// Files of a browser clip in the order of its tracks, then its own, each once.
class ClipFileList {
public:
    ClipFileList(const FileCatalog& files, ConstHandle clip)
    {
        const ConstHandle media = clip.GetChild("media");
        AddTracks(files, media.GetChild("video"), MediaType::Video);
        AddTracks(files, media.GetChild("audio"), MediaType::Audio);
        const FileElement own = files.Resolve(clip.GetChild("file"));
        Add({own, {}, LeadingTypeOf(own)});
    }
    const std::vector<ClipFile>& Files() const { return files_; }

private:
    void AddTracks(const FileCatalog& files, ConstHandle group, MediaType type)
    {
        for (const ConstHandle& track : group.GetChildren("track")) {
            const ConstHandle item = track.GetChild("clipitem");
            Add({FileOfItem(files, item), item, type});
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

MasterClipHandle FindForClip(const ImportState& state, ConstHandle clip, const ClipFile& entry)
{
    const std::string_view fileId = state.files.IdOf(entry.file);
    if (const MasterClipHandle master = state.masters.BySignature(SignatureOf(clip, fileId)))
        return master;
    const ConstHandle sourceTrack = entry.item.GetChild("sourcetrack");
    const bool isLayer = sourceTrack.GetProperty("mediatype") == "video";
    MediaQuery query{.masterClipId = clip.GetProperty("masterclipid"),
                     .type = entry.type,
                     .sourceTrack = isLayer ? SourceTrackOf(entry.item) : -1};
    if (const MasterClipHandle master = FindMedia(state.masters.registry, query, fileId))
        return master;
    query.type = entry.type == MediaType::Video ? MediaType::Audio : MediaType::Video;
    return FindMedia(state.masters.registry, query, fileId);
}

// The project items of one file of a browser clip. True when there is a master.
bool AddFileItem(ImportState& state, ConstHandle clip, const ClipFile& entry,
                 ObjectHandle parentItem)
{
    const FileUse ofClip{clip, entry.file};
    MasterClipHandle master = FindForClip(state, clip, entry);
    if (!master && entry.file.IsSlug()) {
        TranslateSlug(state, ClipItem(clip), ofClip, parentItem);
        return true;
    }
    if (entry.file.IsLayeredImage()) {
        if (!master)
            TranslateLayers(state, ClipItem(clip), ofClip, parentItem);
        return true;
    }
    if (master) {
        RemarkOnSharedMaster(state, clip, master, LocationOfClip(state, clip));
    } else {
        const ConstHandle item = entry.item ? entry.item : clip;
        master =
            BuildFileMaster(state, ClipItem(item), {item, entry.file}, IsExploded(clip)).master;
    }
    if (!master)
        return false;
    AddClipItem(state, clip, master, parentItem);
    return true;
}

// A clip without a file shows a generator or a sequence.
bool AddFilelessItem(ImportState& state, ConstHandle clip, ObjectHandle parentItem)
{
    const ConstHandle media = clip.GetChild("media");
    if (const ConstHandle generator = FirstGenerator(media)) {
        const std::string_view id = generator.GetProperty("id");
        MasterClipHandle master = state.masters.BySignature(SignatureOf(clip, id));
        if (!master)
            master = state.masters.registry.Find({clip.GetProperty("masterclipid"), id});
        if (!master)
            return false;
        AddClipItem(state, clip, master, parentItem);
        return true;
    }
    const ConstHandle sequence = FirstClipItem(media).GetChild("sequence");
    if (!sequence)
        return false;
    TranslateSequence(state, sequence, parentItem);
    return true;
}

} // namespace

void CollectClip(ImportState& state, ConstHandle clip)
{
    if (const ConstHandle media = clip.GetChild("media")) {
        CollectMediaFiles(state, clip, media);
        if (const ConstHandle generator = FirstGenerator(media))
            CollectGenerator(state, clip, generator);
    }
    const FileElement own = state.files.Resolve(clip.GetChild("file"));
    if (own && HasValue(clip, "masterclipid") && NeedsMaster(state, clip, own))
        BuildMaster(state, clip, own, kNoComponent);
}

bool TranslateClip(ImportState& state, ConstHandle clip, ObjectHandle parentItem)
{
    if (const ConstHandle multiclip = FindMulticlip(clip)) {
        if (!IsCollapsed(multiclip)) {
            TranslateMulticlipItem(state, clip, parentItem);
            return true;
        }
        RemarkOnAngles(state, multiclip, LocationOfClip(state, clip));
        clip = state.angles.Of(multiclip).clip;
    }
    const ClipFileList list(state.files, clip);
    if (list.Files().empty())
        return AddFilelessItem(state, clip, parentItem);
    bool isKnown = false;
    for (const ClipFile& entry : list.Files())
        isKnown = AddFileItem(state, clip, entry, parentItem) || isKnown;
    return isKnown;
}

} // namespace XPJ
