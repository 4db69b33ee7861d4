// XML documents as plain timelines: edges at transitions, references by id, frames of many rates.
#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"
#include "effects/effect_context.h"
#include "inspect/effect_names.h"
#include "inspect/link_groups.h"
#include "inspect/node_numbers.h"
#include "inspect/read_timelines.h"
#include "inspect/titles.h"
#include "inspect/xmeml_effects.h"
#include "project/time_display.h"
#include "tree/reading.h"
#include "xmeml/cut_points.h"
#include "xmeml/file_facts.h"
#include "xmeml/files.h"
#include "xmeml/formats.h"
#include "xmeml/links.h"
#include "xmeml/multiclips.h"
#include "xmeml/sequences.h"
#include "xmeml/speed.h"
#include "xmeml/tracks.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace XPJ::Inspection {

namespace {

std::string TextOf(ConstHandle node, Name key)
{
    return UnescapeXML(node.GetProperty(key));
}

std::string LabelOf(ConstHandle node)
{
    return TextOf(node.GetChild("labels"), "label2");
}

// Documents of the audio hand-off count in ticks, and show the frames of the timecode.
Ticks ShownFrame(Ticks frameTicks, ConstHandle timecode)
{
    if (frameTicks != 1)
        return frameTicks;
    const Ticks shown = TicksOfRate(timecode.GetChild("rate"));
    return shown < 2 ? kNtscFrameTicks : shown;
}

TimecodeFormat FormatOf(Ticks unit, ConstHandle timecode)
{
    const Ticks frameTicks = ShownFrame(unit, timecode);
    if (frameTicks <= 0)
        return {};
    const int display = ParseInt(TimeDisplayOf(IsNonDrop(timecode), frameTicks));
    return {frameTicks, TimecodeBaseOf(frameTicks, display).drop};
}

// Of the first frame: a count in the timecode's own rate, else in that of what it belongs to.
Ticks StartOf(ConstHandle timecode, Ticks frameTicks)
{
    const Ticks own = TicksOfRate(timecode.GetChild("rate"));
    return MultiplyTicks(Int64Property(timecode, "frame"), own > 0 ? own : frameTicks);
}

// A sequence keeps the number that its timecode starts with, whatever rate that was stated at. Only
// where its frames are ticks does the timecode count in frames of its own.
Ticks StartOfSequence(ConstHandle timecode, Ticks frameTicks)
{
    return frameTicks == 1 ? StartOf(timecode, frameTicks)
                           : MultiplyTicks(Int64Property(timecode, "frame"), frameTicks);
}

// A file without a rate counts in frames of `frameTicks`.
MediaFacts FactsOf(FileElement file, Ticks frameTicks)
{
    MediaFacts facts = FactsOfFile(file);
    if (TicksOfRate(file.GetChild("rate")) <= 0)
        facts.length =
            std::max<Ticks>(MultiplyTicks(Int64Property(file, "duration"), frameTicks), 0);
    return facts;
}

std::vector<Marker> ReadMarkers(ConstHandle element, Ticks frameTicks)
{
    std::vector<Marker> markers;
    for (const ConstHandle& node : element.GetChildren("marker")) {
        const Frames in = Int64Property(node, "in");
        const Frames out = HasValue(node, "out") ? Int64Property(node, "out") : kNotStated;
        markers.push_back(
            {.start = MultiplyTicks(in, frameTicks),
             .duration = out == kNotStated ? 0 : MultiplyTicks(SubtractTicks(out, in), frameTicks),
             .name = TextOf(node, "name"),
             .comment = TextOf(node, "comment")});
        if (markers.back().comment.starts_with(kChapterPrefix))
            markers.back().kind = kChapterKind;
    }
    return markers;
}

// Of a project, which may hold its entries itself.
ConstHandle ChildrenOf(ConstHandle project)
{
    const ConstHandle children = project.GetChild("children");
    return children ? children : project;
}

// False for what only names by its id what is defined elsewhere.
bool IsDefined(ConstHandle entry)
{
    return entry.HasChildren() || HasValue(entry, "name");
}

// What an item holds, by its own `stillframeoffset` or that of the sequence around its file.
std::optional<Ticks> HeldPointOf(ConstHandle item, const ItemRates& rates, Ticks unit)
{
    const auto pointOf = [](ConstHandle still, Ticks frameTicks) -> std::optional<Ticks> {
        const Frames frame = Int64Property(still, "stillframeoffset");
        if (!HasValue(still, "stillframeoffset") || frame < 0)
            return std::nullopt;
        return MultiplyTicks(frame, frameTicks);
    };
    if (const std::optional<Ticks> own = pointOf(item, rates.item))
        return own;
    const ConstHandle still = FindPath(item, {"sequence", "media", "video", "track", "clipitem"});
    return pointOf(still, RatesOfItem(still, unit).item);
}

// An item with what is needed to find its links.
struct ReadItem {
    Item item;
    ConstHandle node;
    LinkKey key;
};

class XmemlTimelines {
public:
    explicit XmemlTimelines(const TreeReading& reading) : reading_(reading)
    {
        project_.family = Family::Xmeml;
    }

    Project Read(ConstHandle xmeml, std::vector<ConstHandle>& nodes)
    {
        project_.version = TextOf(xmeml, "version");
        project_.name = TextOf(xmeml.GetChild("project"), "name");
        FindFiles(xmeml);
        for (const ConstHandle& node : xmeml.GetChildren())
            AddEntries(node.GetName() == "project" ? ChildrenOf(node) : ConstHandle(), node, 0);
        // A sequence may use others, which then come at the end.
        for (std::size_t i = 0; i < sequences_.Size(); ++i)
            project_.sequences.push_back(ReadSequence(sequences_.At(i)));
        MarkSlugs(project_);
        nodes = sequences_.Nodes();
        return std::move(project_);
    }

private:
    // Files are defined anywhere and named by id.
    void FindFiles(ConstHandle root)
    {
        NodeSet seen;
        std::vector<ConstHandle> waiting{root};
        while (!waiting.empty()) {
            const ConstHandle node = waiting.back();
            waiting.pop_back();
            if (!seen.Insert(node))
                continue;
            if (node.GetName() == "file" && HasValue(node, "id") && node.HasChildren())
                files_.Add(FileElement(node));
            for (const ConstHandle& child : node.GetChildren())
                waiting.push_back(child);
        }
    }

    // The entries of a list, or a single one.
    void AddEntries(ConstHandle list, ConstHandle single, int depth)
    {
        if (depth >= kMaxNesting)
            return;
        if (!list)
            return AddEntry(single, depth);
        for (const ConstHandle& node : list.GetChildren())
            AddEntry(node, depth);
    }

    void AddEntry(ConstHandle node, int depth)
    {
        Entry entry{.depth = depth, .name = TextOf(node, "name"), .label = LabelOf(node)};
        if (node.GetName() == "bin") {
            project_.entries.push_back(std::move(entry));
            if (const ConstHandle children = node.GetChild("children"))
                AddEntries(children, {}, depth + 1);
        } else if (node.GetName() == "clip" && IsDefined(node)) {
            entry.kind = EntryKind::Clip;
            entry.mediaFile = MediaFileOf(FirstFileOf(files_, node));
            entry.markers = ReadMarkers(node, RatesOfItem(node, kNtscFrameTicks).item);
            project_.entries.push_back(std::move(entry));
        } else if (node.GetName() == "sequence" && IsDefined(node)) {
            entry.kind = EntryKind::Sequence;
            entry.sequence = sequences_.NumberOf(node);
            project_.entries.push_back(std::move(entry));
        }
    }

    std::size_t MediaFileOf(FileElement file)
    {
        if (!file)
            return kNothing;
        const auto [entry, isNew] = media_.emplace(file.UniqueId(), project_.mediaFiles.size());
        if (isNew) {
            const ConstHandle timecode = file.GetChild("timecode");
            const Ticks unit = TicksOfRate(file.GetChild("rate"));
            const TimecodeFormat format = FormatOf(unit, timecode);
            project_.mediaFiles.push_back({.name = UnescapeXML(file.Title()),
                                           .path = UnescapeXML(PathOfFile(file, reading_.folder)),
                                           .format = format,
                                           .start = StartOf(timecode, format.ticks),
                                           .facts = FactsOf(file, unit)});
        }
        return entry->second;
    }

    Sequence ReadSequence(ConstHandle node)
    {
        const SequenceRates rates = RatesOfSequence(node, reading_.isHandOff);
        const Ticks unit = rates.edges > 0 ? rates.edges : kNtscFrameTicks;
        const FrameFormat frame = FrameOfOwner(node);
        titleFrame_ = ParseFrameSize(frame.rect, frame.par);
        Sequence sequence{.name = TextOf(node, "name"),
                          .id = HasValue(node, "uuid") ? TextOf(node, "uuid") : TextOf(node, "id"),
                          .format = FormatOf(unit, node.GetChild("timecode")),
                          .start = StartOfSequence(node.GetChild("timecode"), unit)};
        const ConstHandle characteristics = CharacteristicsOf(node);
        sequence.width = IntProperty(characteristics, "width");
        sequence.height = IntProperty(characteristics, "height");
        const Ticks own = TicksOfRate(node.GetChild("rate"));
        sequence.markers = ReadMarkers(node, own > 0 ? own : unit);
        ReadTracks(node, unit, sequence);
        return sequence;
    }

    void ReadTracks(ConstHandle node, Ticks unit, Sequence& sequence)
    {
        std::map<LinkKey, ItemIndex> byKey;
        std::vector<std::pair<ItemIndex, ConstHandle>> linked;
        const ConstHandle media = node.GetChild("media");
        for (const MediaType type : {MediaType::Video, MediaType::Audio}) {
            int stated = 0; // as links count
            int kept = 0;
            for (const ConstHandle& trackNode :
                 media.GetChild(type == MediaType::Video ? Name("video") : Name("audio"))
                     .GetChildren("track")) {
                ++stated;
                // Further channels of the track before it.
                if (type == MediaType::Audio && kept > 0 && IsContinuationTrack(trackNode))
                    continue;
                Track track{.kind = type == MediaType::Video ? MediaType::Video : MediaType::Audio,
                            .number = ++kept};
                std::vector<ReadItem> items = ReadTrack(trackNode, type, stated, unit, track);
                for (ReadItem& read : items) {
                    const ItemIndex index{sequence.tracks.size(), track.items.size()};
                    byKey.emplace(read.key, index);
                    if (read.node.HasChild("link"))
                        linked.emplace_back(index, read.node);
                    track.items.push_back(std::move(read.item));
                }
                sequence.tracks.push_back(std::move(track));
            }
        }
        ReadLinks(LinkIndex(node, 0), byKey, linked, sequence);
    }

    static void ReadLinks(const LinkIndex& links, const std::map<LinkKey, ItemIndex>& byKey,
                          const std::vector<std::pair<ItemIndex, ConstHandle>>& linked,
                          Sequence& sequence)
    {
        LinkGroups groups;
        for (const auto& [index, node] : linked)
            for (const ConstHandle& link : node.GetChildren("link"))
                if (const auto found = byKey.find(links.TargetOf(link)); found != byKey.end())
                    groups.Join(index, found->second);
        sequence.links = groups.Groups();
        for (std::size_t i = 0; i < sequence.links.size(); ++i)
            for (const ItemIndex& index : sequence.links[i])
                sequence.tracks[index.track].items[index.item].link = i;
    }

    // Its items by start; the transitions go into `track`.
    std::vector<ReadItem> ReadTrack(ConstHandle node, MediaType type, int number, Ticks unit,
                                    Track& track)
    {
        const std::vector<ClipItem> clipItems =
            ItemsOfTrack(node, {unit, reading_.openInterchange}, type);
        track.name =
            TextOf(node, node.HasProperty("MZ.TrackName") ? Name("MZ.TrackName") : Name("name"));
        track.enabled = !EqualsIgnoreCase(node.GetProperty("enabled"), "FALSE");
        track.locked = IsTrue(node, "locked");
        std::vector<ReadItem> items;
        auto clipItem = clipItems.begin();
        for (const ConstHandle& child : node.GetChildren()) {
            if (!IsTrackItem(child))
                continue;
            if (child.GetName() == "transitionitem") {
                track.transitions.push_back(ReadXmemlTransition(child, unit));
                continue;
            }
            const LinkKey key{.type = type, .track = number, .position = clipItem->position};
            items.push_back({MakeItem(child, *clipItem, type, unit), child, KeyOfItem(child, key)});
            ++clipItem;
        }
        std::ranges::stable_sort(items, {}, [](const ReadItem& read) { return read.item.start; });
        std::ranges::stable_sort(track.transitions, {}, &Transition::start);
        return items;
    }

    Item MakeItem(ConstHandle node, const ClipItem& clipItem, MediaType type, Ticks unit)
    {
        const ItemRates rates = RatesOfItem(node, unit);
        const FileElement file = FileOfItem(files_, node);
        const ItemTimes times =
            node.GetName() == "generatoritem"
                ? TimesOfGenerator(clipItem, rates, Int64Property(file, "duration"))
                : TimesOfClip(clipItem, rates);
        const ItemSpeed speed = SpeedOfItem(node);
        Item item{.name = HasValue(node, "name") ? TextOf(node, "name") : TextOf(file, "name"),
                  .start = MultiplyTicks(times.start, unit),
                  .end = MultiplyTicks(times.end, unit),
                  .speed = speed.speed,
                  .reverse = speed.playBackwards,
                  .frameBlending = speed.frameBlending,
                  .speedKeyframes = ReadXmemlSpeedKeyframes(node, rates.item),
                  .enabled = !EqualsIgnoreCase(node.GetProperty("enabled"), "FALSE"),
                  .compositeMode = PlainText(node.GetProperty("compositemode")),
                  .label = LabelOf(node),
                  .sourceFormat = FormatOf(rates.item, file.GetChild("timecode"))};
        SetRange(clipItem, type, times, rates, item);
        if (type == MediaType::Audio)
            item.channel = IntProperty(node.GetChild("sourcetrack"), "trackindex");
        SetSource(node, file, item);
        if (type == MediaType::Video) {
            item.held = HeldPointOf(node, rates, unit);
            item.title = TitleOf(node, file);
        }
        item.effects = ReadXmemlEffects(node, rates.item);
        item.markers = ReadMarkers(node, rates.item);
        return item;
    }

    // Points count in played frames; audio may state them exactly. Video without an out point ends
    // with the item.
    static void SetRange(const ClipItem& node, MediaType type, const ItemTimes& times,
                         const ItemRates& rates, Item& item)
    {
        if (node.times.exactIn.IsStated())
            item.exactIn = node.times.exactIn.value;
        if (node.times.exactOut.IsStated())
            item.exactOut = node.times.exactOut.value;
        const bool isAudio = type == MediaType::Audio;
        const Frames delay = isAudio ? Int64Property(node, "mediadelay") : 0;
        const auto pointOf = [&](const StatedTime& exact, Frames frames) {
            return isAudio && exact.IsStated()
                       ? exact.value
                       : ScaledTicks(AddTicks(frames, delay), rates.item, item.speed);
        };
        item.in = std::max<Ticks>(pointOf(node.times.exactIn, times.in), 0);
        const Frames length = rates.ToItem(SubtractTicks(times.end, times.start));
        item.out = !isAudio && times.out < 0
                       ? AddTicks(item.in, ScaledTicks(length, rates.item, item.speed))
                       : pointOf(node.times.exactOut, times.out);
    }

    void SetSource(ConstHandle node, FileElement file, Item& item)
    {
        const ConstHandle multiclip = node.GetChild("multiclip");
        if (multiclip && !IsCollapsed(multiclip)) {
            item.source = SourceKind::Multiclip;
            item.sourceName = TextOf(multiclip, "name");
            return;
        }
        if (multiclip)
            file = FirstFileOf(files_, FindActiveAngle(multiclip).clip);
        if (file) {
            item.mediaFile = MediaFileOf(file);
            item.source = SourceKind::MediaFile;
            item.sourceName = project_.mediaFiles[item.mediaFile].name;
            item.isSlug = file.IsSlug();
        } else if (const ConstHandle nested = node.GetChild("sequence")) {
            item.sequence = sequences_.NumberOf(nested);
            item.source = SourceKind::Sequence;
            item.sourceName = TextOf(nested, "name");
        } else if (node.GetName() == "generatoritem") {
            item.source = SourceKind::Generator;
            item.sourceName = TextOf(node.GetChild("effect"), "name");
            item.isSlug = EqualsIgnoreCase(node.GetChild("effect").GetProperty("effectid"), "Slug");
        }
    }

    // A graphic's text is a filter of the item or of its file.
    std::size_t TitleOf(ConstHandle node, FileElement file)
    {
        if (node.GetName() == "generatoritem")
            return project_.AddTitle(TextsOfGenerator(node, titleFrame_));
        const std::size_t own = project_.AddTitle(TextsOfFilters(node));
        if (own != kNothing || !file)
            return own;
        const auto [entry, isNew] = titles_.emplace(file.UniqueId(), kNothing);
        if (isNew)
            entry->second = project_.AddTitle(TextsOfFilters(file));
        return entry->second;
    }

    TreeReading reading_;
    FileCatalog files_;
    Project project_;
    NodeNumbers<ConstHandle> sequences_;
    FrameSize titleFrame_;                                  // of the sequence at hand
    std::unordered_map<std::uint64_t, std::size_t> media_;  // by the file's `uniqueId`
    std::unordered_map<std::uint64_t, std::size_t> titles_; // likewise
};

} // namespace

Project ReadXmemlTimelines(ConstHandle xmeml, const TreeReading& reading,
                           std::vector<ConstHandle>& nodes)
{
    return XmemlTimelines(reading).Read(xmeml, nodes);
}

} // namespace XPJ::Inspection
