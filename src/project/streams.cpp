#include "project/streams.h"

#include "core/numbers.h"

namespace XPJ {

namespace {

// Four characters as a number.
constexpr std::string_view kDvCodec = "1685480224";  // "dvc "
constexpr std::string_view kRawCodec = "1380013856"; // "RAW "

struct FixedValue {
    Name key;
    std::string_view value;
};

// What the user may override in the host, and hasn't.
constexpr FixedValue kPictureDefaults[] = {
    {"FieldTypeIsUncertain", "false"},
    {"OverriddenAlphaMatterColor", "0,0,0"},
    {"IsAlphaMatteColorOverridden", "false"},
    {"OriginalAlphaMatteColor", "0,0,0"},
    {"OverriddenFieldType", "3"},
    {"IsFieldTypeOverridden", "false"},
    {"OverriddenInvertAlpha", "false"},
    {"IsInvertAlphaOverridden", "false"},
    {"OverriddenIgnoreAlpha", "false"},
    {"IsIgnoreAlphaOverridden", "false"},
    {"AlphaInfoIsUncertain", "false"},
    {"OverriddenAlphaType", "0"},
    {"IsAlphaTypeOverridden", "false"},
    {"PARIsUncertain", "false"},
    {"OveriddenFrameRate", "9223372036854775807"}, // spelt as the host spells it
};

std::string_view BoolText(bool value)
{
    return value ? "true" : "false";
}

// A ratio that a user has changed stands beside the recorded one.
void AddAspect(const FrameFormat& frame, ObjectHandle stream)
{
    const bool isOverridden = !frame.originalPar.empty();
    stream.SetProperty("OriginalPAR", isOverridden ? frame.originalPar : frame.par);
    stream.SetProperty("OverriddenPAR", isOverridden ? frame.par : "1,1");
    stream.SetProperty("IsPAROverridden", BoolText(isOverridden));
}

void AppendLabels(std::string_view label, int count, std::string& list)
{
    for (int i = 0; i < count; ++i)
        list.append(list.empty() ? "" : ",").append("{\"channellabel\":").append(label).append("}");
}

} // namespace

std::string ChannelLayoutText(int kind, int channels)
{
    std::string list;
    const bool isPair = kind == kStereo || kind == kStereoPair;
    if (isPair || (kind != kSurround51 && channels == 2))
        for (const char* label : {"100", "101"})
            AppendLabels(label, 1, list);
    else if (kind == kSurround51)
        for (const char* label : {"100", "101", "104", "105", "102", "103"})
            AppendLabels(label, 1, list);
    else
        AppendLabels("0", channels, list);
    return "{\"SerializerWrappedObject\":[" + list + "]}";
}

ObjectHandle MakeVideoStream(Document& document, const PictureStream& stream)
{
    const bool isGenerated = stream.kind == PictureKind::Generated;
    const ObjectHandle result = document.NewObject("VideoStream");
    result.SetProperty("FrameRate", TickText(stream.frameTicks));
    result.SetProperty("FrameRect", stream.frame.rect);
    result.SetProperty("Duration", TickText(stream.duration));
    result.SetProperty("AlphaType", isGenerated ? "1" : "0");
    result.SetProperty("OriginalFieldType", stream.fieldType);
    result.SetProperty("CodecType", isGenerated ? kRawCodec : kDvCodec);
    result.SetProperty("IsStill", BoolText(stream.isStill));
    result.SetProperty("IsContinuousTime", BoolText(isGenerated));
    for (const FixedValue& row : kPictureDefaults)
        result.SetPropertyShared(row.key, row.value);
    AddAspect(stream.frame, result);
    return result;
}

ObjectHandle MakeAudioStream(Document& document, Ticks sampleTicks, Ticks duration, int kind,
                             int channels)
{
    const ObjectHandle result = document.NewObject("AudioStream");
    result.SetProperty("FrameRate", TickText(sampleTicks));
    result.SetProperty("Duration", TickText(duration));
    result.SetProperty("SingleChannel", "-1");
    result.SetProperty("CodecType", "0");
    result.SetProperty("SampleType", "3");
    result.SetProperty("AudioChannelLayout", ChannelLayoutText(kind, channels));
    return result;
}

ObjectHandle MakeMediaSource(Document& document, MediaType type, ObjectHandle media,
                             Ticks rateTicks, Ticks duration, const Boundaries& boundaries)
{
    const ObjectHandle source = type == MediaType::Video ? document.NewObject("VideoMediaSource")
                                                         : document.NewObject("AudioMediaSource");
    source.SetProperty("FrameRate", TickText(rateTicks));
    source.SetProperty("OriginalDuration", TickText(duration));
    source.SetProperty("StartBoundary", TickText(boundaries.start));
    source.SetProperty("EndBoundary", TickText(boundaries.end));
    source.SetProperty("BoundariesAreHard", BoolText(boundaries.hard));
    source.AddChild("Media", media);
    return source;
}

} // namespace XPJ
