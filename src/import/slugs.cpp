#include "import/slugs.h"

#include "import/masters.h"
#include "import/presets.h"
#include "import/project_items.h"
#include "import/tracks.h"
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
MasterClipHandle BlackClipFor(ImportState& state, ObjectHandle parentItem)
{
    if (!state.generators.blackVideo)
        MakeClipProjectItem(state, {}, BlackMaster(state), parentItem)
            .SetPropertyShared("Name", kSlugSequenceName);
    return state.generators.blackVideo;
}

ObjectHandle MakeSlugVideo(Document& document, MasterClipHandle black, const FrameFormat& frame,
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

ObjectHandle MakeSlugSequence(ImportState& state, MasterClipHandle black, const FrameFormat& frame,
                              Ticks frameTicks)
{
    Document& document = state.document;
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", kSlugSequenceName);
    state.sequences.Begin(sequence);
    sequence.AddChild("TrackGroup", MakeSlugVideo(document, black, frame, frameTicks));
    sequence.AddChild("TrackGroup", MakeSlugAudio(document, state.options.sn2vlMode));
    sequence.AddChild("Markers", document.NewObject("Markers"));
    sequence.AddChild("DVDMarkers", document.NewObject("DVDMarkers"));
    PresetFromFormat(frameTicks, frame, sequence);
    return sequence;
}

} // namespace

void TranslateSlug(ImportState& state, const ClipItem& element, const FileUse& use,
                   ObjectHandle parentItem)
{
    const std::string_view fileId = state.files.IdOf(use.file);
    if (fileId.empty())
        return;
    Document& document = state.document;
    const MasterClipHandle black = BlackClipFor(state, parentItem);
    const Ticks stated = TicksOfRate(element.GetChild("rate"));
    const Ticks frameTicks = stated != 0 ? stated : kNtscFrameTicks;
    const FrameFormat frame = FrameOfFile(use.element, use.file, use.characteristics);
    const ObjectHandle sequence = MakeSlugSequence(state, black, frame, frameTicks);

    const MediaSources sources = MakeSourcesOfSequence(
        document, sequence, {frameTicks, kSampleTicks48k}, kSlugSequenceDuration);
    AudioKind audio = AudioKindOfFile(use.file);
    audio.kind = std::max<int>(audio.kind, kMono);
    const MasterClipHandle master = BuildMasterClip(
        state, element, {.sources = sources, .audio = SplitStereo(state.options, audio, false)});
    if (RegisterMaster(state.masters.registry,
                       {.masterClipId = element.GetProperty("masterclipid"),
                        .mediaId = fileId,
                        .hasAudio = true},
                       master))
        MakeClipProjectItem(state, element, master, parentItem);
}

MasterClipHandle BlackMaster(ImportState& state)
{
    MasterClipHandle& black = state.generators.blackVideo;
    if (!black) {
        const MediaSources sources =
            MakeSyntheticSources(state.document, MediaKind::BlackVideo, 0, {});
        black = BuildMasterClip(state, {}, {.sources = sources, .name = kSlugSequenceName});
    }
    return black;
}

} // namespace XPJ
