// The media files of a document: where they are, what is known of them, how often they are used.
#pragma once

#include "inspect/timeline.h"
#include "media/media_paths.h"

#include <cstddef>
#include <string>
#include <vector>

namespace XPJ::Inspection {

struct ListedMedia {
    const MediaFile* file = nullptr;
    TimecodeFormat format; // of its times
    MediaPath now;         // where the file is, or would be; empty for one that is generated
    bool isThere = false;
    std::size_t uses = 0; // by items of tracks
};

// Each path once, in the order of the document; its files may have several ids. `paths` finds
// the files; null: they are where the document states.
std::vector<ListedMedia> ListMedia(const Project& project, MediaPaths* paths);

// A line for each, below a heading, in columns.
std::string MediaListText(const std::vector<ListedMedia>& list);
std::string MediaListJson(const std::vector<ListedMedia>& list);
// As RFC 4180 has it, with a heading.
std::string MediaListCsv(const std::vector<ListedMedia>& list);

} // namespace XPJ::Inspection
