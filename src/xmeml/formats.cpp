#include "xmeml/formats.h"

#include "core/numbers.h"
#include "core/ticks.h"
#include "core/video_formats.h"
#include "xmeml/rates.h"

#include <string>

namespace XPJ {

namespace {

// "0,0,width,height"
std::string FrameRectText(int width, int height)
{
    return "0,0," + IntToString(width) + "," + IntToString(height);
}

struct Size {
    int width = 0;
    int height = 0;

    bool IsKnown() const { return width > 0 && height > 0; }
};

constexpr Size kDefaultSize{720, 480};

Size SizeOf(ConstHandle node)
{
    return {IntProperty(node, "width"), IntProperty(node, "height")};
}

// The first `clipitem` that there is: lower tracks may be empty or hold other things.
ConstHandle FirstVideoItem(ConstHandle sequence)
{
    for (const ConstHandle& track : FindPath(sequence, {"media", "video"}).GetChildren("track"))
        if (const ConstHandle item = track.GetChild("clipitem"))
            return item;
    return {};
}

// For sequences that state no size: that of the first file, else of DV.
Size FallbackSize(ConstHandle sequence)
{
    const Size file = SizeOf(FirstVideoItem(sequence).GetChild("file"));
    Size size = file.IsKnown() ? file : kDefaultSize;
    const Size stated = SizeOf(FindPath(sequence, {"media", "video", "samplecharacteristics"}));
    if (stated.width > 0)
        size.width = stated.width;
    if (stated.height > 0)
        size.height = stated.height;
    return size;
}

// The timebase by which a format is guessed. Documents timed in ticks state that of their timecode
// beside it.
std::int64_t GuessTimebase(ConstHandle sequence)
{
    const std::int64_t timebase = Int64Property(sequence.GetChild("rate"), "timebase");
    if (timebase != kTicksPerSecond)
        return timebase;
    const std::int64_t shown = Int64Property(FindPath(sequence, {"timecode", "rate"}), "timebase");
    return shown == 24 || shown == 25 ? shown : timebase;
}

// A sequence without `samplecharacteristics` counts as DV of its rate.
SequenceFormat GuessFormat(ConstHandle sequence, SequenceFormat format)
{
    const Size size = FallbackSize(sequence);
    format.width = size.width;
    format.height = size.height;
    format.formatName = "NTSC-601";
    format.codecName = "Apple DV - NTSC";
    format.timebase = 30;
    format.ntsc = true;
    const std::int64_t timebase = GuessTimebase(sequence);
    if (timebase == 24)
        format.timebase = 24;
    if (timebase == 25) {
        format.timebase = 25;
        format.ntsc = false;
        format.formatName = "PAL-601";
        format.codecName = "Apple DV - PAL";
        if (format.height == 480)
            format.height = 576;
    }
    return format;
}

SequenceFormat StatedFormat(ConstHandle sequence, ConstHandle characteristics, ConstHandle rate,
                            SequenceFormat format)
{
    const Size fallback = FallbackSize(sequence);
    const Size stated = SizeOf(characteristics);
    format.width = stated.width > 0 ? stated.width : fallback.width;
    format.height = stated.height > 0 ? stated.height : fallback.height;
    format.anamorphic = IsTrue(characteristics, "anamorphic");
    format.timebase = Int64Property(rate, "timebase");
    format.ntsc = IsTrue(rate, "ntsc");
    if (HasValue(characteristics, "pixelaspectratio"))
        format.formatName = characteristics.GetProperty("pixelaspectratio");
    else if (!format.ntsc)
        format.formatName = "PAL-601"; // high definition too
    const ConstHandle codec = characteristics.GetChild("codec");
    format.codecName = codec.GetProperty("name");
    format.codecTypeName =
        FindPath(codec, {"appspecificdata", "data", "qtcodec"}).GetProperty("codectypename");
    return format;
}

// A ratio by the name that the characteristics state, else the item.
struct NamedAspect {
    std::string_view name;
    std::string_view aspect;
};

NamedAspect ReadAspect(ConstHandle characteristics, ConstHandle item, Name ratioKey,
                       Name anamorphicKey)
{
    const ConstHandle from = HasValue(characteristics, ratioKey) ? characteristics : item;
    if (!HasValue(from, ratioKey))
        return {};
    const ConstHandle flag = HasValue(from, anamorphicKey) ? from : item;
    const std::string_view name = from.GetProperty(ratioKey);
    return {name, AspectOfFormat(name, IsTrue(flag, anamorphicKey))};
}

FrameFormat FrameOf(ConstHandle characteristics, ConstHandle item, Size size)
{
    const NamedAspect aspect = ReadAspect(characteristics, item, "pixelaspectratio", "anamorphic");
    const NamedAspect original =
        ReadAspect(characteristics, item, "velaOriginalPAR", "velaOriginalIsAnamorphic");
    FrameFormat frame;
    frame.rect = FrameRectText(size.width, size.height);
    frame.par = aspect.name.empty() ? "1,1" : aspect.aspect;
    frame.originalPar = original.aspect;
    frame.formatName = aspect.name;
    return frame;
}

} // namespace

std::optional<SequenceFormat> ReadSequenceFormat(ConstHandle sequence)
{
    const ConstHandle ownRate = sequence.GetChild("rate");
    const ConstHandle format = FindPath(sequence, {"media", "video", "format"});
    const ConstHandle characteristics = format.GetChild("samplecharacteristics");
    if (!sequence.HasChild("media"))
        return std::nullopt;

    SequenceFormat start;
    start.nonDrop = IsNonDrop(sequence.GetChild("timecode"));
    if (!characteristics)
        return ownRate ? std::optional(GuessFormat(sequence, start)) : std::nullopt;
    for (const ConstHandle& rate :
         {characteristics.GetChild("rate"), format.GetChild("rate"), ownRate})
        if (rate)
            return StatedFormat(sequence, characteristics, rate, start);
    return std::nullopt;
}

FrameFormat FrameOfSequence(ConstHandle sequence)
{
    const std::optional<SequenceFormat> format = ReadSequenceFormat(sequence);
    FrameFormat frame;
    if (format) {
        frame.rect = FrameRectText(format->width, format->height);
        frame.par = AspectOfFormat(format->formatName, format->anamorphic);
        frame.formatName = format->formatName;
    }
    return frame;
}

FrameFormat FrameOfFile(ConstHandle item, FileElement file, ConstHandle fallback)
{
    const ConstHandle characteristics = file.VideoCharacteristics();
    Size size = SizeOf(characteristics);
    if (!size.IsKnown())
        size = SizeOf(fallback);
    return FrameOf(characteristics, item, size.IsKnown() ? size : kDefaultSize);
}

FrameFormat FrameOfCharacteristics(ConstHandle characteristics)
{
    const Size size = SizeOf(characteristics);
    return size.IsKnown() ? FrameOf(characteristics, {}, size) : FrameFormat();
}

std::string_view AspectOfFormat(std::string_view formatName, bool anamorphic)
{
    return PixelAspectRatio({formatName, anamorphic});
}

std::string_view StatedAspect(ConstHandle characteristics, ConstHandle item)
{
    return ReadAspect(characteristics, item, "pixelaspectratio", "anamorphic").aspect;
}

FrameFormat FrameOfOwner(ConstHandle owner)
{
    FrameFormat frame;
    if (owner.GetName() == "sequence")
        frame = FrameOfSequence(owner);
    for (const ConstHandle& node :
         {FindPath(owner, {"media", "video", "format"}), FindPath(owner, {"media", "video"})})
        if (frame.rect.empty())
            frame = FrameOfCharacteristics(node.GetChild("samplecharacteristics"));
    if (frame.rect.empty()) {
        frame.rect = kDefaultFrameRect;
        frame.par = kDefaultPixelAspect;
    }
    return frame;
}

} // namespace XPJ
