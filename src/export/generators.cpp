#include "export/generators.h"

#include "core/base64.h"
#include "core/text.h"
#include "effects/color_matte.h"
#include "effects/legacy_title.h"
#include "effects/plain_generators.h"
#include "effects/title_writer.h"
#include "export/formats.h"

#include <string>

namespace XPJ::RVX {

namespace {

std::string TitleDocumentOf(Media media)
{
    return DecodeBase64(media.GetProperty("ImporterPrefs"));
}

// Most titles have the name of their generator; their texts distinguish them.
//   "Lower 3rd: Anna Lee / Editor"
std::string NameOfTitle(Media media)
{
    constexpr std::size_t kLongest = 120; // bytes of text
    const LegacyTitle title = ReadLegacyTitle(TitleDocumentOf(media));
    std::string words;
    for (const LegacyTitleText& text : title.texts)
        for (const std::string& line : text.lines)
            if (!Trimmed(line).empty() && words.size() <= kLongest)
                words.append(words.empty() ? "" : " / ").append(Trimmed(line));
    std::string name = UnescapeXML(media.GetProperty("Title"));
    if (words.empty())
        return name;
    if (words.size() > kLongest)
        words = std::string(TruncatedText(words, kLongest)) + "...";
    return name.append(name.empty() ? "" : ": ").append(words);
}

// The path of generated media is a number.
bool IsGenerated(Media media)
{
    const std::string_view path = MediaPath(media);
    return !path.empty() && path.find_first_not_of("0123456789") == path.npos;
}

ObjectHandle MakePlainEffect(Document& document, MediaKind kind)
{
    const ObjectHandle effect = document.NewObject("effect");
    WriteEffectHead(PlainGeneratorOf(kind).xmeml, effect);
    return effect;
}

FrameSize FrameOf(Media media)
{
    const ConstHandle stream = VideoStreamOf(media);
    return ParseFrameSize(stream.GetProperty("FrameRect"), PixelAspectOf(stream));
}

// The title document that the import makes of the generator.
std::string DocumentMadeOf(ObjectHandle effect, FrameSize frame, Document& document)
{
    const ObjectHandle generator = document.NewObject("generatoritem");
    generator.AddChild(effect);
    return LegacyTitleDocument(ReadTitle(generator, frame));
}

ObjectHandle MakeEffectOfTitle(ExportContext& context, const GeneratorSource& source)
{
    const std::string document = TitleDocumentOf(source.media);
    const LegacyTitle title = ReadLegacyTitle(document);
    const bool isInFull = !title.texts.empty() && IsStatedInFull(title);
    if (!isInFull)
        ReportReplaced(context, source.media);
    if (title.texts.empty())
        return MakePlainEffect(context.document, MediaKind::BlackVideo);
    if (isInFull && DocumentMadeOf(MakeTitleEffect(context.document, title), FrameOf(source.media),
                                   context.document) != document)
        AddRemark(context.account, RemarkKind::TitleSimplified, *source.location,
                  {.name = source.media.GetProperty("Title")});
    return MakeTitleEffect(context.document, TitleInFrame(title, source.frame));
}

ObjectHandle MakeEffectOfMedia(ExportContext& context, const GeneratorSource& source)
{
    const Media media = source.media;
    const MediaKind kind = MediaKindOf(media);
    if (kind == MediaKind::Title)
        return MakeEffectOfTitle(context, source);
    if (kind == MediaKind::ColorMatte)
        return ColorMatteEffect(context.document, media);
    if (kind == MediaKind::Other)
        ReportReplaced(context, media);
    return MakePlainEffect(context.document, kind);
}

// Other programs read the text; the graphic itself is among the filters.
ObjectHandle MakeEffectOfGraphic(ExportContext& context, const GeneratorSource& source,
                                 ConstHandle chain)
{
    const LegacyTitle title =
        TitleInFrame(ReadGraphicTitle(chain, FrameOf(source.media)), source.frame);
    if (title.texts.empty())
        return {};
    if (!IsStatedInFull(title))
        AddRemark(context.account, RemarkKind::TitleInOneLook, *source.location,
                  {.name = source.media.GetProperty("Title")});
    return MakeTitleEffect(context.document, title);
}

// The frame of another size that shows a title, else one of no size: lines of text count in those
// of the frame.
FrameSize OtherFrameOf(const GeneratorSource& source)
{
    const FrameSize own = FrameOf(source.media);
    const bool isOwn = source.frame.width == own.width && source.frame.height == own.height;
    return isOwn || MediaKindOf(source.media) != MediaKind::Title ? FrameSize() : source.frame;
}

} // namespace

bool IsWrittenAsGenerator(const ExportContext& context, Media media)
{
    return context.options.settings.openInterchange && !context.IsHandOff() && media &&
           IsGenerated(media) && !AudioStreamOf(media);
}

bool FitsAnyFrame(const ExportContext& context, Media media)
{
    const MediaKind kind = MediaKindOf(media);
    return IsWrittenAsGenerator(context, media) && kind != MediaKind::Title &&
           kind != MediaKind::ColorMatte && kind != MediaKind::Graphic;
}

void ReportReplaced(ExportContext& context, Media media)
{
    const std::string name = MediaKindOf(media) == MediaKind::Title
                                 ? NameOfTitle(media)
                                 : std::string(media.GetProperty("Title"));
    AddIssue(context, ExportIssue::SyntheticNotTranslated,
             {.clip = name, .trackKind = 2, .time = {}});
}

ObjectHandle GeneratorCatalog::EffectOf(ExportContext& context, const GeneratorSource& source)
{
    if (MediaKindOf(source.media) == MediaKind::Graphic) {
        for (const ConstHandle& owner : {source.chain, VideoChainOfMaster(source.masterClip)})
            if (const ObjectHandle effect = MakeEffectOfGraphic(context, source, owner))
                return effect;
        AddRemark(context.account, RemarkKind::GraphicWithoutText, *source.location,
                  {.name = source.media.GetProperty("Title")});
    }
    const FrameSize other = OtherFrameOf(source);
    const auto [entry, isNew] =
        effects_.try_emplace(std::tuple(source.media.UniqueId(), other.width, other.height));
    if (isNew)
        entry->second = MakeEffectOfMedia(context, source);
    return entry->second;
}

} // namespace XPJ::RVX
