#include "export/master_audio.h"

#include "core/numbers.h"
#include "export/audio_channels.h"
#include "export/clip_media.h"
#include "export/media.h"
#include "project/accessors.h"

#include <algorithm>

namespace XPJ::RVX {

namespace {

ObjectHandle TranslateChannel(ExportContext& context, ConstHandle masterClip, ConstHandle medium,
                              int channel)
{
    const ObjectHandle item = NewClipItem(context, masterClip, medium);
    WriteSourceTrack(context, channel + 1, item);
    const ObjectHandle track = context.document.NewObject("track");
    track.AddChild(item);
    return track;
}

} // namespace

void WriteSourceTrack(ExportContext& context, std::int64_t number, ObjectHandle element)
{
    const ObjectHandle sourceTrack = context.document.NewObject("sourcetrack");
    sourceTrack.SetPropertyShared("mediatype", "audio");
    sourceTrack.SetProperty("trackindex", IntToString(number));
    element.AddChild(sourceTrack);
}

ObjectHandle TranslateMasterAudio(ExportContext& context, ConstHandle masterClip,
                                  ConstHandle medium)
{
    if (!AudioStreamOf(AudioMediumOfMaster(masterClip)))
        return {};
    const ObjectHandle audio = context.document.NewObject("audio");
    const ChannelLayout layout = ChannelLayoutOf(masterClip);
    if (layout.count > 0) {
        audio.SetProperty("channelcount", IntToString(layout.count));
        audio.SetProperty("channeltype", IntToString(layout.type));
    }
    for (int channel = 0; channel < std::max(layout.count, 1); ++channel)
        audio.AddChild(TranslateChannel(context, masterClip, medium, channel));
    return audio;
}

} // namespace XPJ::RVX
