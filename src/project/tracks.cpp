#include "project/tracks.h"

#include "core/media_type.h"
#include "core/numbers.h"
#include "platform/platform.h"

namespace XPJ {

namespace {

constexpr int kMasterTrackId = 1;

} // namespace

ObjectHandle MakeVideoTrack(Document& document, int index, int id)
{
    const ObjectHandle track = document.NewObject("VideoClipTrack");
    track.SetProperty("Index", IntToString(index));
    track.SetProperty("ID", IntToString(id));
    track.SetPropertyShared("IsLocked", "false");
    track.SetPropertyShared("IsMuted", "false");
    return track;
}

ObjectHandle MakeAudioTrack(Document& document, const AudioTrackFields& fields)
{
    const PannerFields& panner = fields.panner;
    const ObjectHandle track = document.NewObject("AudioClipTrack");
    track.SetProperty("Index", IntToString(fields.index));
    track.SetProperty("ID", IntToString(fields.id));
    track.SetProperty("ChannelType", IntToString(panner.trackType));
    track.SetProperty("FrameRate", TickText(panner.sampleTicks));
    track.SetPropertyShared("IsMuted", "false");
    track.SetPropertyShared("IsLocked", "false");
    track.SetProperty("AudioTrackID", NewGuidText());
    track.SetPropertyShared("Assign", "1");
    track.SetPropertyShared("NextPannerID", kNextPannerId);
    track.AddChild("Components", fields.fader);
    track.AddChild("Panner", MakeTrackPanner(document, panner));
    return track;
}

ObjectHandle MakeVideoGroup(Document& document, Ticks frameTicks, std::string_view frameRect,
                            std::string_view aspect)
{
    const ObjectHandle group = document.NewObject("VideoTrackGroup");
    group.SetPropertyShared("mediatype", MediaTypeText(MediaType::Video));
    group.SetProperty("FrameRate", TickText(frameTicks));
    group.SetProperty("FrameRect", frameRect);
    group.SetProperty("PixelAspectRatio", aspect);
    return group;
}

AudioGroup MakeAudioGroup(Document& document, Ticks sampleTicks, int channels, int inletType)
{
    AudioGroup result{document.NewObject("AudioTrackGroup"), document.NewObject("AudioTrackInlet"),
                      channels};
    result.group.SetProperty("ID", NewGuidText());
    result.group.SetPropertyShared("mediatype", MediaTypeText(MediaType::Audio));
    result.group.SetProperty("FrameRate", TickText(sampleTicks));
    result.group.SetProperty("NumAdaptiveChannels", IntToString(channels));
    result.inlet.SetProperty("FrameRate", TickText(sampleTicks));
    result.inlet.SetProperty("ChannelType", IntToString(inletType));
    return result;
}

void AddAudioTrack(const AudioGroup& group, ObjectHandle track)
{
    group.group.AddChild("Track", track);
    group.inlet.AddChild("Source", track);
}

void AddMasterTrack(Document& document, const AudioGroup& group, const MasterTrackFields& fields)
{
    const int type = fields.groupType;
    const ObjectHandle master = document.NewObject("AudioMixTrack");
    master.SetProperty("Index", IntToString(fields.index));
    master.SetProperty("ID", IntToString(kMasterTrackId));
    master.SetProperty("AudioTrackID", NewGuidText());
    master.SetProperty("ChannelType", IntToString(type));
    master.SetProperty("FrameRate", TickText(fields.sampleTicks));
    master.SetPropertyShared("NextPannerID", kNextPannerId);
    master.AddChild("Components", fields.fader);
    master.AddChild("Panner", MakeDefaultPanner(document, type, type, fields.sampleTicks));
    master.AddChild("Inlet", group.inlet);
    group.group.AddChild("MasterTrack", master);
}

} // namespace XPJ
