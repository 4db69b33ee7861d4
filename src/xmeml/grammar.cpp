// What the reader takes of an `xmeml` document; anything else in it is transparent.
#include "xmeml/grammar.h"

#include "core/host_properties.h"
#include "tree/reading_table.h"

namespace XPJ {

namespace {

// clang-format off
constexpr struct {
    std::string_view tag, items, children;
} kRules[] = {
    {"root", "", "xmeml"},
    {"xmeml", "", "project bin clip sequence"},

    {"angle", "activevideoangle activeaudioangle", "clip"},
    {"appspecificdata", "appname appmanufacturer appversion", "data"},
    {"audiochannel", "sourcechannel channellabel", ""},
    {"audio",
     "channelcount numOutputChannels channeldescription trackcount layout in out",
     "audiochannel samplecharacteristics rate metadata track format outputs filter"},
    {"bin", "name uuid", "children labels"},
    {"channel", "index", ""},
    {"children", "", "bin clip sequence"},
    {"clipitem",
     "name duration in out velaTicksIn velaTicksOut velaSoftStartOffset velaSoftEndOffset start "
     "end velaTicksStart velaTicksEnd pixelaspectratio anamorphic velaOriginalPAR "
     "velaOriginalIsAnamorphic enabled alphatype ismasterclip masterclipid channelcount mediadelay "
     "fielddominance stillframe compositemode scaleToFrameSize stillframeoffset",
     "rate logginginfo filmdata keycode labels comments marker file sequence sourcetrack link "
     "filter multiclip subclipinfo"},
    {"clip",
     "uuid name duration in out masterclipid ismasterclip compositemode scaleToFrameSize",
     "rate logginginfo filmdata labels comments marker media subclipinfo file"},
    {"codec", "name", "appspecificdata"},
    {"comments",
     "mastercomment1 mastercomment2 mastercomment3 mastercomment4 clipcommenta clipcommentb "
     "comment",
     ""},
    {"data", "", "qtcodec"},
    {"dependency", "tag path", ""},
    {"effect",
     "effectcategory effectid effecttype endratio mediatype name reverse startratio wipeaccuracy "
     "wipecode velaBypass velaExpanded",
     "parameter dependency"},
    {"file",
     "name mediaSource pathurl duration width height",
     "rate metadata timecode media filter"},
    {"filmdata", "cameraroll dailyroll labroll", "keycode"},
    {"filter", "enabled start end", "effect"},
    {"format", "", "samplecharacteristics appspecificdata rate"},
    {"generatoritem",
     "name duration in out start end enabled anamorphic alphatype masterclipid mediadelay "
     "compositemode",
     "rate effect marker sourcetrack filter"},
    {"group", "index numchannels downmix", "channel"},
    {"keycode", "prefix feetframes reversed perfoffset", ""},
    {"keyframe",
     "when speedvirtualkf speedkfin speedkfout speedkfstart speedkfend velaRampStart velaRampEnd",
     "value interpolation"},
    {"labels", "label label2", ""},
    {"link", "linkclipref mediatype trackindex clipindex groupindex", ""},
    {"logginginfo", "description scene shottake tapeid lognote good", ""},
    {"marker", "name comment in out velaColor", ""},
    {"media", "", "video audio"},
    {"metadata", "storage key size type value", ""},
    {"multiclip",
     "name collapsed synctype masterclipid scaleToFrameSize velaCameraNames",
     "angle marker labels samplecharacteristics"},
    {"outputs", "", "group"},
    {"parameter",
     "authoringApp name parameterid parameterspecifier hash valuemin valuemax LowerUIBound "
     "UpperUIBound LowerBound UpperBound ParameterControlType IsTimeVarying Keyframes",
     "keyframe value valuelist interpolation"},
    {"project", "name", "children bin clip sequence"},
    {"qtcodec",
     "codecname codectypename codectypecode codecvendorcode spatialquality temporalquality "
     "keyframerate datarate",
     ""},
    {"rate", "ntsc timebase", ""},
    {"reel", "name", ""},
    {"samplecharacteristics",
     "width height VelaCodec samplerate depth anamorphic pixelaspectratio velaOriginalPAR "
     "velaOriginalIsAnamorphic fielddominance colordepth",
     "rate codec"},
    {"sequence",
     "name duration uuid ismasterclip masterclipid in out",
     "rate timecode marker media filter labels"},
    {"sourcetrack", "mediatype trackindex", ""},
    {"subclipinfo", "startoffset endoffset", ""},
    {"timecode", "displayformat frame name source string", "reel rate"},
    {"track",
     "enabled locked name outputchannelindex hardpan panvalue monotrack channelcount "
     "currentExplodedTrackIndex totalExplodedTrackCount velaTrackType",
     "clipitem transitionitem generatoritem filter"},
    {"transitionitem", "start end alignment cutPoint cutPointTicks", "rate effect"},
    {"valueentry", "name", "value"},
    {"valuelist", "", "valueentry"},
    {"value", "alpha red green blue horiz vert", "timecode clip"},
    {"video",
     "duration stillframe layerindex alphatype MediaAssociationData",
     "samplecharacteristics track format"},
    {"interpolation", "name", ""},
};
// clang-format on

// Attributes that become properties, before the items are read: they win over items of the name.
constexpr struct {
    std::string_view rule, attributes;
} kAttributes[] = {
    {"xmeml", "version"},
    {"clipitem", "id scaleToFrameSize velaChannelType"},
    {"clip", "id scaleToFrameSize explodedTracks"},
    {"file", "id"},
    {"generatoritem", "id"},
    {"media", "hasDiscreteStreams hasStereoPairs"},
    {"multiclip", "id scaleToFrameSize"},
    {"parameter", "authoringApp"},
    {"sequence", "id explodedTracks"},
    {"track", "hardpan panvalue monotrack totalExplodedTrackCount currentExplodedTrackIndex "
              "velaTrackType"},
};

ReadingTable MakeGrammar()
{
    std::vector<RuleRow> rows;
    for (const auto& row : kRules)
        rows.push_back({row.tag, row.tag, row.items, row.children, ""});
    ReadingTable grammar(rows);
    grammar.AddItems("sequence", SequenceUIPropertyList());
    grammar.AddItems("track", TrackUIPropertyList());
    for (const auto& row : kAttributes)
        grammar.AddAttributes(row.rule, row.attributes);
    grammar.AddAttributes("multiclip", SequenceUIPropertyList());
    grammar.AddAttributes("sequence", SequenceUIPropertyList());
    grammar.AddAttributes("track", TrackUIPropertyList());
    grammar.KeepText("value", "value");
    return grammar;
}

} // namespace

const ReadingTable& XmemlReadingTable()
{
    static const ReadingTable grammar = MakeGrammar();
    return grammar;
}

} // namespace XPJ
