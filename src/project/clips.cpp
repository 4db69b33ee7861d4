#include "project/clips.h"

#include "core/numbers.h"
#include "core/ticks.h"
#include "project/objects.h"

namespace XPJ {

namespace {

// How a clip of either type plays its source.
void AddPlayback(ObjectHandle source, const ClipFields& fields, ObjectHandle clip)
{
    if (fields.speed != 1.0)
        clip.SetProperty("PlaybackSpeed", DoubleToString(fields.speed));
    if (fields.playBackwards)
        clip.SetPropertyShared("PlayBackwards", "true");
    clip.AddChild("Source", source);
}

} // namespace

ObjectHandle MakeVideoClip(Document& document, ObjectHandle source, const ClipFields& fields)
{
    const ObjectHandle clip =
        document.NewObject("VideoClip", {{"ClipID", document.Store(NewGuidText())},
                                         {"FrameRate", source.GetProperty("FrameRate")},
                                         {"InUse", BoolText(fields.inUse)}});
    if (fields.scaleToFrameSize)
        clip.SetPropertyShared("ScaleToFrameSize", "true");
    AddPlayback(source, fields, clip);
    if (fields.frameBlending)
        clip.SetPropertyShared("TimeInterpolationType", "1");
    return clip;
}

ObjectHandle MakeAudioClip(Document& document, ObjectHandle source, const ClipFields& fields)
{
    const ObjectHandle clip =
        document.NewObject("AudioClip", {{"ClipID", document.Store(NewGuidText())},
                                         {"FrameRate", source.GetProperty("FrameRate")},
                                         {"InUse", BoolText(fields.inUse)}});
    AddPlayback(source, fields, clip);
    return clip;
}

ObjectHandle MakePlainVideoClip(Document& document, ObjectHandle source)
{
    const ObjectHandle clip = MakeVideoClip(document, source, {.inUse = true});
    clip.AddChild("Markers", document.NewObject("Markers"));
    return clip;
}

void AddChannel(Document& document, ObjectHandle audioClip, std::uint64_t channelIndex,
                ObjectHandle content)
{
    const ObjectHandle channel = document.NewObject(
        "SecondaryContent", {{"ChannelIndex", document.Store(UintToString(channelIndex))}});
    channel.AddChild("Content", content);
    audioClip.AddChild("SecondaryContentItem", channel);
}

} // namespace XPJ
