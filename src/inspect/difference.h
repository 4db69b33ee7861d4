// One difference between two documents: in the browser or in the timelines.
#pragma once

#include "inspect/timeline.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace XPJ::Inspection {

enum class Change { Added, Lost, Moved, Changed };
enum class Subject { Sequence, Track, Item, Transition, Marker, Bin, BinClip };

// What is compared of the subjects.
enum class Property {
    None, // the subject itself was added or lost
    Name,
    Bin, // in which an entry of the browser is
    Label,
    Path,
    FrameLength,
    DropFrame,
    StartTimecode,
    FrameSize,
    Enabled,
    Locked,
    Track,
    Start,
    End,
    Duration,
    In,
    Out,
    Speed,
    FrameBlending,
    HeldFrame,
    SourceChannel,
    CompositeMode,
    Source,
    Links,
    Title,
    TitleFont,
    TitleSize,
    TitleColor,
    Effect, // there or not, on or off
    EffectName,
    Parameter, // of an effect or a transition, with its keyframes
    Alignment,
    Comment,
    MarkerKind,
};

// Where a difference is in one of the two documents; kNothing where it is in no sequence, on no
// track or on no item.
struct DifferenceLocation {
    std::size_t sequence = kNothing; // in Project::sequences
    ItemIndex item = {kNothing, kNothing};

    friend bool operator==(const DifferenceLocation&, const DifferenceLocation&) = default;
};

inline constexpr std::string_view kStep = " / "; // between the bins of a path

struct Difference {
    Change change = Change::Changed;
    Subject subject = Subject::Sequence;
    std::string sequence = {}; // empty: in the browser
    std::string bin = {};      // the path of what is in the browser, "Rushes / Day 1"
    std::string track = {};    // "V1"; empty for sequences and their markers
    std::string name = {};     // of the subject
    // Where the subject starts, in the first document, or the second for what was added.
    std::int64_t frame = 0;
    std::string timecode = {};
    // Which of its properties differs, and the two values; empty for what was added or lost. The
    // text has the details: "Crop: left" for a parameter.
    Property kind = Property::None;
    std::string property = {};
    std::string before = {};
    std::string after = {};
    DifferenceLocation first = {};  // in the first document
    DifferenceLocation second = {}; // in the second
};

// "added", "lost", "moved", "changed"
std::string_view ChangeText(Change change);
// "sequence", "track", "clip", "transition", "marker", "bin", "bin clip"
std::string_view SubjectText(Subject subject);
// "name", "start timecode"; empty for None.
std::string_view PropertyText(Property property);

} // namespace XPJ::Inspection
