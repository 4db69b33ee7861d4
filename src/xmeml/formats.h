// Picture formats: frame size, pixel aspect, time display and preview preset of sequences and
// clips.
//
// An `xmeml` document names a format by a mix of `samplecharacteristics`, a codec's display name
// and the name of a pixel aspect ratio; a project states a rectangle, a ratio, a code and a preset.
#pragma once

#include "core/ticks.h"
#include "project/frame_format.h"
#include "import/import_state.h"
#include "tree/object.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// Texts point into the document.
struct SequenceFormat {
    int width = 0; // pixels
    int height = 0;
    bool anamorphic = false;
    std::string_view formatName = "square"; // of the pixel aspect ratio
    std::int64_t timebase = 0;              // 0: not stated
    bool ntsc = false;
    bool nonDrop = false;
    std::string_view codecName;
    std::string_view codecTypeName;
};

// Nothing without `media`, or where no `rate` is stated anywhere.
std::optional<SequenceFormat> ReadSequenceFormat(ObjectHandle sequence);

FrameFormat FrameOfSequence(ObjectHandle sequence);

// Frame of a `clip` or `clipitem`: that of its file, or of its sequence where it has no file.
// `fallback` is a `samplecharacteristics` that gives the size if the file states none; may be null.
FrameFormat FrameOfItem(const ImportState& state, ObjectHandle item, ObjectHandle fallback);

// The same for an item, or a `clip`, of which one file is meant.
FrameFormat FrameOfFile(ObjectHandle item, ObjectHandle file, ObjectHandle fallback);

// Frame that a `samplecharacteristics` states by itself; empty without a size.
FrameFormat FrameOfCharacteristics(ObjectHandle characteristics);

// "0,0,width,height"
std::string FrameRectText(int width, int height);

// Frame length of a `rate` element in ticks; 0 without a timebase above 0.
Ticks TicksOfRate(ObjectHandle rate);

// Field type of a `fielddominance`: "upper" is "1", "lower" "2", anything else "0".
std::string_view FieldTypeOf(std::string_view fieldDominance);

// True when a `timecode` is to be shown without dropped numbers.
bool IsNonDrop(ObjectHandle timecode);

// Pixel aspect of a `pixelaspectratio`, "1,1" for an unknown name.
//   AspectOfFormat("NTSC-601", true) == "40,33"
std::string_view AspectOfFormat(std::string_view formatName, bool anamorphic);

// Pixel aspect that a `samplecharacteristics`, else its item states; empty where neither does.
std::string_view StatedAspect(ObjectHandle characteristics, ObjectHandle item);

// Code of `MZ.Sequence.VideoTimeDisplayFormat` and `TimecodeFormat`.
std::string_view TimeDisplayOf(bool nonDrop, Ticks frameTicks);

// Adds the preview preset of a `sequence` to the project's Sequence. Keys that are there stay, but
// for the time display, which is replaced. `videoTicks` is the frame length that holds when the
// format states none.
void ChoosePreset(ObjectHandle sequence, Ticks videoTicks, ObjectHandle projectSequence);

// The same by picture format alone.
void PresetFromFormat(Ticks frameTicks, int width, int height, std::string_view formatName,
                      ObjectHandle projectSequence);
void PresetFromFormat(Ticks frameTicks, const FrameFormat& frame, ObjectHandle projectSequence);

} // namespace XPJ
