// Paths and `pathurl` values. All text is UTF-8; URLs have one form, local paths follow a style.
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
//   MakePathUrl("C:\\My Clip.mov") == "file://localhost/C%3a/My%20Clip.mov"
std::string MakePathUrl(std::string_view path);

// Local path of a `pathurl`; a relative one is resolved against the folder of `basePath`, its text
// up to and including the last separator. An escape that is none ends the decoding.
//   PathFromUrl("file://localhost/Volumes/a%20b.mov", "") == "/Volumes/a b.mov"
std::string PathFromUrl(std::string_view url, std::string_view basePath,
                        PathStyle style = kNativePathStyle);

// A path of this system from the current folder on; as it stands where that can't be told.
std::string AbsolutePath(std::string_view path);

// Text before the last separator; the whole path if there is none.
std::string_view DirectoryOf(std::string_view path, PathStyle style = kNativePathStyle);
// Text up to and including the last separator; empty if there is none.
std::string_view FolderOf(std::string_view path, PathStyle style = kNativePathStyle);
// Text after the last separator.
std::string_view FileNameOf(std::string_view path, PathStyle style = kNativePathStyle);
// Text after the last "."; empty without one or if a separator follows it.
std::string_view ExtensionOf(std::string_view path, PathStyle style = kNativePathStyle);

} // namespace XPJ
