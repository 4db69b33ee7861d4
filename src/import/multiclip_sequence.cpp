#include "import/multiclip_sequence.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "xmeml/formats.h"
#include "import/generators.h"
#include "import/links.h"
#include "import/markers.h"
#include "import/master_builder.h"
#include "import/master_clips.h"
#include "xmeml/files.h"
#include "import/tracks.h"
#include "project/synthetic_items.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

struct MulticlipContext {
    ImportState& state;
    ObjectHandle multiclip;
    ObjectHandle parentItem;
    int number = 0; // `ID` of the Sequence
    SequenceRates rates = {};
    FrameFormat frame = {};
};

ObjectHandle FirstAngleClip(ObjectHandle multiclip)
{
    for (const ObjectHandle& angle : multiclip.GetChildren("angle"))
        if (const ObjectHandle clip = angle.GetChild("clip"))
            return clip;
    return {};
}

ObjectHandle CharacteristicsOf(const ImportState& state, ObjectHandle clip)
{
    for (const ObjectHandle& node : {clip, FirstFileOf(state, clip)})
        if (const ObjectHandle own = FindPath(node, {"media", "video", "samplecharacteristics"}))
            return own;
    return {};
}

FrameFormat FrameOfMulticlip(const ImportState& state, ObjectHandle multiclip)
{
    FrameFormat own = FrameOfCharacteristics(multiclip.GetChild("samplecharacteristics"));
    if (!own.rect.empty())
        return own;
    const ObjectHandle clip = FirstAngleClip(multiclip);
    const ObjectHandle characteristics =
        FindPath(clip, {"media", "video", "samplecharacteristics"});
    const FrameFormat stated = FrameOfCharacteristics(characteristics);
    const ObjectHandle file = FirstFileOf(state, clip);
    return stated.rect.empty() && file ? FrameOfFile(clip, file, {}) : stated;
}

std::string_view FieldTypeOfMulticlip(const ImportState& state, ObjectHandle multiclip)
{
    const std::string_view own =
        multiclip.GetChild("samplecharacteristics").GetProperty("fielddominance");
    if (!own.empty())
        return FieldTypeOf(own);
    return FieldTypeOf(
        CharacteristicsOf(state, FirstAngleClip(multiclip)).GetProperty("fielddominance"));
}

// The master of an angle: that of its clip, else of the item in it.
ObjectHandle MasterOfAngle(const MulticlipContext& context, ObjectHandle clip, ObjectHandle item,
                           MediaType type)
{
    const std::string_view fileId = FileOfItem(context.state, item).GetProperty("id");
    if (const ObjectHandle ofClip = MasterBySignature(context.state, clip, fileId))
        return ofClip;
    return MasterForItem(context.state, item, type, 0);
}

// An angle, as its two items need it.
struct Angle {
    ObjectHandle clip;
    ObjectHandle item; // the first of its media
    int index = 0;     // from 0
    Ticks duration = 0;
};

void AddMarkers(const MulticlipContext& context, const Angle& angle, ObjectHandle clip)
{
    clip.AddChild("Markers",
                  TranslateMarkers(context.state.document, angle.item, context.rates.video));
}

WholeItem ItemOf(const Angle& angle, ObjectHandle clip, ObjectHandle master)
{
    return {.name = angle.clip.GetProperty("name"),
            .clip = clip,
            .master = master,
            .trackIndex = angle.index,
            .end = angle.duration};
}

// Null without a master, and for a slug, which shows nothing.
ObjectHandle MakeAnglePicture(const MulticlipContext& context, const Angle& angle)
{
    if (FileOfItem(context.state, angle.item).GetProperty("id").starts_with("Slug"))
        return {};
    Document& document = context.state.document;
    const ObjectHandle master = MasterOfAngle(context, angle.clip, angle.item, MediaType::Video);
    const ObjectHandle masterClip = VideoClipOf(master);
    if (!masterClip)
        return {};
    const ObjectHandle source = SourceForItem(context.state, MediaType::Video,
                                              masterClip.GetChild("Source"), context.rates.video);
    const ObjectHandle clip = MakeVideoClip(document, source, {.inUse = true});
    AddMarkers(context, angle, clip);
    return MakeWholeVideoItem(document, ItemOf(angle, clip, master), context.frame.rect,
                              context.frame.par);
}

// All channels that an adaptive track has; those that the master lacks are silent.
void AddAdaptiveChannels(Document& document, const std::vector<MasterChannel>& channels,
                         ObjectHandle clip)
{
    const ObjectHandle source = clip.GetChild("Source");
    for (std::size_t i = 0; i < kMaxAdaptiveChannels; ++i) {
        if (i >= channels.size()) {
            AddChannel(document, clip, kNoChannel, {});
            continue;
        }
        const ObjectHandle channel = channels[i].channel;
        AddChannel(document, clip,
                   static_cast<std::uint64_t>(Int64Property(channel, "ChannelIndex")),
                   source.HasChild("Sequence") ? source : channel.GetChild("Content"));
    }
}

ObjectHandle MakeAngleSound(const MulticlipContext& context, const Angle& angle)
{
    Document& document = context.state.document;
    const ObjectHandle master = MasterOfAngle(context, angle.clip, angle.item, MediaType::Audio);
    const std::vector<MasterChannel> channels = ChannelsOf(master);
    if (channels.empty())
        return {};
    const ObjectHandle source =
        SourceForItem(context.state, MediaType::Audio, channels.front().clip.GetChild("Source"),
                      context.rates.audio);
    const ObjectHandle clip = MakeAudioClip(document, source, {.inUse = true});
    clip.SetPropertyShared("SecondaryIndex", "0");
    clip.SetPropertyShared("Gain", "1.0");
    clip.SetProperty("ChannelType", IntToString(kAdaptiveType));
    clip.SetProperty("NumChannels", IntToString(kMaxAdaptiveChannels));
    clip.SetProperty("AudioChannelLayout", ChannelLayoutText(kAdaptive, kMaxAdaptiveChannels));
    AddMarkers(context, angle, clip);
    AddAdaptiveChannels(document, channels, clip);
    WholeItem item = ItemOf(angle, clip, master);
    item.channelType = kAdaptiveType;
    return MakeWholeAudioItem(document, item, context.rates.audio);
}

void LinkAngle(const MulticlipContext& context, int index, ObjectHandle picture, ObjectHandle sound)
{
    if (picture && sound)
        AddLinkGroup(context.state, {{{context.number, MediaType::Video, index + 1, 1}, picture},
                                     {{context.number, MediaType::Audio, index + 1, 1}, sound}});
}

// A slug has no master before an item asks for it.
void PrepareSlug(const MulticlipContext& context, const Angle& angle)
{
    const ObjectHandle file = FileOfItem(context.state, angle.item);
    if (IsSlug(file) && !MasterForItem(context.state, angle.item, MediaType::Audio, 0))
        TranslateSlugItem(context.state, angle.clip, file, context.parentItem, {});
}

void AddAngle(const MulticlipContext& context, const Angle& angle, ObjectHandle videoGroup,
              const AudioGroup& audioGroup)
{
    Document& document = context.state.document;
    PrepareSlug(context, angle);
    const ObjectHandle videoTrack = MakeVideoTrack(document, angle.index, angle.index + 1);
    const ObjectHandle audioTrack = MakeAudioTrack(document, angle.index, angle.index + 2,
                                                   {.trackType = kAdaptiveType,
                                                    .groupType = kAdaptiveType,
                                                    .groupChannels = audioGroup.channels,
                                                    .sampleTicks = context.rates.audio});
    const ObjectHandle picture = MakeAnglePicture(context, angle);
    const ObjectHandle sound = MakeAngleSound(context, angle);
    videoTrack.AddChild("TrackItem", picture);
    audioTrack.AddChild("TrackItem", sound);
    LinkAngle(context, angle.index, picture, sound);
    videoGroup.AddChild("Track", videoTrack);
    AddAudioTrack(audioGroup, audioTrack);
}

// The most that any angle has.
int ChannelsOfMulticlip(ObjectHandle multiclip)
{
    int channels = 0;
    for (const ObjectHandle& angle : multiclip.GetChildren("angle"))
        channels = std::max(channels, AudioTracksOfAngle(angle.GetChild("clip")));
    return channels;
}

void AddAngles(const MulticlipContext& context, ObjectHandle sequence)
{
    Document& document = context.state.document;
    const ObjectHandle videoGroup =
        MakeVideoGroup(document, context.rates.video, context.frame.rect, context.frame.par);
    videoGroup.SetPropertyShared("FieldType",
                                 FieldTypeOfMulticlip(context.state, context.multiclip));
    const AudioGroup audioGroup = MakeAudioGroup(
        document, context.rates.audio, ChannelsOfMulticlip(context.multiclip), kAdaptiveType);
    int index = 0;
    for (const ObjectHandle& node : context.multiclip.GetChildren("angle")) {
        const ObjectHandle clip = node.GetChild("clip");
        if (!clip.HasChild("media"))
            continue;
        const Angle angle{clip, FirstClipItem(clip.GetChild("media")), index,
                          MultiplyTicks(Int64Property(clip, "duration"), context.rates.video)};
        AddAngle(context, angle, videoGroup, audioGroup);
        ++index;
    }
    AddMasterTrack(document, audioGroup, index, kAdaptiveType, context.rates.audio);
    videoGroup.SetProperty("NextTrackID", IntToString(index + 1));
    audioGroup.group.SetProperty("NextTrackID", IntToString(index + 2));
    sequence.AddChild("TrackGroup", videoGroup);
    sequence.AddChild("TrackGroup", audioGroup.group);
}

} // namespace

SequenceRates RatesOfMulticlip(ObjectHandle multiclip)
{
    Ticks video = 0;
    Ticks audio = 0;
    const auto take = [&](ObjectHandle rate, ObjectHandle sound) {
        if (video == 0)
            video = TicksOfRate(rate);
        if (const std::int64_t samples = Int64Property(sound, "samplerate");
            audio == 0 && samples > 0)
            audio = kTicksPerSecond / samples;
    };
    const ObjectHandle own = multiclip.GetChild("samplecharacteristics");
    take(own.GetChild("rate"), own);
    for (const ObjectHandle& angle : multiclip.GetChildren("angle")) {
        if (video != 0 && audio != 0)
            break;
        const ObjectHandle clip = angle.GetChild("clip");
        take(clip.GetChild("rate"), FindPath(clip, {"media", "audio", "samplecharacteristics"}));
    }
    SequenceRates rates;
    rates.video = video > 0 ? video : rates.video;
    rates.audio = audio > 0 ? audio : rates.audio;
    return rates;
}

int AudioTracksOfAngle(ObjectHandle clip)
{
    int count = 0;
    for ([[maybe_unused]] const ObjectHandle& track :
         FindPath(clip, {"media", "audio"}).GetChildren("track"))
        ++count;
    return count;
}

bool FillMulticlipSequence(ImportState& state, ObjectHandle multiclip, ObjectHandle sequence,
                           ObjectHandle parentItem)
{
    MulticlipContext context{state, multiclip, parentItem};
    context.number = BeginSequence(state, sequence);
    if (context.number == 0)
        return false;
    for (const Name& key : SequenceUIPropertyList())
        if (multiclip.HasProperty(key))
            sequence.SetPropertyShared(key, multiclip.GetProperty(key));
    context.rates = RatesOfMulticlip(multiclip);
    context.frame = FrameOfMulticlip(state, multiclip);
    if (context.frame.rect.empty() || context.frame.par.empty())
        return false;

    AddAngles(context, sequence);
    sequence.AddChild("Markers", TranslateMarkers(state.document, multiclip, context.rates.video));
    sequence.AddChild("DVDMarkers", state.document.NewObject("DVDMarkers"));
    PresetFromFormat(context.rates.video, context.frame, sequence);
    return true;
}

} // namespace XPJ
