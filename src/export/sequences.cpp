#include "export/sequences.h"

#include "core/host_properties.h"
#include "core/text.h"
#include "export/audio_items.h"
#include "export/audio_tracks.h"
#include "export/markers.h"
#include "export/rates.h"
#include "export/tracks.h"
#include "export/video_items.h"

#include <algorithm>
#include <limits>

namespace XPJ::RVX {

namespace {

// A sequence in a sequence is five levels of elements; readers of documents have their limits, and
// so has the stack of the writer.
constexpr std::size_t kMaxSequenceDepth = 32;

Ticks EndOfTrack(ConstHandle track)
{
    ConstHandle last;
    for (const ConstHandle item : TrackItemsOf(track))
        last = item;
    return Int64Property(last, "End");
}

// Where the last item of any track ends.
Ticks DurationOf(ConstHandle sequence)
{
    Ticks end = 0;
    for (const ConstHandle group : TrackGroupsOf(sequence))
        for (const ConstHandle track : TracksOf(group))
            end = std::max(end, EndOfTrack(track));
    return end;
}

// A sequence of audio alone states no frames.
bool StatesRate(ConstHandle sequence)
{
    const ConstHandle group = GroupOfKind(sequence, MediaType::Video);
    return group && Int64Property(group, "FrameRate") != std::numeric_limits<Ticks>::max();
}

void CopyUIProperties(ConstHandle properties, ObjectHandle result)
{
    for (const Name& key : SequenceUIPropertyList())
        if (properties.HasProperty(key))
            result.AddPropertyShared(key, properties.GetProperty(key));
}

// What a sequence has of its own, before its tracks.
ObjectHandle WriteSequenceHead(ExportContext& context, Catalogs& catalogs,
                               const ShownSequence& shown)
{
    const ObjectHandle result = context.document.NewObject("sequence");
    result.SetPropertyShared("id", catalogs.sequences.IdOf(context, shown.sequence));
    result.SetProperty("name", EscapeXML(shown.sequence.GetProperty("Name")));
    if (!context.IsHandOff())
        result.SetPropertyShared("explodedTracks", "true");
    if (const std::string_view guid = ObjectGuid(shown.masterClip); !guid.empty())
        result.SetPropertyShared("uuid", guid);
    CopyUIProperties(shown.sequence, result);
    return result;
}

ItemLocation LocationOf(const SequenceContext& sequence)
{
    return {.sequence = sequence.sequence.GetProperty("Name"), .span = sequence.numbering};
}

void ReportRate(ExportContext& context, const SequenceContext& sequence)
{
    if (!StatesRate(sequence.sequence))
        AddRemark(context.account, RemarkKind::RateAssumed, LocationOf(sequence));
    else if (context.DocumentUnit() == TimeUnit::Frames && !IsRateExact(sequence.frameTicks))
        AddRemark(context.account, RemarkKind::RateRounded, LocationOf(sequence),
                  {.detail = RateText(sequence.frameTicks)});
}

void WriteTimes(ExportContext& context, const SequenceContext& sequence, ObjectHandle result)
{
    const Ticks rate = sequence.frameTicks;
    ReportRate(context, sequence);
    const TimeUnit unit = context.DocumentUnit();
    result.AddChild(WriteRate(context.document, rate, unit));
    result.SetProperty("duration", TimeText(unit, DurationOf(sequence.sequence), rate));
    result.AddChild(
        WriteTimecode(context.document, Int64Property(sequence.sequence, "MZ.ZeroPoint"), rate,
                      IntProperty(sequence.sequence, "MZ.Sequence.VideoTimeDisplayFormat")));
}

struct TypedGroup {
    MediaType type;
    ConstHandle group;
};

// Video before audio, whatever their order in the project.
std::vector<TypedGroup> GroupsOf(ConstHandle sequence)
{
    std::vector<TypedGroup> groups;
    for (const MediaType type : {MediaType::Video, MediaType::Audio})
        for (const ConstHandle group : TrackGroupsOf(sequence))
            if (IsGroupOf(group, type))
                groups.push_back({type, group});
    return groups;
}

// A sequence that is being written, item by item.
class OpenSequence {
public:
    OpenSequence(ExportContext& context, Catalogs& catalogs, const ShownSequence& shown)
        : context_(context), catalogs_(catalogs),
          sequence_(ContextOfSequence(shown.sequence, FrameTicksOfSequence(shown.sequence))),
          element_(WriteSequenceHead(context, catalogs, shown)),
          media_(context.document.NewObject("media"))
    {
        context.account.sequences.push_back({shown.sequence.UniqueId(), element_.UniqueId()});
        catalogs.links.AddLinksOf(shown.sequence);
        if (HasTrackGroups(shown.sequence)) {
            WriteTimes(context, sequence_, element_);
            groups_ = GroupsOf(shown.sequence);
            const ItemLocation location = LocationOf(sequence_);
            TranslateMarkers(context,
                             {.owner = shown.sequence,
                              .frameTicks = sequence_.frameTicks,
                              .unit = context.DocumentUnit(),
                              .location = &location},
                             element_);
        } else {
            AddRemark(context.account, RemarkKind::SequenceWithoutFormat,
                      {.sequence = shown.sequence.GetProperty("Name")});
        }
        element_.AddChild(media_);
    }

    ConstHandle Source() const { return sequence_.sequence; }
    ObjectHandle Element() const { return element_; }

    // Goes on to the next item, over tracks and groups; false at the end.
    bool HasNextItem()
    {
        while (true) {
            if (track_ == tracks_.size()) {
                if (group_ == groups_.size())
                    return false;
                TranslateGroup(groups_[group_++]);
            } else if (item_ == tracks_[track_].items.size()) {
                ++track_;
                item_ = 0;
            } else {
                return true;
            }
        }
    }

    NestedSequence TranslateNextItem()
    {
        OpenTrack& open = tracks_[track_];
        const ItemPart& part = open.items[item_++];
        return open.track.type == MediaType::Video
                   ? TranslateVideoItem(context_, catalogs_, open.track, part.item)
                   : TranslateAudioItem(context_, catalogs_, open.track, part);
    }

private:
    void TranslateGroup(const TypedGroup& group)
    {
        tracks_ = group.type == MediaType::Video
                      ? TranslateVideoGroup(context_, sequence_, group.group, media_)
                      : TranslateAudioGroup(context_, sequence_, group.group, media_);
        track_ = 0;
        item_ = 0;
    }

    ExportContext& context_;
    Catalogs& catalogs_;
    SequenceContext sequence_;
    ObjectHandle element_;
    ObjectHandle media_;
    std::vector<TypedGroup> groups_;
    std::vector<OpenTrack> tracks_; // of the current group
    std::size_t group_ = 0;         // the next one
    std::size_t track_ = 0;
    std::size_t item_ = 0; // the next one of the track
};

} // namespace

Ticks FrameTicksOfSequence(ConstHandle sequence)
{
    const ConstHandle group = GroupOfKind(sequence, MediaType::Video);
    const Ticks rate = group ? Int64Property(group, "FrameRate") : kNtscFrameTicks;
    return rate == std::numeric_limits<Ticks>::max() ? kNtscFrameTicks : rate;
}

ObjectHandle TranslateSequence(ExportContext& context, Catalogs& catalogs,
                               const ShownSequence& shown, std::vector<ShownSequence>& postponed)
{
    std::vector<OpenSequence> open; // each is shown by the one before it
    const auto begin = [&](const ShownSequence& sequence) {
        catalogs.sequences.Open(sequence.sequence);
        open.emplace_back(context, catalogs, sequence);
    };
    begin(shown);
    const ObjectHandle result = open.back().Element();
    while (!open.empty()) {
        if (!open.back().HasNextItem()) {
            catalogs.sequences.Close(open.back().Source());
            open.pop_back();
            continue;
        }
        const NestedSequence nested = open.back().TranslateNextItem();
        if (!nested.shown.sequence)
            continue;
        if (open.size() < kMaxSequenceDepth) {
            begin(nested.shown);
            nested.clipItem.AddChild(open.back().Element());
        } else {
            nested.clipItem.SetPropertyShared(
                "sequenceid", catalogs.sequences.IdOf(context, nested.shown.sequence));
            postponed.push_back(nested.shown);
            AddRemark(context.account, RemarkKind::SequenceTooDeep,
                      {.sequence = nested.shown.sequence.GetProperty("Name")});
        }
    }
    return result;
}

} // namespace XPJ::RVX
