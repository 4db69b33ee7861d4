#include "import/item_effects.h"

#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_pan.h"
#include "effects/video_chain.h"
#include "import/effect_contexts.h"
#include "project/panners.h"
#include "xmeml/file_audio.h"

namespace XPJ {

namespace {

ItemAudio AudioOfItem(const FileCatalog& files, ConstHandle item, int channelType)
{
    const FileElement file = FileOfItem(files, item);
    const int kind = file ? AudioKindOfFile(file).kind : kUnknownChannels;
    return {.channelType = channelType,
            .delayFrames = Int64Property(item, "mediadelay"),
            .stereoSource = kind == kStereo || kind == kStereoPair};
}

// A mono item is panned between the channels of a stereo track, unless the track is assigned to
// outputs itself.
bool CanPan(const SequenceContext& sequence, const ItemChannels& channels)
{
    return channels.itemType == kMonoType && channels.trackType == kStereoType &&
           sequence.groupType != kAdaptiveType;
}

} // namespace

ObjectHandle MakeItemVideoChain(const TrackContext& track, const ClipItem& item, Frames start,
                                ObjectHandle subClip)
{
    const Import& import = track.sequence.import;
    const BuiltMaster master(subClip.GetChild("MasterClip"));
    const EffectContext context = ContextOfItem(track, item, master, start);
    const ObjectHandle title =
        TitleOfItem(import.document, import.titles, item, context.sequenceFrame, master);
    return BuildSequenceChain(context, item, subClip, IntToString(track.sequence.number), title);
}

void AddItemAudioEffects(const TrackContext& track, const ClipItem& item, Frames start,
                         const ItemChannels& channels, ObjectHandle trackItem)
{
    const SequenceContext& sequence = track.sequence;
    Document& document = sequence.import.document;
    const BuiltMaster master(FindPath(trackItem, {"SubClip", "MasterClip"}));
    const EffectContext effects = ContextOfItem(track, item, master, start);
    const ItemAudio audio = AudioOfItem(sequence.import.files, item, channels.itemType);
    const ConstHandle source = item;
    trackItem.AddChild("Components", BuildAudioChain(effects, audio, source));
    if (CanPan(sequence, channels))
        trackItem.AddChild("Panner", MakeItemPanner(document, TranslatePan(effects, audio, source),
                                                    sequence.rates.audio));
}

} // namespace XPJ
