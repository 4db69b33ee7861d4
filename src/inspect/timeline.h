// What both document families say about an edit, as plain values.
//
// Times are ticks. Places in a sequence count from its first frame, whatever its timecode starts
// with; places in a source count from the first frame of its medium. Texts are UTF-8 without
// entities.
#pragma once

#include "core/ticks.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace XPJ::Inspection {

enum class Family { Xmeml, Project };
enum class TrackKind { Video, Audio };

// How the frames of a sequence or a medium are counted; `ticks` is above 0.
struct FrameForm {
    Ticks ticks = kNtscFrameTicks;
    bool drop = false;

    // Whole frames of a time.
    std::int64_t Frames(Ticks time) const { return time / ticks; }
    // "01:00:00:00"; a time between two frames has the rest behind it, "01:00:00:00+40t".
    std::string Timecode(Ticks time) const;

    friend bool operator==(const FrameForm&, const FrameForm&) = default;
};

// At `time` in the source of what it belongs to.
struct Keyframe {
    Ticks time = 0;
    std::string value;

    friend bool operator==(const Keyframe&, const Keyframe&) = default;
};

struct Parameter {
    std::string name = {};
    std::string value; // numbers in their shortest form, parts of points and colours with ":"
    std::vector<Keyframe> keyframes = {};

    friend bool operator==(const Parameter&, const Parameter&) = default;
};

struct Effect {
    std::string name = {}; // the same word in both families, as far as it is known
    bool enabled = true;
    bool isTitle = false; // what it shows is listed as the item's title
    std::vector<Parameter> parameters = {};

    friend bool operator==(const Effect&, const Effect&) = default;
};

struct Marker {
    Ticks start = 0;
    Ticks duration = 0;
    std::string name = {};
    std::string comment = {};

    friend bool operator==(const Marker&, const Marker&) = default;
};

struct Medium {
    std::string name = {};
    std::string path = {}; // empty: made by the editor, or not told
    FrameForm form = {};
    Ticks start = 0; // timecode of its first frame
};

// Words on screen, in one look.
struct TitleText {
    std::string text = {};  // lines end with a line feed, but for the last
    std::string font = {};  // as its document names it: "Arial Bold", "Arial-BoldMT"
    double size = 0;        // of the letters, in lines of the frame
    std::string color = {}; // "#ffcc00"

    friend bool operator==(const TitleText&, const TitleText&) = default;
};

enum class SourceKind { None, Medium, Sequence, Multiclip, Generator };

constexpr std::size_t kNothing = static_cast<std::size_t>(-1);

struct Item {
    std::string name = {};
    Ticks start = 0; // in the sequence
    Ticks end = 0;
    Ticks in = 0; // in the source
    Ticks out = 0;
    double speed = 1.0; // above 0
    bool reverse = false;
    bool frameBlending = false;
    std::vector<Keyframe> speedKeyframes = {}; // of a variable speed: time in the source, as ticks
    bool enabled = true;
    int channel = 0; // of the source, from 1; 0: not told, and for pictures
    std::string compositeMode = {};
    std::string label = {};

    SourceKind source = SourceKind::None;
    std::string sourceName = {};
    std::size_t medium = kNothing; // in Project::media
    FrameForm sourceForm = {};
    std::size_t title = kNothing; // in Project::titles

    std::vector<Effect> effects = {};
    std::vector<Marker> markers = {}; // times in the source
    std::size_t link = kNothing;      // in Sequence::links
};

struct Transition {
    std::string name = {}; // the same word in both families, as far as it is known
    Ticks start = 0;
    Ticks end = 0;
    std::string alignment = {}; // "start-black", "start", "center", "end", "end-black"
    std::vector<Parameter> parameters = {};
};

// Items and transitions stand by start.
struct Track {
    TrackKind kind = TrackKind::Video;
    int number = 1; // among those of its kind, from 1
    std::string name = {};
    bool enabled = true;
    bool locked = false;
    std::vector<Item> items = {};
    std::vector<Transition> transitions = {};
};

// An item by its track's place in Sequence::tracks and its own place there.
struct ItemPlace {
    std::size_t track = 0;
    std::size_t item = 0;

    friend auto operator<=>(const ItemPlace&, const ItemPlace&) = default;
};

struct Sequence {
    std::string name = {};
    FrameForm form = {};
    Ticks start = 0; // timecode of its first frame
    int width = 0;   // of the picture; 0: not told
    int height = 0;
    std::vector<Marker> markers = {};
    std::vector<Track> tracks = {};                 // video from the lowest up, then audio
    std::vector<std::vector<ItemPlace>> links = {}; // groups of items that move together

    Ticks Length() const; // the end of the last item
};

enum class EntryKind { Bin, Clip, Sequence };

// A line of the browser. A bin's entries follow it, one level deeper.
struct Entry {
    EntryKind kind = EntryKind::Bin;
    int depth = 0; // from 0
    std::string name = {};
    std::string label = {};
    std::size_t medium = kNothing;   // in Project::media
    std::size_t sequence = kNothing; // in Project::sequences
    std::vector<Marker> markers = {};
};

struct Project {
    Family family = Family::Xmeml;
    std::string version = {}; // as the document states it
    std::string name = {};
    std::vector<Entry> entries = {};
    std::vector<Sequence> sequences = {}; // those of the browser, then those that only items show
    std::vector<Medium> media = {};
    std::vector<std::vector<TitleText>> titles = {}; // what the items of titles say
};

// "none", "medium", "sequence", "multiclip", "generator"
std::string_view SourceText(SourceKind source);
// "V1", "A2"
std::string TrackText(const Track& track);

} // namespace XPJ::Inspection
