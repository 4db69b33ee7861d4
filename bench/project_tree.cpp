#include "bench/project_tree.h"

#include "core/ticks.h"

#include <fmt/format.h>

#include <span>
#include <string>
#include <string_view>

namespace XPJ::Bench {

namespace {

constexpr std::string_view kVideo = "228cda18-3625-4d2d-951e-348879e4ed93";
constexpr std::string_view kAudio = "80b8e3d5-6dca-4195-aefb-cb5f407ab009";
constexpr std::size_t kBytesPerCut = 16'800; // of text: a video item, two audio items, a fifth
                                             // of a master clip
constexpr int kCutsPerClip = 5;

struct PropertyRow {
    Name name;
    std::string_view value;
};

constexpr PropertyRow kVideoClip[] = {
    {"FrameRate", "10160640000"},
    {"InUse", "false"},
    {"ScaleToFrameSize", "false"},
    {"FieldProcessing", "0"},
    {"ReverseFieldDominance", "false"},
    {"DeinterlaceOnHold", "false"},
    {"HoldFilters", "false"},
    {"FrameHold", "0"},
    {"FrameHoldStart", "-101606400000000000"},
    {"PosterFrame", "0"},
};
constexpr PropertyRow kAudioClip[] = {
    {"FrameRate", "5292000"},
    {"InUse", "false"},
    {"Gain", "1.0"},
    {"SecondaryIndex", "0"},
    {"AudioChannelLayout", R"({"SerializerWrappedObject":[{"channellabel":0}]})"},
};
constexpr PropertyRow kSource[] = {
    {"StartBoundary", "-101606400000000000"},
    {"EndBoundary", "-101606400000000000"},
    {"BoundariesAreHard", "false"},
    {"OriginalDuration", "254016000000000"},
};
constexpr PropertyRow kLogging[] = {
    {"MediaFrameRate", "10160640000"},
    {"TimecodeFormat", "101"},
    {"CaptureMode", "1"},
    {"ShotTake", "3B"},
    {"Scene", "12"},
    {"Description", "Nets on deck &amp; room tone"},
    {"TapeName", "R0001"},
};
constexpr PropertyRow kParameter[] = {
    {"ParameterID", "1"},
    {"Name", "Scale"},
    {"UpperBound", "1000"},
    {"LowerBound", "0"},
    {"ParameterControlType", "2"},
    {"IsTimeVarying", "true"},
    {"CurrentValue", "104.5"},
    {"StartKeyframe", "-91445760000000000,104.5,0,0,0.,0.,0.,0."},
    {"Keyframes", "0,100.,0,0,0,0.166667,0,0.166667;254016000000,104.5,0,0,0,0.166667,0,0.166667;"},
};

class TreeMaker {
public:
    explicit TreeMaker(Document& document) : document_(document) {}
    ObjectHandle Make(int cuts);

private:
    ObjectHandle New(Name name, std::span<const PropertyRow> rows = {});
    ObjectHandle NewWithGuid(Name name);
    ObjectHandle MakeMaster(int number);
    ObjectHandle MakeClip(bool isVideo, ObjectHandle media);
    ObjectHandle MakeItem(bool isVideo, ObjectHandle master, int index);
    ObjectHandle MakeTrackGroup(bool isVideo, int tracks);

    Document& document_;
    unsigned guids_ = 0;
};

ObjectHandle TreeMaker::New(Name name, std::span<const PropertyRow> rows)
{
    const ObjectHandle node = document_.NewObject(name);
    for (const PropertyRow& row : rows)
        node.AddPropertyShared(row.name, row.value);
    return node;
}

ObjectHandle TreeMaker::NewWithGuid(Name name)
{
    const ObjectHandle node = New(name);
    node.SetProperty("uid", fmt::format("{:08x}-7c1d-4e52-9a04-5d2f8be0c761", ++guids_));
    return node;
}

ObjectHandle TreeMaker::MakeClip(bool isVideo, ObjectHandle media)
{
    const ObjectHandle source =
        isVideo ? New("VideoMediaSource", kSource) : New("AudioMediaSource", kSource);
    source.AddChild(media);
    const ObjectHandle clip = isVideo ? New("VideoClip", kVideoClip) : New("AudioClip", kAudioClip);
    clip.SetProperty("ClipID", fmt::format("{:08x}-1a2b-4c3d-8e4f-0a1b2c3d4e5f", ++guids_));
    clip.AddPropertyShared("InPoint", "254016000000");
    clip.AddPropertyShared("OutPoint", "2540160000000");
    clip.AddChild("Source", source);
    const ObjectHandle markers = New("Markers");
    clip.AddChild(markers);
    return clip;
}

ObjectHandle TreeMaker::MakeMaster(int number)
{
    const ObjectHandle media = NewWithGuid("Media");
    const std::string path = fmt::format("/Volumes/Raid 1/Harbour Stories/R0001_{:06}.mov", number);
    media.SetProperty("ActualMediaFilePath", path);
    media.SetProperty("FilePath", path);
    media.SetProperty("Title", fmt::format("R0001_{:06}.mov", number));
    media.AddPropertyShared("Start", "914457600000000");
    media.AddChild(New("VideoStream"));
    media.AddChild(New("AudioStream"));
    const ObjectHandle master = NewWithGuid("MasterClip");
    master.SetProperty("Name", fmt::format("Nets on deck {}", number));
    master.AddChild("Clip", MakeClip(true, media));
    master.AddChild("Clip", MakeClip(false, media));
    master.AddChild("Clip", MakeClip(false, media));
    master.AddChild("LoggingInfo", New("ClipLoggingInfo", kLogging));
    return master;
}

ObjectHandle TreeMaker::MakeItem(bool isVideo, ObjectHandle master, int index)
{
    const ObjectHandle media = FindPath(master, {"Clip", "Source", "Media"});
    const ObjectHandle clip = MakeClip(isVideo, media);
    const ObjectHandle subClip = New("SubClip");
    subClip.AddPropertyShared("Name", master.GetProperty("Name"));
    subClip.AddChild("Clip", clip);
    subClip.AddChild(master);
    const ObjectHandle chain = isVideo ? New("VideoComponentChain") : New("AudioComponentChain");
    const ObjectHandle filter = isVideo ? New("VideoFilterComponent") : New("AudioFilterComponent");
    for (int i = 0; i < 4; ++i) {
        const ObjectHandle parameter = isVideo ? New("VideoComponentParam", kParameter)
                                               : New("AudioComponentParam", kParameter);
        filter.AddChild("Param", parameter);
    }
    chain.AddChild("Component", filter);
    const ObjectHandle item = isVideo ? New("VideoClipTrackItem") : New("AudioClipTrackItem");
    item.AddPropertyShared("MediaType", isVideo ? kVideo : kAudio);
    item.AddPropertyShared("TrackIndex", "0");
    item.SetProperty("Start", TickText(MultiplyTicks(index, kTicksPerSecond)));
    item.SetProperty("End", TickText(MultiplyTicks(index + 1, kTicksPerSecond)));
    item.AddPropertyShared("IsMuted", "false");
    item.AddChild(subClip);
    item.AddChild("Components", chain);
    return item;
}

ObjectHandle TreeMaker::MakeTrackGroup(bool isVideo, int tracks)
{
    const ObjectHandle group = isVideo ? New("VideoTrackGroup") : New("AudioTrackGroup");
    group.AddPropertyShared("mediatype", isVideo ? kVideo : kAudio);
    for (int i = 0; i < tracks; ++i)
        group.AddChild("Track", isVideo ? New("VideoClipTrack") : New("AudioClipTrack"));
    return group;
}

ObjectHandle TreeMaker::Make(int cuts)
{
    const ObjectHandle root = NewWithGuid("RootProjectItem");
    const ObjectHandle video = MakeTrackGroup(true, 1);
    const ObjectHandle audio = MakeTrackGroup(false, 2);
    const ObjectHandle links = New("LinkContainer");
    ObjectHandle master;
    for (int i = 0; i < cuts; ++i) {
        if (i % kCutsPerClip == 0) {
            master = MakeMaster(i);
            const ObjectHandle projectItem = NewWithGuid("ClipProjectItem");
            projectItem.AddPropertyShared("Name", master.GetProperty("Name"));
            projectItem.AddChild(master);
            root.AddChild("Item", projectItem);
        }
        const ObjectHandle link = New("Link");
        int channel = 0;
        for (const ObjectHandle group : {video, audio})
            for (const ObjectHandle track : group.GetChildren("Track")) {
                const ObjectHandle item = MakeItem(channel++ == 0, master, i);
                track.AddChild("TrackItem", item);
                link.AddChild("TrackItem", item);
            }
        links.AddChild(link);
    }
    const ObjectHandle sequence = NewWithGuid("Sequence");
    sequence.AddChild("TrackGroup", video);
    sequence.AddChild("TrackGroup", audio);
    sequence.AddChild("PersistentGroupContainer", links);
    const ObjectHandle source = New("VideoSequenceSource", kSource);
    source.AddChild(sequence);
    const ObjectHandle clip = New("VideoClip", kVideoClip);
    clip.AddChild("Source", source);
    const ObjectHandle sequenceMaster = NewWithGuid("MasterClip");
    sequenceMaster.AddChild("Clip", clip);
    const ObjectHandle projectItem = NewWithGuid("ClipProjectItem");
    projectItem.AddChild(sequenceMaster);
    root.AddChild("Item", projectItem);
    const ObjectHandle project = New("Project");
    project.AddChild(root);
    const ObjectHandle document = New("Document");
    document.AddChild(project);
    return document;
}

} // namespace

ObjectHandle MakeProjectTree(Document& document, std::size_t bytes)
{
    return TreeMaker(document).Make(static_cast<int>(bytes / kBytesPerCut) + 1);
}

} // namespace XPJ::Bench
