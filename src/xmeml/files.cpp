#include "xmeml/files.h"

#include "core/paths.h"
#include "core/text.h"
#include "core/ticks.h"
#include "tree/blob.h"

#include <algorithm>
#include <unordered_set>

namespace XPJ {

namespace {

constexpr std::string_view kRedPathKey = "com.red.clip.originalSourcePath";
constexpr std::string_view kRedTitleKey = "com.red.clip.startFileName";

constexpr std::string_view kBarsAndToneSources[] = {
    "BarsAndTone",       "BarsAndToneHD1080i60", "BarsAndToneHD1080i50Full", "BarsAndToneHD1080i50",
    "BarsAndToneHD720p", "BarsAndTonePALFull",   "BarsAndTonePAL",
};

// Files in order of first sight.
class FileList {
public:
    void AddTracks(const ImportState& state, ObjectHandle medium)
    {
        for (const ObjectHandle& track : medium.GetChildren("track")) {
            const ObjectHandle file = FileOfItem(state, track.GetChild("clipitem"));
            if (file && seen_.insert(file.UniqueId()).second)
                files_.push_back(file);
        }
    }
    std::vector<ObjectHandle> Take() { return std::move(files_); }

private:
    std::vector<ObjectHandle> files_;
    std::unordered_set<std::uint64_t> seen_;
};

// The host keeps these settings as UTF-16 text, escaped twice in the document.
void AddImporterPrefs(ObjectHandle file, ObjectHandle media)
{
    const std::string_view data =
        FindPath(file, {"media", "video"}).GetProperty("MediaAssociationData");
    std::string bytes;
    for (const char16_t unit : ToUTF16(UnescapeXML(UnescapeXML(data)))) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    SetEncodedBlob(media, "ImporterPrefs", "ImporterPrefsChecksum", bytes);
}

// In a path, unlike a document's text, what looks like an entity is none.
std::string EscapePath(std::string_view path)
{
    std::string text;
    for (const char c : path)
        if (c == '&')
            text += "&amp;";
        else
            text += c;
    return EscapeXML(text);
}

} // namespace

ObjectHandle ResolveFile(const ImportState& state, ObjectHandle file)
{
    if (!HasValue(file, "id"))
        return file;
    const auto found = state.files.find(file.GetProperty("id"));
    return found == state.files.end() ? ObjectHandle() : found->second;
}

ObjectHandle FileOfItem(const ImportState& state, ObjectHandle item)
{
    if (const ObjectHandle file = ResolveFile(state, item.GetChild("file")))
        return file;
    const ObjectHandle still = FindPath(item, {"sequence", "media", "video", "track", "clipitem"});
    return HasValue(still, "stillframeoffset") ? ResolveFile(state, still.GetChild("file"))
                                               : ObjectHandle();
}

std::vector<ObjectHandle> FilesOfMedia(const ImportState& state, ObjectHandle media)
{
    FileList list;
    list.AddTracks(state, media.GetChild("video"));
    list.AddTracks(state, media.GetChild("audio"));
    return list.Take();
}

std::vector<ObjectHandle> FilesOfMedia(const ImportState& state, ObjectHandle media, MediaType type)
{
    FileList list;
    list.AddTracks(state,
                   type == MediaType::Video ? media.GetChild("video") : media.GetChild("audio"));
    return list.Take();
}

ObjectHandle FirstFileOf(const ImportState& state, ObjectHandle element)
{
    const ObjectHandle media = element.GetChild("media");
    for (const ObjectHandle& medium : {media.GetChild("video"), media.GetChild("audio")})
        for (const ObjectHandle& track : medium.GetChildren("track"))
            if (const ObjectHandle file = FileOfItem(state, track.GetChild("clipitem")))
                return file;
    return FileOfItem(state, element);
}

ObjectHandle FirstClipItem(ObjectHandle media)
{
    if (const ObjectHandle item = FindPath(media, {"video", "track", "clipitem"}))
        return item;
    return FindPath(media, {"audio", "track", "clipitem"});
}

std::optional<std::string_view> MetadataOf(ObjectHandle file, std::string_view key)
{
    for (const ObjectHandle& entry : file.GetChildren("metadata"))
        if (entry.GetProperty("key") == key)
            return entry.GetProperty("value");
    return std::nullopt;
}

bool HasFlag(ObjectHandle node, Name key)
{
    return node.HasProperty(key) && !EqualsIgnoreCase(node.GetProperty(key), "false");
}

bool IsRedFile(ObjectHandle file)
{
    return MetadataOf(file, kRedPathKey).has_value();
}

bool IsLayeredImage(ObjectHandle file)
{
    const std::string_view url = file.GetProperty("pathurl");
    return (url.empty() ? file.GetProperty("name") : url).ends_with(".lyd");
}

bool IsBarsAndTone(ObjectHandle file)
{
    return std::ranges::find(kBarsAndToneSources, file.GetProperty("mediaSource")) !=
           std::end(kBarsAndToneSources);
}

bool IsGraphic(ObjectHandle file)
{
    const std::string_view source = file.GetProperty("mediaSource");
    return source == "GraphicAndType" || source == "GraphicAndTypeMaster";
}

std::string PathOfFile(const ImportState& state, ObjectHandle file)
{
    const std::string_view redPath = MetadataOf(file, kRedPathKey).value_or("");
    if (!redPath.empty())
        return std::string(redPath);
    const std::string_view url = file.GetProperty("pathurl");
    if (url.empty())
        return {};
    // Decoding may bring out characters that the project's text may not hold.
    return EscapePath(PathFromUrl(UnescapeXML(url), state.documentDirectory));
}

std::string_view TitleOfFile(ObjectHandle file)
{
    const std::string_view redTitle = MetadataOf(file, kRedTitleKey).value_or("");
    return redTitle.empty() ? file.GetProperty("name") : redTitle;
}

ObjectHandle MakeMedia(const ImportState& state, ObjectHandle file)
{
    const std::string path = PathOfFile(state, file);
    const ObjectHandle media =
        MakeMedia(state.document, {.path = path, .title = TitleOfFile(file)});
    AddImporterPrefs(file, media);
    const ObjectHandle characteristics =
        FindPath(file, {"media", "video", "samplecharacteristics"});
    if (HasValue(characteristics, "VelaCodec"))
        CopyProperty(characteristics, "VelaCodec", media, "VelaCodec");
    return media;
}

ObjectHandle MakeMedia(Document& document, const MediaForm& form)
{
    const ObjectHandle media = document.NewObject("Media");
    AddUid(media);
    media.SetProperty("ImplementationID", form.importer);
    media.SetProperty("FilePath", form.path);
    media.SetProperty("Title", form.title);
    media.SetProperty("Infinite", form.infinite ? "true" : "false");
    media.SetProperty("Start", "0");
    media.SetProperty("SingleAudioChannel", "-1");
    media.SetProperty("IgnoreAudio", "false");
    media.SetProperty("IgnoreVideo", "false");
    media.SetProperty("ConformedAudioRate", TickText(kSampleTicks48k));
    media.SetProperty("CaptureStatus", "0");
    media.SetProperty("OfflineReason", "0");
    media.SetProperty("AlternateStart", "0");
    return media;
}

} // namespace XPJ
