// Video formats: frame size and pixel aspect of sequences, clips and files.
//
// An `xmeml` document names a format by a mix of `samplecharacteristics`, a codec's display name
// and the name of a pixel aspect ratio; a project states a rectangle and a ratio.
#pragma once

#include "core/frame_format.h"
#include "tree/object.h"
#include "xmeml/files.h"

#include <cstdint>
#include <optional>
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
std::optional<SequenceFormat> ReadSequenceFormat(ConstHandle sequence);

FrameFormat FrameOfSequence(ConstHandle sequence);

// The frame of a file that a `clip` or `clipitem` shows. `fallback` is a `samplecharacteristics`
// that gives the size if the file states none; may be null.
FrameFormat FrameOfFile(ConstHandle item, FileElement file, ConstHandle fallback);

// The frame that generators are drawn in: that of the `sequence`, or browser `clip`, around them.
FrameFormat FrameOfOwner(ConstHandle owner);

// Frame that a `samplecharacteristics` states by itself; empty without a size.
FrameFormat FrameOfCharacteristics(ConstHandle characteristics);

// Pixel aspect of a `pixelaspectratio`, "1,1" for an unknown name.
//   AspectOfFormat("NTSC-601", true) == "40,33"
std::string_view AspectOfFormat(std::string_view formatName, bool anamorphic);

// Pixel aspect that a `samplecharacteristics`, else its item states; empty where neither does.
std::string_view StatedAspect(ConstHandle characteristics, ConstHandle item);

} // namespace XPJ
