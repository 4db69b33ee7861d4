#include "project/media.h"

#include "core/channel_types.h"
#include "core/numbers.h"
#include "project/objects.h"

namespace XPJ {

namespace {

// Four characters as a number.
constexpr std::string_view kDvCodec = "1685480224";  // "dvc "
constexpr std::string_view kRawCodec = "1380013856"; // "RAW "

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
    const FrameFormat& frame = fields.frame;
    // A ratio that a user has changed is stated beside the recorded one.
    const bool isOverridden = !frame.originalPar.empty();
    // What the user may override in the host, and hasn't, is among the constants.
    return document.NewObject(
        "VideoStream",
        {{"FrameRate", document.StoreNumber(fields.frameTicks)},
         {"FrameRect", document.Store(frame.rect)},
         {"Duration", document.StoreNumber(fields.duration)},
         {"AlphaType", isGenerated ? "1" : "0"},
         {"OriginalFieldType", document.Store(fields.fieldType)},
         {"CodecType", isGenerated ? kRawCodec : kDvCodec},
         {"IsStill", BoolText(fields.isStill)},
         {"IsContinuousTime", BoolText(isGenerated)},
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
         {"OriginalPAR", document.Store(isOverridden ? frame.originalPar : frame.par)},
         {"OverriddenPAR", isOverridden ? document.Store(frame.par) : "1,1"},
         {"IsPAROverridden", BoolText(isOverridden)}});
}

ObjectHandle MakeAudioStream(Document& document, Ticks sampleTicks, Ticks duration, int kind,
                             int channels)
{
    return document.NewObject(
        "AudioStream", {{"FrameRate", document.StoreNumber(sampleTicks)},
                        {"Duration", document.StoreNumber(duration)},
                        {"SingleChannel", "-1"},
                        {"CodecType", "0"},
                        {"SampleType", "3"},
                        {"AudioChannelLayout", document.Store(ChannelLayoutText(kind, channels))}});
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

MediaSources MakeSourcesOfSequence(Document& document, ObjectHandle sequence,
                                   const SourceRates& rates, Ticks duration)
{
    const auto make = [&](MediaType type, Ticks rate) {
        return MakeSequenceSource(
            document, sequence,
            {.type = type, .rate = rate, .duration = duration, .start = 0, .end = 0});
    };
    return {.video = {make(MediaType::Video, rates.video)},
            .audio = {make(MediaType::Audio, rates.audio)}};
}

} // namespace XPJ
