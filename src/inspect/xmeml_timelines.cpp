// XML documents as plain timelines: edges at transitions, references by id, frames of many rates.
#include "core/frame_rate.h"
#include "core/numbers.h"
#include "core/text.h"
#include "xmeml/cut_points.h"
#include "xmeml/formats.h"
#include "import/generators.h"
#include "import/import_state.h"
#include "xmeml/item_times.h"
#include "import/links.h"
#include "xmeml/files.h"
#include "import/multiclips.h"
#include "import/sequences.h"
#include "xmeml/speed.h"
#include "import/tracks.h"
#include "inspect/effect_names.h"
#include "inspect/link_groups.h"
#include "inspect/node_numbers.h"
#include "inspect/read_timelines.h"
#include "inspect/titles.h"
#include "inspect/xmeml_effects.h"
#include "tree/reading.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace XPJ::Inspection {

namespace {

std::string TextOf(ObjectHandle node, Name key)
{
    return UnescapeXML(node.GetProperty(key));
}

std::string LabelOf(ObjectHandle node)
{
    return TextOf(node.GetChild("labels"), "label2");
}

// Documents of the audio hand-off count in ticks, and show the frames of the timecode.
Ticks ShownFrame(Ticks frameTicks, ObjectHandle timecode)
{
    if (frameTicks != 1)
        return frameTicks;
    const Ticks shown = TicksOfRate(timecode.GetChild("rate"));
    return shown < 2 ? kNtscFrameTicks : shown;
}

TimecodeFormat FormatOf(Ticks unit, ObjectHandle timecode)
{
    const Ticks frameTicks = ShownFrame(unit, timecode);
    if (frameTicks <= 0)
        return {};
    const int display = ParseInt(TimeDisplayOf(IsNonDrop(timecode), frameTicks));
    return {frameTicks, TimecodeBaseOf(frameTicks, display).drop};
}

// Of the first frame: a count in the timecode's own rate, else in that of what it belongs to.
Ticks StartOf(ObjectHandle timecode, Ticks frameTicks)
{
    const Ticks own = TicksOfRate(timecode.GetChild("rate"));
    return MultiplyTicks(Int64Property(timecode, "frame"), own > 0 ? own : frameTicks);
}

// A sequence keeps the number that its timecode starts with, whatever rate that was stated at. Only
// where its frames are ticks does the timecode count in frames of its own.
Ticks StartOfSequence(ObjectHandle timecode, Ticks frameTicks)
{
    return frameTicks == 1 ? StartOf(timecode, frameTicks)
                           : MultiplyTicks(Int64Property(timecode, "frame"), frameTicks);
}

std::vector<Marker> ReadMarkers(ObjectHandle element, Ticks frameTicks)
{
    std::vector<Marker> markers;
    for (const ObjectHandle& node : element.GetChildren("marker")) {
        const Frames in = Int64Property(node, "in");
        const Frames out = HasValue(node, "out") ? Int64Property(node, "out") : kNotStated;
        markers.push_back(
            {.start = MultiplyTicks(in, frameTicks),
             .duration = out == kNotStated ? 0 : MultiplyTicks(Minus(out, in), frameTicks),
             .name = TextOf(node, "name"),
             .comment = TextOf(node, "comment")});
    }
    return markers;
}

// An item with what is needed to find its links.
struct ReadItem {
    Item item;
    ObjectHandle node;
    LinkKey key;
};

class XmemlTimelines {
public:
    XmemlTimelines(std::string_view folder, bool isHandOff)
    {
        state_.sn2vlMode = isHandOff;
        state_.documentDirectory = folder;
        project_.family = Family::Xmeml;
    }

    Project Read(ObjectHandle xmeml)
    {
        project_.version = TextOf(xmeml, "version");
        project_.name = TextOf(xmeml.GetChild("project"), "name");
        FindFiles(xmeml);
        for (const ObjectHandle& node : xmeml.GetChildren())
            AddEntries(node.GetName() == "project" ? node.GetChild("children") : ObjectHandle(),
                       node, 0);
        // A sequence may use others, which then come at the end.
        for (std::size_t i = 0; i < sequences_.Size(); ++i)
            project_.sequences.push_back(ReadSequence(sequences_.At(i)));
        return std::move(project_);
    }

private:
    // Files are defined anywhere and named by id.
    void FindFiles(ObjectHandle root)
    {
        NodeSet seen;
        std::vector<ObjectHandle> waiting{root};
        while (!waiting.empty()) {
            const ObjectHandle node = waiting.back();
            waiting.pop_back();
            if (!seen.Insert(node))
                continue;
            if (node.GetName() == "file" && HasValue(node, "id") && node.HasChildren())
                state_.files.emplace(node.GetProperty("id"), node);
            for (const ObjectHandle& child : node.GetChildren())
                waiting.push_back(child);
        }
    }

    // The entries of a list, or a single one.
    void AddEntries(ObjectHandle list, ObjectHandle single, int depth)
    {
        if (depth >= kMaxNesting)
            return;
        if (!list)
            return AddEntry(single, depth);
        for (const ObjectHandle& node : list.GetChildren())
            AddEntry(node, depth);
    }

    void AddEntry(ObjectHandle node, int depth)
    {
        Entry entry{.depth = depth, .name = TextOf(node, "name"), .label = LabelOf(node)};
        if (node.GetName() == "bin") {
            project_.entries.push_back(std::move(entry));
            if (const ObjectHandle children = node.GetChild("children"))
                AddEntries(children, {}, depth + 1);
        } else if (node.GetName() == "clip" && node.HasChildren()) {
            entry.kind = EntryKind::Clip;
            entry.mediaFile = MediaFileOf(FirstFileOf(state_, node));
            entry.markers = ReadMarkers(node, RatesOfItem(node, kNtscFrameTicks).item);
            project_.entries.push_back(std::move(entry));
        } else if (node.GetName() == "sequence" && node.HasChildren()) {
            entry.kind = EntryKind::Sequence;
            entry.sequence = sequences_.NumberOf(node);
            project_.entries.push_back(std::move(entry));
        }
    }

    std::size_t MediaFileOf(ObjectHandle file)
    {
        if (!file)
            return kNothing;
        const auto [entry, isNew] = media_.emplace(file.UniqueId(), project_.mediaFiles.size());
        if (isNew) {
            const ObjectHandle timecode = file.GetChild("timecode");
            const TimecodeFormat format = FormatOf(TicksOfRate(file.GetChild("rate")), timecode);
            project_.mediaFiles.push_back({.name = UnescapeXML(TitleOfFile(file)),
                                           .path = UnescapeXML(PathOfFile(state_, file)),
                                           .format = format,
                                           .start = StartOf(timecode, format.ticks)});
        }
        return entry->second;
    }

    Sequence ReadSequence(ObjectHandle node)
    {
        const SequenceRates rates = RatesOfSequence(state_, node);
        const Ticks unit = rates.edges > 0 ? rates.edges : kNtscFrameTicks;
        NormaliseSequence(node, unit);
        const FrameFormat frame = FrameOfOwner(node);
        titleFrame_ = ParseFrameSize(frame.rect, frame.par);
        Sequence sequence{.name = TextOf(node, "name"),
                          .format = FormatOf(unit, node.GetChild("timecode")),
                          .start = StartOfSequence(node.GetChild("timecode"), unit)};
        const ObjectHandle characteristics = CharacteristicsOf(node);
        sequence.width = IntProperty(characteristics, "width");
        sequence.height = IntProperty(characteristics, "height");
        const Ticks own = TicksOfRate(node.GetChild("rate"));
        sequence.markers = ReadMarkers(node, own > 0 ? own : unit);
        ReadTracks(node, unit, sequence);
        return sequence;
    }

    void ReadTracks(ObjectHandle node, Ticks unit, Sequence& sequence)
    {
        std::map<LinkKey, ItemIndex> byKey;
        std::vector<std::pair<ItemIndex, ObjectHandle>> linked;
        const ObjectHandle media = node.GetChild("media");
        for (const MediaType type : {MediaType::Video, MediaType::Audio}) {
            int stated = 0; // as links count
            int kept = 0;
            for (const ObjectHandle& trackNode :
                 media.GetChild(type == MediaType::Video ? "video" : "audio")
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
                          const std::vector<std::pair<ItemIndex, ObjectHandle>>& linked,
                          Sequence& sequence)
    {
        LinkGroups groups;
        for (const auto& [index, node] : linked)
            for (const ObjectHandle& link : node.GetChildren("link"))
                if (const auto found = byKey.find(links.TargetOf(link)); found != byKey.end())
                    groups.Join(index, found->second);
        sequence.links = groups.Groups();
        for (std::size_t i = 0; i < sequence.links.size(); ++i)
            for (const ItemIndex& index : sequence.links[i])
                sequence.tracks[index.track].items[index.item].link = i;
    }

    // Its items by start; the transitions go into `track`.
    std::vector<ReadItem> ReadTrack(ObjectHandle node, MediaType type, int number, Ticks unit,
                                    Track& track)
    {
        track.name =
            TextOf(node, node.HasProperty("MZ.TrackName") ? Name("MZ.TrackName") : Name("name"));
        track.enabled = !EqualsIgnoreCase(node.GetProperty("enabled"), "FALSE");
        track.locked = IsTrue(node, "locked");
        std::vector<ReadItem> items;
        int position = 0;
        for (const ObjectHandle& child : node.GetChildren()) {
            if (!IsTrackItem(child))
                continue;
            ++position;
            if (child.GetName() == "transitionitem")
                track.transitions.push_back(ReadXmemlTransition(child, unit));
            else
                items.push_back({MakeItem(child, type, unit), child,
                                 KeyOfItem(child, type, 0, number, position)});
        }
        std::ranges::stable_sort(items, {}, [](const ReadItem& read) { return read.item.start; });
        std::ranges::stable_sort(track.transitions, {}, &Transition::start);
        return items;
    }

    Item MakeItem(ObjectHandle node, MediaType type, Ticks unit)
    {
        const ItemRates rates = RatesOfItem(node, unit);
        const ObjectHandle file = FileOfItem(state_, node);
        const ItemTimes times = node.GetName() == "generatoritem"
                                    ? TimesOfGenerator(node, rates, Int64Property(file, "duration"))
                                    : TimesOfClip(node, rates);
        const ItemSpeed speed = SpeedOfItem(node);
        Item item{.name = TextOf(HasValue(node, "name") ? node : file, "name"),
                  .start = MultiplyTicks(times.start, unit),
                  .end = MultiplyTicks(times.end, unit),
                  .speed = speed.speed,
                  .reverse = speed.playBackwards,
                  .frameBlending = speed.frameBlending,
                  .speedKeyframes = ReadXmemlSpeedKeyframes(node, rates.item),
                  .enabled = !EqualsIgnoreCase(node.GetProperty("enabled"), "FALSE"),
                  .compositeMode = PlainForm(node.GetProperty("compositemode")),
                  .label = LabelOf(node),
                  .sourceFormat = FormatOf(rates.item, file.GetChild("timecode"))};
        SetRange(node, type, times, rates, item);
        if (type == MediaType::Audio)
            item.channel = IntProperty(node.GetChild("sourcetrack"), "trackindex");
        SetSource(node, file, item);
        if (type == MediaType::Video)
            item.title = TitleOf(node, file);
        item.effects = ReadXmemlEffects(node, rates.item);
        item.markers = ReadMarkers(node, rates.item);
        return item;
    }

    // Points count in played frames; audio may state them exactly. Video without an out point ends
    // with the item.
    static void SetRange(ObjectHandle node, MediaType type, const ItemTimes& times,
                         const ItemRates& rates, Item& item)
    {
        const bool isAudio = type == MediaType::Audio;
        const Frames delay = isAudio ? Int64Property(node, "mediadelay") : 0;
        const auto pointOf = [&](Name exactKey, Frames frames) {
            const bool isExact =
                isAudio && HasValue(node, exactKey) && Int64Property(node, exactKey) != kNotStated;
            return isExact ? Int64Property(node, exactKey)
                           : ScaledTicks(AddTicks(frames, delay), rates.item, item.speed);
        };
        item.in = std::max<Ticks>(pointOf("velaTicksIn", times.in), 0);
        const Frames length = rates.ToItem(Minus(times.end, times.start));
        item.out = !isAudio && times.out < 0
                       ? AddTicks(item.in, ScaledTicks(length, rates.item, item.speed))
                       : pointOf("velaTicksOut", times.out);
    }

    void SetSource(ObjectHandle node, ObjectHandle file, Item& item)
    {
        const ObjectHandle multiclip = node.GetChild("multiclip");
        if (multiclip && !IsCollapsed(multiclip)) {
            item.source = SourceKind::Multiclip;
            item.sourceName = TextOf(multiclip, "name");
            return;
        }
        if (multiclip)
            file = FirstFileOf(state_, ActiveClip(state_, multiclip));
        if (file) {
            item.mediaFile = MediaFileOf(file);
            item.source = SourceKind::MediaFile;
            item.sourceName = project_.mediaFiles[item.mediaFile].name;
        } else if (const ObjectHandle nested = node.GetChild("sequence")) {
            sequences_.NumberOf(nested);
            item.source = SourceKind::Sequence;
            item.sourceName = TextOf(nested, "name");
        } else if (node.GetName() == "generatoritem") {
            item.source = SourceKind::Generator;
            item.sourceName = TextOf(node.GetChild("effect"), "name");
        }
    }

    std::size_t AddTitle(std::vector<TitleText> texts)
    {
        if (texts.empty())
            return kNothing;
        project_.titles.push_back(std::move(texts));
        return project_.titles.size() - 1;
    }

    // A graphic's text is a filter of the item or of its file.
    std::size_t TitleOf(ObjectHandle node, ObjectHandle file)
    {
        if (node.GetName() == "generatoritem")
            return AddTitle(TextsOfGenerator(node, titleFrame_));
        const std::size_t own = AddTitle(TextsOfFilters(node));
        if (own != kNothing || !file)
            return own;
        const auto [entry, isNew] = titles_.emplace(file.UniqueId(), kNothing);
        if (isNew)
            entry->second = AddTitle(TextsOfFilters(file));
        return entry->second;
    }

    Document scratch_;
    SilentProgress progress_;
    IssueSet issues_;
    ImportState state_{scratch_, progress_, issues_}; // for the rules of the import
    Project project_;
    NodeNumbers<ObjectHandle> sequences_;
    FrameSize titleFrame_;                                  // of the sequence at hand
    std::unordered_map<std::uint64_t, std::size_t> media_;  // by the file's `uniqueId`
    std::unordered_map<std::uint64_t, std::size_t> titles_; // likewise
};

} // namespace

Project ReadXmemlTimelines(ObjectHandle xmeml, std::string_view folder, bool isHandOff)
{
    return XmemlTimelines(folder, isHandOff).Read(xmeml);
}

} // namespace XPJ::Inspection
