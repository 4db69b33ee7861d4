#include "xmeml/files.h"

#include "core/paths.h"
#include "core/text.h"

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

std::optional<std::string_view> FileElement::Metadata(std::string_view key) const
{
    for (const ConstHandle& entry : GetChildren("metadata"))
        if (entry.GetProperty("key") == key)
            return entry.GetProperty("value");
    return std::nullopt;
}

ConstHandle FileElement::VideoCharacteristics() const
{
    return FindPath(*this, {"media", "video", "samplecharacteristics"});
}

std::string_view FileElement::Title() const
{
    const std::string_view redTitle = Metadata(kRedTitleKey).value_or("");
    return redTitle.empty() ? GetProperty("name") : redTitle;
}

bool FileElement::IsRed() const
{
    return Metadata(kRedPathKey).has_value();
}

bool FileElement::IsLayeredImage() const
{
    const std::string_view url = GetProperty("pathurl");
    return (url.empty() ? GetProperty("name") : url).ends_with(".lyd");
}

bool FileElement::IsBarsAndTone() const
{
    return std::ranges::find(kBarsAndToneSources, GetProperty("mediaSource")) !=
           std::end(kBarsAndToneSources);
}

bool FileElement::IsGraphic() const
{
    const std::string_view source = GetProperty("mediaSource");
    return source == "GraphicAndType" || source == "GraphicAndTypeMaster";
}

bool FileElement::IsSlug() const
{
    return GetProperty("mediaSource") == "Slug";
}

void FileCatalog::Add(FileElement file, std::string_view generatedId)
{
    if (!HasValue(file, "id"))
        generatedIds_.emplace(file.UniqueId(), generatedId);
    else if (byId_.emplace(file.GetProperty("id"), file).second)
        defining_.Insert(file);
}

FileElement FileCatalog::Resolve(ConstHandle file) const
{
    if (defining_.Contains(file))
        return FileElement(file);
    const std::string_view id = file.GetProperty("id");
    if (id.empty())
        return FileElement(file);
    const auto found = byId_.find(id);
    return found == byId_.end() ? FileElement() : found->second;
}

std::string_view FileCatalog::IdOf(FileElement file) const
{
    const std::string_view stated = file.GetProperty("id");
    if (!stated.empty() || generatedIds_.empty())
        return stated;
    const auto generated = generatedIds_.find(file.UniqueId());
    return generated == generatedIds_.end() ? stated : generated->second;
}

FileElement FileOfItem(const FileCatalog& files, ConstHandle item)
{
    if (const FileElement file = files.Resolve(item.GetChild("file")))
        return file;
    const ConstHandle still = FindPath(item, {"sequence", "media", "video", "track", "clipitem"});
    return HasValue(still, "stillframeoffset") ? files.Resolve(still.GetChild("file"))
                                               : FileElement();
}

std::vector<FileElement> FilesOfMedia(const FileCatalog& files, ConstHandle media)
{
    std::vector<FileElement> result;
    std::unordered_set<std::uint64_t> seen;
    for (const ConstHandle& group : {media.GetChild("video"), media.GetChild("audio")})
        for (const ConstHandle& track : group.GetChildren("track")) {
            const FileElement file = FileOfItem(files, track.GetChild("clipitem"));
            if (file && seen.insert(file.UniqueId()).second)
                result.push_back(file);
        }
    return result;
}

FileElement FirstFileOf(const FileCatalog& files, ConstHandle element)
{
    const ConstHandle media = element.GetChild("media");
    for (const ConstHandle& group : {media.GetChild("video"), media.GetChild("audio")})
        for (const ConstHandle& track : group.GetChildren("track"))
            if (const FileElement file = FileOfItem(files, track.GetChild("clipitem")))
                return file;
    return FileOfItem(files, element);
}

ConstHandle FirstClipItem(ConstHandle media)
{
    if (const ConstHandle item = FindPath(media, {"video", "track", "clipitem"}))
        return item;
    return FindPath(media, {"audio", "track", "clipitem"});
}

std::string PathOfFile(FileElement file, std::string_view folder)
{
    const std::string_view redPath = file.Metadata(kRedPathKey).value_or("");
    if (!redPath.empty())
        return std::string(redPath);
    const std::string_view url = file.GetProperty("pathurl");
    if (url.empty() || IsTrue(file, "velaOffline"))
        return {};
    // Decoding may bring out characters that the project's text may not hold.
    return EscapePath(PathFromUrl(UnescapeXML(url), folder));
}

void SetPathOfFile(ObjectHandle file, std::string_view path)
{
    for (const ObjectHandle& entry : file.GetChildren("metadata"))
        if (entry.GetProperty("key") == kRedPathKey && HasValue(entry, "value")) {
            entry.SetProperty("value", EscapePath(path));
            return;
        }
    file.SetProperty("pathurl", EscapePath(MakePathUrl(path)));
}

} // namespace XPJ
