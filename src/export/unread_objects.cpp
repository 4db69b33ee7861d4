#include "export/unread_objects.h"

#include "core/media_type.h"
#include "core/numbers.h"
#include "export/sequences.h"
#include "export/track_context.h"
#include "project/unused_fields.h"
#include "tree/unread.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ::RVX {

namespace {

// What carries nothing that a document could hold, beside the fields that the table of classes
// states no translation uses.
struct EmptyField {
    std::string_view owner; // how the class around it ends; empty for any
    Name field;             // empty for any
    std::string_view reason;
    std::string_view neutral = {}; // only with this value; empty: with any
};

constexpr std::string_view kIdentity = "identifies an object inside its project";
constexpr std::string_view kOfVideo = "the video of the file states it as well";
constexpr std::string_view kOfMedia = "the media states it as well";
constexpr std::string_view kOfClip = "the clip states it as well";
constexpr std::string_view kNotOverridden = "nothing is overridden";
constexpr std::string_view kOfHost = "a choice of the host";
constexpr std::string_view kOfChannels = "the channel groups of the clip state it";

constexpr EmptyField kEmptyFields[] = {
    {{}, "ID", kIdentity},
    {{}, "uid", kIdentity},
    {"Component", "DisplayName", "the match name identifies the effect"},
    {"TransitionTrackItem", "DisplayName", "the match name identifies the transition"},
    {"FilterComponent", "Bypass", "off", "false"},
    {"AudioFader", "Bypass", "off", "false"},
    {"PanProcessor", "Bypass", "off", "false"},
    {"TransitionTrackItem", "BorderColor", "of no border", "0,0,0"},
    {"TransitionTrackItem", "BorderWidth", "no border", "0."},
    {"TransitionTrackItem", "Direction", "the first direction", "0"},
    {"TransitionTrackItem", "SwitchSources", "from the first clip to the second", "false"},
    {"TransitionTrackItem", "AntiAliasQuality", "the usual edges", "1"},
    {"TransitionTrackItem", "CenterPosition", "in the middle", "0.5,0.5"},
    {"TransitionTrackItem", "StartPosition", "in the middle", "0.5,0.5"},
    {"TransitionTrackItem", "EndPosition", "in the middle", "0.5,0.5"},
    {"TransitionTrackItem", "HasIncomingClip", "the clips beside it state it"},
    {"VideoClip", "FrameRate", kOfMedia},
    {"AudioClip", "FrameRate", kOfMedia},
    {"VideoClip", "ScaleToFrameSize", "not scaled", "false"},
    {"VideoClip", "FieldProcessing", "fields stay as they are", "0"},
    {"VideoClip", "ReverseFieldDominance", "fields stay as they are", "false"},
    {"VideoClip", "DeinterlaceOnHold", "of no hold", "false"},
    {"VideoClip", "HoldFilters", "of no hold", "false"},
    {"VideoClip", "FrameHold", "that of the item on a track counts"},
    {"VideoClip", "FrameHoldStart", "counts with `FrameHold`"},
    {"VideoClip", "InPoint", "a generated clip has no range"},
    {"VideoClip", "OutPoint", "a generated clip has no range"},
    {"AudioClip", "Gain", "no gain", "1.0"},
    {"AudioComponentChain", "FrameRate", "that of its track"},
    {"AudioClip", "SecondaryIndex", kOfChannels},
    {"AudioClip", "Markers", kOfVideo},
    {"SecondaryContent", "ChannelIndex", kOfChannels},
    {"Serializer", {}, kOfChannels},
    {"MasterClip", "ClipChannelGroupVectorSerializer", kOfChannels},
    {"TrackItem", "PixelAspectRatio", "that of the sequence"},
    {"Media", "AlternateStart", "none", "0"},
    {"Media", "IgnoreVideo", "all of it counts", "false"},
    {"Media", "IgnoreAudio", "all of it counts", "false"},
    {"Media", "StreamNumber", "the clip states the channel"},
    {"Media", "Start", "the timecode of the media counts"},
    {"Media", "Infinite", "the kind of the media states it"},
    {"Media", "Title", "the clip has the name"},
    {"Media", "FilePath", kOfVideo},
    {"Media", "AudioStream", kOfVideo},
    {"AudioStream", {}, kOfMedia},
    {"MediaSource", "BoundariesAreHard", "the clip states its range"},
    {"MediaSource", "StartBoundary", "the clip states its range"},
    {"MediaSource", "EndBoundary", "the clip states its range"},
    {"Source", "OriginalDuration", kOfMedia},
    {"ClipProjectItem", "Name", kOfClip},
    {"ClipProjectItem", "Column.PropertyBool.Good", "not marked", "false"},
    {"MasterClip", "Name", "the item has a name of its own"},
    {"MasterClip", "ClipLoggingInfo", "without logging of a user"},
    {"ClipLoggingInfo", "TimecodeFormat", "the media states its timecode"},
    {"ClipLoggingInfo", "MediaFrameRate", kOfMedia},
    {"Track", "Solo", "all tracks are heard", "0"},
    {"AudioMixTrack", "IsMuted", "the mix is heard", "false"},
    {"AudioMixTrack", "DefaultPanProcessor", "pans nothing by itself"},
    {"Marker", "StartTime", "the record of the marker states it"},
    {"VideoStream", "Duration", kOfMedia},
    {"VideoStream", "IsStill", kOfMedia},
    {"VideoStream", "AlphaType", kOfHost},
    {"VideoStream", "IsFieldTypeOverridden", kNotOverridden, "false"},
    {"VideoStream", "IsAlphaTypeOverridden", kNotOverridden, "false"},
    {"VideoStream", "IsIgnoreAlphaOverridden", kNotOverridden, "false"},
    {"VideoStream", "IsAlphaMatteColorOverridden", kNotOverridden, "false"},
    {"VideoStream", "IsInvertAlphaOverridden", kNotOverridden, "false"},
    {"VideoStream", "OriginalAlphaMatteColor", kNotOverridden, "0,0,0"},
    {"VideoStream", "OverriddenAlphaMatterColor", kNotOverridden, "0,0,0"},
    {"VideoStream", "OverriddenAlphaType", kNotOverridden, "0"},
    {"VideoStream", "OverriddenIgnoreAlpha", kNotOverridden, "false"},
    {"VideoStream", "OverriddenInvertAlpha", kNotOverridden, "false"},
    {"VideoStream", "OverriddenPAR", kNotOverridden, "1,1"},
    {"VideoStream", "OriginalFieldType", "the field order in use counts"},
};

bool IsFor(const EmptyField& row, Name owner, Name field)
{
    return owner.View().ends_with(row.owner) && (row.field.IsEmpty() || row.field == field);
}

// The rules of effects account for parameters.
bool IsParameter(Name name)
{
    return name.View().ends_with("ComponentParam");
}

Exemption ExemptionOf(Name owner, Name field)
{
    if (IsUnusedProjectField(field) || IsParameter(owner) || IsParameter(field))
        return Exemption::Always;
    Exemption exemption = Exemption::None;
    for (const EmptyField& row : kEmptyFields)
        if (IsFor(row, owner, field)) {
            if (row.neutral.empty())
                return Exemption::Always;
            exemption = Exemption::ByPlace;
        }
    return exemption;
}

bool IsExempt(TreePath path, Name field)
{
    const ConstHandle owner = path.back();
    return std::ranges::any_of(kEmptyFields, [&](const EmptyField& row) {
        return IsFor(row, owner.GetName(), field) && owner.GetProperty(field) == row.neutral;
    });
}

bool EndsWith(ConstHandle node, std::string_view end)
{
    return node.GetName().View().ends_with(end);
}

// The last object of the path whose class ends so; null without one.
ConstHandle Around(TreePath path, std::string_view end)
{
    for (std::size_t i = path.size(); i > 0; --i)
        if (EndsWith(path[i - 1], end))
            return path[i - 1];
    return {};
}

std::string BinText(TreePath path)
{
    std::string text;
    for (const ConstHandle& node : path)
        if (node.GetName() == "BinProjectItem")
            text.append(text.empty() ? "" : "/").append(node.GetProperty("Name"));
    return text;
}

std::optional<RemarkKind> KindOfIgnored(std::string_view /*path*/)
{
    return RemarkKind::ElementUnknown;
}

ItemLocation PlaceOf(TreePath path, TextStore& texts)
{
    ItemLocation place;
    const ConstHandle item = Around(path, "ClipTrackItem");
    const ConstHandle sequence = Around(path, "Sequence");
    place.bin = texts.Keep(BinText(path));
    const ConstHandle named = item ? item.GetChild("SubClip") : Around(path, "MasterClip");
    place.clip = named.GetProperty("Name");
    if (!sequence)
        return place;
    place.sequence = sequence.GetProperty("Name");
    if (const Ticks frameTicks = FrameTicksOfSequence(sequence); item && frameTicks > 0)
        place.span = SpanOf(ContextOfSequence(sequence, frameTicks), Int64Property(item, "Start"),
                            Int64Property(item, "End"));
    // Links lead to items as well, beside the tracks.
    if (const ConstHandle onTrack = item ? item : Around(path, "ClipTrack")) {
        place.trackKind = onTrack.GetName().View().starts_with("Video") ? 1 : 2;
        place.trackIndex = IntProperty(onTrack, "TrackIndex");
    }
    return place;
}

} // namespace

void AddUnreadObjects(ConstHandle root, Account& account)
{
    AddUnread(root.GetChild("Project"),
              {.exemptionOf = ExemptionOf,
               .isExempt = IsExempt,
               .isSkipped = [](ConstHandle) { return false; },
               .placeOf = PlaceOf},
              account);
}

void AddIgnoredObjects(ConstHandle root, const std::vector<IgnoredElements>& ignored, bool isPart,
                       Account& account)
{
    AddIgnored(root, ignored, {.kindOf = KindOfIgnored, .placeOf = PlaceOf, .isPart = isPart},
               account);
}

} // namespace XPJ::RVX
