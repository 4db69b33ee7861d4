#include "export/files.h"

#include "core/base64.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "effects/legacy_title_reader.h"
#include "export/audio_channels.h"
#include "export/effects.h"
#include "export/formats.h"
#include "export/media.h"
#include "export/rates.h"
#include "project/accessors.h"

#include <string_view>

namespace XPJ::RVX {

namespace {

// A Media and the master clip through which it was reached.
struct FileSource {
    ConstHandle medium;
    ConstHandle masterClip;
    ConstHandle picture;
    ConstHandle sound;
};

FileSource MakeFileSource(ConstHandle medium, ConstHandle masterClip)
{
    FileSource source{medium, masterClip, VideoStreamOf(medium), AudioStreamOf(medium)};
    // Where every channel is a stream of its own, the sound hangs on other media than the picture.
    if (!source.sound)
        source.sound = AudioStreamOf(AudioMediumOfMaster(masterClip));
    return source;
}

bool IsStill(const FileSource& source)
{
    return IsTrue(source.picture, "IsStill");
}

// For people: the title of the medium, else the name of the clip, else the path.
std::string_view NameOf(const FileSource& source)
{
    if (HasValue(source.medium, "Title"))
        return source.medium.GetProperty("Title");
    return HasValue(source.masterClip, "Name") ? source.masterClip.GetProperty("Name")
                                               : MediumPath(source.medium);
}

// Stills and sound alone count in 29.97.
Ticks FileRate(const FileSource& source)
{
    if (!source.picture || IsStill(source))
        return kNtscFrameTicks;
    const Ticks rate = Int64Property(source.picture, "FrameRate");
    if (rate == 0)
        throw NoFrameLength("media", NameOf(source));
    return IsRate(rate) ? rate : kNtscFrameTicks;
}

// In frames; in the hand-off form sound alone counts in ticks. A still has no length.
std::int64_t FileDuration(const ExportContext& context, const FileSource& source, Ticks rate)
{
    if (source.picture)
        return IsStill(source) ? 0 : DivTicks(Int64Property(source.picture, "Duration"), rate);
    const Ticks duration = Int64Property(source.sound, "Duration");
    return context.vl2snMode ? duration : DivTicks(duration, rate);
}

// A title's words tell it from others, which mostly have the name of their generator.
//   "Lower 3rd: Anna Lee / Editor"
std::string NameOfTitle(ConstHandle medium)
{
    constexpr std::size_t kLongest = 120; // bytes of words
    const std::string document = DecodeBase64(medium.GetProperty("ImporterPrefs"));
    std::string words;
    for (const LegacyTitleText& text : ReadLegacyTitle(document))
        for (const std::string& line : text.lines)
            if (!Trimmed(line).empty() && words.size() <= kLongest)
                words.append(words.empty() ? "" : " / ").append(Trimmed(line));
    std::string name = UnescapeXML(medium.GetProperty("Title"));
    if (words.empty())
        return name;
    if (words.size() > kLongest)
        words = std::string(TruncatedText(words, kLongest)) + "...";
    return name.append(name.empty() ? "" : ": ").append(words);
}

std::string_view SyntheticSource(ExportContext& context, ConstHandle medium, MediumKind kind)
{
    if (kind == MediumKind::BarsAndTone)
        return "BarsAndTone";
    if (kind == MediumKind::Graphic)
        return "GraphicAndType";
    const std::string name =
        kind == MediumKind::Title ? NameOfTitle(medium) : std::string(medium.GetProperty("Title"));
    AddIssue(context, ExportIssue::SyntheticNotTranslated,
             {.clip = name, .trackKind = 2, .time = {}});
    return "Slug";
}

void WriteSource(ExportContext& context, ConstHandle medium, ObjectHandle file)
{
    const MediumKind kind = MediumKindOf(medium);
    if (kind != MediumKind::File) {
        file.SetProperty("mediaSource", SyntheticSource(context, medium, kind));
        return;
    }
    const std::string path = UnescapeXML(MediumPath(medium));
    file.SetProperty("pathurl", EscapeXML(MakePathUrl(path)));
    if (context.vl2snMode && HasValue(medium, "ImporterPrefs"))
        CopyProperty(medium, "ImporterPrefs", file, "mediaSource");
}

ObjectHandle TranslatePicture(ExportContext& context, const FileSource& source, Ticks rate)
{
    const ConstHandle stream = source.picture;
    PictureFormat format;
    format.frameTicks = rate;
    format.frameRect = stream.GetProperty("FrameRect");
    format.originalPixelAspect = OriginalPixelAspectOf(stream);
    format.pixelAspect = PixelAspectOf(stream);
    format.fieldType = stream.HasProperty("OriginalFieldType")
                           ? stream.GetProperty("OriginalFieldType")
                           : std::string_view("0");
    const ObjectHandle video = context.document.NewObject("video");
    video.AddChild(WriteSampleCharacteristics(context, format));
    if (IsStill(source))
        video.SetProperty("stillframe", "TRUE");
    return video;
}

ObjectHandle TranslateSound(ExportContext& context, const FileSource& source)
{
    const ObjectHandle format = context.document.NewObject("samplecharacteristics");
    format.SetProperty("depth", context.vl2snMode ? "32" : "16");
    const Ticks sampleTicks = Int64Property(source.sound, "FrameRate");
    if (sampleTicks == 0)
        throw NoFrameLength("the sound of media", NameOf(source));
    format.SetProperty("samplerate", IntToString(DivTicks(kTicksPerSecond, sampleTicks)));

    const ObjectHandle audio = context.document.NewObject("audio");
    audio.AddChild(format);
    const ChannelLayout layout = ChannelLayoutOf(source.masterClip);
    if (layout.count > 0) {
        audio.SetProperty("channelcount", IntToString(layout.count));
        audio.SetProperty("channeltype", IntToString(layout.type));
    }
    ReportMasterAudioEffects(context, source.masterClip);
    return audio;
}

// The import keeps the timecode of a tape in the logging record alone.
Ticks StartOfMedium(const FileSource& source)
{
    const ConstHandle medium = source.medium;
    const Ticks start = Int64Property(
        medium, IsTrue(medium, "UseAlternateStart") ? Name("AlternateStart") : Name("Start"));
    const Ticks logged = Int64Property(LoggingInfoOf(source.masterClip), "MediaInPoint");
    return start == 0 && logged > 0 ? logged : start;
}

ObjectHandle TranslateFile(ExportContext& context, const FileSource& source)
{
    const ObjectHandle file = context.document.NewObject("file");
    file.SetProperty("id", NewId(context, "file-", context.ids.file));
    WriteSource(context, source.medium, file);
    file.SetProperty("name", EscapeXML(source.medium.GetProperty("Title")));

    const Ticks rate = FileRate(source);
    const ObjectHandle media = context.document.NewObject("media");
    if (source.picture)
        media.AddChild(TranslatePicture(context, source, rate));
    if (source.sound)
        media.AddChild(TranslateSound(context, source));
    file.AddChild(media);

    const std::int64_t duration = FileDuration(context, source, rate);
    if (duration > 0)
        file.SetProperty("duration", IntToString(duration));
    file.AddChild(WriteRate(context, rate, context.vl2snMode && !source.picture));
    const int timecodeFormat = IntProperty(LoggingInfoOf(source.masterClip), "TimecodeFormat");
    file.AddChild(WriteTimecode(context, StartOfMedium(source), rate, timecodeFormat));
    TranslateMasterEffects(context, source.masterClip, rate, file);
    return file;
}

} // namespace

ObjectHandle FileFor(ExportContext& context, ObjectHandle element, ConstHandle medium,
                     ConstHandle masterClip)
{
    if (const ObjectHandle written = FindNote(context.files, medium)) {
        element.SetPropertyShared("fileid", written.GetProperty("id"));
        return written;
    }
    const ObjectHandle file = TranslateFile(context, MakeFileSource(medium, masterClip));
    context.files.emplace(medium.UniqueId(), file);
    element.AddChild(file);
    return file;
}

} // namespace XPJ::RVX
