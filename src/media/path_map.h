// Prefixes of media paths and what replaces them: where the volumes of another machine are here.
//
// Paths are compared as a reader of a document decodes them, component by component. Backslashes
// count as slashes, and a drive is the same in either case and with or without a leading slash;
// everything else is compared byte for byte. Of several prefixes that fit the longest counts.
//
//   PathMap map;
//   map.Add("/Volumes/Media", "/mnt/raid");
//   map.Add("C:\\Show", "/mnt/show");
//   map.Mapped("/Volumes/Media/day 1/a.mov")    "/mnt/raid/day 1/a.mov"
//   map.Mapped("/Volumes/Media 2/a.mov")        nothing
//   map.Mapped("c:/Show/b.wav")                 "/mnt/show/b.wav"
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace XPJ {

class PathMap {
public:
    // Both are paths, or URLs that begin with "file:". Of two equal prefixes the first one counts.
    // False, and nothing is added, if one is empty.
    bool Add(std::string_view oldPrefix, std::string_view newPrefix);
    bool IsEmpty() const { return prefixes_.empty(); }

    // The path with its prefix replaced; nothing where no prefix fits or the path stays the same.
    std::optional<std::string> Mapped(std::string_view path) const;

private:
    std::unordered_map<std::string, std::string> prefixes_; // without the last separator
};

// Adds the pairs of a text with a line `old,new` each; the first may be the heading "old,new".
// Gives what is wrong with the first line that is no such pair, after the name of the text:
//   "moved.csv:3: one of the two paths is empty"
// An empty text is success.
std::string AddPathPairs(std::string_view csv, std::string_view name, PathMap& map);
std::string AddPathFile(const std::string& path, PathMap& map);

} // namespace XPJ
