#include "xmeml/elements.h"

#include "core/host_properties.h"
#include "tree/name_index.h"

#include <algorithm>

namespace XPJ {

namespace {

using namespace ElementRows;

// Reasons of several rows.

constexpr std::string_view kInProject = "one project holds all that is written";
constexpr std::string_view kInChildren = "written inside `children`";
constexpr std::string_view kInCharacteristics = "written in `samplecharacteristics`";
constexpr std::string_view kInFile = "written in the `file`";
constexpr std::string_view kInMedia = "the media itself has it";
constexpr std::string_view kWipe = "the id of the effect names the wipe";
constexpr std::string_view kOthers = "for other readers";
constexpr std::string_view kPanFilter = "for other readers: the import takes the pan filter";
constexpr std::string_view kFreshIdentity = "each import generates identities of its own";
constexpr std::string_view kCodecDescription = "the codec is found by its name";
constexpr std::string_view kRamp =
    "the values of the keyframes state how fast a ramp begins and ends";
constexpr std::string_view kCurve = "curves between keyframes are not carried over";
constexpr std::string_view kNoRange = "a filter covers its whole item";
constexpr std::string_view kByLayout = "channels are found by number and layout of the elements";
constexpr std::string_view kExploded = "a track of each channel is written instead";
constexpr std::string_view kInVideo = "written in `video`";
constexpr std::string_view kInTrack = "written in a `track`";
constexpr std::string_view kAngles = "a multiclip is written with sequences as angles";
constexpr std::string_view kMasterFirst = "the clip that an item belongs to states it";

// clang-format off

// Structure. The root is no element of the document.

constexpr XmemlField kRoot[] = {Child("xmeml")};

constexpr XmemlAttribute kXmemlAttributes[] = {FixedText("version", "4")};

constexpr XmemlField kXmeml[] = {
    Child("project"),
    Child("bin", ReadOnly(kInProject)), ReferableChild("clip", "clipid", ReadOnly(kInProject)),
    ReferableEach("sequence", "sequenceid"),
};

constexpr XmemlField kProject[] = {
    Required("name"), Child("children"),
    Child("bin", ReadOnly(kInChildren)), Child("clip", ReadOnly(kInChildren)),
    Child("sequence", ReadOnly(kInChildren)),
};

constexpr XmemlField kBin[] = {
    Required("name"), Child("labels"), Child("children"), Leaf("uuid", Skipped(kFreshIdentity)),
    Child("bin", Stray(kInChildren)), ReferableChild("clip", "clipid", Stray(kInChildren)),
    ReferableChild("sequence", "sequenceid", Stray(kInChildren)),
};

constexpr XmemlField kChildren[] = {
    ReferableMixed("clip", "clipid"), Mixed("bin"), ReferableMixed("sequence", "sequenceid"),
    Mixed("sequenceref", WriteOnly("read as a reference: the sequence itself and its id")),
    Mixed("effect", Addition(WriteOnly("effects are read from filters and items"))),
};

constexpr XmemlAttribute kClipAttributes[] = {
    Always("id"), Equal("explodedTracks", "true", Addition()),
    OrLeaf(Equal("scaleToFrameSize", "TRUE", Addition())),
};

constexpr XmemlField kClip[] = {
    Required("uuid", ForOthers(kFreshIdentity)), RequiredFrom("id", "masterclipid"),
    Fixed("ismasterclip", "TRUE", ForOthers("each clip outside a sequence is one")),
    LeafBy(XmemlRule::ClipDuration, "duration"), ChildBy(XmemlRule::ClipRate, "rate"),
    Leaf("in"), Leaf("out"), Required("name"), Child("media"), Child("logginginfo"),
    Child("filmdata"), Child("comments"), Child("labels"), Child("subclipinfo"), Each("marker"),
    Child("file", ReadOnly("written in the items of `media`")),
    Leaf("pixelaspectratio", Stray(kInFile)), Leaf("anamorphic", Stray(kInFile)),
    Leaf("fielddominance", Stray(kInFile)),
    Leaf("compositemode", Skipped("a clip outside a sequence covers nothing")),
    Child("filter", Stray("written in the `file`")),
};

constexpr XmemlAttribute kSequenceAttributes[] = {
    Always("id"), Equal("explodedTracks", "true", Addition()),
    OrLeaf(ListOf(SequenceUIPropertyList, Addition())),
};

constexpr XmemlField kSequence[] = {
    Required("uuid", ForOthers(kFreshIdentity)), Required("duration"), Child("rate"), Leaf("in"),
    Leaf("out"), Required("name"), Child("media"), Child("timecode"), Child("labels"),
    Each("filter"), Each("marker"),
    Leaf("ismasterclip", Skipped("each sequence outside another one is one")),
    Leaf("pixelaspectratio", Stray(kInCharacteristics)),
    Leaf("fielddominance", Stray(kInCharacteristics)),
    Leaf("masterclipid", ReadOnly("a sequence is written under its own id")),
};

constexpr XmemlAttribute kMediaAttributes[] = {
    Present("hasDiscreteStreams", Addition()),
    Present("hasStereoPairs", ReadOnly("pairs are written as `layout`")),
};

constexpr XmemlField kMedia[] = {
    Child("video"), Child("audio"), Child("format", Stray(kInVideo)),
};

constexpr XmemlField kVideo[] = {
    Leaf("duration"), Child("format"), Child("samplecharacteristics"), Each("track"),
    Child("clipitem", Stray(kInTrack)), Child("generatoritem", Stray(kInTrack)),
    Child("transitionitem", Stray(kInTrack)),
};

constexpr XmemlField kAudio[] = {
    Leaf("numOutputChannels", Addition()), Child("format"), Child("samplecharacteristics"),
    Child("outputs"), Each("track"), Each("filter"),
    Child("clipitem", Stray(kInTrack)), Child("transitionitem", Stray(kInTrack)),
};

constexpr XmemlAttribute kTrackAttributes[] = {
    OrLeaf(Equal("hardpan", "TRUE", Addition(ForOthers("the pan filters state it")))),
    OrLeaf(ListOf(TrackUIPropertyList, Addition())),
    OrLeaf(Present("currentExplodedTrackIndex", Addition())),
    OrLeaf(Present("totalExplodedTrackCount", Addition())),
    OrLeaf(Present("velaTrackType", Addition())),
    OrLeaf(Present("panvalue", Skipped("the pan filters state it"))),
    OrLeaf(Present("monotrack", ReadOnly(kExploded))),
};

constexpr XmemlField kTrack[] = {
    ReferableMixed("clipitem", "clipitemid"), Mixed("generatoritem"), Mixed("transitionitem"),
    Leaf("enabled"), Leaf("locked"), Leaf("name", Addition()), Leaf("channelcount", Addition()),
    Each("filter", Addition()), Leaf("outputchannelindex"),
};

constexpr XmemlAttribute kClipItemAttributes[] = {
    Always("id"), OrLeaf(Equal("scaleToFrameSize", "TRUE", Addition())),
    Present("PannerCurrentValue", Addition(WriteOnly(kPanFilter))),
    Present("PannerKeyframes", Addition(WriteOnly(kPanFilter))),
    Present("PannerStartKeyframe", Addition(WriteOnly(kPanFilter))),
    Present("PannerIsInverted", Addition(WriteOnly(kPanFilter))),
    Present("PannerName", Addition(WriteOnly(kPanFilter))), Present("velaChannelType", Addition()), Present("velaGain", Addition()),
};

constexpr XmemlField kClipItem[] = {
    Required("masterclipid"), Leaf("channelcount", Addition()), Leaf("name"), Leaf("enabled"),
    Leaf("duration"), ChildBy(XmemlRule::RateOrDefault, "rate"), Leaf("start"), Leaf("end"),
    Leaf("in"), Leaf("out"), Leaf("velaTicksStart", Addition()), Leaf("velaTicksEnd", Addition()),
    Leaf("velaTicksIn", Addition()), Leaf("velaTicksOut", Addition()),
    Leaf("velaSoftStartOffset", Addition()),
    Leaf("velaSoftEndOffset", Addition(ForOthers("the duration leads from the start to the end"))),
    Leaf("compositemode"),
    Leaf("alphatype", ForOthers("a host finds the alpha channel of a file itself")),
    Leaf("alphareverse", WriteOnly(kOthers)),
    LeafBy(XmemlRule::OfOwnFile, "pixelaspectratio"), LeafBy(XmemlRule::OfOwnFile, "anamorphic"),
    LeafBy(XmemlRule::OfOwnFile, "velaOriginalPAR", Addition()),
    LeafBy(XmemlRule::OfOwnFile, "velaOriginalIsAnamorphic", Addition()),
    WholeOrReference("file", "fileid"),
    {.kind = FieldKind::ChildBy, .name = "sequence", .reference = "sequenceid",
     .rule = XmemlRule::SequenceUnlessFile},
    Child("sourcetrack"), Child("subclipinfo"), ReferableChild("multiclip", "multiclipid"),
    Child("logginginfo"), Child("filmdata"), Child("comments"), Child("labels"), Each("filter"),
    Each("marker"), Each("link"),
    Child("keycode", ReadOnly("written inside `filmdata`")),
    Leaf("mediadelay", ReadOnly("counted in the written `in` and `out`")),
    Leaf("stillframe"), Leaf("stillframeoffset"),
    Leaf("fielddominance", ReadOnly(kInFile)),
    Leaf("ismasterclip", Skipped("an item of a sequence is none")),
};

constexpr XmemlField kGeneratorItem[] = {
    Leaf("name"), Leaf("enabled"), Leaf("duration"), Leaf("start"), Leaf("end"), Leaf("in"),
    Leaf("out"), Child("rate"), Child("effect"), Child("sourcetrack"),
    Each("filter"), Each("marker"), Leaf("masterclipid"), Leaf("compositemode"),
    Child("labels", OpenOnly("to the letter a generator has no label")),
    Leaf("anamorphic", Skipped("a generator fills the frame of its sequence")),
    Leaf("alphatype", Skipped("a host knows the alpha channel of its generators")),
    Leaf("mediadelay", Skipped("a generator has no media")),
};

constexpr XmemlField kTransitionItem[] = {
    Leaf("start"), Leaf("end"), Leaf("alignment"), Leaf("cutPointTicks", Addition()),
    Child("rate"), Child("effect"),
    Leaf("cutPoint", ReadOnly("written in ticks, and as `alignment`")),
};

constexpr XmemlAttribute kMulticlipAttributes[] = {
    Always("id"),
    OrLeaf(Present("scaleToFrameSize", ReadOnly(kMasterFirst))),
    ListOf(SequenceUIPropertyList, ReadOnly("written of sequences")),
};

constexpr XmemlField kMulticlip[] = {
    Required("name"), Required("collapsed"),
    Required("synctype", ForOthers("the angles are in sync already")), Each("angle"),
    Leaf("masterclipid", ReadOnly(kMasterFirst)), Child("marker", ReadOnly(kMasterFirst)),
    Child("labels", ReadOnly(kMasterFirst)), Leaf("velaCameraNames", ReadOnly(kAngles)),
    Child("samplecharacteristics", ReadOnly(kAngles)),
};

constexpr XmemlField kAngle[] = {
    WholeOrReference("sequence", "sequenceid", Addition(WriteOnly("angles are read from clips"))),
    Leaf("activevideoangle"), Leaf("activeaudioangle"),
    ReferableChild("clip", "clipid", ReadOnly(kAngles)),
};

constexpr XmemlField kLink[] = {
    Required("linkclipref"), Required("mediatype"), Required("trackindex"),
    Required("clipindex"), Leaf("groupindex", ForOthers("linked items make one group")),
};

constexpr XmemlField kSourceTrack[] = {Required("mediatype"), Required("trackindex")};

constexpr XmemlField kSubclipInfo[] = {Required("startoffset"), Required("endoffset")};

// Files. Their `media`, `video` and `audio` are written by rows of their own.

constexpr XmemlAttribute kId[] = {Always("id")};

constexpr XmemlField kFile[] = {
    Leaf("name"), Leaf("pathurl"), Leaf("velaOffline", Addition()), Leaf("mediaSource"),
    Child("rate"), Leaf("duration"), Child("timecode"), ChildAs("media", "media of a file"), Each("filter", Addition()),
    Child("metadata", ReadOnly(kInMedia)),
    Leaf("width", ReadOnly(kInCharacteristics)), Leaf("height", ReadOnly(kInCharacteristics)),
    Leaf("pixelaspectratio", Stray(kInCharacteristics)),
    Leaf("anamorphic", Stray(kInCharacteristics)),
    Leaf("fielddominance", Stray(kInCharacteristics)),
};

constexpr XmemlField kMediaOfFile[] = {
    ChildAs("video", "video of a file"),
    {.kind = FieldKind::ChildBy, .name = "audio", .element = "audio of a file",
     .rule = XmemlRule::AudioOfFile},
};

constexpr XmemlField kVideoOfFile[] = {
    Child("samplecharacteristics"), Leaf("stillframe"),
    Leaf("layerindex", ReadOnly("a layer of an image is written as a file of its own")),
    Leaf("MediaAssociationData", ReadOnly(kInMedia)),
    Leaf("alphatype", Skipped("a host finds the alpha channel of a file itself")),
};

// Written by the rule of the row above: the channel type of a file decides what there is.
constexpr XmemlField kAudioOfFile[] = {
    Child("samplecharacteristics"), Leaf("channelcount"), Leaf("layout"),
    Child("audiochannel", ForOthers(kByLayout)),
    Leaf("channeldescription", ReadOnly(kByLayout)), Leaf("trackcount", ReadOnly(kByLayout)),
    Child("rate", ReadOnly(kInCharacteristics)),
    Child("metadata", ReadOnly(kInMedia)),
    Leaf("in", Skipped("a file is used from its start")),
    Leaf("out", Skipped("the file states its duration")),
};

constexpr XmemlField kAudioChannel[] = {Leaf("sourcechannel"), Leaf("channellabel")};

constexpr XmemlField kMetadata[] = {
    Leaf("key", ReadOnly(kInMedia)),
    Leaf("value", ReadOnly(kInMedia)),
    Leaf("storage", Skipped("how the value was stored")),
    Leaf("size", Skipped("the value is as long as it is")),
    Leaf("type", Skipped("a key has one type")),
};

constexpr XmemlField kRate[] = {Required("timebase"), Leaf("ntsc")};

constexpr XmemlField kTimecode[] = {
    Child("rate"), Leaf("string"), Required("frame"), Required("displayformat"),
    Leaf("source"), Child("reel"),
    Leaf("name", Skipped("a display name of the timecode track")),
};

constexpr XmemlField kReel[] = {Required("name")};

constexpr XmemlField kSampleCharacteristics[] = {
    Child("rate"), Child("codec"), Leaf("width"), Leaf("height"), Leaf("anamorphic"),
    Leaf("pixelaspectratio"), Leaf("velaOriginalIsAnamorphic", Addition()),
    Leaf("velaOriginalPAR", Addition()), Leaf("fielddominance"),
    Leaf("colordepth", ForOthers("sequences have no depth of their own")),
    Leaf("depth", ForOthers("audio is mixed in floating point")),
    Leaf("samplerate"),
    Leaf("VelaCodec", ReadOnly("the importer of the host knows its formats")),
};

constexpr XmemlField kCodec[] = {Required("name"), Child("appspecificdata")};

constexpr XmemlField kAppSpecificData[] = {
    Required("appname", ForOthers(kCodecDescription)),
    Required("appmanufacturer", ForOthers(kCodecDescription)),
    Required("appversion", ForOthers(kCodecDescription)), Child("data"),
};

constexpr XmemlField kData[] = {Child("qtcodec")};

constexpr XmemlField kQtCodec[] = {
    Required("codecname", ForOthers(kCodecDescription)),
    Required("codectypename"),
    Required("codectypecode", ForOthers(kCodecDescription)),
    Required("codecvendorcode", ForOthers(kCodecDescription)),
    Required("spatialquality", ForOthers(kCodecDescription)),
    Required("temporalquality", ForOthers(kCodecDescription)),
    Required("keyframerate", ForOthers(kCodecDescription)),
    Required("datarate", ForOthers(kCodecDescription)),
};

constexpr XmemlField kFormat[] = {
    Child("samplecharacteristics"),
    Child("appspecificdata", ReadOnly("written in `codec`")),
    Child("rate", ReadOnly(kInCharacteristics)),
};

constexpr XmemlField kOutputs[] = {Each("group")};

constexpr XmemlField kGroup[] = {
    Required("index"), Required("numchannels"),
    Required("downmix", ForOthers("a level of the mix, not of an output")), Each("channel"),
};

constexpr XmemlField kChannel[] = {Required("index")};

// Effects.

constexpr XmemlField kFilter[] = {
    Child("effect"),
    Leaf("enabled"),
    Leaf("start", Skipped(kNoRange)), Leaf("end", Skipped(kNoRange)),
};

constexpr XmemlField kEffect[] = {
    Required("name"), Required("effectid"), Leaf("effectcategory"), Required("effecttype"),
    Required("mediatype"), Leaf("velaBypass", Addition()), Leaf("velaExpanded", Addition()),
    Leaf("wipecode", ForOthers(kWipe)),
    Leaf("wipeaccuracy", ForOthers(kWipe)), Leaf("startratio"), Leaf("endratio"),
    Leaf("reverse"), Each("parameter"), Each("dependency", Addition()),
};

constexpr XmemlAttribute kParameterAttributes[] = {
    OrLeaf(FixedText("authoringApp", "VelaPro", Addition())),
};

constexpr XmemlField kParameter[] = {
    Required("parameterid"), Required("name"), Leaf("valuemin"), Leaf("valuemax"),
    Leaf("IsTimeVarying", Addition()), Leaf("ParameterControlType", Addition()),
    Leaf("LowerBound", Addition()), Leaf("UpperBound", Addition()),
    Leaf("LowerUIBound", Addition()), Leaf("UpperUIBound", Addition()),
    Leaf("Keyframes", Addition()), Leaf("hash", Addition()), Leaf("velaStyle", Addition()),
    Leaf("value", WriteOnly("becomes a child that holds it")), Child("value"),
    Each("keyframe"),
    Child("valuelist", ForOthers("the choices of a menu; a value counts among them")),
    Child("interpolation"),
    Leaf("parameterspecifier", ReadOnly("written as `parameterid`")),
};

constexpr XmemlField kKeyframe[] = {
    Required("when"), Leaf("value", WriteOnly("becomes a child that holds it")), Child("value"),
    Leaf("speedvirtualkf"), Leaf("origvalue", WriteOnly(kOthers)), Leaf("speedkfin"),
    Leaf("speedkfout"), Leaf("speedkfstart", ForOthers(kRamp)),
    Leaf("speedkfend", ForOthers(kRamp)), Leaf("velaRampStart", Addition()),
    Leaf("velaRampEnd", Addition()),
    Leaf("velaHold", Addition()),
    Child("outbez", ForOthers(kCurve)), Child("inbez", ForOthers(kCurve)),
    Child("outscale", Skipped(kCurve)), Child("inscale", Skipped(kCurve)),
    Child("interpolation", ReadOnly("written once, in the parameter")),
};

constexpr XmemlField kBezier[] = {Required("horiz"), Required("vert")};

constexpr XmemlField kInterpolation[] = {Required("name")};

constexpr XmemlField kValue[] = {
    Leaf("horiz"), Leaf("vert"), Leaf("alpha"), Leaf("red"), Leaf("green"), Leaf("blue"),
    Child("timecode"),
    Child("clip", ReadOnly("clips as values of a parameter have no counterpart")),
};

constexpr XmemlField kValueList[] = {Each("valueentry")};

constexpr XmemlField kValueEntry[] = {
    Required("name"), Required("value", WriteOnly("becomes a child that holds it")),
    Child("value", ReadOnly("written as a plain value")),
};

constexpr XmemlField kDependency[] = {Required("tag"), Required("path")};

// What the user wrote down.

constexpr XmemlField kMarker[] = {
    Required("comment"), Required("name"), Required("in"), Required("out"),
    Leaf("velaColor", Addition()),
};

constexpr XmemlField kLabels[] = {
    Leaf("label"), Leaf("label2"),
};

constexpr XmemlField kComments[] = {
    Leaf("mastercomment1"), Leaf("mastercomment2"), Leaf("mastercomment3"),
    Leaf("mastercomment4"), Leaf("clipcommenta"), Leaf("clipcommentb"),
    Leaf("comment", ReadOnly("written as a numbered comment")),
};

constexpr XmemlField kLoggingInfo[] = {
    Required("description"), Required("scene"), Required("shottake"), Required("lognote"),
    Leaf("tapeid", ReadOnly("written as the `reel` of a timecode")),
    Leaf("good"),
};

constexpr XmemlField kFilmData[] = {
    Required("cameraroll"), Required("dailyroll"), Required("labroll"), Child("keycode"),
};

constexpr XmemlField kKeycode[] = {
    Required("feetframes"), Required("perfoffset"), Required("prefix"),
    RequiredOr("reversed", "FALSE"),
};

// Elements with an id. Ids made for those without one rise over the process's life.

constinit std::atomic<int> lastClipItem{0};
constinit std::atomic<int> lastGeneratorItem{0};
constinit std::atomic<int> lastSequence{0};

constexpr Definition kAsClip = {};
constexpr Definition kAsClipItem = {Definition::EnteredUnderNumber, false, &lastClipItem};
constexpr Definition kAsFile = {Definition::NotEntered, true};
constexpr Definition kAsGeneratorItem = {Definition::GivenNumber, false, &lastGeneratorItem};
constexpr Definition kAsSequence = {Definition::EnteredUnderNumber, true, &lastSequence};

constexpr XmemlElement kElements[] = {
    {"root", "root", kRoot},
    {"xmeml", "xmeml", kXmeml, kXmemlAttributes},

    {"project", "project", kProject},
    {"children", "children", kChildren},
    {"bin", "bin", kBin},
    {"clip", "clip", kClip, kClipAttributes, &kAsClip},
    {"sequence", "sequence", kSequence, kSequenceAttributes, &kAsSequence},
    {"sequenceref", "sequence", {}, kId, nullptr, {}, true},
    {"media", "media", kMedia, kMediaAttributes},
    {"video", "video", kVideo},
    {"audio", "audio", kAudio},
    {"track", "track", kTrack, kTrackAttributes},
    {"clipitem", "clipitem", kClipItem, kClipItemAttributes, &kAsClipItem},
    {"generatoritem", "generatoritem", kGeneratorItem, kId, &kAsGeneratorItem},
    {"transitionitem", "transitionitem", kTransitionItem},
    {"multiclip", "multiclip", kMulticlip, kMulticlipAttributes, &kAsClip},
    {"angle", "angle", kAngle},
    {"link", "link", kLink},
    {"sourcetrack", "sourcetrack", kSourceTrack},
    {"subclipinfo", "subclipinfo", kSubclipInfo},

    {"file", "file", kFile, kId, &kAsFile},
    {"media of a file", "media", kMediaOfFile, kMediaAttributes},
    {"video of a file", "video", kVideoOfFile},
    {"audio of a file", "audio", kAudioOfFile},
    {"audiochannel", "audiochannel", kAudioChannel},
    {"metadata", "metadata", kMetadata},
    {"rate", "rate", kRate},
    {"timecode", "timecode", kTimecode},
    {"reel", "reel", kReel},
    {"samplecharacteristics", "samplecharacteristics", kSampleCharacteristics},
    {"codec", "codec", kCodec},
    {"appspecificdata", "appspecificdata", kAppSpecificData},
    {"data", "data", kData},
    {"qtcodec", "qtcodec", kQtCodec},
    {"format", "format", kFormat},
    {"outputs", "outputs", kOutputs},
    {"group", "group", kGroup},
    {"channel", "channel", kChannel},

    {"filter", "filter", kFilter},
    {"effect", "effect", kEffect},
    {"parameter", "parameter", kParameter, kParameterAttributes},
    {"keyframe", "keyframe", kKeyframe},
    {"inbez", "inbez", kBezier},
    {"outbez", "outbez", kBezier},
    {"inscale", "inscale", kBezier},
    {"outscale", "outscale", kBezier},
    {"interpolation", "interpolation", kInterpolation},
    {"value", "value", kValue, {}, nullptr, "value"},
    {"valuelist", "valuelist", kValueList},
    {"valueentry", "valueentry", kValueEntry},
    {"dependency", "dependency", kDependency},

    {"marker", "marker", kMarker},
    {"labels", "labels", kLabels},
    {"comments", "comments", kComments},
    {"logginginfo", "logginginfo", kLoggingInfo},
    {"filmdata", "filmdata", kFilmData},
    {"keycode", "keycode", kKeycode},
};

// clang-format on

constexpr NameIndex kElementIndex(kElements);

constexpr bool EveryChildHasARow()
{
    return std::ranges::all_of(kElements, [](const XmemlElement& element) {
        return std::ranges::all_of(element.fields, [](const XmemlField& field) {
            return !field.IsChild() || kElementIndex.Find(field.element);
        });
    });
}
static_assert(EveryChildHasARow());

} // namespace

std::span<const XmemlElement> XmemlElements()
{
    return kElements;
}

const XmemlElement* FindXmemlElement(std::string_view name)
{
    return kElementIndex.Find(name);
}

} // namespace XPJ
