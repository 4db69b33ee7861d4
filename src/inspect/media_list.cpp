#include "inspect/media_list.h"

#include "core/csv.h"
#include "core/numbers.h"
#include "inspect/columns.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

std::vector<std::size_t> CountUses(const Project& project)
{
    std::vector<std::size_t> uses(project.mediaFiles.size());
    for (const Sequence& sequence : project.sequences)
        for (const Track& track : sequence.tracks)
            for (const Item& item : track.items)
                if (item.mediaFile != kNothing)
                    ++uses[item.mediaFile];
    return uses;
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

std::string StartOf(const ListedMedia& media)
{
    return media.file->facts.start ? media.file->format.Timecode(media.file->start) : "";
}

// In whole frames; of audio alone in any.
std::string LengthOf(const ListedMedia& media)
{
    const TimecodeFormat& format = media.file->format;
    const Ticks length = media.file->facts.length;
    return length > 0 ? format.Timecode(length - length % format.ticks) : "";
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

std::vector<ListedMedia> ListMedia(const Project& project, MediaPaths* paths,
                                   const StopCheck& wantsStop)
{
    const std::vector<std::size_t> uses = CountUses(project);
    std::vector<ListedMedia> list;
    std::map<std::string_view, std::size_t> byPath;
    for (std::size_t i = 0; i < project.mediaFiles.size(); ++i) {
        if (wantsStop && wantsStop())
            break;
        const MediaFile& file = project.mediaFiles[i];
        const auto [known, isNew] = byPath.try_emplace(file.path, list.size());
        if (!isNew && !file.path.empty()) {
            list[known->second].uses += uses[i];
            continue;
        }
        MediaPath now =
            paths ? paths->Find(file.path, file.facts, wantsStop) : MediaPath{.path = file.path};
        const bool isThere = !now.path.empty() && FileExists(now.path);
        list.push_back({&file, std::move(now), isThere, uses[i]});
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
    return array.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
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
