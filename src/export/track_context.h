// Where a track item stands: in its sequence, on its written track, and in the report.
#pragma once

#include "export/export_context.h"
#include "project/accessors.h"

#include <string>
#include <string_view>

namespace XPJ::RVX {

// A project sequence whose tracks are being translated.
struct SequencePlace {
    ConstHandle sequence;
    Ticks frameTicks = kNtscFrameTicks; // of its picture; transitions and findings count in it
};

// A written track that is being filled.
struct TrackPlace {
    SequencePlace sequence;
    MediaType kind = MediaType::Video;
    int index = 0;                   // from 0, among the project's tracks of its kind
    int number = 1;                  // from 1, among the written ones: `trackindex` of a link
    ObjectHandle track;              // the written one
    int itemCount = 0;               // items and transitions on it
    ConstHandle lastTransition = {}; // of the project, the last one that was translated

    // From 1: `clipindex` of a link to the next item.
    int NextPosition() const { return itemCount + 1; }
    void Add(ObjectHandle item)
    {
        track.AddChild(item);
        ++itemCount;
    }
};

// The sequence's timecode at a time in it.
std::string FormatItemTime(const SequencePlace& place, Ticks start);

// The place of what starts at `start` on the track.
ItemPlace PlaceOfItem(const TrackPlace& track, Ticks start, std::string_view clipName);

// Enters a finding about what starts at `start` on the track.
void AddItemIssue(ExportContext& context, const TrackPlace& track, Ticks start, ExportIssue kind,
                  std::string_view clipName, std::string_view subject = {});

} // namespace XPJ::RVX
