// A file has a line for each clip, gap and transition, so that neither the JSON of a whole document
// is in memory as objects nor a comparison of two files shows more than what differs.
#include "inspect/otio_json.h"

#include "core/json.h"
#include "inspect/otio_objects.h"
#include "inspect/track_layout.h"

#include <algorithm>
#include <utility>

#include <nlohmann/json.hpp>

namespace XPJ::Inspection {

namespace {

using Otio::Json;

// A sequence that is nested again and again, or in itself, must not make a file grow without limit.
constexpr int kMostCopies = 16;
constexpr std::size_t kMostLevels = 32;

// JSON in lines, with objects whose last field is written piece by piece.
class LineWriter {
public:
    // `object` with one more field at its end, a list.
    void OpenList(const Json& object, std::string_view field) { Open(object, field, " ["); }
    void CloseList() { Close("]}"); }
    // The same with an object.
    void OpenField(const Json& object, std::string_view field) { Open(object, field, ""); }
    void CloseField() { Close("}"); }

    // An entry of the list, or the object of the field.
    void Add(const Json& object)
    {
        StartLine();
        text_ += JsonText(object);
    }

    std::string Take() { return std::move(text_) + "\n"; }

private:
    void StartLine()
    {
        if (!isFirst_)
            text_ += ',';
        if (!text_.empty())
            BreakLine();
        isFirst_ = false;
    }
    void BreakLine() { text_.append("\n").append(level_, ' '); }
    void Open(const Json& object, std::string_view field, std::string_view bracket)
    {
        Add(object);
        text_.back() = ','; // in place of the object's end
        text_.append("\"").append(field).append("\":").append(bracket);
        ++level_;
        isFirst_ = true;
    }
    void Close(std::string_view end)
    {
        --level_;
        BreakLine();
        text_ += end;
        isFirst_ = false;
    }

    std::string text_;
    std::size_t level_ = 0;
    bool isFirst_ = true; // of the list at hand
};

void AddText(Json& metadata, const char* key, const std::string& text)
{
    if (!text.empty())
        metadata[key] = text;
}

Json TitleTexts(const std::vector<TitleText>& texts)
{
    Json list = Json::array();
    for (const TitleText& text : texts)
        list.push_back(
            {{"text", text.text}, {"font", text.font}, {"size", text.size}, {"color", text.color}});
    return list;
}

std::string_view KindText(MediaType kind)
{
    return kind == MediaType::Video ? "Video" : "Audio";
}

class OtioWriter {
public:
    explicit OtioWriter(const Project& project) : project_(project)
    {
        for (std::vector<int>& copies : copies_)
            copies.resize(project.sequences.size());
    }

    OtioText Write(std::size_t only)
    {
        const std::vector<std::size_t> sequences =
            only == kNothing ? SequencesOfBrowser() : std::vector<std::size_t>{only};
        if (sequences.size() == 1) {
            WriteTimeline(sequences.front(), DocumentMetadata());
        } else {
            lines_.OpenList(Otio::MakeObject("SerializableCollection.1", project_.name,
                                             {{"document", DocumentMetadata()}}),
                            "children");
            for (const std::size_t sequence : sequences)
                WriteTimeline(sequence, {});
            if (sequences.empty())
                WriteClipsOfBrowser();
            lines_.CloseList();
        }
        text_.json = lines_.Take();
        return std::move(text_);
    }

private:
    // Those that only items use are written where they are nested.
    std::vector<std::size_t> SequencesOfBrowser() const
    {
        std::vector<std::size_t> sequences;
        for (const Entry& entry : project_.entries)
            if (entry.sequence != kNothing)
                sequences.push_back(entry.sequence);
        std::ranges::sort(sequences);
        sequences.erase(std::unique(sequences.begin(), sequences.end()), sequences.end());
        return sequences;
    }

    // ---- The document

    Json DocumentMetadata() const
    {
        Json browser = Json::array();
        for (const Entry& entry : project_.entries)
            browser.push_back(EntryMetadata(entry));
        return {{"family", project_.family == Family::Xmeml ? "xmeml" : "project"},
                {"version", project_.version},
                {"name", project_.name},
                {"browser", std::move(browser)}};
    }

    static Otio::SourceTime TimeOf(const MediaFile& file)
    {
        return {file.format.ticks, file.start};
    }

    Json EntryMetadata(const Entry& entry) const
    {
        constexpr const char* kKinds[] = {"bin", "clip", "sequence"};
        Json json{{"kind", kKinds[static_cast<std::size_t>(entry.kind)]},
                  {"depth", entry.depth},
                  {"name", entry.name}};
        AddText(json, "label", entry.label);
        if (entry.mediaFile == kNothing)
            return json;
        const MediaFile& file = project_.mediaFiles[entry.mediaFile];
        json["media"] = Otio::MediaReference(file);
        if (!entry.markers.empty())
            json["markers"] = Otio::Markers(entry.markers, TimeOf(file));
        return json;
    }

    void WriteClipsOfBrowser()
    {
        for (const Entry& entry : project_.entries) {
            if (entry.mediaFile == kNothing)
                continue;
            const MediaFile& file = project_.mediaFiles[entry.mediaFile];
            Json metadata = Json::object();
            AddText(metadata, "label", entry.label);
            Json clip = Otio::MakeComponent("Clip.2", entry.name, std::move(metadata));
            clip["markers"] = Otio::Markers(entry.markers, TimeOf(file));
            SetReference(clip, Otio::MediaReference(file));
            lines_.Add(clip);
        }
    }

    // ---- Sequences

    // `document` is the metadata of a file that is this timeline.
    void WriteTimeline(std::size_t number, Json document)
    {
        const Sequence& sequence = project_.sequences[number];
        Json metadata{{"id", sequence.id}, {"drop_frame", sequence.format.drop}};
        if (sequence.width > 0 && sequence.height > 0)
            metadata["frame_size"] = {sequence.width, sequence.height};
        if (!document.empty())
            metadata["document"] = std::move(document);
        Json timeline = Otio::MakeObject("Timeline.1", sequence.name, std::move(metadata));
        timeline["global_start_time"] = Otio::RationalTime(sequence.start, sequence.format.ticks);
        Json stack = Otio::MakeComponent("Stack.1", "tracks", Json::object());
        stack["markers"] = MarkersOf(sequence);

        lines_.OpenField(timeline, "tracks");
        lines_.OpenList(stack, "children");
        for (const MediaType kind : {MediaType::Video, MediaType::Audio})
            WriteTracks(number, kind);
        lines_.CloseList();
        lines_.CloseField();

        ++text_.sequences;
        for (const Track& track : sequence.tracks)
            text_.items += track.items.size();
    }

    static Json MarkersOf(const Sequence& sequence)
    {
        return Otio::Markers(sequence.markers, {sequence.format.ticks, 0});
    }

    void WriteTracks(std::size_t number, MediaType kind)
    {
        open_.push_back(number);
        const Sequence& sequence = project_.sequences[number];
        for (const Track& track : sequence.tracks)
            if (track.kind == kind)
                WriteTrack(sequence, track);
        open_.pop_back();
    }

    void WriteTrack(const Sequence& sequence, const Track& track)
    {
        const TrackLayout layout = LayOut(track);
        for (const Row& row : layout.rows) {
            Json metadata{{"track", TrackText(track)}};
            if (track.locked)
                metadata["locked"] = true;
            if (&row == &layout.rows.front())
                AddUnplaced(sequence, track, layout, metadata);
            else
                metadata["overlaps"] = true;
            Json json = Otio::MakeComponent(
                "Track.1", track.name.empty() ? TrackText(track) : track.name, std::move(metadata));
            json["enabled"] = track.enabled;
            json["kind"] = KindText(track.kind);
            lines_.OpenList(json, "children");
            for (const Slot& slot : row)
                WriteSlot(sequence, track, slot);
            lines_.CloseList();
        }
    }

    void AddUnplaced(const Sequence& sequence, const Track& track, const TrackLayout& layout,
                     Json& metadata) const
    {
        for (const std::size_t index : layout.unplacedItems)
            metadata["unplaced_clips"].push_back(ClipOf(sequence, track.items[index]));
        for (const std::size_t index : layout.unplacedTransitions) {
            const Transition& transition = track.transitions[index];
            metadata["unplaced_transitions"].push_back(
                {{"name", transition.name}, {"range", StatedRange(sequence, transition)}});
        }
    }

    // ---- What is on a track

    void WriteSlot(const Sequence& sequence, const Track& track, const Slot& slot)
    {
        switch (slot.kind) {
        case SlotKind::Gap:
            return lines_.Add(GapOf(sequence, slot));
        case SlotKind::Transition:
            return lines_.Add(TransitionOf(sequence, track.transitions[slot.index], slot));
        case SlotKind::Item:
            return WriteItem(sequence, track, track.items[slot.index]);
        }
    }

    static Json GapOf(const Sequence& sequence, const Slot& slot)
    {
        const Ticks frame = sequence.format.ticks;
        Json gap = Otio::MakeComponent("Gap.1", "", Json::object());
        gap["source_range"] = Otio::TimeRange({0, frame, slot.end - slot.start, frame});
        return gap;
    }

    static Json StatedRange(const Sequence& sequence, const Transition& transition)
    {
        const Ticks frame = sequence.format.ticks;
        return Otio::TimeRange(
            {transition.start, frame, SubtractTicks(transition.end, transition.start), frame});
    }

    static Json TransitionOf(const Sequence& sequence, const Transition& transition,
                             const Slot& slot)
    {
        const Ticks frame = sequence.format.ticks;
        Json metadata{{"alignment", transition.alignment}};
        if (!transition.parameters.empty())
            metadata["parameters"] = Otio::Parameters(transition.parameters, {frame, 0});
        if (slot.start != transition.start || slot.end != transition.end)
            metadata["stated_range"] = StatedRange(sequence, transition);
        Json json = Otio::MakeObject("Transition.1", transition.name, std::move(metadata));
        json["transition_type"] =
            transition.name == "Cross Dissolve" ? "SMPTE_Dissolve" : "Custom_Transition";
        json["in_offset"] = Otio::RationalTime(slot.cut - slot.start, frame);
        json["out_offset"] = Otio::RationalTime(slot.end - slot.cut, frame);
        return json;
    }

    void WriteItem(const Sequence& sequence, const Track& track, const Item& item)
    {
        if (item.sequence == kNothing || !MayNest(item.sequence, track.kind))
            return lines_.Add(ClipOf(sequence, item));
        Json stack = ComponentOf("Stack.1", sequence, item);
        for (const Json& marker : MarkersOf(project_.sequences[item.sequence]))
            stack["markers"].push_back(marker);
        lines_.OpenList(stack, "children");
        WriteTracks(item.sequence, track.kind);
        lines_.CloseList();
    }

    // Counts what may. The tracks of another kind have items of their own.
    bool MayNest(std::size_t number, MediaType kind)
    {
        if (open_.size() > kMostLevels || std::ranges::find(open_, number) != open_.end())
            return false;
        int& copies = copies_[static_cast<std::size_t>(kind)][number];
        return copies < kMostCopies && ++copies > 0;
    }

    Json ClipOf(const Sequence& sequence, const Item& item) const
    {
        Json clip = ComponentOf("Clip.2", sequence, item);
        SetReference(clip, Otio::MediaReference(project_, item));
        return clip;
    }

    static void SetReference(Json& clip, Json reference)
    {
        clip["media_references"] = {{"DEFAULT_MEDIA", std::move(reference)}};
        clip["active_media_reference_key"] = "DEFAULT_MEDIA";
    }

    // The range lasts as long as the item does, whatever its speed plays in that time. It starts at
    // the frame that the item holds, if it does.
    Json ComponentOf(std::string_view schema, const Sequence& sequence, const Item& item) const
    {
        const Otio::SourceTime time = Otio::SourceTimeOf(project_, item);
        Json json = Otio::MakeComponent(schema, item.name, MetadataOf(item));
        json["source_range"] =
            Otio::TimeRange({AddTicks(time.first, item.held.value_or(item.in)), time.frameTicks,
                             LengthOf(item), sequence.format.ticks});
        json["effects"] = Otio::Effects(project_, item);
        json["markers"] = Otio::Markers(item.markers, time);
        json["enabled"] = item.enabled;
        return json;
    }

    static Ticks LengthOf(const Item& item)
    {
        return std::max<Ticks>(SubtractTicks(item.end, item.start), 0);
    }

    Json MetadataOf(const Item& item) const
    {
        Json metadata = Json::object();
        AddText(metadata, "label", item.label);
        AddText(metadata, "composite_mode", item.compositeMode);
        if (item.channel > 0)
            metadata["channel"] = item.channel;
        if (item.frameBlending)
            metadata["frame_blending"] = true;
        if (item.link != kNothing)
            metadata["link_group"] = item.link;
        if (item.title != kNothing)
            metadata["title"] = TitleTexts(project_.titles[item.title]);
        if (item.sequence != kNothing)
            metadata["sequence"] = {{"name", item.sourceName},
                                    {"id", project_.sequences[item.sequence].id}};
        if (item.source == SourceKind::Multiclip)
            metadata["multiclip"] = item.sourceName;
        const Ticks played = SubtractTicks(item.out, item.in);
        if (played != LengthOf(item))
            metadata["played_range"] = PlayedRange(item, played);
        return metadata;
    }

    Json PlayedRange(const Item& item, Ticks played) const
    {
        const Otio::SourceTime time = Otio::SourceTimeOf(project_, item);
        return Otio::TimeRange(
            {AddTicks(time.first, item.in), time.frameTicks, played, time.frameTicks});
    }

    const Project& project_;
    OtioText text_;
    LineWriter lines_;
    std::vector<std::size_t> open_; // the sequences that are being written, each in the one before
    std::vector<int> copies_[2];    // of sequences that are nested, by MediaType
};

} // namespace

OtioText WriteOtio(const Project& project, std::size_t only)
{
    return OtioWriter(project).Write(only);
}

} // namespace XPJ::Inspection
