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

ObjectHandle MakeTrackWithFader(Document& document, const AudioTrackFields& fields)
{
    const PannerFields& panner = fields.panner;
    const ObjectHandle track = MakeAudioTrack(document, fields);
    track.AddChild("Components",
                   MakeFader(document, panner.trackType, panner.groupChannels, panner.sampleTicks));
    return track;
}

void AddMasterTrack(Document& document, const AudioGroup& group, int trackCount, int groupType,
                    Ticks sampleTicks)
{
    MakeMasterTrack(document, group, trackCount, groupType, sampleTicks)
        .AddChild("Components", MakeFader(document, groupType, group.channels, sampleTicks));
}

} // namespace XPJ
