#include "import/multiclips.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "core/video_formats.h"
#include "import/item_clips.h"
#include "import/markers.h"
#include "import/masters.h"
#include "import/presets.h"
#include "import/project_items.h"
#include "import/slugs.h"
#include "import/tracks.h"
#include "project/clips.h"
#include "project/synthetic_items.h"
#include "xmeml/formats.h"

#include <algorithm>
#include <string>
#include <vector>

namespace XPJ {

namespace {

struct MulticlipContext {
    ImportState& state;
    ConstHandle multiclip;
    ObjectHandle parentItem;
    int number = 0; // `ID` of the Sequence
    SequenceRates rates = {};
    FrameFormat frame = {};
};

// An angle, as its two items need it.
struct Angle {
    ConstHandle clip;
    ConstHandle item; // the first of its media
    int index = 0;    // from 0
    Ticks duration = 0;
};

// What equal multiclips have in common: their `masterclipid` and those of their angles, in order.
// Empty where one of them is missing, since then none is known to be equal.
std::string ContentOf(ConstHandle multiclip)
{
    std::string key;
    const auto append = [&key](std::string_view id) {
        key.append(id).push_back('\0');
        return !id.empty();
    };
    if (!append(multiclip.GetProperty("masterclipid")))
        return {};
    for (const ConstHandle& angle : multiclip.GetChildren("angle"))
        if (!append(angle.GetChild("clip").GetProperty("masterclipid")))
            return {};
    return key;
}

MasterClipHandle MakeMulticlipMaster(ImportState& state, ConstHandle multiclip)
{
    Document& document = state.document;
    const SequenceRates rates = RatesOfMulticlip(multiclip);
    const AngleExtent extent = ExtentOfAngles(multiclip);
    const Ticks duration = MultiplyTicks(extent.duration, rates.video);
    const ObjectHandle sequence = document.NewObject("Sequence");
    sequence.SetPropertyShared("Name", multiclip.GetProperty("name"));
    state.sequences.SetElement(sequence, multiclip);

    const AudioKind audio{kAdaptive, std::max(extent.audioTracks, 1)};
    return BuildMasterClip(
        state, ClipItem(multiclip),
        {.sources = MakeSourcesOfSequence(document, sequence, {rates.video, rates.audio}, duration),
         .audio = audio,
         .isWide = true});
}

void AddMulticamProperties(ConstHandle element, ConstHandle multiclip, ObjectHandle master)
{
    master.AddPropertyShared("Source.Monitor.Multicam.Enabled", "true");
    master.AddPropertyShared("Source.Monitor.Multicam.SwitchCameraAudio", "true");
    for (const ConstHandle& node : {multiclip, element})
        if (HasValue(node, "velaCameraNames"))
            master.AddPropertyShared("Source.Monitor.Multicam.CameraNamesOption",
                                     node.GetProperty("velaCameraNames"));
}

ConstHandle FirstAngleClip(ConstHandle multiclip)
{
    for (const ConstHandle& angle : multiclip.GetChildren("angle"))
        if (const ConstHandle clip = angle.GetChild("clip"))
            return clip;
    return {};
}

FrameFormat FrameOfMulticlip(const FileCatalog& files, ConstHandle multiclip)
{
    FrameFormat own = FrameOfCharacteristics(multiclip.GetChild("samplecharacteristics"));
    if (!own.rect.empty())
        return own;
    const ConstHandle clip = FirstAngleClip(multiclip);
    const FrameFormat stated =
        FrameOfCharacteristics(FindPath(clip, {"media", "video", "samplecharacteristics"}));
    const FileElement file = FirstFileOf(files, clip);
    return stated.rect.empty() && file ? FrameOfFile(clip, file, {}) : stated;
}

std::string_view FieldTypeOfMulticlip(const FileCatalog& files, ConstHandle multiclip)
{
    const ConstHandle clip = FirstAngleClip(multiclip);
    ConstHandle characteristics = FindPath(clip, {"media", "video", "samplecharacteristics"});
    if (!characteristics)
        characteristics = FirstFileOf(files, clip).VideoCharacteristics();
    const std::string_view own =
        multiclip.GetChild("samplecharacteristics").GetProperty("fielddominance");
    return FieldTypeOfDominance(own.empty() ? characteristics.GetProperty("fielddominance") : own);
}

void RemarkOnMissing(const MulticlipContext& context, std::string_view part)
{
    const ConstHandle multiclip = context.multiclip;
    AddRemark(
        context.state.account, RemarkKind::MulticlipIncomplete,
        LocationOfClip(context.state, multiclip),
        {.name = multiclip.GetProperty("name"), .id = multiclip.GetProperty("id"), .detail = part});
}

// The master of an angle: that of its clip, else of the item in it.
MasterClipHandle MasterOfAngle(const ImportState& state, const Angle& angle, MediaType type)
{
    const std::string_view fileId = state.files.IdOf(FileOfItem(state.files, angle.item));
    if (const MasterClipHandle ofClip = state.masters.BySignature(SignatureOf(angle.clip, fileId)))
        return ofClip;
    return MasterForItem(state, angle.item, type, 0);
}

SyntheticItem ItemOf(const Angle& angle, ObjectHandle clip, MasterClipHandle master)
{
    return {.name = angle.clip.GetProperty("name"),
            .clip = clip,
            .master = master,
            .trackIndex = angle.index,
            .end = angle.duration};
}

ObjectHandle MarkersOf(const MulticlipContext& context, const Angle& angle)
{
    return TranslateMarkers(context.state.document, angle.item, context.rates.video);
}

// Null without a master, and for a slug, which shows nothing.
ObjectHandle MakeAngleVideo(const MulticlipContext& context, const Angle& angle)
{
    ImportState& state = context.state;
    if (state.files.IdOf(FileOfItem(state.files, angle.item)).starts_with("Slug"))
        return {};
    const MasterClipHandle master = MasterOfAngle(state, angle, MediaType::Video);
    const ObjectHandle masterClip = master.VideoClip();
    if (!masterClip)
        return {};
    const ObjectHandle source = SourceForItem(state.document, state.sequences, MediaType::Video,
                                              masterClip.GetChild("Source"), context.rates.video);
    const ObjectHandle clip = MakeVideoClip(state.document, source, {.inUse = true});
    clip.AddChild("Markers", MarkersOf(context, angle));
    return MakeSyntheticVideoItem(state.document, ItemOf(angle, clip, master), context.frame.rect,
                                  context.frame.par);
}

ObjectHandle MakeAngleAudio(const MulticlipContext& context, const Angle& angle)
{
    ImportState& state = context.state;
    Document& document = state.document;
    const MasterClipHandle master = MasterOfAngle(state, angle, MediaType::Audio);
    const std::vector<MasterChannel> channels = ChannelsOf(master);
    if (channels.empty())
        return {};
    const ObjectHandle source =
        SourceForItem(document, state.sequences, MediaType::Audio,
                      channels.front().clip.GetChild("Source"), context.rates.audio);
    const ObjectHandle clip = MakeAudioClip(document, source, {.inUse = true});
    clip.SetPropertyShared("SecondaryIndex", "0");
    clip.SetPropertyShared("Gain", "1.0");
    clip.SetProperty("ChannelType", IntToString(kAdaptiveType));
    clip.SetProperty("NumChannels", IntToString(kMaxTrackChannels));
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(kAdaptive, kMaxTrackChannels));
    clip.AddChild("Markers", MarkersOf(context, angle));
    AddAdaptiveChannels(document, channels, clip);
    SyntheticItem item = ItemOf(angle, clip, master);
    item.channelType = kAdaptiveType;
    return MakeSyntheticAudioItem(document, item, context.rates.audio);
}

void LinkAngle(const MulticlipContext& context, int index, ObjectHandle video, ObjectHandle audio)
{
    if (video && audio)
        context.state.links.AddGroup({{{context.number, MediaType::Video, index + 1, 1}, video},
                                      {{context.number, MediaType::Audio, index + 1, 1}, audio}});
}

// A slug has no master before an item needs it.
void PrepareSlug(const MulticlipContext& context, const Angle& angle)
{
    const FileElement file = FileOfItem(context.state.files, angle.item);
    if (file.IsSlug() && !MasterForItem(context.state, angle.item, MediaType::Audio, 0))
        TranslateSlug(context.state, ClipItem(angle.clip), {angle.clip, file}, context.parentItem);
}

void AddAngle(const MulticlipContext& context, const Angle& angle, ObjectHandle videoGroup,
              const AudioGroup& audioGroup)
{
    Document& document = context.state.document;
    PrepareSlug(context, angle);
    const ObjectHandle videoTrack = MakeVideoTrack(document, angle.index, angle.index + 1);
    const ObjectHandle audioTrack =
        MakeTrackWithFader(document, {.index = angle.index,
                                      .id = angle.index + 2,
                                      .panner = {.trackType = kAdaptiveType,
                                                 .groupType = kAdaptiveType,
                                                 .groupChannels = audioGroup.channels,
                                                 .sampleTicks = context.rates.audio}});
    const ObjectHandle video = MakeAngleVideo(context, angle);
    const ObjectHandle audio = MakeAngleAudio(context, angle);
    videoTrack.AddChild("TrackItem", video);
    audioTrack.AddChild("TrackItem", audio);
    LinkAngle(context, angle.index, video, audio);
    videoGroup.AddChild("Track", videoTrack);
    AddAudioTrack(audioGroup, audioTrack);
}

void AddAngles(const MulticlipContext& context, ObjectHandle sequence)
{
    Document& document = context.state.document;
    const ObjectHandle videoGroup =
        MakeVideoGroup(document, context.rates.video, context.frame.rect, context.frame.par);
    videoGroup.SetPropertyShared("FieldType",
                                 FieldTypeOfMulticlip(context.state.files, context.multiclip));
    const int channels = ExtentOfAngles(context.multiclip).audioTracks;
    const AudioGroup audioGroup =
        MakeAudioGroup(document, context.rates.audio, channels, kAdaptiveType);
    int index = 0;
    for (const ConstHandle& node : context.multiclip.GetChildren("angle")) {
        const ConstHandle clip = node.GetChild("clip");
        if (!clip.HasChild("media")) {
            RemarkOnMissing(context, "media of an angle");
            continue;
        }
        const Angle angle{clip, FirstClipItem(clip.GetChild("media")), index,
                          MultiplyTicks(Int64Property(clip, "duration"), context.rates.video)};
        AddAngle(context, angle, videoGroup, audioGroup);
        ++index;
    }
    AddMasterWithFader(document, audioGroup, index, kAdaptiveType, context.rates.audio);
    videoGroup.SetProperty("NextTrackID", IntToString(index + 1));
    audioGroup.group.SetProperty("NextTrackID", IntToString(index + 2));
    sequence.AddChild("TrackGroup", videoGroup);
    sequence.AddChild("TrackGroup", audioGroup.group);
}

} // namespace

void CollectMulticlip(ImportState& state, ConstHandle multiclip)
{
    state.angles.Add(multiclip);
    MasterCatalog& masters = state.masters;
    const std::string_view id = multiclip.GetProperty("id");
    if (IsCollapsed(multiclip) || id.empty() || masters.HasMulticlip(id))
        return;
    const std::string content = ContentOf(multiclip);
    const MasterClipHandle equal = masters.EqualMulticlip(content);
    masters.AddMulticlip(id, content, equal ? equal : MakeMulticlipMaster(state, multiclip));
}

void TranslateMulticlipItem(ImportState& state, ConstHandle element, ObjectHandle parentItem)
{
    const ConstHandle multiclip = FindMulticlip(element);
    const MasterClipHandle master = state.masters.OfMulticlip(multiclip.GetProperty("id"));
    if (!master)
        return AddSkipped(state, element, LocationOfClip(state, element));
    const ObjectHandle sequence = master.Sequence();
    if (!FillMulticlipSequence(state, multiclip, sequence, parentItem))
        return;
    master.SetPropertyShared("Name", sequence.GetProperty("Name"));
    AddMulticamProperties(element, multiclip, master);
    AddClipItem(state, element, master, parentItem);
}

bool FillMulticlipSequence(ImportState& state, ConstHandle multiclip, ObjectHandle sequence,
                           ObjectHandle parentItem)
{
    MulticlipContext context{state, multiclip, parentItem};
    context.number = state.sequences.Begin(sequence);
    if (context.number == 0)
        return false;
    for (const Name& key : SequenceUIPropertyList())
        CopyProperty(multiclip, key, sequence, key);
    context.rates = RatesOfMulticlip(multiclip);
    context.frame = FrameOfMulticlip(state.files, multiclip);
    if (context.frame.rect.empty() || context.frame.par.empty()) {
        RemarkOnMissing(context, "frame size");
        return false;
    }
    RemarkOnMarkers(state, multiclip, LocationOfClip(state, multiclip));

    AddAngles(context, sequence);
    sequence.AddChild("Markers", TranslateMarkers(state.document, multiclip, context.rates.video));
    sequence.AddChild("DVDMarkers", state.document.NewObject("DVDMarkers"));
    PresetFromFormat(context.rates.video, context.frame, sequence);
    return true;
}

} // namespace XPJ
