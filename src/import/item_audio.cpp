#include "import/item_audio.h"

#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_fader.h"
#include "effects/audio_pan.h"
#include "import/item_effects.h"
#include "import/item_issues.h"
#include "xmeml/files.h"
#include "project/panners.h"
#include "import/streams.h"
#include "platform/platform.h"

#include <string>

namespace XPJ {

namespace {

ItemAudio SoundOfItem(const ImportState& state, ObjectHandle item, int channelType)
{
    const ObjectHandle file = FileOfItem(state, item);
    const int kind = file ? AudioKindOfFile(file).kind : kUnknownChannels;
    return {.channelType = channelType,
            .delayFrames = Int64Property(item, "mediadelay"),
            .stereoSource = kind == kStereo || kind == kStereoPair};
}

// A mono item is panned between the channels of a stereo track, unless the track is assigned to
// outputs itself.
bool CanPan(const TrackContext& context, int channelType, int trackType)
{
    return channelType == kMonoType && trackType == kStereoType &&
           context.sequence.groupType != kAdaptiveType;
}

EffectContext ContextOfLevel(const SequenceContext& sequence, const ItemPlace& place)
{
    return {.document = sequence.state.document,
            .issues = sequence.state.issues,
            .place = place,
            .frameTicks = sequence.rates.edges,
            .sampleTicks = sequence.rates.audio};
}

} // namespace

void AddItemSound(const TrackContext& context, ObjectHandle item, Frames start, int channelType,
                  int trackType, ObjectHandle trackItem)
{
    const SequenceContext& sequence = context.sequence;
    const ObjectHandle master = FindPath(trackItem, {"SubClip", "MasterClip"});
    const EffectContext effects = ContextOfItem(context, item, master, start);
    const ItemAudio sound = SoundOfItem(sequence.state, item, channelType);
    trackItem.AddChild("Components", BuildAudioChain(effects, sound, item));
    if (CanPan(context, channelType, trackType))
        trackItem.AddChild("Panner", MakeItemPanner(sequence.state.document,
                                                    TranslatePan(effects, sound, item),
                                                    sequence.rates.audio));
}

void ApplyTrackLevel(const TrackContext& context, ObjectHandle track, ObjectHandle result)
{
    const SequenceContext& sequence = context.sequence;
    ItemPlace place = PlaceOfItem(sequence.clock, track, context.type, context.index, 0);
    // Few tracks have a name; all have a number.
    const std::string number =
        GetMessage(Message::kAudioTrack, {IntToString(std::int64_t{context.index} + 1)});
    if (place.clip.empty())
        place.clip = number;
    ApplyFaderLevel(ContextOfLevel(sequence, place), track, result.GetChild("Components"));
}

void ApplyMasterLevel(const SequenceContext& context, ObjectHandle audio, ObjectHandle masterTrack)
{
    const ItemPlace place = {.sequence = context.clock.name,
                             .clip = context.clock.name, // the whole of it
                             .time = context.clock.TimecodeOf(0)};
    ApplyFaderLevel(ContextOfLevel(context, place), audio, masterTrack.GetChild("Components"));
}

} // namespace XPJ
