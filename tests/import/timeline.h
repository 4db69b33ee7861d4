// Timelines in one line a track, so that a test shows what an import made of a sequence.
//
//   V0: A 0-100 [10-110], B 100-150 [0-50]
//   A0: A 0-100 [10-110] ch 0
//
// Item name, place in the sequence, part of the source, all in frames of 25 a second; the channels
// of sound.
#pragma once

#include "core/ticks.h"
#include "import/import_driver.h"
#include "support/golden.h"
#include "tree/reading.h"
#include "xmeml/reader.h"

#include <gtest/gtest.h>

#include <string>

namespace XPJ {

inline constexpr const char* kRate25 = "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>";

inline int ChildCount(ObjectHandle node, Name name)
{
    int count = 0;
    for ([[maybe_unused]] const ObjectHandle& child : node.GetChildren(name))
        ++count;
    return count;
}

inline std::string FramesText(ObjectHandle node, Name from, Name to)
{
    const auto frames = [&](Name key) {
        return std::to_string(Int64Property(node, key) / kPalFrameTicks);
    };
    return frames(from) + "-" + frames(to);
}

inline std::string ItemText(ObjectHandle item)
{
    const ObjectHandle subClip = item.GetChild("SubClip");
    const ObjectHandle clip = subClip.GetChild("Clip");
    std::string text(subClip.GetProperty("Name"));
    text += " " + FramesText(item, "Start", "End");
    text += " [" + FramesText(clip, "InPoint", "OutPoint") + "]";
    if (item.GetName() == "AudioClipTrackItem")
        text += " ch";
    for (const ObjectHandle& channel : clip.GetChildren("SecondaryContentItem"))
        if (channel.HasChild("Content"))
            text += " " + std::string(channel.GetProperty("ChannelIndex"));
    return text;
}

inline std::string TimelineText(ObjectHandle sequence)
{
    std::string text;
    for (const ObjectHandle& group : sequence.GetChildren("TrackGroup"))
        for (const ObjectHandle& track : group.GetChildren("Track")) {
            text += group.GetName() == "VideoTrackGroup" ? "V" : "A";
            text.append(track.GetProperty("Index")).append(":");
            std::string separator = " ";
            for (const ObjectHandle& item : track.GetChildren("TrackItem")) {
                text.append(separator).append(ItemText(item));
                separator = ", ";
            }
            text += "\n";
        }
    return text;
}

// A whole import of what stands in `xmeml`.
class TimelineTest : public ::testing::Test {
protected:
    void Import(const std::string& content, const ImportOptions& options = {})
    {
        ObjectHandle root;
        text_ = "<xmeml version=\"5\">" + content + "</xmeml>";
        ASSERT_EQ(ParseFCPXML(text_, input_, root), kReadDone) << text_;
        ObjectHandle result;
        ASSERT_EQ(ImportDocument(root, options, progress_, document_, issues_, result, &skipped_),
                  kSuccess);
        rootItem_ = FindPath(result, {"Project", "RootProjectItem"});
    }
    // A sequence "Cut" at 25 frames a second, with the attributes given.
    void ImportSequence(const std::string& video, const std::string& audio,
                        const std::string& attributes = {}, const ImportOptions& options = {})
    {
        Import("<sequence id=\"cut\" " + attributes + "><name>Cut</name>" + kRate25 +
                   "<media><video>" + video + "</video><audio>" + audio +
                   "</audio></media></sequence>",
               options);
    }
    // The Sequence of the last project item of that name; null without one.
    ObjectHandle SequenceNamed(std::string_view name) const
    {
        ObjectHandle found;
        for (const ObjectHandle& item : rootItem_.GetChildren("ProjectItem"))
            if (item.GetProperty("Name") == name)
                found = FindPath(item, {"MasterClip", "Clip", "Source", "Sequence"});
        return found;
    }
    std::string Timeline() const { return TimelineText(SequenceNamed("Cut")); }
    std::string Issues() const { return IssueText(issues_, Direction::Import); }

    GoldenPlatform platform_;
    PlatformScope scope_{platform_};
    SilentProgress progress_;
    IssueSet issues_;
    SkippedList skipped_;
    std::string text_;
    Document input_;
    Document document_;
    ObjectHandle rootItem_;
};

// A file "f" of 1000 frames with picture and two channels of sound.
inline std::string FileElement()
{
    return std::string("<file id=\"f\"><name>f.mov</name>") + kRate25 +
           "<duration>1000</duration><media><video/><audio/></media></file>";
}

// A `clipitem` of file "f" at `times`, which are start, end, in and out.
inline std::string ClipItem(const std::string& name, const int (&times)[4],
                            const std::string& more = FileElement())
{
    static constexpr const char* kTags[] = {"start", "end", "in", "out"};
    std::string text = "<clipitem id=\"" + name + "\"><name>" + name + "</name>" + kRate25;
    for (int i = 0; i < 4; ++i)
        text +=
            std::string("<") + kTags[i] + ">" + std::to_string(times[i]) + "</" + kTags[i] + ">";
    return text + more + "</clipitem>";
}

inline std::string Track(const std::string& items)
{
    return "<track>" + items + "</track>";
}

} // namespace XPJ
