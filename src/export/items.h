// Items of picture tracks, and what items of both kinds have in common.
#pragma once

#include "export/track_context.h"
#include "export/item_times.h"
#include "export/media.h"

namespace XPJ::RVX {

// A track item and what it leads to. With neither a medium nor a sequence it shows nothing that the
// project still has.
struct ItemRecord {
    ObjectHandle item; // a VideoClipTrackItem or an AudioClipTrackItem
    ObjectHandle subClip;
    ObjectHandle clip; // a VideoClip or an AudioClip
    ObjectHandle masterClip;
    ObjectHandle medium;
    ObjectHandle sequence;
    ClipBoundaries boundaries;
    ItemTiming timing;
};

// Translates an item with the transitions that stand at it onto its track. An item without the
// parts that make one is left out.
void TranslateVideoItem(ExportContext& context, TrackPlace& track, ObjectHandle item);

// ---- Steps of items of both kinds, in their order

ItemRecord RecordOf(ExportContext& context, ObjectHandle item, const TrackPlace& track);
// `id`, `enabled`, `start`, `end`, `masterclipid`, `name` and `rate`.
void WriteItemHead(ExportContext& context, ItemRecord& record, ObjectHandle element);
// `file` and the browser's notes on the master; for an item that shows a sequence, the sequence. A
// source that can't be carried, or isn't there, is reported.
void WriteItemSource(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                     ObjectHandle element);
// Scale, label and markers of the clip; its speed goes into the record.
void ReadClipOptions(ExportContext& context, ItemRecord& record, ObjectHandle element);

// A head transition with an item before it has been written as the tail of that one, unless that
// one is not on this track: it may play none of its channels.
void TranslateHeadTransition(ExportContext& context, TrackPlace& track, ObjectHandle item);
void TranslateTailTransition(ExportContext& context, TrackPlace& track, ObjectHandle item);

} // namespace XPJ::RVX
