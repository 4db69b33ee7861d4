#include "export/formats.h"

#include "core/numbers.h"
#include "core/text.h"
#include "core/video_formats.h"
#include "export/rates.h"

#include <string>

namespace XPJ::RVX {

namespace {

// The codec block field by field; nothing of a project changes it.
struct CodecField {
    Name name;
    std::string_view value;
};

constexpr CodecField kApplication[] = {
    {"appname", "Final Cut Pro"},
    {"appmanufacturer", "Apple Inc."},
    {"appversion", "7.0"},
};

constexpr CodecField kCodec[] = {
    {"codecname", "Apple ProRes 422"},
    {"codectypename", "Apple ProRes 422"},
    {"codectypecode", "apcn"},
    {"codecvendorcode", "appl"},
    {"spatialquality", "1024"},
    {"temporalquality", "0"},
    {"keyframerate", "0"},
    {"datarate", "0"},
};

template <std::size_t N>
void SetFields(ObjectHandle node, const CodecField (&fields)[N])
{
    for (const CodecField& field : fields)
        node.SetPropertyShared(field.name, field.value);
}

std::string_view UpperTrue(bool value)
{
    return value ? "TRUE" : "FALSE";
}

// The numbers of `AlphaType` that matter here.
constexpr int kNoAlpha = 0;
constexpr int kStraightAlpha = 1;
constexpr int kMattedAlpha = 2;
constexpr int kIgnoredAlpha = 3;

// An overridable setting: the user's where the flag is set, else the media's own.
std::string_view Setting(ConstHandle stream, Name flag, Name overridden, Name own)
{
    return stream.GetProperty(IsTrue(stream, flag) ? overridden : own);
}

std::string_view MatteName(ConstHandle stream)
{
    const std::string_view color = Setting(stream, "IsAlphaMatteColorOverridden",
                                           "OverriddenAlphaMatterColor", "OriginalAlphaMatteColor");
    if (color == "0,0,0")
        return "black";
    return color == "255,255,255" ? "white" : "none";
}

} // namespace

FrameSize FrameSizeOf(std::string_view frameRect)
{
    std::string_view fields[4];
    for (std::string_view& field : fields) {
        const std::size_t comma = frameRect.find(',');
        if (comma == frameRect.npos && &field != &fields[3])
            return {};
        field = frameRect.substr(0, comma);
        frameRect.remove_prefix(comma == frameRect.npos ? frameRect.size() : comma + 1);
    }
    return {.width = ParseInt(fields[2]), .height = ParseInt(fields[3])};
}

std::string_view OriginalPixelAspectOf(ConstHandle videoStream)
{
    return HasValue(videoStream, "OriginalPAR") ? videoStream.GetProperty("OriginalPAR") : "1,1";
}

std::string_view PixelAspectOf(ConstHandle videoStream)
{
    return IsTrue(videoStream, "IsPAROverridden") && HasValue(videoStream, "OverriddenPAR")
               ? videoStream.GetProperty("OverriddenPAR")
               : OriginalPixelAspectOf(videoStream);
}

ObjectHandle WriteSampleCharacteristics(Document& document, const VideoFormat& format)
{
    const ObjectHandle result = document.NewObject("samplecharacteristics");
    result.AddChild(WriteRate(document, format.frameTicks));
    const FrameSize size = FrameSizeOf(format.frameRect);
    result.SetProperty("width", IntToString(size.width));
    result.SetProperty("height", IntToString(size.height));
    const PixelAspect aspect = PixelAspectName(format.pixelAspect, size.height);
    result.SetProperty("pixelaspectratio", aspect.name);
    result.SetProperty("anamorphic", UpperTrue(aspect.anamorphic));
    if (format.originalPixelAspect != format.pixelAspect) {
        const PixelAspect original = PixelAspectName(format.originalPixelAspect, size.height);
        result.SetProperty("velaOriginalPAR", original.name);
        result.SetProperty("velaOriginalIsAnamorphic", UpperTrue(original.anamorphic));
    }
    result.SetProperty("fielddominance", FieldDominanceOf(format.fieldType));
    return result;
}

ObjectHandle WriteCodec(Document& document)
{
    const ObjectHandle qtcodec = document.NewObject("qtcodec");
    SetFields(qtcodec, kCodec);
    const ObjectHandle data = document.NewObject("data");
    data.AddChild(qtcodec);
    const ObjectHandle application = document.NewObject("appspecificdata");
    SetFields(application, kApplication);
    application.AddChild(data);
    const ObjectHandle codec = document.NewObject("codec");
    codec.SetPropertyShared("name", "Apple ProRes 422");
    codec.AddChild(application);
    return codec;
}

void WriteAlpha(ConstHandle videoStream, ObjectHandle clipItem)
{
    if (!videoStream)
        return;
    std::string_view type = "none";
    bool reverse = false;
    const bool ignored = IsTrue(videoStream, "IsIgnoreAlphaOverridden") &&
                         IsTrue(videoStream, "OverriddenIgnoreAlpha");
    if (!ignored) {
        const int alpha = ParseInt(
            Setting(videoStream, "IsAlphaTypeOverridden", "OverriddenAlphaType", "AlphaType"));
        reverse = alpha != kNoAlpha && alpha != kIgnoredAlpha &&
                  IsTrue(videoStream, "IsInvertAlphaOverridden") &&
                  IsTrue(videoStream, "OverriddenInvertAlpha");
        if (alpha == kStraightAlpha)
            type = "straight";
        else if (alpha == kMattedAlpha)
            type = MatteName(videoStream);
    }
    clipItem.SetProperty("alphatype", type);
    if (reverse)
        clipItem.SetProperty("alphareverse", "TRUE");
}

} // namespace XPJ::RVX
