#include "import/audio_tracks.h"

#include "effects/audio_fader.h"

namespace XPJ {

namespace {

ObjectHandle MakeFader(Document& document, int channelType, int groupChannels, Ticks sampleTicks)
{
    const int channels = channelType == kAdaptiveType ? groupChannels : ChannelCountOf(channelType);
    return MakeFaderChain(
        document, {.channelType = channelType, .channels = channels, .sampleTicks = sampleTicks});
}

} // namespace

ObjectHandle MakeTrackWithFader(Document& document, AudioTrackFields fields)
{
    const PannerFields& panner = fields.panner;
    fields.fader = MakeFader(document, panner.trackType, panner.groupChannels, panner.sampleTicks);
    return MakeAudioTrack(document, fields);
}

void AddMasterWithFader(Document& document, const AudioGroup& group, int trackCount, int groupType,
                        Ticks sampleTicks)
{
    const ObjectHandle fader = MakeFader(document, groupType, group.channels, sampleTicks);
    AddMasterTrack(document, group, {trackCount, groupType, sampleTicks, fader});
}

} // namespace XPJ
