// Items of picture tracks, and what items of both kinds have in common.
#pragma once

#include "export/item_times.h"
#include "export/media.h"
#include "export/track_context.h"

namespace XPJ::RVX {

// A track item and what it leads to. With neither a medium nor a sequence it shows nothing that the
// project still has.
struct ItemRecord {
    ConstHandle item; // a VideoClipTrackItem or an AudioClipTrackItem
    ConstHandle subClip;
    ConstHandle clip; // a VideoClip or an AudioClip
    ConstHandle masterClip;
    ConstHandle medium;
    ConstHandle sequence;
    ClipBoundaries boundaries;
    ItemTiming timing;
};

// Translates an item with the transitions that stand at it onto its track. An item without the
// parts that make one is left out.
void TranslateVideoItem(ExportContext& context, TrackPlace& track, ConstHandle item);

// ---- Steps of items of both kinds, in their order

ItemRecord RecordOf(ExportContext& context, ConstHandle item, const TrackPlace& track);
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
void TranslateHeadTransition(ExportContext& context, TrackPlace& track, ConstHandle item);
void TranslateTailTransition(ExportContext& context, TrackPlace& track, ConstHandle item);

} // namespace XPJ::RVX
