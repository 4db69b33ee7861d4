// Trees made from the writers' tables, written, read back and compared: what the readers do not
// take is listed here, each with its reason, and nothing else may be lost.
#include "gtest/gtest.h"

#include "support/writer_test_support.h"

#include "project/classes.h"
#include "project/reader.h"
#include "tree/reading.h"
#include "xmeml/elements.h"
#include "xmeml/reader.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

namespace XPJ {
namespace {

// Lost names by the class or element that holds them, sorted.
using Losses = std::map<std::string, std::set<std::string>>;

struct Gap {
    std::string_view holders; // words
    std::string_view names;   // words
    std::string_view reason;
};

std::vector<std::string> Words(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    return {std::istream_iterator<std::string>(stream), {}};
}

Losses Expected(std::span<const Gap> gaps)
{
    Losses losses;
    for (const Gap& gap : gaps)
        for (const std::string& holder : Words(gap.holders))
            for (const std::string& name : Words(gap.names))
                EXPECT_TRUE(losses[holder].insert(name).second) << holder << " " << name;
    return losses;
}

std::string Print(const Losses& losses)
{
    std::string text;
    for (const auto& [holder, names] : losses) {
        text += holder + ":";
        for (const std::string& name : names)
            text += " " + name;
        text += "\n";
    }
    return text;
}

// Project documents: a class is one node here, and a nest of parts when it is read.

constexpr Gap kProjectGaps[] = {
    // Whole objects. "all" stands for every name.
    {"AudioCompileSettings AudioSettings CaptureSettings CompileSettings DefaultSequenceSettings "
     "ProjectSettings ScratchDiskSettings VideoCompileSettings VideoSettings",
     "all", "settings of the host, which no other document carries"},
    {"Project",
     "ScratchDiskSettings VideoPreviewCompileSettings CustomCompileSettings StillCompileSettings "
     "MovieCompileSettings AudioCompileSettings ProjectSettings",
     "the same"},
    {"AudioTrackInlet ChildClipIDSerializer DVDMarkers", "all", "lead to nothing that is carried"},
    {"AudioMixTrack", "Inlet", "the same"},
    {"MasterClip", "ChildClipID", "the same"},
    {"Sequence", "DVDMarkers", "the same"},
    {"FileProjectItem", "all", "the report of a former conversion"},
    {"AudioClipTrack VideoClipTrack", "TransitionTrackItem",
     "transitions are found at their items"},
    {"SubClip", "MasterClip2", "the first master clip is enough"},

    // Counters, identities and places that follow from the structure.
    {"Project", "NextID NextSequenceID", "counters of the host"},
    {"AudioComponentChain VideoComponentChain", "NextComponentID", "the same"},
    {"AudioTrackGroup VideoTrackGroup", "NextTrackID", "the same"},
    {"AudioClipTrack AudioMixTrack", "NextPannerID", "the same"},
    {"AdaptiveDownmixPanProcessor AdaptiveToAdaptivePanProcessor AudioClipTrack "
     "AudioClipTrackItem AudioFader AudioFilterComponent AudioMeter AudioMixTrack AudioTrackGroup "
     "DefaultPanProcessor MonoTo16ChannelPanProcessor MonoTo51PanProcessor "
     "MonoToStereoPanProcessor RootProjectItem S51ToMonoPanProcessor S51ToStereoPanProcessor "
     "Sequence StereoTo16ChannelPanProcessor StereoTo51PanProcessor StereoToMonoPanProcessor "
     "StereoToStereoPanProcessor VideoClipTrack VideoFilterComponent",
     "ID", "identities inside the host"},
    {"AudioClip VideoClip", "BE.MasterClip.SelectionInstance ClipID InUse", "the same"},
    {"VideoComponentChain", "SeqID", "the same"},
    {"VideoFilterComponent", "SequenceID", "the same"},
    {"AudioClipTrackItem VideoClipTrackItem", "LinkRefCount MediaType TrackIndex",
     "the track and the links tell it"},
    {"AudioTransitionTrackItem", "TrackIndex", "the same"},
    {"VideoTransitionTrackItem", "MediaType TrackIndex", "the same"},
    {"AudioMixTrack", "Index", "there is one master track"},

    // Rates and channel types that the enclosing object states.
    {"AdaptiveDownmixPanProcessor AdaptiveToAdaptivePanProcessor AudioFader AudioFilterComponent "
     "AudioMeter AudioTransitionTrackItem DefaultPanProcessor",
     "ChannelType FrameRate", "those of the track"},
    {"MonoTo16ChannelPanProcessor MonoTo51PanProcessor MonoToStereoPanProcessor "
     "S51ToMonoPanProcessor S51ToStereoPanProcessor StereoTo16ChannelPanProcessor "
     "StereoTo51PanProcessor StereoToMonoPanProcessor StereoToStereoPanProcessor AudioClipTrack "
     "AudioMixTrack",
     "FrameRate", "that of the group"},
    {"AudioComponentChain", "ChannelType", "that of the track"},
    {"AudioMeter", "Bypass NumChannels", "a meter has no counterpart"},
    {"AudioClipTrack", "Assign", "the panner tells it"},
    {"VideoClipTrackItem", "FrameRect", "that of the stream"},
    {"AudioSequenceSource VideoSequenceSource", "StartBoundary EndBoundary BoundariesAreHard",
     "a nested sequence is shown by in and out points"},

    // What the other document has no word for.
    {"ArbVideoComponentParam", "DiscontinuousInterpolate IsLocked KeyframeSetSize UnitsString",
     "presentation"},
    {"AudioComponentParam",
     "IsTimeVarying ParameterControlType RangeLocked Timestamp UnitsString UpperBound", "the same"},
    {"PointComponentParam", "DiscontinuousInterpolate IsLocked ParameterControlType", "the same"},
    {"VideoComponentParam", "DiscontinuousInterpolate IsLocked RangeLocked", "the same"},
    {"TimeComponentParam",
     "CurrentValue DiscontinuousInterpolate IsLocked IsTimeVarying LowerBound Name "
     "ParameterControlType ParameterID RangeLocked StartKeyframe UpperBound",
     "speed is in the keyframes"},
    {"AudioFilterComponent", "AudioComponentType FilterIndex FilterPreset Intrinsic",
     "the match name tells the filter"},
    {"VideoFilterComponent", "Intrinsic VideoFilterType", "the same"},
    {"AudioComponentChain", "DefaultVol DefaultVolumeComponentID", "the components tell it"},
    {"VideoComponentChain", "DefaultMotion DefaultOpacity", "the same"},
    {"VideoClip",
     "FieldProcessing ReverseFieldDominance DeinterlaceOnHold HoldFilters FrameHold "
     "FrameHoldStart PosterFrame",
     "no counterpart"},
    {"VideoTransitionTrackItem",
     "AntiAliasQuality SwitchSources CenterPosition EndPosition StartPosition", "the same"},
    {"AudioStream", "AudioChannelLayout CodecType SampleType SingleChannel", "the same"},
    {"VideoStream",
     "CodecType OveriddenFrameRate PARIsUncertain AlphaInfoIsUncertain IsFieldTypeOverridden "
     "OverriddenFieldType FieldTypeIsUncertain IsContinuousTime",
     "the same"},
    {"Media",
     "ImplementationID OfflineReason CaptureStatus ConformedAudioRate IgnoreVideo IgnoreAudio "
     "SingleAudioChannel TapeName LogComment AlternateTapeName",
     "the same"},
    {"ClipLoggingInfo", "MediaFrameRate MediaOutPoint CaptureMode ClipName DateShot",
     "the medium states times and name"},
    {"ClipProjectItem", "Column.PropertyBool.Good", "no counterpart in what is written"},
    {"MasterClip",
     "MZ.MergeClipUtils.AudioTrackNumberFromOriginalMergedClip MZ.MergeClip.ParentGUID "
     "MZ.MergeClipUtils.ComponentMasterClipOriginalName Source.Monitor.Multicam.Enabled "
     "Source.Monitor.Multicam.SwitchCameraAudio Source.Monitor.Multicam.CameraNamesOption "
     "FCPMergedMasterClipID FCPMergedMasterFileID FCPMergedTrackOrderIndex FCPMergedMasterKind",
     "notes of the import for the host"},
};

struct Mention {
    Name tag;
    std::string value; // of the property, or `Tag` or `Title` of the object referred to
};

void Fill(Document& d, ObjectHandle node, std::span<const BodyRow> rows, std::vector<Mention>& made)
{
    const auto text = [&] { return "v" + std::to_string(made.size()); };
    for (const BodyRow& row : rows) {
        switch (row.kind) {
        case RowKind::Include:
            Fill(d, node, row.rows, made);
            break;
        case RowKind::Value:
            made.push_back({row.tag, text()});
            node.SetProperty(row.key, made.back().value);
            break;
        case RowKind::Blob:
        case RowKind::BlobOrEmpty:
            made.push_back({row.tag, text()});
            node.SetProperty(row.tag, made.back().value);
            break;
        case RowKind::PropertyList:
            for (const Name& name : row.list()) {
                made.push_back({name, text()});
                node.SetProperty(name, made.back().value);
            }
            break;
        case RowKind::Reference:
        case RowKind::ReferenceList:
        case RowKind::Pairs: {
            made.push_back({row.kind == RowKind::Pairs ? Name("Second") : row.tag, text()});
            ObjectHandle owner = node;
            if (!row.via.IsEmpty())
                node.AddChild(row.via, owner = d.NewObject("LinkContainer"));
            owner.AddChild(row.tag, Make(d, "Dependency", {{"Tag", made.back().value}}));
            break;
        }
        case RowKind::GuidReference:
        case RowKind::OptionalGuidReference:
        case RowKind::GuidList:
            made.push_back({row.tag, text()});
            node.AddChild(
                row.tag,
                Make(d, "Media", {{"uid", made.back().value}, {"Title", made.back().value}}));
            break;
        default:
            break;
        }
    }
}

// True if the node, or a part of it, has the property or refers to the object.
bool Holds(ObjectHandle node, const Mention& mention)
{
    if (node.GetProperty(mention.tag) == mention.value)
        return true;
    // The data of a parameter is a part's own text.
    if (node.GetName() == mention.tag && node.GetProperty(Name("value")) == mention.value)
        return true;
    const ChildRange children = node.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child) {
        const Name name = (*child).GetName();
        if (name == Name("Dependency") || name == Name("Media")) {
            const auto key = name == Name("Media") ? Name("Title") : Name("Tag");
            if (mention.tag == child.EntryName() && (*child).GetProperty(key) == mention.value)
                return true;
        } else if (Holds(*child, mention)) {
            return true;
        }
    }
    return false;
}

TEST(RoundTrip, Project)
{
    Losses losses;
    for (const ProjectClass& row : ProjectClasses()) {
        if (row.identity == Identity::None)
            continue;
        Document d;
        const ObjectHandle node = d.NewObject(d.Intern(row.name));
        node.SetProperty("uid", "own");
        std::vector<Mention> made;
        Fill(d, node, row.body, made);
        const ObjectHandle holder = Make(d, "AudioTrackInlet", {}, {{"Source", node}});
        std::istringstream text(ProjectText(Make(d, "Document", {}, {{"Holder", holder}})));

        Document read;
        ObjectHandle root;
        ASSERT_EQ(ReadProjectDocument(text, read, root), kReadDone);
        const ObjectHandle back = root.GetChild(row.name);
        if (!back) {
            losses[std::string(row.name)].insert("all");
            continue;
        }
        for (const Mention& mention : made)
            if (!Holds(back, mention))
                losses[std::string(row.name)].insert(mention.tag.Text());
    }
    EXPECT_EQ(Print(losses), Print(Expected(kProjectGaps)));
}

// `xmeml` documents: the tree that is read has the shape of the one that was written.

constexpr Gap kXmemlGaps[] = {
    {"angle", "sequence", "angles are read from clips"},
    {"audio", "channeltype", "told by the number and the layout of the elements"},
    {"children", "sequenceref", "read as a reference: the sequence itself and its id"},
    {"children", "effect", "effects are read from filters and items"},
    {"clipitem",
     "PannerCurrentValue PannerIsInverted PannerKeyframes PannerName PannerStartKeyframe",
     "for other readers: the import takes the pan filter"},
    {"clipitem", "alphareverse", "for other readers"},
    {"keyframe", "inbez outbez origvalue", "the same"},
    {"valueentry", "value", "becomes a child that holds it"},
};

class XmemlTree {
public:
    explicit XmemlTree(Document& document) : document_(document) {}

    ObjectHandle Build(std::string_view elementName)
    {
        const XmemlElement* const element = FindXmemlElement(elementName);
        const ObjectHandle node = document_.NewObject(element->tag);
        open_.push_back(element->name);
        for (const XmemlAttribute& attribute : element->attributes)
            AddAttribute(node, attribute);
        for (const XmemlField& field : element->fields)
            AddField(node, field);
        open_.pop_back();
        return node;
    }

private:
    std::string Text() { return "v" + std::to_string(++count_); }

    void AddAttribute(ObjectHandle node, const XmemlAttribute& attribute)
    {
        if (attribute.kind == AttributeKind::List) {
            for (const Name& name : attribute.list())
                node.SetProperty(name, Text());
        } else {
            node.SetProperty(attribute.name,
                             attribute.text.empty() ? Text() : std::string(attribute.text));
        }
    }

    void AddChild(ObjectHandle node, Name name, std::string_view element)
    {
        if (std::find(open_.begin(), open_.end(), element) == open_.end())
            node.AddChild(name, Build(element));
    }

    void AddField(ObjectHandle node, const XmemlField& field)
    {
        switch (field.kind) {
        case FieldKind::Required:
        case FieldKind::Optional:
            // A value is a text or a child, never both.
            if (!(field.name == Name("value")) || node.GetName() == Name("valueentry"))
                node.AddProperty(field.property, Text());
            break;
        case FieldKind::Fixed:
            node.SetProperty(field.name, field.text);
            break;
        case FieldKind::Child:
        case FieldKind::Each:
            AddChild(node, field.name, field.element);
            break;
        case FieldKind::InOrder:
            for (const Name& name : field.names)
                AddChild(node, name, name.View());
            break;
        case FieldKind::Rule:
            AddRule(node, field.rule);
            break;
        }
    }

    void AddRule(ObjectHandle node, XmemlRule rule)
    {
        switch (rule) {
        case XmemlRule::ClipDuration:
            node.SetProperty("duration", Text());
            break;
        case XmemlRule::ClipRate:
        case XmemlRule::RateOrDefault:
            AddChild(node, "rate", "rate");
            break;
        case XmemlRule::PixelAspect:
            break;
        case XmemlRule::Source:
            AddChild(node, "file", "file");
            break;
        case XmemlRule::SequenceOrReference:
            AddChild(node, "sequence", "sequence");
            break;
        case XmemlRule::AudioOfFile:
            node.AddChild("audio",
                          Make(document_, "audio", {{"channelcount", "1"}},
                               {{"samplecharacteristics", Build("samplecharacteristics")}}));
            node.GetChild(Name("audio")).SetProperty("channeltype", "0");
            break;
        }
    }

    Document& document_;
    std::vector<std::string_view> open_;
    int count_ = 0;
};

void Compare(ObjectHandle made, ObjectHandle read, Losses& losses)
{
    const std::string holder(made.GetName().View());
    for (const Property* property = made.FirstProperty(); property; property = property->next)
        if (read.GetProperty(property->NameView()) != property->Value())
            losses[holder].insert(std::string(property->NameView()));
    std::set<std::string> seen;
    const ChildRange children = made.GetChildren();
    for (auto child = children.begin(); child != children.end(); ++child) {
        const std::string name(child.EntryName());
        ASSERT_TRUE(seen.insert(name).second);
        const ObjectHandle back = read.GetChild(name);
        if (!back)
            losses[holder].insert(name);
        else
            Compare(*child, back, losses);
    }
}

TEST(RoundTrip, Xmeml)
{
    Document d;
    const ObjectHandle project = XmemlTree(d).Build("project");
    SilentProgress progress;
    std::ostringstream text;
    WriteFCPXML(Make(d, "xmeml", {}, {{"project", project}}), progress, false, text);
    Document read;
    ObjectHandle root;
    const std::string bytes = text.str();
    ASSERT_EQ(ParseFCPXML(bytes, read, root), kReadDone);
    Losses losses;
    Compare(project, root.GetChild(Name("project")), losses);
    EXPECT_EQ(Print(losses), Print(Expected(kXmemlGaps)));
}

// A value that is plain text is a property on writing and a child that holds it on reading.
TEST(RoundTrip, PlainValues)
{
    Document d;
    const ObjectHandle keyframe = Make(d, "keyframe", {{"when", "1"}, {"value", "2"}});
    const ObjectHandle parameter = Make(d, "parameter", {{"value", "3"}}, {{"keyframe", keyframe}});
    const ObjectHandle effect = Make(d, "effect", {}, {{"parameter", parameter}});
    const ObjectHandle filter = Make(d, "filter", {}, {{"effect", effect}});
    const ObjectHandle sequence = Make(d, "sequence", {{"id", "s"}}, {{"filter", filter}});
    const ObjectHandle children = Make(d, "children", {}, {{"sequence", sequence}});
    const ObjectHandle project = Make(d, "project", {}, {{"children", children}});
    SilentProgress progress;
    std::ostringstream text;
    WriteFCPXML(Make(d, "xmeml", {}, {{"project", project}}), progress, false, text);
    Document read;
    ObjectHandle root;
    const std::string bytes = text.str();
    ASSERT_EQ(ParseFCPXML(bytes, read, root), kReadDone);
    const ObjectHandle back =
        FindPath(root, {"project", "children", "sequence", "filter", "effect", "parameter"});
    EXPECT_EQ(back.GetChild(Name("value")).GetProperty(Name("value")), "3");
    EXPECT_EQ(FindPath(back, {"keyframe", "value"}).GetProperty(Name("value")), "2");
}

} // namespace
} // namespace XPJ
