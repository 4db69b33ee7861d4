// What items of video and of audio tracks have in common: what they lead to, and the steps by which
// they are written.
#pragma once

#include "export/catalogs.h"
#include "export/item_times.h"
#include "export/track_context.h"

#include <string_view>

namespace XPJ::RVX {

// A track item and what it leads to. With neither media nor a sequence it shows nothing that the
// project still has.
struct ItemRecord {
    TrackItem item;
    ItemLocation location;
    bool isRepeated = false; // it is written already, on another track
    ShownAngle angle;        // of a multiclip
    ConstHandle subClip;
    ConstHandle clip;      // a VideoClip or an AudioClip
    ConstHandle shownClip; // the same; of a multiclip that of its active angle
    MasterClip masterClip;
    Media media;
    ConstHandle sequence;
    ClipBoundaries boundaries;
    ItemTiming timing;

    // Of the written element.
    std::string_view id = {};
    std::string_view masterClipId = {};
    std::string_view name = {};

    Ticks Start() const { return Int64Property(item, "Start"); }
    Ticks End() const { return Int64Property(item, "End"); }
};

ItemRecord ReadItem(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                    TrackItem item);
// At the item, once for all tracks on which it is written.
void AddRemark(ExportContext& context, const ItemRecord& record, RemarkKind kind,
               const RemarkSubject& subject = {});
// About edges between frames, labels, and what of a multiclip isn't shown.
void ReportItem(ExportContext& context, const TrackContext& track, const ItemRecord& record);

// ---- Steps of items of both types, in their order

// `id`, `enabled`, `start`, `end`, `masterclipid`, `name` and `rate`; ids and name go into the
// record.
void WriteItemHead(ExportContext& context, MasterCatalog& masters, ItemRecord& record,
                   ObjectHandle element);
// Scale, label and markers of the clip; its speed goes into the record.
void WriteClipOptions(ExportContext& context, ItemRecord& record, ObjectHandle element);

// What an item shows: the file of its media, or a sequence.
struct ItemSource {
    // Items of a link group are linked when they show the same; may be empty.
    std::string_view linkKey = {};
    NestedSequence nested = {}; // to be written in the item
};

// Adds `file` and the browser's comments on the master, or the reference `sequenceid` of an item
// that shows a written sequence. A source that can't be carried, or isn't there, is reported.
ItemSource WriteItemSource(ExportContext& context, Catalogs& catalogs, const TrackContext& track,
                           const ItemRecord& record, ObjectHandle element);

// A head transition with an item before it has been written as the tail of that one, unless that
// one is not on this track, as it may play none of its channels, or doesn't have it. In open
// interchange it is written then; to the letter it is lost.
void TranslateHeadTransition(ExportContext& context, TrackContext& track, const ItemRecord& record);
void TranslateTailTransition(ExportContext& context, TrackContext& track, TrackItem item);

} // namespace XPJ::RVX
