// Projects as plain timelines.
#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_context.h"
#include "inspect/node_numbers.h"
#include "inspect/project_effects.h"
#include "inspect/read_timelines.h"
#include "inspect/titles.h"
#include "project/accessors.h"
#include "project/labels.h"
#include "project/marker_record.h"
#include "project/media.h"
#include "tree/reading.h"
#include "xmeml/files.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace XPJ::Inspection {

namespace {

std::string TextOf(ConstHandle node, Name key)
{
    return UnescapeXML(node.GetProperty(key));
}

TimecodeFormat FormatOf(Ticks frameTicks, int displayFormat)
{
    if (frameTicks <= 0)
        return {};
    return {frameTicks, TimecodeBaseOf(frameTicks, displayFormat).drop};
}

// Width and height: "0,0,1920,1080" is a frame of 1920 by 1080.
std::pair<int, int> FrameOf(std::string_view rect)
{
    int numbers[4] = {};
    for (int& number : numbers) {
        number = ParseInt(rect);
        rect.remove_prefix(std::min(rect.find(','), rect.size()));
        rect.remove_prefix(rect.empty() ? 0 : 1);
    }
    return {numbers[2], numbers[3]};
}

double AspectOf(std::string_view ratio)
{
    return ParseFrameSize({}, ratio).pixelAspect;
}

double AspectOfSequence(ConstHandle sequence)
{
    return AspectOf(GroupOfKind(sequence, MediaType::Video).GetProperty("PixelAspectRatio"));
}

double AspectOfMedia(Media media)
{
    const ConstHandle stream = VideoStreamOf(media);
    const bool isOverridden = IsTrue(stream, "IsPAROverridden");
    return AspectOf(stream.GetProperty(isOverridden ? Name("OverriddenPAR") : Name("OriginalPAR")));
}

std::string KindOfMarker(std::string_view type)
{
    return type == "Comment" ? std::string() : UnescapeXML(type);
}

std::vector<Marker> ReadMarkers(ConstHandle owner)
{
    std::vector<Marker> markers;
    for (const ConstHandle& marker : MarkersOf(owner))
        if (const auto record = ParseMarkerRecord(MarkerRecordOf(marker)))
            markers.push_back({.start = record->start,
                               .duration = record->duration,
                               .name = UnescapeXML(record->name),
                               .comment = UnescapeXML(record->comment),
                               .kind = KindOfMarker(record->type)});
    return markers;
}

// The markers of a clip belong to its audio, where it has audio.
ConstHandle MarkedClipOf(MasterClip master)
{
    const ConstHandle main = master.MainClip();
    const ConstChildRange markers = MarkersOf(main);
    return markers.begin() != markers.end() ? main : master.AudioClip();
}

double SpeedOf(ConstHandle core)
{
    const double speed = std::abs(DoubleProperty(core, "PlaybackSpeed"));
    return std::isfinite(speed) && speed != 0.0 ? speed : 1.0;
}

// A hold without a point of its own holds the first frame.
std::optional<Ticks> HeldPointOf(ConstHandle clip)
{
    if (IntProperty(clip, "FrameHold") == 0)
        return std::nullopt;
    const Ticks stated = Int64Property(clip, "FrameHoldStart");
    return stated < 0 ? Int64Property(clip, "InPoint") : stated;
}

// Generated media have four characters, as a number, instead of a path.
bool IsMadeByEditor(std::string_view path)
{
    return !path.empty() && path.find_first_not_of("0123456789") == path.npos;
}

Ticks StartOf(Media media)
{
    const bool isStated = IsTrue(media, "UseAlternateStart");
    return Int64Property(media, isStated ? Name("AlternateStart") : Name("Start"));
}

// The import keeps the timecode of a tape in the logging record of the master clip alone.
Ticks StatedStartOf(Media media, MasterClip master)
{
    const Ticks start = StartOf(media);
    return start == 0 ? Int64Property(LoggingInfoOf(master), "MediaInPoint") : start;
}

MediaFacts FactsOf(Media media, MasterClip master)
{
    const ConstHandle video = VideoStreamOf(media);
    const ConstHandle audio = AudioStreamOf(media);
    MediaFacts facts;
    const auto [width, height] = FrameOf(video.GetProperty("FrameRect"));
    facts.width = width;
    facts.height = height;
    const Ticks sampleTicks = Int64Property(audio, "FrameRate");
    if (sampleTicks > 0)
        facts.sampleRate = static_cast<int>(
            std::min<Ticks>(kTicksPerSecond / sampleTicks, std::numeric_limits<int>::max()));
    if (IsTrue(video, "IsStill"))
        return facts;
    facts.start = StatedStartOf(media, master);
    const Ticks frameTicks = Int64Property(video, "FrameRate");
    facts.frameTicks = IsRate(frameTicks) ? frameTicks : 0;
    const Ticks length = Int64Property(video ? video : audio, "Duration");
    facts.length = length >= kEndlessDuration ? 0 : std::max<Ticks>(length, 0);
    return facts;
}

class ProjectTimelines {
public:
    Project Read(ConstHandle velaData, std::vector<ConstHandle>& nodes)
    {
        project_.family = Family::Project;
        project_.version = TextOf(velaData, "Version");
        project_.name = TextOf(velaData.GetChild("Project"), "Project.Name");
        ReadEntries(FindPath(velaData, {"Project", "RootProjectItem"}));
        // A sequence may use others, which then come at the end.
        for (std::size_t i = 0; i < sequences_.Size(); ++i)
            project_.sequences.push_back(ReadSequence(sequences_.At(i)));
        MarkSlugs(project_);
        nodes = sequences_.Nodes();
        return std::move(project_);
    }

private:
    struct Level {
        ConstChildRange::Iterator next;
        ConstChildRange::Iterator end;
    };

    // References may lead back: every bin counts once.
    void ReadEntries(ConstHandle rootItem)
    {
        std::vector<Level> levels;
        const auto open = [&](ConstHandle bin) {
            const ConstChildRange items = ItemsOf(bin);
            if (bins_.Insert(bin) && levels.size() < static_cast<std::size_t>(kMaxNesting))
                levels.push_back({items.begin(), items.end()});
        };
        if (rootItem)
            open(rootItem);
        while (!levels.empty()) {
            Level& level = levels.back();
            if (!(level.next != level.end)) {
                levels.pop_back();
                continue;
            }
            const ConstHandle item = *level.next;
            ++level.next;
            AddEntry(item, static_cast<int>(levels.size()) - 1);
            if (item.GetName() == "BinProjectItem")
                open(item);
        }
    }

    void AddEntry(ConstHandle item, int depth)
    {
        Entry entry{.depth = depth,
                    .name = TextOf(item, "Name"),
                    .label = UnescapeXML(LabelOf(item, kItemLabel))};
        if (item.GetName() == "ClipProjectItem") {
            const MasterClip master = MasterOfItem(item);
            const ConstHandle clip = master.MainClip();
            const ConstHandle sequence = master.Sequence();
            entry.kind = sequence ? EntryKind::Sequence : EntryKind::Clip;
            if (sequence && !IsMergedSequence(sequence))
                entry.sequence = sequences_.NumberOf(sequence);
            entry.mediaFile = MediaFileOf(MediaOfSource(SourceOfClip(clip)), master);
            entry.markers = ReadMarkers(MarkedClipOf(master));
        }
        project_.entries.push_back(std::move(entry));
    }

    std::size_t MediaFileOf(Media media, MasterClip master)
    {
        if (!media)
            return kNothing;
        const auto [entry, isNew] = media_.emplace(media.UniqueId(), project_.mediaFiles.size());
        if (isNew) {
            const std::string path = TextOf(media, "FilePath");
            project_.mediaFiles.push_back(
                {.name = TextOf(media, "Title"),
                 .path = IsMadeByEditor(path) ? "" : path,
                 .format = FormatOf(Int64Property(VideoStreamOf(media), "FrameRate"), 0),
                 .start = StartOf(media),
                 .facts = FactsOf(media, master)});
        }
        return entry->second;
    }

    Sequence ReadSequence(ConstHandle node)
    {
        const ConstHandle video = GroupOfKind(node, MediaType::Video);
        const TimecodeFormat format =
            FormatOf(Int64Property(video, "FrameRate"),
                     IntProperty(node, "MZ.Sequence.VideoTimeDisplayFormat"));
        Sequence sequence{.name = TextOf(node, "Name"),
                          .id = std::string(ObjectGuid(node)),
                          .format = format,
                          .start = Int64Property(node, "MZ.ZeroPoint"),
                          .markers = ReadMarkers(node)};
        std::tie(sequence.width, sequence.height) = FrameOf(video.GetProperty("FrameRect"));
        pixelAspect_ = AspectOfSequence(node);
        items_.clear();
        for (const MediaType kind : {MediaType::Video, MediaType::Audio}) {
            int number = 0;
            for (const ConstHandle& group : TrackGroupsOf(node))
                if (IsGroupOf(group, kind))
                    for (const ConstHandle& track : TracksOf(group))
                        ReadTrack(track, kind, ++number, sequence);
        }
        ReadLinks(node, sequence);
        return sequence;
    }

    void ReadTrack(ConstHandle node, MediaType kind, int number, Sequence& sequence)
    {
        Track track{.kind = kind,
                    .number = number,
                    .name = TextOf(node, "MZ.TrackName"),
                    .enabled = !IsTrue(node, "IsMuted"),
                    .locked = IsTrue(node, "IsLocked")};
        std::vector<TrackItem> nodes;
        for (const ConstHandle& item : TrackItemsOf(node))
            nodes.emplace_back(item);
        std::ranges::stable_sort(nodes, {},
                                 [](TrackItem item) { return Int64Property(item, "Start"); });
        NodeSet transitions;
        for (const TrackItem& item : nodes) {
            items_.emplace(item.UniqueId(), ItemIndex{sequence.tracks.size(), track.items.size()});
            track.items.push_back(MakeItem(item, kind, sequence.format));
            for (const ConstHandle& transition : {HeadTransitionOf(item), TailTransitionOf(item)})
                if (transition && transitions.Insert(transition))
                    track.transitions.push_back(ReadProjectTransition(transition));
        }
        std::ranges::stable_sort(track.transitions, {}, &Transition::start);
        sequence.tracks.push_back(std::move(track));
    }

    Item MakeItem(TrackItem node, MediaType kind, const TimecodeFormat& sequenceFormat)
    {
        const ConstHandle subClip = SubClipOf(node);
        const ConstHandle clip = ClipOfSubClip(subClip);
        Item item{.name = TextOf(subClip, "Name"),
                  .start = Int64Property(node, "Start"),
                  .end = Int64Property(node, "End"),
                  .in = Int64Property(clip, "InPoint"),
                  .out = Int64Property(clip, "OutPoint"),
                  .speed = SpeedOf(clip),
                  .reverse = IsTrue(clip, "PlayBackwards"),
                  .frameBlending = IntProperty(clip, "TimeInterpolationType") != 0,
                  .speedKeyframes = ReadProjectSpeedKeyframes(clip),
                  .enabled = !IsTrue(node, "IsMuted"),
                  .label = UnescapeXML(LabelOf(clip, kClipLabel)),
                  .sourceFormat = sequenceFormat};
        if (kind == MediaType::Audio && HasValue(clip, "SecondaryIndex"))
            item.channel = static_cast<int>(
                std::clamp<std::int64_t>(Int64Property(clip, "SecondaryIndex"), 0, 65535) + 1);
        SetSource(clip, MasterOfSubClip(subClip), item);
        if (kind == MediaType::Video) {
            item.held = HeldPointOf(clip);
            item.compositeMode = ReadProjectCompositeMode(node);
            item.title = TitleOf(node, clip);
        }
        item.effects = ReadProjectEffects(node);
        item.markers = ReadMarkers(clip);
        return item;
    }

    void SetSource(ConstHandle clip, MasterClip master, Item& item)
    {
        const ConstHandle source = SourceOfClip(clip);
        if (const ConstHandle sequence = SequenceOfSource(source)) {
            const bool isMulticam = IsTrue(clip, "IsMulticam");
            item.source = isMulticam ? SourceKind::Multiclip : SourceKind::Sequence;
            item.sourceName = TextOf(sequence, "Name");
            item.hasOtherPixels = AspectOfSequence(sequence) != pixelAspect_;
            if (!isMulticam && !IsMergedSequence(sequence))
                item.sequence = sequences_.NumberOf(sequence);
        } else if (const Media media = MediaOfSource(source)) {
            item.mediaFile = MediaFileOf(media, master);
            const MediaFile& file = project_.mediaFiles[item.mediaFile];
            item.source = IsMadeByEditor(media.GetProperty("FilePath")) ? SourceKind::Generator
                                                                        : SourceKind::MediaFile;
            item.sourceName = file.name;
            item.isSlug =
                item.source == SourceKind::Generator && item.sourceName == kSlugSequenceName;
            item.hasOtherPixels = AspectOfMedia(media) != pixelAspect_;
            if (IsRate(Int64Property(VideoStreamOf(media), "FrameRate")))
                item.sourceFormat = file.format;
        }
    }

    // A graphic's text is on the item or on its master clip, a title document in the Media.
    std::size_t TitleOf(TrackItem node, ConstHandle clip)
    {
        const std::size_t own = project_.AddTitle(TextsOfChain(ChainOfOwner(node)));
        const MasterClip master = MasterOfSubClip(SubClipOf(node));
        if (own != kNothing || !master)
            return own;
        const auto [entry, isNew] = titles_.emplace(master.UniqueId(), kNothing);
        if (isNew) {
            entry->second = project_.AddTitle(TextsOfChain(VideoChainOfMaster(master)));
            if (entry->second == kNothing)
                entry->second = project_.AddTitle(TextsOfMedia(MediaOfSource(SourceOfClip(clip))));
        }
        return entry->second;
    }

    void ReadLinks(ConstHandle node, Sequence& sequence)
    {
        for (const ConstHandle& link : LinksOf(node)) {
            std::vector<ItemIndex> group;
            for (const ConstHandle& item : LinkedItemsOf(link))
                if (const auto found = items_.find(item.UniqueId()); found != items_.end())
                    group.push_back(found->second);
            std::ranges::sort(group);
            group.erase(std::unique(group.begin(), group.end()), group.end());
            if (group.size() < 2)
                continue;
            for (const ItemIndex& index : group)
                sequence.tracks[index.track].items[index.item].link = sequence.links.size();
            sequence.links.push_back(std::move(group));
        }
    }

    Project project_;
    NodeSet bins_;
    NodeNumbers<ConstHandle> sequences_;
    std::unordered_map<std::uint64_t, std::size_t> media_;  // by the Media's `uniqueId`
    std::unordered_map<std::uint64_t, std::size_t> titles_; // by the MasterClip's `uniqueId`
    std::unordered_map<std::uint64_t, ItemIndex> items_;    // of the sequence at hand
    double pixelAspect_ = 1.0;                              // likewise
};

} // namespace

Project ReadProjectTimelines(ConstHandle velaData, std::vector<ConstHandle>& nodes)
{
    return ProjectTimelines().Read(velaData, nodes);
}

} // namespace XPJ::Inspection
