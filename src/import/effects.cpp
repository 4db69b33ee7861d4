#include "import/effects.h"

#include "core/frame_rate.h"
#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_pan.h"
#include "effects/effect_elements.h"
#include "effects/graphic_effects.h"
#include "effects/graphic_title.h"
#include "effects/video_chain.h"
#include "effects/video_effects.h"
#include "project/media.h"
#include "project/panners.h"
#include "xmeml/file_audio.h"
#include "xmeml/formats.h"

#include <algorithm>
#include <vector>

namespace XPJ {

namespace {

// ---- What the translators of effects need to know of an item

// Ticks a frame of the owner of a filter, else of the video of its master; 0 if neither states a
// rate. Video that fits any frame counts in frames of `anyFrameTicks`.
Ticks FilterTicks(ConstHandle owner, MasterClipHandle master, Ticks anyFrameTicks)
{
    if (const ConstHandle rate = owner.GetChild("rate")) {
        Ticks ticks = kNtscFrameTicks;
        FrameTicks(Int64Property(rate, "timebase"), IsTrue(rate, "ntsc"), &ticks);
        return ticks;
    }
    const Ticks ticks = Int64Property(master.VideoClip(), "FrameRate");
    return ticks == kAnyFrameTicks ? anyFrameTicks : ticks;
}

// The frame of a nested sequence, `unknown` for one that is not filled yet.
FrameSize FrameOfGroup(ObjectHandle sequence, const FrameSize& unknown)
{
    for (const ObjectHandle& group : sequence.GetChildren("TrackGroup"))
        if (group.GetName() == "VideoTrackGroup")
            return ParseFrameSize(group.GetProperty("FrameRect"),
                                  group.GetProperty("PixelAspectRatio"));
    return unknown;
}

// The frame that a document states for an item of a file. What it doesn't state is no reason to
// move or stretch the video.
FrameSize FrameOfFileItem(ConstHandle item, const FileFormat& file, const FrameSize& unknown)
{
    const std::string_view aspect = StatedAspect(file.video, item);
    FrameSize size = aspect.empty() ? unknown : ParseFrameSize({}, aspect);
    size.width = IntProperty(file.video, "width");
    size.height = IntProperty(file.video, "height");
    return size;
}

// The frame of what an item without a file shows; without a size for video that fits any frame.
FrameSize FrameOfMaster(MasterClipHandle master, const FrameSize& unknown)
{
    const ObjectHandle clip = master.VideoClip();
    if (Int64Property(clip, "FrameRate") == kAnyFrameTicks)
        return unknown;
    const ObjectHandle stream = FindPath(clip, {"Source", "Media", "VideoStream"});
    const Name aspect =
        IsTrue(stream, "IsPAROverridden") ? Name("OverriddenPAR") : Name("OriginalPAR");
    return ParseFrameSize(stream.GetProperty("FrameRect"), stream.GetProperty(aspect));
}

void SetFrames(const ItemContext& item, EffectContext& context)
{
    const SequenceContext& sequence = item.track.sequence;
    ImportState& state = sequence.state;
    const FileElement file = item.file;
    const FrameFormat& frame = sequence.frame;
    context.sequenceFrame = ParseFrameSize(frame.rect, frame.par);
    const FrameSize unknown{.pixelAspect = context.sequenceFrame.pixelAspect};
    const FileFormat format = file ? state.fileFormats.Of(file) : FileFormat();
    if (item.shown.sequence)
        context.clipFrame = FrameOfGroup(item.shown.sequence, unknown);
    else if (file)
        context.clipFrame = FrameOfFileItem(item.element, format, unknown);
    else
        context.clipFrame = FrameOfMaster(item.shown.master, unknown);
    context.decodedWidthRatio = format.decodedWidthRatio;
    context.decodedHeightRatio = format.decodedHeightRatio;
}

// Ticks a sample of the audio of an item of a file, which may be null.
Ticks SampleTicksOf(ImportState& state, FileElement file)
{
    const std::int64_t samples =
        file ? Int64Property(state.fileFormats.Of(file).audio, "samplerate") : 0;
    return samples > 0 ? std::max<Ticks>(kTicksPerSecond / samples, 1) : kSampleTicks48k;
}

// For an item on a track of either type. `frameTicks` is 0 for video whose rate is stated nowhere;
// audio then counts in the sequence's frames.
EffectContext ContextOfItem(const ItemContext& item)
{
    const SequenceContext& sequence = item.track.sequence;
    ImportState& state = sequence.state;
    const SequenceTimecode& timecode = sequence.timecode;
    EffectContext context{
        .document = state.document,
        .account = state.account,
        .location = item.location,
        .time = [&timecode, start = item.times.start] { return timecode.TextOf(start); }};
    // To the letter, keyframes of an item without a rate count in that of its media, in and out
    // points in that of the sequence.
    context.frameTicks = IsOpen(state)
                             ? item.rates.item
                             : FilterTicks(item.element, item.shown.master, sequence.rates.video);
    context.lookFiles = &state.lookFiles;
    context.openInterchange = IsOpen(state);
    if (item.track.type == MediaType::Video) {
        SetFrames(item, context);
    } else {
        if (context.frameTicks == 0)
            context.frameTicks = sequence.rates.edges;
        context.sampleTicks = SampleTicksOf(state, item.file);
    }
    return context;
}

// ---- Video

// The effect that a track item of `master` has for its title, new in the project's document; null
// for what is no graphic title.
ObjectHandle TitleOfItem(const ImportState& state, ConstHandle item, const FrameSize& frame,
                         ConstHandle master)
{
    const TitleCatalog& titles = state.titles;
    const bool hasOwn = state.options.settings.openInterchange && HasGraphicEffect(item);
    if (item.GetName() != "generatoritem" || hasOwn || titles.IsTitled(master) ||
        !titles.IsGraphic(item))
        return {};
    return MakeGraphicEffect(state.document, titles.SourceOf(item), frame);
}

// ---- Audio

ItemAudio AudioOfItem(ImportState& state, ConstHandle item, FileElement file, int channelType)
{
    const int kind = file ? state.fileFormats.AudioOf(file).kind : kUnknownChannels;
    return {.channelType = channelType,
            .delayFrames = Int64Property(item, "mediadelay"),
            .stereoSource = kind == kStereo || kind == kStereoPair};
}

// A mono item is panned between the channels of a stereo track, unless the track is assigned to
// outputs itself.
bool CanPan(const SequenceContext& sequence, const ItemChannels& channels)
{
    return channels.itemType == kMonoType && channels.trackType == kStereoType &&
           sequence.groupType != kAdaptiveType;
}

// On a pan that CanPan does not allow.
void RemarkOnItemPan(const SequenceContext& sequence, const EffectContext& context,
                     ConstHandle item)
{
    RemarkOnPan(context,
                sequence.groupType == kAdaptiveType ? RemarkKind::PanManyOutputs
                                                    : RemarkKind::PanOfClip,
                item);
}

// ---- Masters

// The filters of an owner that masters can't have.
void RemarkOnOwner(const EffectContext& context, ConstHandle owner,
                   bool (*isNeutral)(ConstHandle effect))
{
    ForEachEffect(owner, [&](ConstHandle effect) {
        if (!isNeutral(effect))
            context.AddRemark(RemarkKind::BrowserClipEffect, effect);
    });
}

EffectContext ContextOfClip(ImportState& state, ConstHandle clip)
{
    return {.document = state.document,
            .account = state.account,
            .location = LocationOfClip(state, clip)};
}

// On the filters of the items of a browser clip, of either type.
void RemarkOnItems(const EffectContext& context, ConstHandle group,
                   bool (*isNeutral)(ConstHandle effect))
{
    for (const ConstHandle& track : group.GetChildren("track"))
        for (const ConstHandle& item : track.GetChildren("clipitem"))
            RemarkOnOwner(context, item, isNeutral);
}

// The same for all items of a clip, once.
void RemarkOnClipItems(ImportState& state, ConstHandle clip)
{
    const ConstHandle media = clip.GetChild("media");
    if (!media || !state.remarkedFilters.Insert(media))
        return;
    const EffectContext context = ContextOfClip(state, clip);
    RemarkOnItems(context, media.GetChild("video"), IsNeutralFilter);
    RemarkOnItems(context, media.GetChild("audio"), IsNeutralAudioFilter);
}

const ImportState::FilteredItems& FilteredItemsOf(ImportState& state, ConstHandle clip)
{
    ImportState::FilteredItems& items = state.filteredItems;
    if (items.clip == clip)
        return items;
    items = {.clip = clip};
    const ConstHandle media = clip.GetChild("media");
    for (const ConstHandle& track : media.GetChild("video").GetChildren("track"))
        for (const ConstHandle& item : track.GetChildren("clipitem"))
            if (item.HasChild("filter"))
                items.video[FileOfItem(state.files, item).UniqueId()].push_back(item);
    for (const ConstHandle& track : media.GetChild("audio").GetChildren("track"))
        if (const ConstHandle item = track.GetChild("clipitem"); item.HasChild("filter")) {
            items.audio = item;
            break;
        }
    return items;
}

// What the master of a clip's file has the filters of. Those of a track item are its own, whichever
// master it brings; to the letter so are those of a clip's items.
std::vector<ConstHandle> FilterOwners(ImportState& state, ConstHandle element, FileElement file)
{
    std::vector<ConstHandle> owners;
    if (element.GetName() == "clip") {
        owners.push_back(element);
        if (IsOpen(state)) {
            const ImportState::FilteredItems& items = FilteredItemsOf(state, element);
            if (const auto found = items.video.find(file.UniqueId()); found != items.video.end())
                owners.insert(owners.end(), found->second.begin(), found->second.end());
        }
    }
    owners.push_back(file);
    return owners;
}

void AddMasterVideoEffects(ImportState& state, ConstHandle element, FileElement file,
                           MasterClipHandle master)
{
    const ConstHandle ownFile = file;
    const ObjectHandle chain = master.GetChild("VideoComponentChain");
    const ItemLocation location = LocationOfClip(state, element);
    Account unused; // of the further masters of a clip, which lose the same
    for (const ConstHandle& owner : FilterOwners(state, element, file)) {
        if (!owner.HasChild("filter"))
            continue;
        const bool isFirst = owner == ownFile || state.remarkedFilters.Insert(owner);
        if (!chain) {
            if (isFirst)
                RemarkOnOwner(ContextOfClip(state, element), owner, IsNeutralFilter);
            continue;
        }
        const Ticks frameTicks = FilterTicks(owner, master, kNtscFrameTicks);
        const EffectContext context{.document = state.document,
                                    .account = isFirst ? state.account : unused,
                                    .location = location,
                                    .frameTicks = frameTicks,
                                    .lookFiles = &state.lookFiles,
                                    .openInterchange = IsOpen(state)};
        AddMasterChainEffects(context, owner, chain);
    }
}

// True if an item has an effect of the kind: the channels of a clip mostly have the same effects.
bool HasEffectLike(ConstHandle item, ConstHandle effect)
{
    return static_cast<bool>(FindAudioEffect(item, AudioEffectId(effect)));
}

// On effects that the further items of a clip have and the one whose effects are translated has
// not.
void RemarkOnFurtherItems(const EffectContext& context, ConstHandle clip, ConstHandle translated)
{
    for (const ConstHandle& track : FindPath(clip, {"media", "audio"}).GetChildren("track"))
        for (const ConstHandle& item : track.GetChildren("clipitem"))
            ForEachEffect(item, [&](ConstHandle effect) {
                if (!HasEffectLike(translated, effect) && !IsNeutralAudioFilter(effect))
                    context.AddRemark(RemarkKind::BrowserClipEffect, effect);
            });
}

// All masters of a clip have the audio effects of one of its items; to the letter they have none.
void AddMasterAudioEffects(ImportState& state, ConstHandle clip, MasterClipHandle master)
{
    if (clip.GetName() != "clip")
        return;
    const ObjectHandle audioClip = master.AudioClip();
    if (!IsOpen(state))
        return RemarkOnClipItems(state, clip);
    const ConstHandle item = audioClip ? FilteredItemsOf(state, clip).audio : ConstHandle();
    if (!item)
        return;
    const bool isFirst = state.remarkedFilters.Insert(item);
    Account unused; // of the further masters, which lose the same
    const ItemLocation location = LocationOfClip(state, clip);
    const EffectContext context{.document = state.document,
                                .account = isFirst ? state.account : unused,
                                .location = location,
                                .frameTicks = FilterTicks(item, master, kNtscFrameTicks),
                                .sampleTicks = Int64Property(audioClip, "FrameRate"),
                                .openInterchange = true};
    const FileElement file = FileOfItem(state.files, item);
    const bool isStereo = IsExploded(clip) && AudioKindOfFile(file).kind == kStereo;
    const ItemAudio audio = AudioOfItem(state, item, file, isStereo ? kStereoType : kMonoType);
    master.AddChild("AudioComponentChain", BuildAudioChain(context, audio, item));
    if (!isFirst)
        return;
    RemarkOnPan(context, RemarkKind::BrowserClipEffect, item);
    RemarkOnFurtherItems(context, clip, item);
}

} // namespace

ObjectHandle MakeItemVideoChain(const ItemContext& item, ObjectHandle subClip)
{
    const SequenceContext& sequence = item.track.sequence;
    const EffectContext context = ContextOfItem(item);
    const ObjectHandle title =
        TitleOfItem(sequence.state, item.element, context.sequenceFrame, item.shown.master);
    return BuildSequenceChain(context, item.element, subClip, IntToString(sequence.number), title);
}

void AddItemAudioEffects(const ItemContext& item, const ItemChannels& channels,
                         ObjectHandle trackItem)
{
    const SequenceContext& sequence = item.track.sequence;
    Document& document = sequence.state.document;
    const EffectContext effects = ContextOfItem(item);
    const ConstHandle element = item.element;
    const ItemAudio audio = AudioOfItem(sequence.state, element, item.file, channels.itemType);
    trackItem.AddChild("Components", BuildAudioChain(effects, audio, element));
    if (CanPan(sequence, channels))
        trackItem.AddChild("Panner", MakeItemPanner(document, TranslatePan(effects, audio, element),
                                                    sequence.rates.audio));
    else
        RemarkOnItemPan(sequence, effects, element);
}

void RemarkOnClipFilters(ImportState& state, ConstHandle clip)
{
    if (state.remarkedFilters.Insert(clip))
        RemarkOnOwner(ContextOfClip(state, clip), clip, IsNeutralFilter);
    RemarkOnClipItems(state, clip);
}

void AddMasterEffects(ImportState& state, ConstHandle element, FileElement file,
                      MasterClipHandle master)
{
    AddMasterVideoEffects(state, element, file, master);
    AddMasterAudioEffects(state, element, master);
}

} // namespace XPJ
