#include "dialects/reading_media.h"

#include "core/numbers.h"
#include "core/text_hash.h"
#include "xmeml/files.h"
#include "xmeml/rates.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ {

namespace {

// ---- Items without a file

// The files that the rule makes: one for each id that leads nowhere, and for each name.
class AssumedFiles {
public:
    explicit AssumedFiles(DialectPass& pass) : pass_(pass)
    {
        for (const ObjectHandle& clip : pass.Parts().clips)
            if (HasValue(clip, "id"))
                clips_.emplace(clip.GetProperty("id"), clip);
    }

    void AddTo(ObjectHandle element)
    {
        const std::string_view id = element.GetProperty("fileid");
        ObjectHandle file;
        if (!id.empty())
            file = Make(byId_, id, element);
        else if (const auto clip = clips_.find(element.GetProperty("masterclipid"));
                 clip != clips_.end() && clip->second != element)
            file = FileOfClip(clip->second);
        if (!file)
            file = Make(byName_, element.GetProperty("name"), element);
        element.AddChild(file);
    }

private:
    using Files = TextMap<ObjectHandle>;

    static ObjectHandle FileOfClip(ObjectHandle clip)
    {
        if (const ObjectHandle own = clip.GetChild("file"))
            return own;
        for (const Name type : {Name("video"), Name("audio")})
            if (const ObjectHandle file =
                    FindPath(clip, {"media", type, "track", "clipitem", "file"}))
                return file;
        return {};
    }

    ObjectHandle Make(Files& files, std::string_view key, ObjectHandle element)
    {
        ObjectHandle& file = files[key];
        if (!file) {
            file = pass_.Nodes().NewObject("file");
            file.SetProperty("id", &files == &byId_ ? std::string(key)
                                                    : "assumed-file-" + IntToString(++count_));
            pass_.Assume(element.GetProperty("name"));
        }
        return file;
    }

    DialectPass& pass_;
    TextMap<ObjectHandle> clips_; // by id
    Files byId_;
    Files byName_;
    std::int64_t count_ = 0;
};

bool ShowsNothing(ConstHandle element)
{
    return !element.HasChild("file") && !element.HasChild("sequence") &&
           !element.HasChild("multiclip") && !element.HasChild("media") &&
           !HasValue(element, "sequenceid") && HasValue(element, "name");
}

// ---- Files without media

// The frame rate by which an item that states none counts.
ObjectHandle RateFor(DialectPass& pass, const FileUses& uses)
{
    for (const ObjectHandle& node : {uses.element, uses.sequence})
        if (const ObjectHandle rate = node.GetChild("rate"); TicksOfRate(rate) > 0)
            return rate;
    for (const ObjectHandle& sequence : pass.Parts().sequences)
        if (const ObjectHandle rate = sequence.GetChild("rate"); TicksOfRate(rate) > 0)
            return rate;
    const ObjectHandle rate = pass.Nodes().NewObject("rate");
    rate.SetPropertyShared("timebase", "30");
    rate.SetPropertyShared("ntsc", "TRUE");
    return rate;
}

// A name, a rate and a length place media that is not there.
void CompleteFile(DialectPass& pass, const FileUses& uses, ObjectHandle file)
{
    if (!HasValue(file, "name"))
        file.SetPropertyShared("name", uses.element.GetProperty("name"));
    if (TicksOfRate(file.GetChild("rate")) == 0 &&
        TicksOfRate(uses.element.GetChild("rate")) == 0) {
        SetRate(file, RateFor(pass, uses));
    }
    if (!HasValue(file, "duration") && Int64Property(uses.element, "duration") <= 0)
        file.SetProperty("duration", IntToString(std::max<std::int64_t>(uses.lastFrame, 0)));
}

// A file without name and path is known by what shows it.
void NameFile(const FileUses& uses)
{
    for (const ObjectHandle& file : uses.definitions)
        if (!HasValue(file, "name") && !HasValue(file, "pathurl") && !HasValue(file, "mediaSource"))
            file.SetPropertyShared("name", uses.element.GetProperty("name"));
}

// ---- Their media

// Generated media and images in layers state no `media`.
bool NeedsMedia(const FileUses& uses)
{
    if (!uses.element)
        return false;
    for (const ObjectHandle& file : uses.definitions)
        if (HasValue(file, "mediaSource") || FileElement(file).IsLayeredImage())
            return false;
    return true;
}

void AddAudio(DialectPass& pass, const FileUses& uses, ObjectHandle media)
{
    constexpr std::int64_t kStereo = 2;
    constexpr std::int64_t kMostChannels = 64;
    const std::int64_t channels = uses.channels > 0 ? uses.channels : kStereo;
    AddNew(pass.Nodes(), media, "audio")
        .SetProperty("channelcount", IntToString(std::min(channels, kMostChannels)));
}

void AddMediaTo(DialectPass& pass, const FileUses& uses, ObjectHandle file)
{
    CompleteFile(pass, uses, file);
    const ObjectHandle media = GetOrAddChild(pass.Nodes(), file, "media");
    if (uses.onVideo || uses.inBin)
        AddNew(pass.Nodes(), media, "video");
    if (uses.onAudio || uses.inBin)
        AddAudio(pass, uses, media);
}

} // namespace

void AddMissingFiles(DialectPass& pass)
{
    std::vector<ObjectHandle> empty;
    for (const ItemPart& part : pass.Parts().items)
        if (!part.file && part.kind == ItemKind::Clip && ShowsNothing(part.item))
            empty.push_back(part.item);
    for (const ObjectHandle& clip : pass.Parts().clips)
        if (ShowsNothing(clip))
            empty.push_back(clip);
    if (empty.empty())
        return;
    AssumedFiles files(pass);
    for (const ObjectHandle& element : empty)
        files.AddTo(element);
    pass.PartsChanged();
}

void AddMissingMedia(DialectPass& pass)
{
    bool hasChanged = false;
    for (FileUses& uses : pass.Files().files) {
        NameFile(uses);
        if (uses.hasMedia || !NeedsMedia(uses))
            continue;
        if (uses.definitions.empty()) // an id that leads nowhere
            uses.definitions.push_back(uses.element.GetChild("file"));
        for (const ObjectHandle& file : uses.definitions)
            AddMediaTo(pass, uses, file);
        pass.Assume(uses.Name());
        hasChanged = true;
    }
    if (hasChanged)
        pass.PartsChanged();
}

void AddMissingHalves(DialectPass& pass)
{
    for (const FileUses& uses : pass.Files().files) {
        if (!uses.hasMedia || !NeedsMedia(uses))
            continue;
        const ConstHandle stated = uses.Child("media");
        const bool lacksVideo = uses.onVideo && !stated.HasChild("video");
        const bool lacksAudio = uses.onAudio && !stated.HasChild("audio");
        if (!lacksVideo && !lacksAudio)
            continue;
        for (const ObjectHandle& file : uses.definitions) {
            const ObjectHandle media = GetOrAddChild(pass.Nodes(), file, "media");
            if (uses.onVideo && !media.HasChild("video"))
                AddNew(pass.Nodes(), media, "video");
            if (uses.onAudio && !media.HasChild("audio"))
                AddAudio(pass, uses, media);
        }
        pass.Assume(uses.Name());
    }
}

} // namespace XPJ
