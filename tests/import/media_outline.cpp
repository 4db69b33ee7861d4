#include "import/media_outline.h"

#include "core/base64.h"
#include "core/ticks.h"

#include <fmt/format.h>

#include <limits>
#include <string_view>

namespace XPJ {
namespace {

// Ticks as a count of units; what is no count of them, or has no unit, stays as it is.
std::string CountText(ObjectHandle node, Name key, Ticks unit)
{
    if (!node.HasProperty(key))
        return {};
    const Ticks value = Int64Property(node, key);
    const bool isCount = unit > 0 && unit != std::numeric_limits<Ticks>::max() && value % unit == 0;
    return isCount ? fmt::format("{}", value / unit) : std::string(node.GetProperty(key));
}

std::string RangeText(ObjectHandle node, Name from, Name to, Ticks unit)
{
    return CountText(node, from, unit) + "-" + CountText(node, to, unit);
}

std::string PrefsText(ObjectHandle media)
{
    if (!media.HasProperty("ImporterPrefs"))
        return {};
    std::string text = " prefs ";
    for (const char byte : DecodeBase64(media.GetProperty("ImporterPrefs")))
        text += fmt::format("{:02x}", static_cast<unsigned char>(byte));
    return text;
}

std::string PictureText(ObjectHandle stream)
{
    std::string text =
        fmt::format("{} {}", stream.GetProperty("FrameRect"), stream.GetProperty("OriginalPAR"));
    if (IsTrue(stream, "IsPAROverridden"))
        text += fmt::format(" now {}", stream.GetProperty("OverriddenPAR"));
    text += fmt::format(" field {}", stream.GetProperty("OriginalFieldType"));
    for (const Name flag : {Name("IsStill"), Name("IsContinuousTime")})
        if (IsTrue(stream, flag))
            text += fmt::format(" {}", flag.View());
    return text;
}

// "0,0" from the labels of an `AudioChannelLayout`.
std::string LabelsText(std::string_view layout)
{
    constexpr std::string_view kLabel = "channellabel\":";
    std::string text;
    for (std::size_t at = layout.find(kLabel); at != layout.npos; at = layout.find(kLabel, at)) {
        at += kLabel.size();
        text.append(text.empty() ? "" : ",").append(layout, at, layout.find('}', at) - at);
    }
    return text;
}

std::string GroupsText(ObjectHandle master)
{
    std::string text;
    const ObjectHandle groups = master.GetChild("AudioClipChannelGroups");
    for (const ObjectHandle& group : groups.GetChildren("ClipChannelVectorItem")) {
        text += fmt::format(" {}:", group.GetProperty("ChannelType"));
        for (const ObjectHandle& item : group.GetChildren("ClipChannelItem"))
            text += fmt::format("({},{})", item.GetProperty("SourceClipIndex"),
                                item.GetProperty("mSourceChannelIndex"));
    }
    return text.empty() ? text : " groups" + text;
}

std::string MediaText(ObjectHandle source, bool isPicture)
{
    const ObjectHandle media = source.GetChild("Media");
    if (!media)
        return fmt::format(" of sequence \"{}\"", source.GetChild("Sequence").GetProperty("Name"));
    std::string text = fmt::format(" of \"{}\"", media.GetProperty("FilePath"));
    if (media.GetProperty("Infinite") == "true")
        text += " without end";
    if (media.HasProperty("StreamNumber"))
        text += fmt::format(" stream {}", media.GetProperty("StreamNumber"));
    return text + PrefsText(media) + ": " +
           (isPicture
                ? PictureText(media.GetChild("VideoStream"))
                : LabelsText(media.GetChild("AudioStream").GetProperty("AudioChannelLayout")));
}

std::string ClipText(ObjectHandle clip)
{
    const bool isPicture = clip.GetName() == "VideoClip";
    const ObjectHandle source = clip.GetChild("Source");
    const Ticks unit = Int64Property(source, "FrameRate");
    std::string text =
        fmt::format("{} {} x {}", isPicture ? "picture" : "sound", source.GetProperty("FrameRate"),
                    CountText(source, "OriginalDuration", unit));
    if (Int64Property(source, "StartBoundary") != kNoTime)
        text += fmt::format(" {{{}{}}}", RangeText(source, "StartBoundary", "EndBoundary", unit),
                            IsTrue(source, "BoundariesAreHard") ? "" : " soft");
    if (clip.HasProperty("InPoint") || clip.HasProperty("OutPoint"))
        text += fmt::format(" [{}]", RangeText(clip, "InPoint", "OutPoint", unit));
    if (!isPicture)
        text += " channels";
    for (const ObjectHandle& channel : clip.GetChildren("SecondaryContentItem"))
        text += fmt::format(" {}", channel.GetProperty("ChannelIndex"));
    return text + MediaText(source, isPicture);
}

class MediaOutline {
public:
    std::string Take() { return std::move(text_); }

    void AddItems(ObjectHandle parent, std::string_view bin)
    {
        for (const ObjectHandle& item : parent.GetChildren("ProjectItem")) {
            const std::string_view name = item.GetProperty("Name");
            if (item.GetName() == "BinProjectItem")
                AddItems(item, name);
            else
                AddItem(item, bin);
        }
    }

private:
    void AddItem(ObjectHandle item, std::string_view bin)
    {
        text_ += fmt::format("Item \"{}\" in \"{}\"", item.GetProperty("Name"), bin);
        if (const auto label = item.GetProperty("Column.PropertyText.Label"); !label.empty())
            text_ += fmt::format(" label {}", label);
        const ObjectHandle master = item.GetChild("MasterClip");
        text_ += fmt::format("\n  Master \"{}\"", master.GetProperty("Name"));
        if (!seen_.Insert(master)) {
            text_ += " again\n";
            return;
        }
        text_ += GroupsText(master) + "\n";
        for (const ObjectHandle& clip : master.GetChildren("Clip"))
            text_ += "  " + ClipText(clip) + "\n";
    }

    std::string text_;
    NodeSet seen_;
};

} // namespace

std::string MediaOutlineText(ObjectHandle project)
{
    MediaOutline outline;
    outline.AddItems(project.GetChild("RootProjectItem"), "Root Bin");
    return outline.Take();
}

} // namespace XPJ
