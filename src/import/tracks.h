// Tracks of a Sequence and the groups that hold them.
#pragma once

#include "core/ticks.h"
#include "import/import_state.h"
#include "import/item_issues.h"
#include "import/links.h"
#include "project/panners.h"
#include "import/sequences.h"
#include "tree/object.h"

#include <string>
#include <string_view>

namespace XPJ {

// What all tracks of one sequence share while it is filled.
struct SequenceContext {
    ImportState& state;
    ObjectHandle sequence = {}; // the `sequence` element
    ObjectHandle projectSequence = {};
    int number = 0; // `ID` of the Sequence
    SequenceRates rates = {};
    SequenceClock clock = {};
    std::string frameRect = {};
    std::string_view aspect = {}; // of pixels
    int groupType = kStereoType;  // ChannelType of the audio track group
    int groupChannels = 2;        // its `NumAdaptiveChannels`
    bool exploded = false;        // multichannel sound lies on several mono tracks
    LinkIndex links = {};
    Ticks end = 0; // of the last item so far
};

struct TrackContext {
    SequenceContext& sequence;
    MediaType type = MediaType::Video;
    int number = 1;     // among the document's tracks of the type, from 1; left-out ones count
    int lastNumber = 1; // of its last continuation
    int index = 0;      // among the project's tracks, from 0
    int id = 1;
};

// `VideoTrackGroup` and `AudioTrackGroup` with all tracks of a sequence. A group without tracks
// gets an empty one.
ObjectHandle TranslateVideoTracks(SequenceContext& context, ObjectHandle video);
ObjectHandle TranslateAudioTracks(SequenceContext& context, ObjectHandle audio, int outputs);

// ChannelType of an audio `track`.
int TrackChannelType(const ImportState& state, ObjectHandle track);

// True for a `track` that only carries further channels of the track before it.
bool IsContinuationTrack(ObjectHandle track);

// ---- Empty tracks and groups, also for sequences that no `sequence` element stands behind

// Unlocked and audible or visible.
ObjectHandle MakeVideoTrack(Document& document, int index, int id);
ObjectHandle MakeAudioTrack(Document& document, int index, int id, const PannerForm& panner);

struct AudioGroup {
    ObjectHandle group;
    ObjectHandle inlet;
    int channels = 0; // `NumAdaptiveChannels`: how many adaptive tracks and masters have
};
AudioGroup MakeAudioGroup(Document& document, Ticks sampleTicks, int channels,
                          int inletType = kMonoType);
void AddAudioTrack(const AudioGroup& group, ObjectHandle track);
// Ends a group: `trackCount` tracks are in it.
void AddMasterTrack(Document& document, const AudioGroup& group, int trackCount, int groupType,
                    Ticks sampleTicks);

} // namespace XPJ
