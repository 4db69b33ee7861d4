// Groups and tracks of video, and what all tracks have in common.
#pragma once

#include "export/track_context.h"

#include <string_view>
#include <vector>

namespace XPJ::RVX {

// A written track whose items are still to be translated onto it, one by one.
struct OpenTrack {
    TrackContext track;
    std::vector<ItemPart> items;
};

// Adds the `video` of a VideoTrackGroup to a `media`, with its format and its empty tracks.
std::vector<OpenTrack> TranslateVideoGroup(ExportContext& context, const SequenceContext& sequence,
                                           ConstHandle group, ObjectHandle media);

// A remark about the name of a track whose element has none. `usual` is the host's name for any
// track of the type: "Video".
void ReportTrackName(ExportContext& context, const TrackContext& track, ConstHandle projectTrack,
                     std::string_view usual);

// Writes `locked`, `enabled` and the user's targeting of a project track.
void WriteTrackState(const ExportContext& context, ConstHandle projectTrack, bool isOff,
                     ObjectHandle track);

} // namespace XPJ::RVX
