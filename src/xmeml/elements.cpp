#include "xmeml/elements.h"

#include "core/host_properties.h"
#include "tree/name_index.h"

namespace XPJ {

namespace {

constexpr XmemlField Required(Name name, std::string_view missing = {})
{
    return {.kind = FieldKind::Required, .name = name, .text = missing};
}

constexpr XmemlField Optional(Name name)
{
    return {.kind = FieldKind::Optional, .name = name};
}

constexpr XmemlField RequiredFrom(Name property, Name name)
{
    return {.kind = FieldKind::Required, .name = name, .property = property};
}

constexpr XmemlField Fixed(Name name, std::string_view text)
{
    return {.kind = FieldKind::Fixed, .name = name, .text = text};
}

constexpr XmemlField Child(Name name)
{
    return {.kind = FieldKind::Child, .name = name};
}

// A child whose form depends on where it stands.
constexpr XmemlField ChildAs(Name name, std::string_view element)
{
    return {.kind = FieldKind::Child, .name = name, .element = element};
}

constexpr XmemlField Each(Name name)
{
    return {.kind = FieldKind::Each, .name = name};
}

constexpr XmemlField InOrder(std::span<const Name> names)
{
    return {.kind = FieldKind::InOrder, .names = names};
}

constexpr XmemlField By(XmemlRule rule)
{
    return {.kind = FieldKind::Rule, .rule = rule};
}

constexpr XmemlAttribute Always(Name name)
{
    return {.kind = AttributeKind::Always, .name = name};
}

constexpr XmemlAttribute Present(Name name)
{
    return {.kind = AttributeKind::Present, .name = name};
}

constexpr XmemlAttribute Equal(Name name, std::string_view text)
{
    return {.kind = AttributeKind::Equal, .name = name, .text = text};
}

constexpr XmemlAttribute FixedText(Name name, std::string_view text)
{
    return {.kind = AttributeKind::Fixed, .name = name, .text = text};
}

constexpr XmemlAttribute ListOf(std::span<const Name> (*list)())
{
    return {.kind = AttributeKind::List, .list = list};
}

// clang-format off

// Start tags.

constexpr XmemlAttribute kId[] = {Always("id")};

constexpr XmemlAttribute kClipAttributes[] = {
    Always("id"), Equal("explodedTracks", "true"), Equal("scaleToFrameSize", "TRUE"),
};

constexpr XmemlAttribute kClipItemAttributes[] = {
    Always("id"), Equal("scaleToFrameSize", "TRUE"),
    Present("PannerCurrentValue"), Present("PannerKeyframes"), Present("PannerStartKeyframe"),
    Present("PannerIsInverted"), Present("PannerName"), Present("velaChannelType"),
};

constexpr XmemlAttribute kSequenceAttributes[] = {
    Always("id"), Equal("explodedTracks", "true"), ListOf(SequenceUIPropertyList),
};

constexpr XmemlAttribute kTrackAttributes[] = {
    Equal("hardpan", "TRUE"), ListOf(TrackUIPropertyList),
    Present("currentExplodedTrackIndex"), Present("totalExplodedTrackCount"),
    Present("velaTrackType"),
};

constexpr XmemlAttribute kMediaAttributes[] = {Present("hasDiscreteStreams")};

constexpr XmemlAttribute kParameterAttributes[] = {FixedText("authoringApp", "VelaPro")};

// Structure.

constexpr XmemlField kProject[] = {Required("name"), Child("children")};

constexpr XmemlField kBin[] = {Required("name"), Child("labels"), Child("children")};

constexpr Name kEntries[] = {"clip", "bin", "sequence", "sequenceref", "effect"};
constexpr XmemlField kChildren[] = {InOrder(kEntries)};

constexpr XmemlField kClip[] = {
    Required("uuid"), RequiredFrom("id", "masterclipid"), Fixed("ismasterclip", "TRUE"),
    By(XmemlRule::ClipDuration), By(XmemlRule::ClipRate), Optional("in"), Optional("out"),
    Required("name"), Child("media"), Child("logginginfo"), Child("filmdata"),
    Child("comments"), Child("labels"), Child("subclipinfo"), Each("marker"),
};

constexpr XmemlField kSequence[] = {
    Required("uuid"), Required("duration"), Child("rate"), Optional("in"), Optional("out"),
    Required("name"), Child("media"), Child("timecode"), Child("labels"), Each("filter"),
    Each("marker"),
};

constexpr XmemlField kMedia[] = {Child("video"), Child("audio")};

constexpr XmemlField kVideo[] = {
    Optional("duration"), Child("format"), Child("samplecharacteristics"), Each("track"),
};

constexpr XmemlField kAudio[] = {
    Optional("numOutputChannels"), Child("format"), Child("samplecharacteristics"),
    Child("outputs"), Each("track"), Each("filter"),
};

constexpr Name kTrackItems[] = {"clipitem", "generatoritem", "transitionitem"};
constexpr XmemlField kTrack[] = {
    InOrder(kTrackItems), Optional("enabled"), Optional("locked"), Optional("name"),
    Optional("channelcount"), Each("filter"), Optional("outputchannelindex"),
};

constexpr XmemlField kClipItem[] = {
    Required("masterclipid"), Optional("channelcount"), Optional("name"), Optional("enabled"),
    Optional("duration"), By(XmemlRule::RateOrDefault), Optional("start"), Optional("end"),
    Optional("in"), Optional("out"), Optional("velaTicksStart"), Optional("velaTicksEnd"),
    Optional("velaTicksIn"), Optional("velaTicksOut"),
    Optional("velaSoftStartOffset"), Optional("velaSoftEndOffset"), Optional("compositemode"),
    Optional("alphatype"), Optional("alphareverse"), By(XmemlRule::PixelAspect),
    By(XmemlRule::Source), Child("sourcetrack"), Child("subclipinfo"), Child("multiclip"),
    Child("logginginfo"), Child("filmdata"), Child("comments"), Child("labels"),
    Each("filter"), Each("marker"), Each("link"),
};

constexpr XmemlField kGeneratorItem[] = {
    Optional("name"), Optional("enabled"), Optional("duration"), Optional("start"),
    Optional("end"), Optional("in"), Optional("out"), Child("rate"), Child("effect"),
    Child("sourcetrack"),
};

constexpr XmemlField kTransitionItem[] = {
    Optional("start"), Optional("end"), Optional("alignment"), Optional("cutPointTicks"),
    Child("rate"), Child("effect"),
};

constexpr XmemlField kMulticlip[] = {
    Required("name"), Required("collapsed"), Required("synctype"), Each("angle"),
};

constexpr XmemlField kAngle[] = {
    By(XmemlRule::SequenceOrReference), Optional("activevideoangle"),
    Optional("activeaudioangle"),
};

constexpr XmemlField kLink[] = {
    Required("linkclipref"), Required("mediatype"), Required("trackindex"),
    Required("clipindex"), Optional("groupindex"),
};

constexpr XmemlField kSourceTrack[] = {Required("mediatype"), Required("trackindex")};

constexpr XmemlField kSubclipInfo[] = {Required("startoffset"), Required("endoffset")};

// Files. Their picture and sound have forms of their own.

constexpr XmemlField kFile[] = {
    Optional("name"), Optional("pathurl"), Optional("mediaSource"), Child("rate"),
    Optional("duration"), Child("timecode"), ChildAs("media", "media of a file"), Each("filter"),
};

constexpr XmemlField kMediaOfFile[] = {
    ChildAs("video", "video of a file"), By(XmemlRule::AudioOfFile),
};

constexpr XmemlField kVideoOfFile[] = {Child("samplecharacteristics"), Optional("stillframe")};

constexpr XmemlField kRate[] = {Required("timebase"), Optional("ntsc")};

constexpr XmemlField kTimecode[] = {
    Child("rate"), Optional("string"), Required("frame"), Required("displayformat"),
    Optional("source"), Child("reel"),
};

constexpr XmemlField kReel[] = {Required("name")};

constexpr XmemlField kSampleCharacteristics[] = {
    Child("rate"), Child("codec"), Optional("width"), Optional("height"),
    Optional("anamorphic"), Optional("pixelaspectratio"),
    Optional("velaOriginalIsAnamorphic"), Optional("velaOriginalPAR"),
    Optional("fielddominance"), Optional("colordepth"), Optional("depth"),
    Optional("samplerate"),
};

constexpr XmemlField kCodec[] = {Required("name"), Child("appspecificdata")};

constexpr XmemlField kAppSpecificData[] = {
    Required("appname"), Required("appmanufacturer"), Required("appversion"), Child("data"),
};

constexpr XmemlField kData[] = {Child("qtcodec")};

constexpr XmemlField kQtCodec[] = {
    Required("codecname"), Required("codectypename"), Required("codectypecode"),
    Required("codecvendorcode"), Required("spatialquality"), Required("temporalquality"),
    Required("keyframerate"), Required("datarate"),
};

constexpr XmemlField kFormat[] = {Child("samplecharacteristics")};

constexpr XmemlField kOutputs[] = {Each("group")};

constexpr XmemlField kGroup[] = {
    Required("index"), Required("numchannels"), Required("downmix"), Each("channel"),
};

constexpr XmemlField kChannel[] = {Required("index")};

// Effects.

constexpr XmemlField kFilter[] = {Child("effect")};

constexpr XmemlField kEffect[] = {
    Required("name"), Required("effectid"), Optional("effectcategory"), Required("effecttype"),
    Required("mediatype"), Optional("velaBypass"), Optional("velaExpanded"),
    Optional("wipecode"), Optional("wipeaccuracy"), Optional("startratio"),
    Optional("endratio"), Optional("reverse"), Each("parameter"), Each("dependency"),
};

constexpr XmemlField kParameter[] = {
    Required("parameterid"), Required("name"), Optional("valuemin"), Optional("valuemax"),
    Optional("IsTimeVarying"), Optional("ParameterControlType"), Optional("LowerBound"),
    Optional("UpperBound"), Optional("LowerUIBound"), Optional("UpperUIBound"),
    Optional("Keyframes"), Optional("hash"), Optional("value"), Child("value"),
    Each("keyframe"), Child("valuelist"), Child("interpolation"),
};

constexpr XmemlField kKeyframe[] = {
    Required("when"), Optional("value"), Child("value"), Optional("speedvirtualkf"),
    Optional("origvalue"), Optional("speedkfin"), Optional("speedkfout"),
    Optional("speedkfstart"), Optional("speedkfend"), Optional("velaRampStart"),
    Optional("velaRampEnd"), Child("outbez"), Child("inbez"),
};

constexpr XmemlField kBezier[] = {Required("horiz"), Required("vert")};

constexpr XmemlField kInterpolation[] = {Required("name")};

constexpr XmemlField kValue[] = {
    Optional("horiz"), Optional("vert"), Optional("alpha"), Optional("red"),
    Optional("green"), Optional("blue"), Child("timecode"),
};

constexpr XmemlField kValueList[] = {Each("valueentry")};

constexpr XmemlField kValueEntry[] = {Required("name"), Required("value")};

constexpr XmemlField kDependency[] = {Required("tag"), Required("path")};

// Notes of the user.

constexpr XmemlField kMarker[] = {
    Required("comment"), Required("name"), Required("in"), Required("out"),
    Optional("velaColor"),
};

constexpr XmemlField kLabels[] = {Optional("label2")};

constexpr XmemlField kComments[] = {
    Optional("mastercomment1"), Optional("mastercomment2"), Optional("mastercomment3"),
    Optional("mastercomment4"), Optional("clipcommenta"), Optional("clipcommentb"),
};

constexpr XmemlField kLoggingInfo[] = {
    Required("description"), Required("scene"), Required("shottake"), Required("lognote"),
};

constexpr XmemlField kFilmData[] = {
    Required("cameraroll"), Required("dailyroll"), Required("labroll"), Child("keycode"),
};

constexpr XmemlField kKeycode[] = {
    Required("feetframes"), Required("perfoffset"), Required("prefix"),
    Required("reversed", "FALSE"),
};

constexpr XmemlElement kElements[] = {
    {"angle", "angle", kAngle},
    {"appspecificdata", "appspecificdata", kAppSpecificData},
    {"audio", "audio", kAudio},
    {"bin", "bin", kBin},
    {"channel", "channel", kChannel},
    {"children", "children", kChildren},
    {"clip", "clip", kClip, kClipAttributes},
    {"clipitem", "clipitem", kClipItem, kClipItemAttributes},
    {"codec", "codec", kCodec},
    {"comments", "comments", kComments},
    {"data", "data", kData},
    {"dependency", "dependency", kDependency},
    {"effect", "effect", kEffect},
    {"file", "file", kFile, kId},
    {"filmdata", "filmdata", kFilmData},
    {"filter", "filter", kFilter},
    {"format", "format", kFormat},
    {"generatoritem", "generatoritem", kGeneratorItem, kId},
    {"group", "group", kGroup},
    {"inbez", "inbez", kBezier},
    {"interpolation", "interpolation", kInterpolation},
    {"keycode", "keycode", kKeycode},
    {"keyframe", "keyframe", kKeyframe},
    {"labels", "labels", kLabels},
    {"link", "link", kLink},
    {"logginginfo", "logginginfo", kLoggingInfo},
    {"marker", "marker", kMarker},
    {"media", "media", kMedia, kMediaAttributes},
    {"media of a file", "media", kMediaOfFile, kMediaAttributes},
    {"multiclip", "multiclip", kMulticlip, kId},
    {"outbez", "outbez", kBezier},
    {"outputs", "outputs", kOutputs},
    {"parameter", "parameter", kParameter, kParameterAttributes},
    {"project", "project", kProject},
    {"qtcodec", "qtcodec", kQtCodec},
    {"rate", "rate", kRate},
    {"reel", "reel", kReel},
    {"samplecharacteristics", "samplecharacteristics", kSampleCharacteristics},
    {"sequence", "sequence", kSequence, kSequenceAttributes},
    {"sequenceref", "sequence", {}, kId, true},
    {"sourcetrack", "sourcetrack", kSourceTrack},
    {"subclipinfo", "subclipinfo", kSubclipInfo},
    {"timecode", "timecode", kTimecode},
    {"track", "track", kTrack, kTrackAttributes},
    {"transitionitem", "transitionitem", kTransitionItem},
    {"value", "value", kValue},
    {"valueentry", "valueentry", kValueEntry},
    {"valuelist", "valuelist", kValueList},
    {"video", "video", kVideo},
    {"video of a file", "video", kVideoOfFile},
};

// clang-format on

constexpr NameIndex kElementIndex(kElements);

constexpr bool EveryChildHasARow()
{
    for (const XmemlElement& element : kElements) {
        for (const XmemlField& field : element.fields) {
            const bool isChild = field.kind == FieldKind::Child || field.kind == FieldKind::Each;
            if (isChild && !kElementIndex.Find(field.element))
                return false;
            for (const Name& name : field.names)
                if (!kElementIndex.Find(name.View()))
                    return false;
        }
    }
    return true;
}
static_assert(EveryChildHasARow());

} // namespace

const XmemlElement* FindXmemlElement(std::string_view name)
{
    return kElementIndex.Find(name);
}

} // namespace XPJ
