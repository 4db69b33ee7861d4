// What is translated, from the sequence down to the item: what each level shares, found once.
#pragma once

#include "core/channel_types.h"
#include "core/frame_format.h"
#include "core/media_type.h"
#include "core/ticks.h"
#include "import/import_state.h"
#include "xmeml/cut_points.h"
#include "xmeml/files.h"
#include "xmeml/item_times.h"
#include "xmeml/links.h"
#include "xmeml/rates.h"
#include "xmeml/sequences.h"
#include "xmeml/speed.h"

#include <string_view>

namespace XPJ {

struct SequenceContext {
    ImportState& state;
    ConstHandle sequence;       // the `sequence` element
    const SequenceItems& items; // of its tracks
    int number = 0;             // `ID` of the Sequence
    SequenceRates rates = {};
    SequenceTimecode timecode = {};
    FrameFormat frame = {};
    int groupType = kStereoType; // ChannelType of the audio track group
    int groupChannels = 2;       // its `NumAdaptiveChannels`
    bool exploded = false;       // multichannel audio is on several mono tracks
    LinkIndex links = {};
    Ticks end = 0; // of the last item so far
};

struct TrackContext {
    SequenceContext& sequence;
    MediaType type = MediaType::Video;
    int number = 1;     // among the document's tracks of the type, from 1; skipped ones count
    int lastNumber = 1; // of its last continuation
    int index = 0;      // among the project's tracks, from 0
    int id = 1;
};

struct ItemContext {
    const TrackContext& track;
    const ClipItem& element;
    const ShownMaster& shown; // has a clip of the track's type
    FileElement file = {};    // null without one
    ItemRates rates = {};
    ItemTimes times = {}; // none of which is missing any more
    ItemSpeed speed = {};
    ItemLocation location = {};
};

// An item by its track, which counts from 0, and the edges, in their unit, at which it starts and
// ends.
struct ItemPosition {
    MediaType type = MediaType::Video;
    int trackIndex = 0;
    Frames start = 0;
    Frames end = -1; // negative: not known
};
// Without the time: only issues state it.
ItemLocation LocationOfItem(const SequenceTimecode& timecode, std::string_view name,
                            const ItemPosition& position);
ItemLocation LocationOfItem(const TrackContext& track, std::string_view name, Frames start,
                            Frames end = -1);
ItemLocation LocationOfIssue(const SequenceTimecode& timecode, std::string_view name,
                             const ItemPosition& position);
ItemLocation LocationOfIssue(const TrackContext& track, std::string_view name, Frames start,
                             Frames end = -1);
void AddItemIssue(const TrackContext& track, ConstHandle item, Frames start, ImportIssue kind);

} // namespace XPJ
