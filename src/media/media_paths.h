// Where the media files of documents are now: paths of another machine are mapped, and files that
// are not there are looked for by name.
//
// A name that only one file has is enough. Among several the one is taken that fits what the
// document states of the media: a file whose header states another length, frame rate or start is
// out, and of the others the one counts that agrees in the most facts, frame size, sample rate and
// channels among them. If two agree equally, none is taken: a wrong clip would go unnoticed, a
// missing one does not.
//
//   document      a.mov  1920x1080  start 01:00:00:00
//   /raid/1/a.mov        1920x1080  start 02:00:00:00     out
//   /raid/2/a.mov         960x540   start 01:00:00:00     agrees in one
//   /raid/3/a.mov        1920x1080  start 01:00:00:00     agrees in two: taken
#pragma once

#include "core/media_facts.h"
#include "media/media_search.h"
#include "media/path_map.h"

#include <cstddef>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace XPJ {

enum class MediaSearchResult {
    NotNeeded, // the file is there, or no folders were given
    Found,
    Ambiguous,
    NotFound,
};

struct MediaPath {
    std::string path; // where the file is, or would be
    bool isMapped = false;
    MediaSearchResult search = MediaSearchResult::NotNeeded;
    std::size_t candidates = 0; // of an ambiguous search
};

// For many documents and conversions, also at the same time.
class MediaPaths {
public:
    MediaPaths(PathMap map, std::vector<std::string> folders)
        : map_(std::move(map)), search_(std::move(folders))
    {
    }

    // For a path that a document states, decoded; an empty one stays empty. A path that is neither
    // mapped nor found elsewhere comes back as it is.
    MediaPath Find(const std::string& path, const MediaFacts& stated,
                   const StopCheck& wantsStop = {});

private:
    std::vector<std::string> FilesNamed(std::string_view name, const StopCheck& wantsStop);

    PathMap map_;
    std::mutex searching_;
    MediaSearch search_; // guarded by the mutex
};

// How what a document states and what a file's header states go together.
struct FactsFit {
    bool isOfOtherTime = false; // another length, frame rate or start
    int agreements = 0;
};
FactsFit CompareFacts(const MediaFacts& stated, const MediaFacts& found);

} // namespace XPJ
