#include "project/media.h"

#include "core/channel_types.h"
#include "core/numbers.h"
#include "project/objects.h"

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
constexpr FixedValue kVideoDefaults[] = {
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

// A ratio that a user has changed is stated beside the recorded one.
void AddAspect(const FrameFormat& frame, ObjectHandle stream)
{
    const bool isOverridden = !frame.originalPar.empty();
    stream.SetProperty("OriginalPAR", isOverridden ? frame.originalPar : frame.par);
    stream.SetProperty("OverriddenPAR", isOverridden ? frame.par : "1,1");
    stream.SetPropertyShared("IsPAROverridden", BoolText(isOverridden));
}

ObjectHandle MakeSource(Document& document, Name className, const SourceFields& fields)
{
    return document.NewObject(className,
                              {{"FrameRate", document.StoreNumber(fields.rate)},
                               {"OriginalDuration", document.StoreNumber(fields.duration)},
                               {"StartBoundary", document.StoreNumber(fields.start)},
                               {"EndBoundary", document.StoreNumber(fields.end)},
                               {"BoundariesAreHard", BoolText(fields.hard)}});
}

} // namespace

ObjectHandle MakeMedia(Document& document, const MediaFields& fields)
{
    return document.NewObject("Media",
                              {{"uid", document.Store(NewGuidText())},
                               {"ImplementationID", document.Store(fields.importer)},
                               {"FilePath", document.Store(fields.path)},
                               {"Title", document.Store(fields.title)},
                               {"Infinite", BoolText(fields.infinite)},
                               {"Start", "0"},
                               {"SingleAudioChannel", "-1"},
                               {"IgnoreAudio", "false"},
                               {"IgnoreVideo", "false"},
                               {"ConformedAudioRate", document.StoreNumber(kSampleTicks48k)},
                               {"CaptureStatus", "0"},
                               {"OfflineReason", "0"},
                               {"AlternateStart", "0"}});
}

ObjectHandle MakeVideoStream(Document& document, const VideoStreamFields& fields)
{
    const bool isGenerated = fields.kind == VideoKind::Generated;
    const ObjectHandle result = document.NewObject("VideoStream");
    result.SetProperty("FrameRate", TickText(fields.frameTicks));
    result.SetProperty("FrameRect", fields.frame.rect);
    result.SetProperty("Duration", TickText(fields.duration));
    result.SetPropertyShared("AlphaType", isGenerated ? "1" : "0");
    result.SetProperty("OriginalFieldType", fields.fieldType);
    result.SetPropertyShared("CodecType", isGenerated ? kRawCodec : kDvCodec);
    result.SetPropertyShared("IsStill", BoolText(fields.isStill));
    result.SetPropertyShared("IsContinuousTime", BoolText(isGenerated));
    for (const FixedValue& row : kVideoDefaults)
        result.SetPropertyShared(row.key, row.value);
    AddAspect(fields.frame, result);
    return result;
}

ObjectHandle MakeAudioStream(Document& document, Ticks sampleTicks, Ticks duration, int kind,
                             int channels)
{
    const ObjectHandle result = document.NewObject("AudioStream");
    result.SetProperty("FrameRate", TickText(sampleTicks));
    result.SetProperty("Duration", TickText(duration));
    result.SetPropertyShared("SingleChannel", "-1");
    result.SetPropertyShared("CodecType", "0");
    result.SetPropertyShared("SampleType", "3");
    result.SetProperty("AudioChannelLayout", ChannelLayoutText(kind, channels));
    return result;
}

ObjectHandle MakeMediaSource(Document& document, ObjectHandle media, const SourceFields& fields)
{
    const bool isVideo = fields.type == MediaType::Video;
    const ObjectHandle source =
        MakeSource(document, isVideo ? Name("VideoMediaSource") : Name("AudioMediaSource"), fields);
    source.AddChild("Media", media);
    return source;
}

ObjectHandle MakeSequenceSource(Document& document, ObjectHandle sequence,
                                const SourceFields& fields)
{
    const bool isVideo = fields.type == MediaType::Video;
    const ObjectHandle source = MakeSource(
        document, isVideo ? Name("VideoSequenceSource") : Name("AudioSequenceSource"), fields);
    source.AddChild("Sequence", sequence);
    return source;
}

ObjectHandle MakeMasterSequenceSource(Document& document, MediaType type, ObjectHandle sequence,
                                      Ticks rate, Ticks duration)
{
    return MakeSequenceSource(
        document, sequence,
        {.type = type, .rate = rate, .duration = duration, .start = 0, .end = 0});
}

} // namespace XPJ
