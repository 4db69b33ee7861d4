#include "project/clips.h"

#include "core/media_type.h"
#include "core/numbers.h"
#include "core/ticks.h"
#include "project/objects.h"

namespace XPJ {

namespace {

ObjectHandle MakeClip(Document& document, MediaType type, ObjectHandle source,
                      const ClipFields& fields)
{
    const ObjectHandle clip =
        document.NewObject(type == MediaType::Video ? Name("VideoClip") : Name("AudioClip"));
    clip.SetProperty("ClipID", NewGuidText());
    clip.SetPropertyShared("FrameRate", source.GetProperty("FrameRate"));
    if (fields.speed != 1.0)
        clip.SetProperty("PlaybackSpeed", DoubleToString(fields.speed));
    if (fields.playBackwards)
        clip.SetPropertyShared("PlayBackwards", "true");
    clip.SetPropertyShared("InUse", BoolText(fields.inUse));
    clip.AddChild("Source", source);
    return clip;
}

} // namespace

ObjectHandle MakeVideoClip(Document& document, ObjectHandle source, const ClipFields& fields)
{
    const ObjectHandle clip = MakeClip(document, MediaType::Video, source, fields);
    clip.SetPropertyShared("ScaleToFrameSize", BoolText(fields.scaleToFrameSize));
    clip.SetPropertyShared("FieldProcessing", "0");
    clip.SetPropertyShared("ReverseFieldDominance", "false");
    clip.SetPropertyShared("DeinterlaceOnHold", "false");
    clip.SetPropertyShared("HoldFilters", "false");
    clip.SetPropertyShared("FrameHold", "0");
    clip.SetProperty("FrameHoldStart", TickText(kNoTime));
    clip.SetPropertyShared("PosterFrame", "0");
    if (fields.frameBlending)
        clip.SetPropertyShared("TimeInterpolationType", "1");
    return clip;
}

ObjectHandle MakeAudioClip(Document& document, ObjectHandle source, const ClipFields& fields)
{
    return MakeClip(document, MediaType::Audio, source, fields);
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
    const ObjectHandle channel = document.NewObject("SecondaryContent");
    channel.SetProperty("ChannelIndex", UintToString(channelIndex));
    channel.AddChild("Content", content);
    audioClip.AddChild("SecondaryContentItem", channel);
}

} // namespace XPJ
