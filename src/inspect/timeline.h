// An edit as plain values, the same for both document families.
//
// Times are ticks. In a sequence they count from its first frame, whatever its timecode starts
// with; in a source from the first frame of its media. Texts are UTF-8 without entities.
#pragma once

#include "core/media_facts.h"
#include "core/media_type.h"
#include "core/ticks.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

enum class Family { Xmeml, Project };

// How the frames of a sequence or a media file are counted.
struct TimecodeFormat {
    Ticks ticks = kNtscFrameTicks; // of a frame, above 0
    bool drop = false;

    // Whole frames of a time.
    std::int64_t Frames(Ticks time) const { return time / ticks; }
    // "01:00:00:00"; a time between two frames has the rest added, "01:00:00:00+40t".
    std::string Timecode(Ticks time) const;
    // The same of a time of day, which begins anew after 24 hours.
    std::string Clock(Ticks time) const;

    friend bool operator==(const TimecodeFormat&, const TimecodeFormat&) = default;
};

// At `time` in the source of what it belongs to.
struct Keyframe {
    Ticks time = 0;
    std::string value;

    friend bool operator==(const Keyframe&, const Keyframe&) = default;
};

struct Parameter {
    std::string name = {};
    std::string value; // numbers at their shortest, ":" between the parts of points and colors
    std::vector<Keyframe> keyframes = {};

    friend bool operator==(const Parameter&, const Parameter&) = default;
};

struct Effect {
    std::string name = {};    // the same in both families, as far as it is known
    std::string kind = {};    // the same in both families and for all names
    std::string ownName = {}; // that its user gave it; empty: it goes by its kind
    bool enabled = true;
    bool isSource = false; // what the item shows: a generator, the text or shape of a graphic
    std::vector<Parameter> parameters = {};

    friend bool operator==(const Effect&, const Effect&) = default;
};

inline constexpr std::string_view kChapterKind = "Chapter";
inline constexpr std::string_view kChapterPrefix = " <CHAPTER"; // of a comment

struct Marker {
    Ticks start = 0;
    Ticks duration = 0;
    std::string name = {};
    std::string comment = {};
    std::string kind = {}; // as a project names it; empty: an ordinary one

    // Without the prefix by which a document states a chapter.
    std::string_view PlainComment() const;

    friend bool operator==(const Marker&, const Marker&) = default;
};

struct MediaFile {
    std::string name = {};
    std::string path = {}; // empty: generated, or not stated
    TimecodeFormat format = {};
    Ticks start = 0; // timecode of its first frame
    MediaFacts facts = {};
};

// Text on screen, in one style.
struct TitleText {
    std::string text = {};  // lines end with a line feed, but for the last
    std::string font = {};  // as the document names it: "Arial Bold", "Arial-BoldMT"
    double size = 0;        // of the letters, in lines of the frame
    std::string color = {}; // "#ffcc00"

    friend bool operator==(const TitleText&, const TitleText&) = default;
};

enum class SourceKind { None, MediaFile, Sequence, Multiclip, Generator };

constexpr std::size_t kNothing = static_cast<std::size_t>(-1);

struct Item {
    std::string name = {};
    Ticks start = 0; // in the sequence
    Ticks end = 0;
    Ticks in = 0; // in the source
    Ticks out = 0;
    std::optional<Ticks> exactIn = {}; // where a document also states the points between frames
    std::optional<Ticks> exactOut = {};
    double speed = 1.0; // above 0
    bool reverse = false;
    bool frameBlending = false;
    std::optional<Ticks> held = {};            // the point in the source that it shows throughout
    std::vector<Keyframe> speedKeyframes = {}; // of a variable speed: time in the source, as ticks
    bool enabled = true;
    int channel = 0; // of the source, from 1; 0: not stated, and for video
    std::string compositeMode = {};
    std::string label = {};

    SourceKind source = SourceKind::None;
    std::string sourceName = {};
    std::size_t mediaFile = kNothing; // in Project::mediaFiles
    std::size_t sequence = kNothing;  // in Project::sequences
    TimecodeFormat sourceFormat = {};
    std::size_t title = kNothing; // in Project::titles
    bool isSlug = false;          // a gap in the cut that is a clip of its own
    bool hasOtherPixels = false;  // than its sequence, of another aspect; known of projects alone

    std::vector<Effect> effects = {};
    std::vector<Marker> markers = {}; // times in the source
    std::size_t link = kNothing;      // in Sequence::links
};

struct Transition {
    std::string name = {}; // the same in both families, as far as it is known
    Ticks start = 0;
    Ticks end = 0;
    std::string alignment = {}; // "start-black", "start", "center", "end", "end-black"
    std::vector<Parameter> parameters = {};
};

// Items and transitions are sorted by start.
struct Track {
    MediaType kind = MediaType::Video;
    int number = 1; // among those of its kind, from 1
    std::string name = {};
    bool enabled = true;
    bool locked = false;
    std::vector<Item> items = {};
    std::vector<Transition> transitions = {};
};

// An item by the index of its track in Sequence::tracks and its own there.
struct ItemIndex {
    std::size_t track = 0;
    std::size_t item = 0;

    friend auto operator<=>(const ItemIndex&, const ItemIndex&) = default;
};

struct Sequence {
    std::string name = {};
    std::string id = {}; // GUID, else what the document calls it; not compared
    TimecodeFormat format = {};
    Ticks start = 0; // timecode of its first frame
    int width = 0;   // of the frame; 0: not stated
    int height = 0;
    std::vector<Marker> markers = {};
    std::vector<Track> tracks = {};                 // video from the lowest up, then audio
    std::vector<std::vector<ItemIndex>> links = {}; // groups of items that move together
    bool isSlug = false; // the black video by which a project shows a slug

    Ticks Length() const; // the end of the last item
};

enum class EntryKind { Bin, Clip, Sequence };

// A line of the browser. A bin's entries follow it, one level deeper.
struct Entry {
    EntryKind kind = EntryKind::Bin;
    int depth = 0; // from 0
    std::string name = {};
    std::string label = {};
    std::size_t mediaFile = kNothing; // in Project::mediaFiles
    std::size_t sequence = kNothing;  // in Project::sequences
    std::vector<Marker> markers = {};
};

struct Project {
    Family family = Family::Xmeml;
    std::string version = {}; // as the document states it
    std::string name = {};
    std::vector<Entry> entries = {};
    std::vector<Sequence> sequences = {}; // those of the browser, then those that only items use
    std::vector<MediaFile> mediaFiles = {};
    std::vector<std::vector<TitleText>> titles = {}; // of the items that are titles

    // The place of the texts of a title in `titles`, kNothing if there are none.
    std::size_t AddTitle(std::vector<TitleText> texts);
};

// Of items that are black video: finds the sequences of slugs, and the items that show them.
void MarkSlugs(Project& project);

// "none", "medium", "sequence", "multiclip", "generator"
std::string_view SourceText(SourceKind source);
// "V1", "A2"
std::string TrackText(const Track& track);

} // namespace XPJ::Inspection
