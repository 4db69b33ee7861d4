#include "import/slugs.h"

#include "import/audio_tracks.h"
#include "import/master_builder.h"
#include "import/presets.h"
#include "import/project_items.h"
#include "project/clips.h"
#include "project/synthetic_items.h"
#include "project/synthetic_media.h"
#include "xmeml/file_audio.h"
#include "xmeml/files.h"
#include "xmeml/formats.h"

#include <algorithm>

namespace XPJ {

namespace {

// The black clip; its item is made with the first slug.
BuiltMaster BlackClipFor(Import& import, ObjectHandle parentItem)
{
    if (!import.generators.blackVideo)
        MakeClipProjectItem(import, {}, BlackMaster(import), parentItem)
            .SetPropertyShared("Name", kSlugSequenceName);
    return import.generators.blackVideo;
}

ObjectHandle MakeSlugVideo(Document& document, BuiltMaster black, const FrameFormat& frame,
                           Ticks frameTicks)
{
    const ObjectHandle clip = MakePlainVideoClip(document, black.VideoClip().GetChild("Source"));
    const ObjectHandle track = MakeVideoTrack(document, 0, 1);
    track.AddChild("TrackItem", MakeSyntheticVideoItem(document,
                                                       {.name = kSlugSequenceName,
                                                        .clip = clip,
                                                        .master = black,
                                                        .end = kSlugSequenceDuration},
                                                       frame.rect, frame.par));
    const ObjectHandle group = MakeVideoGroup(document, frameTicks, frame.rect, frame.par);
    group.AddChild("Track", track);
    group.SetPropertyShared("NextTrackID", "2");
    return group;
}

ObjectHandle MakeSlugAudio(Document& document, bool isHandoff)
{
    const AudioGroup group = MakeAudioGroup(document, kSampleTicks48k, ChannelCountOf(kStereoType));
    AddAudioTrack(group, MakeTrackWithFader(
                             document, {.index = 0, .id = 2, .panner = {.handoff = isHandoff}}));
    group.group.SetPropertyShared("NextTrackID", "3");
    AddMasterWithFader(document, group, 1, kStereoType, kSampleTicks48k);
    return group.group;
}

ObjectHandle MakeSlugSequence(Import& import, BuiltMaster black, const FrameFormat& frame,
                              Ticks frameTicks)
{
    Document& document = import.document;
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", kSlugSequenceName);
    import.sequences.Begin(sequence);
    sequence.AddChild("TrackGroup", MakeSlugVideo(document, black, frame, frameTicks));
    sequence.AddChild("TrackGroup", MakeSlugAudio(document, import.options.sn2vlMode));
    sequence.AddChild("Markers", document.NewObject("Markers"));
    sequence.AddChild("DVDMarkers", document.NewObject("DVDMarkers"));
    PresetFromFormat(frameTicks, frame, sequence);
    return sequence;
}

} // namespace

void TranslateSlug(Import& import, const ClipItem& element, const FileUse& use,
                   ObjectHandle parentItem)
{
    const std::string_view fileId = import.files.IdOf(use.file);
    if (fileId.empty())
        return;
    Document& document = import.document;
    const BuiltMaster black = BlackClipFor(import, parentItem);
    const Ticks stated = TicksOfRate(element.GetChild("rate"));
    const Ticks frameTicks = stated != 0 ? stated : kNtscFrameTicks;
    const FrameFormat frame = FrameOfFile(use.element, use.file, use.characteristics);
    const ObjectHandle sequence = MakeSlugSequence(import, black, frame, frameTicks);

    MediaSources sources;
    sources.video.push_back(MakeMasterSequenceSource(document, MediaType::Video, sequence,
                                                     frameTicks, kSlugSequenceDuration));
    sources.audio.push_back(MakeMasterSequenceSource(document, MediaType::Audio, sequence,
                                                     kSampleTicks48k, kSlugSequenceDuration));
    AudioKind audio = AudioKindOfFile(use.file);
    audio.kind = std::max<int>(audio.kind, kMono);
    const BuiltMaster master =
        BuildMasterClip(import, import.files, element,
                        {.sources = sources, .audio = SplitStereo(import.options, audio, false)});
    if (RegisterMaster(import.masters.registry,
                       {.masterClipId = element.GetProperty("masterclipid"),
                        .mediaId = fileId,
                        .hasAudio = true},
                       master))
        MakeClipProjectItem(import, element, master, parentItem);
}

BuiltMaster BlackMaster(Import& import)
{
    BuiltMaster& black = import.generators.blackVideo;
    if (!black) {
        const MediaSources sources =
            MakeSyntheticSources(import.document, MediaKind::BlackVideo, 0, {});
        black = BuildMasterClip(import, import.files, {},
                                {.sources = sources, .name = kSlugSequenceName});
    }
    return black;
}

} // namespace XPJ
