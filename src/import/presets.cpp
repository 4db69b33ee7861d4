#include "import/presets.h"

#include "core/frame_rate.h"
#include "effects/effect_context.h"
#include "project/time_display.h"
#include "xmeml/formats.h"
#include "xmeml/rates.h"

#include <string>

namespace XPJ {

namespace {

constexpr Ticks kFilmFrameTicks = 10584000000;     // 24
constexpr Ticks kNtscFilmFrameTicks = 10594584000; // 23.976

// A preset names an editing mode of the host, a preset file in its folder, and that file's codec.
struct Preset {
    std::string_view editingMode;
    std::string_view file;
    std::string_view codec;
};

constexpr Preset kDvcPro50Ntsc{"1fad0335-54af-4981-b3dc-8be6d7b72d62", "P2 DVCPRO50 NTSC.epr",
                               "1685483061"};
constexpr Preset kDvcPro50Pal{"0992dfd2-2e83-4513-9def-9b3267ab06af", "P2 DVCPro50 PAL.epr",
                              "1685483573"};
constexpr Preset kDvcProHd1080i60{"5b1734e9-72dc-4a5d-82ad-f03102903125",
                                  "P2 1080i-1080p 60Hz DVCPROHD.epr", "1685483057"};
constexpr Preset kDvcProHd1080i50{"e11985ec-df13-4a6e-ad9c-fa6285637356",
                                  "P2 1080i-1080p 50Hz DVCPROHD.epr", "1685483569"};
constexpr Preset kDvcProHd720p60{"079a6181-acbf-4a6f-b1f2-fb44555a69e0",
                                 "P2 720p 60Hz DVCPROHD.epr", "1685483063"};
constexpr Preset kDvcProHd720p50{"08dc3274-7fb9-4852-bb0f-3f8bda80bdcd",
                                 "P2 720p 50Hz DVCPROHD.epr", "1685483575"};
constexpr Preset kDv24p{"38110ea1-bd95-43ea-9e3a-7c407f3e32c8", "Quicktime DV 24p.epr",
                        "1886532148"};
constexpr Preset kDvNtsc{"795454d9-d3c2-429d-9474-923ab13b7017", "QuickTime DV NTSC.epr",
                         "1685480224"};
constexpr Preset kDvPal{"04be6e19-a018-4e0c-a9d6-0ab44c64752b", "QuickTime DV PAL.epr",
                        "1685480304"};
constexpr Preset kAnyFormat{"795454d9-d3c2-429d-9474-923ab13b7018", "QuickTime.epr", "1919706400"};

constexpr Preset IFrameMpeg(std::string_view editingMode)
{
    return {editingMode, "I-Frame Only MPEG.epr", "1297107278"};
}

constexpr Preset kHdv1080i = IFrameMpeg("a3d8b249-05d3-43b8-8443-b74608fd0638");
constexpr Preset kHdv1080p = IFrameMpeg("6c808930-c9a9-11da-a94d-0800200c9a66");
constexpr Preset kHdv720p = IFrameMpeg("c7198254-00c4-446d-beb0-2f506eabc549");
constexpr Preset kXdcam1080i = IFrameMpeg("5ecab962-8f8d-41d8-b21d-ce72c92e9556");
constexpr Preset kXdcamEx1080p = IFrameMpeg("d1a7275c-0f2f-41e8-89f5-3a75ab997b57");
constexpr Preset kXdcamEx720p = IFrameMpeg("400965a2-6807-43f1-9e5a-ee98039580bc");
constexpr Preset kXdcamHd1080p = IFrameMpeg("e7961389-95c3-42ce-aa44-6a0fe1701436");
constexpr Preset kXdcam422At1080 = IFrameMpeg("bcb27263-0b7a-406f-bda9-3d3796f18c3a");
constexpr Preset kXdcam422At720 = IFrameMpeg("c7a20157-b9ab-4d66-b32a-e2e1ff8fa5ea");
constexpr Preset kXdcamEx1080i60 = IFrameMpeg("d10b5335-ce74-4031-bc7c-79e8b73582ee");

// Timebases for which a codec row holds.
enum Timebases : unsigned { kAt24 = 1, kAt30 = 2, kAt60 = 4, kAtAny = 8 };

struct CodecRow {
    std::string_view codecName;
    const Preset* preset;
    unsigned timebases = kAtAny;
    std::string_view codecTypeName = {}; // empty: any
};

// Codecs that are in no row (ProRes, DNxHD, H.264, Photo - JPEG, uncompressed) have no preset of
// their own; the video format decides then, as it does for a row's name at another timebase.
constexpr CodecRow kCodecs[] = {
    {"Apple DV - NTSC", &kDv24p, kAt24},
    {"Apple DV - NTSC", &kDvNtsc, kAt30},
    {"Apple DV/DVCPRO - NTSC", &kDv24p, kAt24},
    {"Apple DV/DVCPRO - NTSC", &kDvNtsc, kAt30},
    {"Apple DV - PAL", &kDvPal},
    {"Apple DVCPRO - PAL", &kDvPal},
    {"Apple DV100 Compressor", &kDvcProHd720p60, kAt24 | kAt30 | kAt60, "DVCPRO HD (720p60)"},
    {"Apple DV100 Compressor", &kDvcProHd1080i60, kAt24 | kAt30, "DVCPRO HD (1080i60)"},
    {"Apple DVCPRO50 - NTSC", &kDvcPro50Ntsc, kAt24 | kAt30},
    {"Apple MPEG IMX 525/50", &kDvcPro50Ntsc, kAt24 | kAt30},
    {"Apple DVCPRO50 - PAL", &kDvcPro50Pal},
    {"Apple MPEG IMX 625/50", &kDvcPro50Pal},
    {"Apple DVCPRO HD 1080i50", &kDvcProHd1080i50},
    {"Apple DVCPRO HD 1080i60", &kDvcProHd1080i60, kAt24 | kAt30},
    {"Apple DVCPRO HD 1080p30", &kDvcProHd1080i60},
    {"Apple DVCPRO HD 720p50", &kDvcProHd720p50},
    {"Apple HDV 1080i50", &kHdv1080i},
    {"Apple HDV 1080i60", &kHdv1080i},
    {"Apple HDV 1080p24", &kHdv1080p},
    {"Apple HDV 1080p25", &kHdv1080p},
    {"Apple HDV 720p24", &kHdv720p},
    {"Apple HDV 720p25", &kHdv720p},
    {"Apple HDV 720p30", &kHdv720p},
    {"Apple XDCAM HD 1080i50 (35 Mb/s VBR)", &kXdcam1080i},
    {"Apple XDCAM HD 1080i60 (35 Mb/s VBR)", &kXdcam1080i},
    {"Apple XDCAM HD 1080p24 (35 Mb/s VBR)", &kXdcamHd1080p},
    {"Apple XDCAM HD 1080p25 (35 Mb/s VBR)", &kXdcamHd1080p},
    {"Apple XDCAM HD 1080p30 (35 Mb/s VBR)", &kXdcamHd1080p},
};

// These names go on with the data rate, which varies.
constexpr CodecRow kCodecPrefixes[] = {
    {"Apple XDCAM EX 1080i50", &kXdcam1080i},
    {"Apple XDCAM EX 1080i60", &kXdcamEx1080i60},
    {"Apple XDCAM EX 1080p24", &kXdcamEx1080p},
    {"Apple XDCAM EX 1080p25", &kXdcamEx1080p},
    {"Apple XDCAM EX 1080p30", &kXdcamEx1080p},
    {"Apple XDCAM EX 720p24", &kXdcamEx720p},
    {"Apple XDCAM EX 720p25", &kXdcamEx720p},
    {"Apple XDCAM EX 720p30", &kXdcamEx720p},
    {"Apple XDCAM EX 720p50", &kXdcamEx720p},
    {"Apple XDCAM EX 720p60", &kXdcamEx720p},
    {"Apple XDCAM HD422 720p50", &kXdcam422At720},
    {"Apple XDCAM HD422 720p60", &kXdcam422At720},
    {"Apple XDCAM HD422 1080i25", &kXdcam422At1080},
    {"Apple XDCAM HD422 1080i30", &kXdcam422At1080},
    {"Apple XDCAM HD422 1080i50", &kXdcam422At1080},
    {"Apple XDCAM 422 1080i50", &kXdcam422At1080},
    {"Apple XDCAM HD422 1080p24", &kXdcam422At1080},
    {"Apple XDCAM HD422 1080p25", &kXdcam422At1080},
    {"Apple XDCAM HD422 1080p30", &kXdcam422At1080},
};

// Name and size both have to match.
struct FormatRow {
    std::string_view formatName;
    int width;
    int height;
    const Preset* film; // 23.976 and 24
    const Preset* pal;  // 25
    const Preset* ntsc; // 29.97
    const Preset* other;
};

constexpr FormatRow kFormats[] = {
    {"NTSC-601", 720, 480, &kDv24p, &kDvNtsc, &kDvNtsc, &kDvNtsc},
    {"PAL-601", 720, 576, &kDvPal, &kDvPal, &kDvPal, &kDvPal},
    {"square", 1920, 1080, &kXdcamHd1080p, &kXdcamHd1080p, &kXdcam1080i, &kXdcamHd1080p},
    {"square", 1440, 1080, &kXdcamHd1080p, &kXdcamHd1080p, &kXdcam1080i, &kXdcamHd1080p},
    {"Square", 1920, 1080, &kXdcamHd1080p, &kXdcamHd1080p, &kXdcam1080i, &kXdcamHd1080p},
    {"Square", 1440, 1080, &kXdcamHd1080p, &kXdcamHd1080p, &kXdcam1080i, &kXdcamHd1080p},
    {"DVCPROHD-720P", 960, 720, &kDvcProHd720p60, &kDvcProHd720p50, &kDvcProHd720p60,
     &kDvcProHd720p60},
    {"DVCPROHD-1080i60", 1280, 1080, &kDvcProHd1080i60, &kDvcProHd1080i60, &kDvcProHd1080i60,
     &kDvcProHd1080i60},
    {"HD-(1280x1080)", 1280, 720, &kHdv720p, &kHdv720p, &kHdv720p, &kHdv720p}, // not its own size
    {"DVCPROHD-1080i50", 1440, 1080, &kDvcProHd1080i50, &kDvcProHd1080i50, &kDvcProHd1080i50,
     &kDvcProHd1080i50},
    {"HD-(1440x1080)", 1440, 1080, &kHdv1080p, &kHdv1080p, &kHdv1080i, &kHdv1080i},
};

bool HoldsAt(unsigned timebases, std::int64_t timebase)
{
    switch (timebase) {
    case 24:
        return (timebases & (kAt24 | kAtAny)) != 0;
    case 30:
        return (timebases & (kAt30 | kAtAny)) != 0;
    case 60:
        return (timebases & (kAt60 | kAtAny)) != 0;
    default:
        return timebases == kAtAny;
    }
}

// Null when the codec has none.
const Preset* PresetOfCodec(const SequenceFormat& format)
{
    for (const CodecRow& row : kCodecs)
        if (format.codecName == row.codecName && HoldsAt(row.timebases, format.timebase) &&
            (row.codecTypeName.empty() || format.codecTypeName == row.codecTypeName))
            return row.preset;
    for (const CodecRow& row : kCodecPrefixes)
        if (format.codecName.starts_with(row.codecName))
            return row.preset;
    return nullptr;
}

const Preset& PresetOfFormat(Ticks frameTicks, int width, int height, std::string_view formatName)
{
    for (const FormatRow& row : kFormats) {
        if (formatName != row.formatName || width != row.width || height != row.height)
            continue;
        switch (frameTicks) {
        case kFilmFrameTicks:
        case kNtscFilmFrameTicks:
            return *row.film;
        case kPalFrameTicks:
            return *row.pal;
        case kNtscFrameTicks:
            return *row.ntsc;
        default:
            return *row.other;
        }
    }
    return kAnyFormat;
}

void AddPreset(const Preset& preset, std::string_view timeDisplay, ObjectHandle projectSequence)
{
    std::string path = "EncoderPresets/SequencePreview/";
    path.append(preset.editingMode).append("/").append(preset.file);
    projectSequence.AddProperty("MZ.Sequence.AudioTimeDisplayFormat", "200");
    projectSequence.SetProperty("MZ.Sequence.VideoTimeDisplayFormat", timeDisplay);
    projectSequence.AddProperty("MZ.Sequence.PreviewRenderingPresetCodec", preset.codec);
    projectSequence.AddProperty("MZ.Sequence.PreviewRenderingPresetPath", path);
    projectSequence.AddProperty("MZ.Sequence.PreviewUseMaxBitDepth", "false");
    projectSequence.AddProperty("MZ.Sequence.EditingModeGUID", preset.editingMode);
}

} // namespace

void ChoosePreset(ConstHandle sequence, Ticks videoTicks, ObjectHandle projectSequence)
{
    const SequenceFormat format = ReadSequenceFormat(sequence).value_or(SequenceFormat());
    Ticks frameTicks = videoTicks;
    FrameTicks(format.timebase, format.ntsc, &frameTicks);
    const Preset* preset = PresetOfCodec(format);
    if (!preset)
        preset = &PresetOfFormat(frameTicks, format.width, format.height, format.formatName);
    const bool nonDrop = IsNonDrop(sequence.GetChild("timecode"));
    AddPreset(*preset, TimeDisplayOf(nonDrop, frameTicks), projectSequence);
}

void PresetFromFormat(Ticks frameTicks, const FrameFormat& frame, ObjectHandle projectSequence)
{
    const FrameSize size = ParseFrameSize(frame.rect, frame.par);
    AddPreset(PresetOfFormat(frameTicks, size.width, size.height, frame.formatName),
              TimeDisplayOf(false, frameTicks), projectSequence);
}

} // namespace XPJ
