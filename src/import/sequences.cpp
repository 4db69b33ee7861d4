#include "import/sequences.h"

#include "core/host_properties.h"
#include "import/markers.h"
#include "import/masters.h"
#include "import/presets.h"
#include "import/tracks.h"
#include "project/media.h"
#include "xmeml/formats.h"

namespace XPJ {

namespace {

AudioKind AudioOfSequence(const ImportOptions& options, ConstHandle sequence)
{
    const int outputs = OutputChannelsOf(sequence);
    if (options.aafSupport || IsExploded(sequence)) {
        if (outputs == 6)
            return {kSurround51, 6};
        if (outputs == 1)
            return {kMono, 1};
    }
    return {kStereo, 2};
}

int GroupTypeOf(const ImportOptions& options, ConstHandle sequence, int outputs)
{
    if (options.sn2vlMode || IsExploded(sequence)) {
        if (outputs == 1)
            return kMonoType;
        if (outputs == 6)
            return kSurroundType;
    }
    return outputs <= 2 ? kStereoType : kAdaptiveType;
}

void CopyUIProperties(ConstHandle sequence, ObjectHandle projectSequence)
{
    for (const Name& key : SequenceUIPropertyList())
        CopyProperty(sequence, key, projectSequence, key);
}

void AddZeroPoint(const SequenceContext& context, ObjectHandle projectSequence)
{
    const ConstHandle timecode = context.sequence.GetChild("timecode");
    if (!timecode)
        return;
    const Ticks own = context.state.options.sn2vlMode ? TicksOfRate(timecode.GetChild("rate")) : 0;
    const Ticks unit = own != 0 ? own : context.rates.video;
    projectSequence.SetProperty("MZ.ZeroPoint",
                                TickText(MultiplyTicks(Int64Property(timecode, "frame"), unit)));
}

void AddTrackGroups(SequenceContext& context, ObjectHandle projectSequence)
{
    const ConstHandle media = context.sequence.GetChild("media");
    if (!media)
        return;
    const int outputs = OutputChannelsOf(context.sequence);
    context.groupType = GroupTypeOf(context.state.options, context.sequence, outputs);
    context.exploded = IsExploded(context.sequence);
    context.links = LinkIndex(context.sequence, context.number);
    projectSequence.AddChild("TrackGroup", TranslateVideoTracks(context, media.GetChild("video")));
    projectSequence.AddChild("TrackGroup",
                             TranslateAudioTracks(context, media.GetChild("audio"), outputs));
}

// Many documents omit the length of a sequence: it is that of its content.
void SetLength(ConstHandle sequence, ObjectHandle master, Ticks end)
{
    if (Int64Property(sequence, "duration") > 0)
        return;
    for (const ObjectHandle& clip : master.GetChildren("Clip"))
        clip.GetChild("Source").SetProperty("OriginalDuration", TickText(end));
}

} // namespace

MasterClipHandle MakeSequenceMaster(ImportState& state, ConstHandle sequence)
{
    Document& document = state.document;
    const SequenceRates rates = RatesOfSequence(sequence, state.options.sn2vlMode);
    const Ticks duration = MultiplyTicks(Int64Property(sequence, "duration"), rates.edges);
    const ObjectHandle result = document.NewObject("Sequence");
    result.SetPropertyShared("Name", sequence.GetProperty("name"));
    state.sequences.SetElement(result, sequence);

    return BuildMasterClip(
        state, ClipItem(sequence),
        {.sources = MakeSourcesOfSequence(document, result, {rates.video, rates.audio}, duration),
         .audio = AudioOfSequence(state.options, sequence)});
}

bool FillSequence(ImportState& state, ConstHandle sequence, const SequenceItems& items,
                  MasterClipHandle master)
{
    const ObjectHandle result = master.Sequence();
    SequenceContext context{.state = state, .sequence = sequence, .items = items};
    context.number = state.sequences.Begin(result);
    if (context.number == 0)
        return false;
    state.account.sequences.push_back({sequence.UniqueId(), result.UniqueId()});
    CopyUIProperties(sequence, result);
    context.rates = RatesOfSequence(sequence, state.options.sn2vlMode);
    context.timecode = TimecodeOfSequence(sequence, context.rates);
    context.frame = FrameOfSequence(sequence);
    if (context.frame.rect.empty() || context.frame.par.empty()) {
        AddSkipped(state, sequence, {.sequence = context.timecode.name, .bin = state.bin});
        return false;
    }
    const ItemLocation location{.sequence = context.timecode.name};
    if (TicksOfRate(sequence.GetChild("rate")) == 0)
        AddRemark(state.account, RemarkKind::RateAssumed, location);
    RemarkOnMarkers(state, sequence, location);
    AddTrackGroups(context, result);
    result.AddChild("Markers", TranslateMarkers(state.document, sequence, context.rates.video));
    result.AddChild("DVDMarkers", state.document.NewObject("DVDMarkers"));
    AddZeroPoint(context, result);
    ChoosePreset(sequence, context.rates.video, result);
    SetLength(sequence, master, context.end);
    return true;
}

} // namespace XPJ
