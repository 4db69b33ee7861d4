// Paths and `pathurl` values, in UTF-8. URLs are alike everywhere, local paths have a style.
#pragma once

#include <string>
#include <string_view>

namespace XPJ {

enum class PathStyle {
    Windows, // "C:\Media\a.mov", "\\server\share\a.mov"
    Posix,   // "/Volumes/Media/a.mov"
};

constexpr PathStyle kNativePathStyle = PathStyle::Posix;

// `pathurl` text of a local path of either style.
//   MakePathUrl("/Footage/Day 1/a.mov") == "file://localhost/Footage/Day%201/a.mov"
std::string MakePathUrl(std::string_view path);

// Local path of a `pathurl`; a relative one is resolved against the folder of `basePath`, its text
// up to and including the last separator. An escape that is none ends the decoding.
//   PathFromUrl("file://localhost/Footage/Day%201/a.mov", "") == "/Footage/Day 1/a.mov"
std::string PathFromUrl(std::string_view url, std::string_view basePath,
                        PathStyle style = kNativePathStyle);

// A path of this system, made absolute; unchanged where the current folder can't be found out.
std::string AbsolutePath(std::string_view path);

// The folder with its separator at the end; empty for a name alone.
std::string_view FolderOf(std::string_view path, PathStyle style = kNativePathStyle);
// Text after the last separator.
std::string_view FileNameOf(std::string_view path, PathStyle style = kNativePathStyle);
// Text after the last "."; empty without one or if a separator follows it.
std::string_view ExtensionOf(std::string_view path, PathStyle style = kNativePathStyle);

} // namespace XPJ
