#include "import/unread_elements.h"

#include "tree/unread.h"
#include "xmeml/places.h"
#include "xmeml/tracks.h"
#include "xmeml/unused_fields.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace XPJ {

namespace {

using Path = TreePath;

// ---- What counts for nothing

// The items of a browser clip show its file, as the clip itself states.
bool IsInBrowserClip(Path path)
{
    return Around(path, {"clip", "sequence"}).GetName() == "clip";
}

// Documents of a whole project state the logging of clips in their bins.
bool IsInProject(Path path)
{
    return path.size() > 1 && path[1].GetName() == "project";
}

bool HasColorLabel(Path path)
{
    return HasValue(path.back(), "label2");
}

bool IsIdentity(Path path)
{
    return path.back().GetProperty("key").find("uuid") != std::string_view::npos;
}

// Of exploded audio the first track counts; the others have equal items, which lend it channels.
bool IsOnContinuation(Path path)
{
    return IsContinuationTrack(Around(path, {"track"}));
}

bool IsOnItem(Path path)
{
    const ConstHandle owner = Around(path, {"clipitem", "generatoritem", "track", "clip", "file"});
    return owner.GetName() == "clipitem" || owner.GetName() == "generatoritem";
}

// A clip without audio, as generators are.
bool IsSilentClip(Path path)
{
    return !path.back().GetChild("media").HasChild("audio");
}

bool HasNoFields(Path path)
{
    return path.back().GetProperty("fielddominance") == "none" &&
           Around(path, {"clip", "file"}).GetName() == "clip";
}

// From silence to full, forwards.
bool IsPlainFade(Path path)
{
    const ConstHandle effect = path.back();
    return Around(path, {"transitionitem"}) && DoubleProperty(effect, "startratio") == 0 &&
           (!HasValue(effect, "endratio") || DoubleProperty(effect, "endratio") == 1) &&
           !IsTrue(effect, "reverse");
}

// The `outputs` have as many channels as `numOutputChannels` states.
bool AreOutputsCounted(Path path)
{
    int channels = 0;
    for (const ConstHandle& group : path.back().GetChild("outputs").GetChildren("group"))
        channels += IntProperty(group, "numchannels");
    return channels == IntProperty(path.back(), "numOutputChannels");
}

// Of the definitions of one file the first counts, and its media are looked at.
bool IsRepeatedFile(ConstHandle node)
{
    if (node.GetName() != "file")
        return false;
    const auto children = node.GetChildren();
    for (const ConstHandle& child : children)
        if (child.GetName() == "media" && child.IsRead())
            return false;
    return true;
}

// A linked item is found by its id, and a link to nobody is a remark of its own.
bool IsSkipped(ConstHandle node)
{
    return node.GetName() == "link" || IsRepeatedFile(node);
}

// What carries nothing that a project could hold, beside the fields that the table of elements
// states no translation uses.
struct EmptyField {
    Name owner; // the element around it, empty for any
    Name field; // empty for any
    std::string_view reason;
    bool (*holds)(Path) = nullptr; // null: everywhere
};

constexpr std::string_view kOfFile = "the file states it as well, and that counts";
constexpr std::string_view kOfClip = "the clip around it states it as well";
constexpr std::string_view kOfEffect = "the id identifies the effect";
constexpr std::string_view kAccounted = "the rules of effects account for parameters";
constexpr std::string_view kOfEffectRange = "counts with the effect";
constexpr std::string_view kBound = "the reference is bound";
constexpr std::string_view kOfFirstTrack = "the first of the exploded tracks counts";
constexpr std::string_view kPlainFade = "every audio fade is like this";

constexpr EmptyField kEmptyFields[] = {
    {{}, "id", "identifies an element inside its document"},
    {{}, "fileid", kBound},
    {{}, "clipid", kBound},
    {{}, "sequenceid", kBound},
    {"timecode", "string", "the frame counts"},
    {"clipitem", "anamorphic", kOfFile},
    {"clipitem", "fielddominance", kOfFile},
    {"clipitem", "pixelaspectratio", kOfFile},
    {"clipitem", "stillframe", kOfFile},
    {"clipitem", "channelcount", kOfFile},
    {"clipitem", "name", kOfClip, IsInBrowserClip},
    {"clipitem", "rate", kOfClip, IsInBrowserClip},
    {"clipitem", "duration", kOfClip, IsInBrowserClip},
    {"clipitem", "sourcetrack", kOfClip, IsInBrowserClip},
    {"clipitem", "masterclipid", kOfClip, IsInBrowserClip},
    {"clipitem", "start", kOfClip, IsInBrowserClip},
    {"clipitem", "end", kOfClip, IsInBrowserClip},
    {"clipitem", "in", kOfClip, IsInBrowserClip},
    {"clipitem", "out", kOfClip, IsInBrowserClip},
    {"clipitem", "enabled", kOfClip, IsInBrowserClip},
    {"generatoritem", "rate", kOfClip, IsInBrowserClip},
    {"generatoritem", "duration", kOfClip, IsInBrowserClip},
    {"generatoritem", "sourcetrack", kOfClip, IsInBrowserClip},
    {"generatoritem", "enabled", kOfClip, IsInBrowserClip},
    {"clip", "rate", "the item in it counts"},
    {"clip", "explodedTracks", "says nothing without audio", IsSilentClip},
    {"track", {}, kOfFirstTrack, IsOnContinuation},
    {"clipitem", {}, kOfFirstTrack, IsOnContinuation},
    {"clipitem", "logginginfo", "clips of a cut share the logging of their master", IsInProject},
    {"clipitem", "comments", "clips of a cut share the comments of their master", IsInProject},
    {"labels", "label", "`label2` is the color", HasColorLabel},
    {"metadata", "value", "the identity of a file in other programs", IsIdentity},
    {"video", "duration", "the file states its duration"},
    {"audio", "samplecharacteristics", "those of the first `audio` count"},
    {"audio", "layout", "those of the first `audio` count"},
    {"audio", "channelcount", "those of the first `audio` count"},
    {"audio", "outputs", "their number is stated beside them", AreOutputsCounted},
    {"samplecharacteristics", "rate", "the file states its rate"},
    {"samplecharacteristics", "fielddominance", "generated video has no fields", HasNoFields},
    {"format", "appspecificdata", "how renders were compressed"},
    {"group", "index", "groups are in order"},
    {"group", "channel", "the number of channels counts"},
    {"transitionitem", "rate", "transitions count in the rate of the sequence"},
    {"effect", "name", kOfEffect},
    {"effect", "effecttype", kOfEffect},
    {"effect", "effectcategory", kOfEffect},
    {"effect", "mediatype", kOfEffect},
    {"effect", "startratio", kPlainFade, IsPlainFade},
    {"effect", "endratio", kPlainFade, IsPlainFade},
    {"effect", "reverse", kPlainFade, IsPlainFade},
    {"effect", "parameter", kAccounted},
    {"filter", "start", kOfEffectRange, IsOnItem},
    {"filter", "end", kOfEffectRange, IsOnItem},
    {"parameter", {}, kAccounted},
    {"keyframe", {}, kAccounted},
    {"inbez", {}, kAccounted},
    {"outbez", {}, kAccounted},
    {"value", {}, kAccounted},
};

bool IsFor(const EmptyField& row, Name owner, Name field)
{
    return (row.owner.IsEmpty() || row.owner == owner) &&
           (row.field.IsEmpty() || row.field == field);
}

Exemption ExemptionOf(Name owner, Name field)
{
    if (IsUnusedField(owner, field))
        return Exemption::Always;
    Exemption exemption = Exemption::None;
    for (const EmptyField& row : kEmptyFields)
        if (IsFor(row, owner, field)) {
            if (row.holds == nullptr)
                return Exemption::Always;
            exemption = Exemption::ByPlace;
        }
    return exemption;
}

bool IsExempt(Path path, Name field)
{
    return std::ranges::any_of(kEmptyFields, [&](const EmptyField& row) {
        return IsFor(row, path.back().GetName(), field) && row.holds != nullptr && row.holds(path);
    });
}

// Elements of documents that the format has no use for.
struct IgnoredTag {
    std::string_view tag;
    std::string_view reason;
};

constexpr IgnoredTag kIgnoredTags[] = {
    {"updatebehavior", "how a program merges the document into its project"},
    {"stillframe", kOfFile},
    {"inscale", kAccounted},
    {"outscale", kAccounted},
    {"itemhistory", "the edits that a program remembers"},
    {"sampledepth", "audio is mixed in floating point"},
    {"fcpimageprocessing", "how a program renders"},
};

// By name, or by the prefix of a name: "xml" of `xml:lang`.
constexpr IgnoredTag kIgnoredAttributes[] = {
    {"version", "the version of a part of the document"},
    {"xmlns", "identifies the vocabulary of a part"},
    {"xml", "how XML itself is processed"},
};

bool IsIn(std::span<const IgnoredTag> rows, std::string_view tag)
{
    return std::ranges::find(rows, tag, &IgnoredTag::tag) != rows.end();
}

// Attributes that the format doesn't have are at a path such as "xmeml/sequence@rating".
std::optional<RemarkKind> KindOfIgnored(std::string_view path)
{
    const std::size_t at = path.find('@');
    const bool isElement = at == path.npos;
    const std::string_view name = isElement ? path.substr(path.rfind('/') + 1)
                                            : path.substr(at + 1, path.find(':', at) - at - 1);
    if (IsIn(isElement ? std::span<const IgnoredTag>(kIgnoredTags) : kIgnoredAttributes, name))
        return std::nullopt;
    return isElement ? RemarkKind::ElementUnknown : RemarkKind::ElementUnread;
}

} // namespace

void AddUnreadElements(ConstHandle root, Account& account)
{
    AddUnread(root,
              {.exemptionOf = ExemptionOf,
               .isExempt = IsExempt,
               .isSkipped = IsSkipped,
               .placeOf = PlaceOf},
              account);
}

void AddIgnoredElements(ConstHandle root, const std::vector<IgnoredElements>& ignored, bool isPart,
                        Account& account)
{
    AddIgnored(root, ignored, {.kindOf = KindOfIgnored, .placeOf = PlaceOf, .isPart = isPart},
               account);
}

} // namespace XPJ
