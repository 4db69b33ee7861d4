#include "export/sequences.h"

#include "core/host_properties.h"
#include "core/numbers.h"
#include "core/text.h"
#include "export/audio_tracks.h"
#include "export/links.h"
#include "export/markers.h"
#include "export/rates.h"
#include "export/tracks.h"

#include <algorithm>
#include <limits>

namespace XPJ::RVX {

namespace {

// A sequence in a sequence is five levels of elements; readers of documents have their limits, and
// so has the stack.
constexpr int kMaxSequenceDepth = 32;

class DepthScope {
public:
    explicit DepthScope(int& depth) : depth_(depth) { ++depth_; }
    ~DepthScope() { --depth_; }
    DepthScope(const DepthScope&) = delete;
    DepthScope& operator=(const DepthScope&) = delete;

private:
    int& depth_;
};

std::string_view SequenceId(ExportContext& context, ConstHandle sequence)
{
    std::string_view& id = context.sequenceIds[sequence.UniqueId()];
    if (id.empty())
        id = NewId(context, "sequence-", context.ids.sequence);
    return id;
}

Ticks EndOfTrack(ConstHandle track)
{
    ConstHandle last;
    for (const ConstHandle item : TrackItemsOf(track))
        last = item;
    return Int64Property(ItemEdges(last), "End");
}

// Where the last item of any track ends.
Ticks DurationOf(ConstHandle sequence)
{
    Ticks end = 0;
    for (const ConstHandle entry : GroupEntriesOf(sequence))
        for (const ConstHandle track : TracksOf(GroupOfEntry(entry)))
            end = std::max(end, EndOfTrack(track));
    return end;
}

void CopyUIProperties(ConstHandle properties, ObjectHandle result)
{
    for (const Name& key : SequenceUIPropertyList())
        if (properties.HasProperty(key))
            result.AddPropertyShared(key, properties.GetProperty(key));
}

// Picture before sound, whatever the order of the groups.
ObjectHandle TranslateGroups(ExportContext& context, const SequencePlace& place)
{
    const ObjectHandle media = context.document.NewObject("media");
    for (const ConstHandle entry : GroupEntriesOf(place.sequence))
        if (const ConstHandle group = GroupOfEntry(entry);
            group && IsGroupEntryOf(entry, MediaType::Video))
            media.AddChild(TranslateVideoGroup(context, place, group));
    for (const ConstHandle entry : GroupEntriesOf(place.sequence))
        if (const ConstHandle group = GroupOfEntry(entry);
            group && IsGroupEntryOf(entry, MediaType::Audio))
            media.AddChild(TranslateAudioGroup(context, place, group));
    return media;
}

void TranslateTimeline(ExportContext& context, const SequencePlace& place, ObjectHandle result)
{
    const Ticks rate = place.frameTicks;
    if (rate == 0)
        throw NoFrameLength("sequence", place.sequence.GetProperty("Name"));
    const ConstHandle properties = SequenceProperties(place.sequence);
    result.AddChild(WriteRate(context, rate, context.inTicks));
    result.SetProperty("duration", TimeText(context, DurationOf(place.sequence), rate));
    result.AddChild(WriteTimecode(context, Int64Property(properties, "MZ.ZeroPoint"), rate,
                                  IntProperty(properties, "MZ.Sequence.VideoTimeDisplayFormat")));
    result.AddChild(TranslateGroups(context, place));
    TranslateMarkers(context, {.owner = place.sequence, .frameTicks = rate}, result);
}

} // namespace

Ticks FrameTicksOfSequence(ConstHandle sequence)
{
    const ConstHandle group = GroupOfKind(sequence, MediaType::Video);
    const Ticks rate = group ? RateOfGroup(group) : kNtscFrameTicks;
    return rate == std::numeric_limits<Ticks>::max() ? kNtscFrameTicks : rate;
}

ObjectHandle TranslateSequence(ExportContext& context, ConstHandle sequence, ConstHandle masterClip)
{
    const DepthScope depth(context.sequenceDepth);
    const TimeFormScope form(context, context.vl2snMode);
    const ObjectHandle result = context.document.NewObject("sequence");
    result.SetPropertyShared("id", SequenceId(context, sequence));
    result.SetProperty("name", EscapeXML(sequence.GetProperty("Name")));
    if (!context.vl2snMode)
        result.SetPropertyShared("explodedTracks", "true");
    if (const std::string_view guid = ObjectGuid(masterClip); !guid.empty())
        result.SetPropertyShared("uuid", guid);
    CopyUIProperties(SequenceProperties(sequence), result);
    OpenLinkGroups(context, sequence);
    if (HasTrackGroups(sequence))
        TranslateTimeline(context, {sequence, FrameTicksOfSequence(sequence)}, result);
    else
        result.AddChild(context.document.NewObject("media"));
    return result;
}

void TranslateNestedSequence(ExportContext& context, ConstHandle sequence, ConstHandle masterClip,
                             ObjectHandle clipItem)
{
    const bool isKnown = context.sequenceIds.contains(sequence.UniqueId());
    if (!isKnown && context.sequenceDepth < kMaxSequenceDepth) {
        clipItem.AddChild(TranslateSequence(context, sequence, masterClip));
        return;
    }
    if (!isKnown)
        context.postponedSequences.push_back({sequence, masterClip});
    clipItem.SetPropertyShared("sequenceid", SequenceId(context, sequence));
}

// Each of them may postpone others.
void TranslatePostponedSequences(ExportContext& context, ObjectHandle children)
{
    while (!context.postponedSequences.empty()) {
        const auto [sequence, masterClip] = context.postponedSequences.back();
        context.postponedSequences.pop_back();
        children.AddChild(TranslateSequence(context, sequence, masterClip));
    }
}

} // namespace XPJ::RVX
