#include "project/skeleton.h"

#include "core/frame_format.h"

#include <span>

namespace XPJ {

namespace {

struct Setting {
    Name key;
    std::string_view value;
};

// clang-format off
constexpr Setting kScratchDiskSettings[] = {
    {"DVDEncodingLocation",   "SameAsProject"},
    {"AudioPreviewLocation",  "SameAsProject"},
    {"VideoPreviewLocation",  "SameAsProject"},
    {"CapturedAudioLocation", "SameAsProject"},
    {"CapturedVideoLocation", "SameAsProject"},
};

constexpr Setting kProjectSettings[] = {
    {"VideoProxyFileFormatID",  "73054d9b-502c-4235-83bb-197e392ccc9c"},
    {"PreviewFileFormatID",     "00000000-0000-0000-0000-000000000000"},
    {"EditingModeID",           "00000000-0000-0000-0000-000000000000"},
    {"ShouldScaleMedia",        "false"},
    {"TitleSafeHeight",         "20."}, // percent of the frame, as are the next three
    {"TitleSafeWidth",          "20."},
    {"ActionSafeHeight",        "10."},
    {"ActionSafeWidth",         "10."},
    {"AudioTimeDisplay",        "200"},
    {"VideoTimeDisplayInitial", "102"},
    {"VideoTimeDisplay",        "102"},
};

constexpr Setting kVideoSettings[] = {
    {"FrameRate",        "8475667200"}, // ticks of an NTSC frame
    {"FrameSize",        kDefaultFrameRect},
    {"PixelAspectRatio", kDefaultPixelAspect},
    {"MaximumBitDepth",  "false"},
};

constexpr Setting kAudioSettings[] = {
    {"FrameRate",   "5292000"}, // ticks of a sample at 48 kHz
    {"ChannelType", "1"},       // stereo
};

constexpr Setting kVideoCompileSettings[] = {
    {"RelativeFrameSize",           "1"},
    {"AddKeyframesAtEdits",         "false"},
    {"AddKeyframesAtMarkers",       "false"},
    {"DoKeyframeEveryNFramesValue", "0"},
    {"DoKeyframeEveryNFrames",      "false"},
    {"VideoFieldType",              "0"},
    {"RealTimePreview",             "true"},
    {"FramesAtMarkers",             "false"},
    {"OptimizeStills",              "false"},
    {"IgnoreVideoFilters",          "false"},
    {"Deinterlace",                 "false"},
    {"ForceRecompressValue",        "2"},
    {"ForceRecompress",             "true"},
    {"DataRate",                    "3500"},
    {"UseDataRate",                 "false"},
    {"Quality",                     "100"},
    {"Aspect43",                    "false"},
    {"RenderDepth",                 "0"},
    {"Depth",                       "24"},
    {"VideoFileTypeFourCC",         "1299148630"}, // "MooV"
    {"VideoCompilerClassIDFourCC",  "1061109567"}, // "????"
    {"Compressor",                  "1685480224"}, // "dv  "
};

constexpr Setting kAudioCompileSettings[] = {
    {"SampleType", "3"},
    {"Interleave", "1"},
    {"Compressor", "1380013856"}, // "RAW "
};

constexpr Setting kCaptureSettings[] = {
    {"RecorderID",                  "e78a37b2-f5e0-11da-95f4-0016cb85b466"},
    {"AbortCaptureOnDroppedFrames", "false"},
    {"AudioChannelType",            "1"},
    {"AudioSampleType",             "1"},
    {"AudioFrameRate",              "9223372036854775807"}, // no rate
    {"AudioCompressorDisplayName",  "Uncompressed"},
    {"AudioCompressorFourCC",       "1380013856"}, // "RAW "
    {"VideoCompressorDisplayName",  ""},
    {"VideoCompressorFourCC",       "0"},
    {"VideoFrameSize",              "0,0,720,480"},
    {"VideoFrameRate",              "8475667200"}, // ticks of an NTSC frame
    {"SupportedFileExtension",      "avi"},
    {"RecordModuleDisplayName",     "QuickTime"},
};

constexpr Setting kDefaultSequenceSettings[] = {
    {"DefaultAudioSubmix51Tracks",       "0"},
    {"DefaultAudioSubmixStereoTracks",   "0"},
    {"DefaultAudioSubmixMonoTracks",     "0"},
    {"DefaultAudioStandard51Tracks",     "0"},
    {"DefaultAudioStandardStereoTracks", "1"},
    {"DefaultAudioStandardMonoTracks",   "0"},
    {"TotalVideoTracks",                 "1"},
};

constexpr Setting kCompileSettings[] = {
    {"EmbedProjectLink",        "false"},
    {"ExportWorkAreaOnly",      "false"},
    {"BeepWhenFinished",        "false"},
    {"AddToProjectWhenFinished", "true"},
    {"ExportAudio",             "true"},
    {"ExportVideo",             "true"},
    {"CompilerFourCC",          "0"},
    {"CompilerClassIDFourCC",   "0"},
};

constexpr Name kCompileSettingsKeys[] = {
    "VideoPreviewCompileSettings",
    "CustomCompileSettings",
    "StillCompileSettings",
    "MovieCompileSettings",
    "AudioCompileSettings",
};
// clang-format on

ObjectHandle MakeSettings(Document& document, Name className, std::span<const Setting> settings)
{
    const ObjectHandle node = document.NewObject(className);
    for (const Setting& setting : settings)
        node.SetPropertyShared(setting.key, setting.value);
    return node;
}

ObjectHandle MakeVideoSettings(Document& document)
{
    return MakeSettings(document, "VideoSettings", kVideoSettings);
}

ObjectHandle MakeAudioSettings(Document& document)
{
    return MakeSettings(document, "AudioSettings", kAudioSettings);
}

ObjectHandle MakeVideoCompileSettings(Document& document, std::span<const Setting> settings)
{
    const ObjectHandle node = MakeSettings(document, "VideoCompileSettings", settings);
    node.AddChild(MakeVideoSettings(document));
    return node;
}

ObjectHandle MakeAudioCompileSettings(Document& document, std::span<const Setting> settings)
{
    const ObjectHandle node = MakeSettings(document, "AudioCompileSettings", settings);
    node.AddChild(MakeAudioSettings(document));
    return node;
}

ObjectHandle MakeProjectSettings(Document& document)
{
    const ObjectHandle node = MakeSettings(document, "ProjectSettings", kProjectSettings);
    node.AddChild(MakeVideoSettings(document));
    node.AddChild(MakeAudioSettings(document));
    for (const Name key : {Name("VideoCompileSettings"), Name("VideoProxyCompileSettings")})
        node.AddChild(key, MakeVideoCompileSettings(document, kVideoCompileSettings));
    for (const Name key : {Name("AudioCompileSettings"), Name("AudioProxyCompileSettings")})
        node.AddChild(key, MakeAudioCompileSettings(document, kAudioCompileSettings));
    node.AddChild(MakeSettings(document, "CaptureSettings", kCaptureSettings));
    node.AddChild(MakeSettings(document, "DefaultSequenceSettings", kDefaultSequenceSettings));
    return node;
}

// Its compile settings hold the formats alone.
ObjectHandle MakeCompileSettings(Document& document)
{
    const ObjectHandle node = MakeSettings(document, "CompileSettings", kCompileSettings);
    node.AddChild(MakeVideoCompileSettings(document, {}));
    node.AddChild(MakeAudioCompileSettings(document, {}));
    return node;
}

} // namespace

void AddProjectSettings(Document& document, ObjectHandle project)
{
    project.AddChild(MakeProjectSettings(document));
    project.AddChild(MakeSettings(document, "ScratchDiskSettings", kScratchDiskSettings));
    for (const Name key : kCompileSettingsKeys)
        project.AddChild(key, MakeCompileSettings(document));
}

} // namespace XPJ
