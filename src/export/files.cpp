#include "export/files.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "core/text.h"
#include "export/audio_channels.h"
#include "export/effects.h"
#include "export/formats.h"
#include "export/generators.h"
#include "export/rates.h"

#include <algorithm>
#include <string_view>

namespace XPJ::RVX {

namespace {

// The streams of a file and where its names and times come from.
struct FileStreams {
    Media media;
    MasterClip masterClip;
    ConstHandle video;
    ConstHandle audio;
};

FileStreams ReadStreams(const FileSource& source)
{
    FileStreams streams{source.media, source.masterClip, VideoStreamOf(source.media),
                        AudioStreamOf(source.media)};
    // Where every channel is a stream of its own, the audio belongs to other media than the video.
    if (!streams.audio)
        streams.audio = AudioStreamOf(AudioMediaOfMaster(source.masterClip));
    return streams;
}

bool IsStill(const FileStreams& source)
{
    return IsTrue(source.video, "IsStill");
}

// For people: the title of the media, else the name of the clip, else the path.
std::string_view NameOf(const FileStreams& source)
{
    if (HasValue(source.media, "Title"))
        return source.media.GetProperty("Title");
    return HasValue(source.masterClip, "Name") ? source.masterClip.GetProperty("Name")
                                               : MediaPath(source.media);
}

// Stills and, to the letter, audio alone count in 29.97.
Ticks FileRate(const ExportContext& context, const FileStreams& source)
{
    const bool isLogged = !source.video && context.options.settings.openInterchange;
    if (const Ticks logged = isLogged ? LoggedRate(source.masterClip) : 0)
        return logged;
    if (!source.video || IsStill(source))
        return kNtscFrameTicks;
    const Ticks rate = Int64Property(source.video, "FrameRate");
    if (rate == 0)
        throw NoFrameLength("media", NameOf(source));
    return IsRate(rate) ? rate : kNtscFrameTicks;
}

// In frames; in the hand-off document audio alone counts in ticks. A still has no length.
std::int64_t FileDuration(const ExportContext& context, const FileStreams& source, Ticks rate)
{
    if (source.video)
        return IsStill(source) ? 0 : DivTicks(Int64Property(source.video, "Duration"), rate);
    const Ticks duration = Int64Property(source.audio, "Duration");
    return context.IsHandOff() ? duration : DivTicks(duration, rate);
}

std::string_view GeneratedSource(ExportContext& context, Media media, MediaKind kind)
{
    if (kind == MediaKind::BarsAndTone)
        return "BarsAndTone";
    if (kind == MediaKind::Graphic)
        return "GraphicAndType";
    ReportReplaced(context, media);
    return "Slug";
}

// The path of generated media is the number of its kind. Other media without a folder in its path,
// or without any, is missing.
bool IsMissing(Media media)
{
    const std::string_view path = MediaPath(media);
    return path.empty() || (MediaKindOf(media) == MediaKind::Other &&
                            path.find_first_not_of("0123456789") != path.npos);
}

// Readers refuse a file without a path; the one of its name is marked as none.
void WriteNoSource(const FileStreams& source, ObjectHandle file)
{
    const std::string path = std::string("/").append(UnescapeXML(NameOf(source)));
    file.SetProperty("pathurl", EscapeXML(MakePathUrl(path)));
    file.SetPropertyShared("velaOffline", "TRUE");
}

void WriteSource(ExportContext& context, const FileStreams& source, ObjectHandle file)
{
    const Media media = source.media;
    const MediaKind kind = MediaKindOf(media);
    if (context.options.settings.openInterchange && IsMissing(media)) {
        WriteNoSource(source, file);
        return;
    }
    if (kind != MediaKind::File) {
        file.SetProperty("mediaSource", GeneratedSource(context, media, kind));
        return;
    }
    const std::string path = UnescapeXML(MediaPath(media));
    file.SetProperty("pathurl", EscapeXML(MakePathUrl(path)));
    if (context.IsHandOff() && HasValue(media, "ImporterPrefs"))
        CopyProperty(media, "ImporterPrefs", file, "mediaSource");
}

ObjectHandle TranslateVideo(ExportContext& context, const FileStreams& source, Ticks rate)
{
    const ConstHandle stream = source.video;
    VideoFormat format;
    format.frameTicks = rate;
    format.frameRect = stream.GetProperty("FrameRect");
    format.originalPixelAspect = OriginalPixelAspectOf(stream);
    format.pixelAspect = PixelAspectOf(stream);
    format.fieldType = stream.HasProperty("OriginalFieldType")
                           ? stream.GetProperty("OriginalFieldType")
                           : std::string_view("0");
    const ObjectHandle video = context.document.NewObject("video");
    video.AddChild(WriteSampleCharacteristics(context.document, format));
    if (IsStill(source))
        video.SetProperty("stillframe", "TRUE");
    return video;
}

ObjectHandle TranslateAudio(ExportContext& context, const FileStreams& source)
{
    const ObjectHandle format = context.document.NewObject("samplecharacteristics");
    format.SetProperty("depth", context.IsHandOff() ? "32" : "16");
    const Ticks sampleTicks = Int64Property(source.audio, "FrameRate");
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
    return audio;
}

// The import keeps the timecode of a tape in the logging record alone.
Ticks StartOfMedia(const FileStreams& source)
{
    const bool isReplaced = IsTrue(source.media, "UseAlternateStart");
    const Ticks start =
        Int64Property(source.media, isReplaced ? Name("AlternateStart") : Name("Start"));
    const Ticks logged = Int64Property(LoggingInfoOf(source.masterClip), "MediaInPoint");
    return start == 0 && logged > 0 ? logged : start;
}

// Length, rate and timecode; a length of 0 is not written.
void WriteTimes(ExportContext& context, const FileStreams& source, Ticks rate, FileRecord& file)
{
    file.duration = std::max<std::int64_t>(FileDuration(context, source, rate), 0);
    if (file.duration > 0)
        file.element.SetProperty("duration", IntToString(file.duration));
    file.rate =
        WriteRate(context.document, rate, source.video ? TimeUnit::Frames : context.DocumentUnit());
    file.element.AddChild(file.rate);
    const int displayFormat = IntProperty(LoggingInfoOf(source.masterClip), "TimecodeFormat");
    file.timecode = {.element =
                         WriteTimecode(context.document, StartOfMedia(source), rate, displayFormat),
                     .frameTicks = rate};
    file.element.AddChild(file.timecode.element);
}

// Of the rate and the path.
void ReportGuesses(ExportContext& context, const FileStreams& source, const ItemLocation& location)
{
    if (context.options.settings.openInterchange && IsMissing(source.media))
        AddRemark(context.account, RemarkKind::PathAssumed, location, {.name = NameOf(source)});
    if (!source.video || IsStill(source))
        return;
    const Ticks rate = Int64Property(source.video, "FrameRate");
    if (!IsRate(rate))
        AddRemark(context.account, RemarkKind::RateAssumed, location);
    else if (!IsRateExact(rate))
        AddRemark(context.account, RemarkKind::RateRounded, location, {.detail = RateText(rate)});
}

// `audioOnClip`: the effects of its audio are written elsewhere.
FileRecord TranslateFile(ExportContext& context, const FileStreams& source, LocatedMaster master,
                         bool audioOnClip)
{
    FileRecord file{.id = NewId(context.document, "file-", context.ids.file),
                    .element = context.document.NewObject("file"),
                    .masterClip = source.masterClip};
    file.element.SetPropertyShared("id", file.id);
    WriteSource(context, source, file.element);
    const bool isOffline = context.options.settings.openInterchange && IsMissing(source.media);
    file.element.SetProperty(
        "name", EscapeXML(isOffline ? NameOf(source) : source.media.GetProperty("Title")));

    const Ticks rate = FileRate(context, source);
    const ObjectHandle media = context.document.NewObject("media");
    if (source.video)
        media.AddChild(TranslateVideo(context, source, rate));
    if (source.audio)
        media.AddChild(TranslateAudio(context, source));
    if (source.audio)
        ReportMasterAudioEffects(context, master, audioOnClip);
    file.element.AddChild(media);
    WriteTimes(context, source, rate, file);
    master.frameTicks = rate;
    TranslateMasterEffects(context, master, file.element);
    ReportGuesses(context, source, master.location);
    return file;
}

} // namespace

FileRecord& WriteFile(ExportContext& context, Catalogs& catalogs, const FileSource& source,
                      ObjectHandle element)
{
    const auto master = [&] {
        return LocatedMaster{.masterClip = source.masterClip,
                             .location = catalogs.masters.LocationOf(source.masterClip)};
    };
    const auto isOnClip = [&] {
        return context.options.settings.openInterchange &&
               context.options.sequenceGuid == kZeroGuid &&
               catalogs.masters.BrowserItemOf(source.masterClip);
    };
    if (FileRecord* const written = catalogs.files.Find(source.media)) {
        element.SetPropertyShared("fileid", written->id);
        if (written->masterClip != source.masterClip &&
            context.remarkedNodes.Insert(source.masterClip))
            ReportSecondMaster(context, master(), isOnClip());
        return *written;
    }
    const FileStreams streams = ReadStreams(source);
    FileRecord& file =
        catalogs.files.Add(source.media, TranslateFile(context, streams, master(), isOnClip()));
    element.AddChild(file.element);
    return file;
}

} // namespace XPJ::RVX
