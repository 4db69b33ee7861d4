#include "import/sequences.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "xmeml/formats.h"
#include "import/item_issues.h"
#include "import/markers.h"
#include "import/master_builder.h"
#include "import/tracks.h"

#include <algorithm>
#include <limits>

namespace XPJ {

namespace {

bool IsExploded(ObjectHandle sequence)
{
    return IsTrue(sequence, "explodedTracks");
}

AudioKind SoundOfSequence(const ImportState& state, ObjectHandle sequence)
{
    const int outputs = OutputChannelsOf(sequence);
    if (state.aafSupport || IsExploded(sequence)) {
        if (outputs == 6)
            return {kSurround51, 6};
        if (outputs == 1)
            return {kMono, 1};
    }
    return {kStereo, 2};
}

int GroupTypeOf(const ImportState& state, ObjectHandle sequence, int outputs)
{
    if (state.sn2vlMode || IsExploded(sequence)) {
        if (outputs == 1)
            return kMonoType;
        if (outputs == 6)
            return kSurroundType;
    }
    return outputs <= 2 ? kStereoType : kAdaptiveType;
}

void CopyUIProperties(ObjectHandle sequence, ObjectHandle projectSequence)
{
    for (const Name& key : SequenceUIPropertyList())
        if (sequence.HasProperty(key))
            projectSequence.SetPropertyShared(key, sequence.GetProperty(key));
}

void AddZeroPoint(const ImportState& state, const SequenceContext& context)
{
    const ObjectHandle timecode = context.sequence.GetChild("timecode");
    if (!timecode)
        return;
    const Ticks own = state.sn2vlMode ? TicksOfRate(timecode.GetChild("rate")) : 0;
    const Ticks unit = own != 0 ? own : context.rates.video;
    context.projectSequence.SetProperty(
        "MZ.ZeroPoint", TickText(MultiplyTicks(Int64Property(timecode, "frame"), unit)));
}

void AddTrackGroups(SequenceContext& context)
{
    const ObjectHandle media = context.sequence.GetChild("media");
    if (!media)
        return;
    const int outputs = OutputChannelsOf(context.sequence);
    context.groupType = GroupTypeOf(context.state, context.sequence, outputs);
    context.exploded = IsExploded(context.sequence);
    context.links = LinkIndex(context.sequence, context.number);
    context.projectSequence.AddChild("TrackGroup",
                                     TranslateVideoTracks(context, media.GetChild("video")));
    context.projectSequence.AddChild(
        "TrackGroup", TranslateAudioTracks(context, media.GetChild("audio"), outputs));
}

// Many documents leave the length of a sequence out: it is that of its content.
void SetLength(ObjectHandle sequence, ObjectHandle master, Ticks end)
{
    if (Int64Property(sequence, "duration") > 0)
        return;
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        clip.GetChild("Source").SetProperty("OriginalDuration", TickText(end));
}

} // namespace

ObjectHandle CharacteristicsOf(ObjectHandle sequence)
{
    return FindPath(sequence, {"media", "video", "format", "samplecharacteristics"});
}

bool IsStillSequence(ObjectHandle sequence)
{
    return HasValue(FindPath(sequence, {"media", "video", "track", "clipitem"}),
                    "stillframeoffset");
}

SequenceRates RatesOfSequence(const ImportState& state, ObjectHandle sequence)
{
    SequenceRates rates;
    if (const Ticks stated = TicksOfRate(sequence.GetChild("rate")); stated > 0)
        rates.video = stated;
    rates.edges = rates.video;
    const ObjectHandle sound =
        FindPath(sequence, {"media", "audio", "format", "samplecharacteristics"});
    if (const std::int64_t samples = Int64Property(sound, "samplerate"); samples > 0)
        rates.audio = std::max<Ticks>(kTicksPerSecond / samples, 1);
    if (state.sn2vlMode && rates.video == 1) {
        const Ticks shown = TicksOfRate(FindPath(sequence, {"timecode", "rate"}));
        rates.video = shown < 2 ? kNtscFrameTicks : shown;
    }
    return rates;
}

int OutputChannelsOf(ObjectHandle sequence)
{
    const ObjectHandle audio = FindPath(sequence, {"media", "audio"});
    if (HasValue(audio, "numOutputChannels"))
        return IntProperty(audio, "numOutputChannels");
    Ticks sum = 0;
    for (const ObjectHandle& group : audio.GetChild("outputs").GetChildren("group"))
        sum += IntProperty(group, "numchannels");
    return static_cast<int>(std::clamp<Ticks>(sum, 0, std::numeric_limits<int>::max()));
}

ObjectHandle MasterOfCollectedSequence(ImportState& state, ObjectHandle sequence)
{
    const SequenceRates rates = RatesOfSequence(state, sequence);
    const Ticks duration = MultiplyTicks(Int64Property(sequence, "duration"), rates.edges);
    const ObjectHandle result = state.document.NewObject("Sequence");
    result.SetPropertyShared("Name", sequence.GetProperty("name"));
    state.sequenceElements.emplace(result.UniqueId(), sequence);

    FileSources sources;
    sources.video.push_back(
        MakeSequenceSource(state.document, MediaType::Video, result, rates.video, duration, 0));
    sources.audio.push_back(
        MakeSequenceSource(state.document, MediaType::Audio, result, rates.audio, duration, 0));
    return BuildMasterClip(state, sequence, sources, SoundOfSequence(state, sequence));
}

ObjectHandle SourceForItem(ImportState& state, MediaType type, ObjectHandle source, Ticks rateTicks)
{
    const ObjectHandle sequence = source.GetChild("Sequence");
    if (!sequence)
        return source;
    if (!HasValue(sequence, "uid"))
        state.shownSequences.push_back(sequence);
    return MakeSequenceSource(state.document, type, sequence, rateTicks,
                              Int64Property(source, "OriginalDuration"));
}

int BeginSequence(ImportState& state, ObjectHandle projectSequence)
{
    if (HasValue(projectSequence, "uid"))
        return 0;
    const int number = NewSequenceNumber(state);
    AddUid(projectSequence);
    projectSequence.SetProperty("ID", IntToString(number));
    state.sequencesByNumber.emplace(number, projectSequence);
    return number;
}

bool FillSequence(ImportState& state, ObjectHandle sequence, ObjectHandle master)
{
    const ObjectHandle result = SequenceOf(master);
    SequenceContext context{.state = state, .sequence = sequence, .projectSequence = result};
    context.number = BeginSequence(state, result);
    if (context.number == 0)
        return false;
    CopyUIProperties(sequence, result);
    context.rates = RatesOfSequence(state, sequence);
    context.clock = ClockOf(state, sequence);
    const FrameFormat frame = FrameOfSequence(sequence);
    if (frame.rect.empty() || frame.par.empty()) {
        AddSkipped(state, {.sequence = context.clock.name});
        return false;
    }
    context.frameRect = frame.rect;
    context.aspect = frame.par;

    AddTrackGroups(context);
    result.AddChild("Markers", TranslateMarkers(state.document, sequence, context.rates.video));
    result.AddChild("DVDMarkers", state.document.NewObject("DVDMarkers"));
    AddZeroPoint(state, context);
    ChoosePreset(sequence, context.rates.video, result);
    SetLength(sequence, master, context.end);
    return true;
}

} // namespace XPJ
