#include "inspect/media_list.h"

#include "core/csv.h"
#include "core/json.h"
#include "core/numbers.h"
#include "inspect/columns.h"
#include "platform/files.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

struct MediaUse {
    std::size_t count = 0; // of items on tracks
    const Sequence* first = nullptr;
};

std::vector<MediaUse> FindUses(const Project& project)
{
    std::vector<MediaUse> uses(project.mediaFiles.size());
    for (const Sequence& sequence : project.sequences)
        for (const Track& track : sequence.tracks)
            for (const Item& item : track.items)
                if (item.mediaFile != kNothing) {
                    MediaUse& use = uses[item.mediaFile];
                    ++use.count;
                    use.first = use.first ? use.first : &sequence;
                }
    return uses;
}

// A project states no frames for audio alone; those of the cut are what its user counts in.
TimecodeFormat FormatOf(const Project& project, const MediaFile& file, const MediaUse& use)
{
    const bool hasOwn = project.family == Family::Xmeml || file.facts.frameTicks > 0;
    return hasOwn || !use.first ? file.format : use.first->format;
}

// The path that it now has, if that is another one.
std::string NewPathOf(const ListedMedia& media)
{
    return media.now.path == media.file->path ? std::string() : media.now.path;
}

std::string_view StateOf(const ListedMedia& media)
{
    if (media.file->path.empty())
        return "no file";
    if (media.now.search == MediaSearchResult::Ambiguous)
        return "several";
    return media.isThere ? "yes" : "no";
}

// In whole frames, also where audio starts between two.
std::string TimecodeOf(const ListedMedia& media, Ticks time)
{
    return media.format.Timecode(time - time % media.format.ticks);
}

std::string StartOf(const ListedMedia& media)
{
    const std::optional<Ticks>& start = media.file->facts.start;
    return start && !media.file->path.empty() ? TimecodeOf(media, *start) : "";
}

std::string LengthOf(const ListedMedia& media)
{
    const Ticks length = media.file->facts.length;
    return length > 0 ? TimecodeOf(media, length) : "";
}

// Without line ends, which a name may hold.
std::string Printable(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }, ' ');
    return text;
}

Row RowOf(const ListedMedia& media, bool hasNewPaths)
{
    Row row = {media.file->name, std::string(StateOf(media)), StartOf(media),
               LengthOf(media),  UintToString(media.uses),    media.file->path};
    if (hasNewPaths)
        row.push_back(NewPathOf(media));
    return row;
}

Row Heading(bool hasNewPaths)
{
    Row row = {"Name", "There", "Start", "Length", "Uses", "Path"};
    if (hasNewPaths)
        row.emplace_back("New path");
    return row;
}

} // namespace

std::vector<ListedMedia> ListMedia(const Project& project, MediaPaths* paths)
{
    const std::vector<MediaUse> uses = FindUses(project);
    std::vector<ListedMedia> list;
    std::map<std::string_view, std::size_t> byPath;
    for (std::size_t i = 0; i < project.mediaFiles.size(); ++i) {
        const MediaFile& file = project.mediaFiles[i];
        const auto [known, isNew] = byPath.try_emplace(file.path, list.size());
        if (!isNew && !file.path.empty()) {
            list[known->second].uses += uses[i].count;
            continue;
        }
        MediaPath now = paths ? paths->Find(file.path, file.facts) : MediaPath{.path = file.path};
        const bool isThere = !now.path.empty() && FileExists(now.path);
        list.push_back({.file = &file,
                        .format = FormatOf(project, file, uses[i]),
                        .now = std::move(now),
                        .isThere = isThere,
                        .uses = uses[i].count});
    }
    return list;
}

std::string MediaListText(const std::vector<ListedMedia>& list)
{
    if (list.empty())
        return "no media files\n";
    const bool hasNewPaths = std::ranges::any_of(
        list, [](const ListedMedia& media) { return !NewPathOf(media).empty(); });
    std::vector<Row> rows = {Heading(hasNewPaths)};
    for (const ListedMedia& media : list) {
        rows.push_back(RowOf(media, hasNewPaths));
        for (std::string& cell : rows.back())
            cell = Printable(std::move(cell));
    }
    return ColumnsText(rows);
}

std::string MediaListJson(const std::vector<ListedMedia>& list)
{
    using Json = nlohmann::ordered_json;
    Json array = Json::array();
    for (const ListedMedia& media : list) {
        Json json = {{"name", media.file->name}, {"path", media.file->path}};
        if (const std::string path = NewPathOf(media); !path.empty())
            json["newPath"] = path;
        if (!media.file->path.empty())
            json["there"] = media.isThere;
        if (media.now.candidates > 0)
            json["candidates"] = media.now.candidates;
        if (const std::string start = StartOf(media); !start.empty())
            json["start"] = start;
        if (const std::string length = LengthOf(media); !length.empty())
            json["length"] = length;
        json["uses"] = media.uses;
        array.push_back(std::move(json));
    }
    return JsonText(array, 2) + '\n';
}

std::string MediaListCsv(const std::vector<ListedMedia>& list)
{
    std::string text;
    const auto addLine = [&text](const Row& row) {
        std::string_view separator = "";
        for (const std::string& cell : row) {
            text.append(separator).append(CsvField(cell));
            separator = ",";
        }
        text += "\r\n";
    };
    addLine({"name", "there", "start", "length", "uses", "path", "new path"});
    for (const ListedMedia& media : list)
        addLine(RowOf(media, true));
    return text;
}

} // namespace XPJ::Inspection
