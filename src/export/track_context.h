// Where an item is: in its sequence, on its written track, and in the report.
#pragma once

#include "export/export_context.h"

#include <string>
#include <string_view>

namespace XPJ::RVX {

// A project sequence whose tracks are being translated.
struct SequenceContext {
    ConstHandle sequence;
    Ticks frameTicks = kNtscFrameTicks; // of its video; transitions and issues count in it
    FrameSpan numbering = {};           // how it numbers its frames
};
// Throws DocumentFault for frames of no length.
SequenceContext ContextOfSequence(ConstHandle sequence, Ticks frameTicks);

// A written track that is being filled.
struct TrackContext {
    SequenceContext sequence;
    MediaType type = MediaType::Video;
    TimeUnit unit = TimeUnit::Frames; // of the times on it
    int index = 0;                    // from 0, among the project's tracks of its type
    int number = 1;                   // from 1, among the written ones: `trackindex` of a link
    ObjectHandle element;
    int itemCount = 0;               // items and transitions on it
    ConstHandle lastTransition = {}; // of the project, the last one that was translated

    // From 1: `clipindex` of a link to the next item.
    int NextPosition() const { return itemCount + 1; }
    void Add(ObjectHandle item)
    {
        element.AddChild(item);
        ++itemCount;
    }
};

// What of an item goes onto a written track: all of it, or one channel of its audio.
struct ItemPart {
    TrackItem item;
    int channel = 0; // from 0, of the project's track
    bool isExploded = false;
};

// The sequence's timecode at a time in it.
std::string FormatItemTime(const SequenceContext& context, Ticks start);

ItemLocation LocationOfTrack(const TrackContext& track);
// Of an item or a transition, with its span and without its `time`, which only issues need.
ItemLocation LocationOfItem(const TrackContext& track, ConstHandle item, std::string_view clipName);

// How far a time on the track is behind the frame at which it is written.
Ticks BehindFrame(Ticks time, const TrackContext& track);
// "0.25 frames"
std::string FramesText(Ticks ticks, const SequenceContext& context);

// From `start` to `end` in the sequence; a negative time is not known.
FrameSpan SpanOf(const SequenceContext& context, Ticks start, Ticks end = -1);

// A sequence, and the master that leads to it.
struct ShownSequence {
    ConstHandle sequence;
    MasterClip masterClip;
};

// A clip item that shows a sequence of which nothing is written yet: it is to be written in the
// item, before the next item of the track. Without a sequence there is nothing to do.
struct NestedSequence {
    ShownSequence shown;
    ObjectHandle clipItem;
};

} // namespace XPJ::RVX
