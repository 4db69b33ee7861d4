#include "bench/generator.h"

#include "bench/elements.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <vector>

namespace XPJ::Bench {

namespace {

constexpr Rate kRates[] = {{25, false}, {30, true}, {24, true}};
constexpr std::string_view kSubjects[] = {"Harbour wide",  "Skipper interview", "Nets on deck",
                                          "Market stalls", "Gulls &amp; masts", "Ferry arrival",
                                          "Lamp room",     "Night crane",       "Children at quay"};
constexpr std::string_view kLabels[] = {"", "Good Take", "", "Best Take", "", "Interview"};
constexpr std::string_view kTake[] = {"A", "B", "C", "D"};

// Bytes of a cut of video with its two channels of audio, with its share of a clip.
constexpr std::size_t kBytesPerCut = 9400;
constexpr int kCutsPerSequence = 60;
constexpr int kCutsPerClip = 5;
constexpr int kHalfDissolve = 12; // frames on either side of a cut

template <class Table>
auto Pick(Dice& dice, const Table& table)
{
    return table[dice.Below(static_cast<int>(std::size(table)))];
}

struct Cut {
    MasterClip* clip;
    int in;
    int start;
    int length;
    bool dissolvesIn; // the edge lies under a transition
    bool dissolvesOut;
    int position; // in its track, from 1
};

class Generator {
public:
    explicit Generator(const DocumentOptions& options)
        : options_(options), dice_(options.seed), xml_(options.bytes + options.bytes / 16)
    {
    }

    std::string Run();

private:
    void WriteMix();
    void WriteReel(int number);
    void WriteWideBin();
    void WriteLongTrack();
    void WriteNestedSequences();
    void WriteSequenceChain();
    void WriteMergedClips();

    MasterClip MakeClip(const std::string& reel, const Rate& rate);
    std::vector<MasterClip> MakeClips(int count, const std::string& reel, const Rate& rate);
    void WriteBin(std::string_view name, const std::function<void()>& children);
    void WriteClipHead(const MasterClip& clip);
    void WriteClip(MasterClip& clip);
    void WriteClipTrackItem(MasterClip& clip, MediaFile& file, bool isVideo, int trackIndex);

    std::vector<Cut> PlanCuts(std::vector<MasterClip>& clips, int count);
    void WriteSequence(const std::string& id, const Rate& rate, int duration,
                       const std::function<void()>& videoTracks,
                       const std::function<void()>& audioTracks);
    void WriteCutTrack(const std::vector<Cut>& cuts, const Rate& rate, int firstItem, int track);
    void WriteCut(const Cut& cut, int firstItem, int index, int track);
    void WriteTitles(const std::vector<Cut>& cuts, const Rate& rate);
    void WriteNestedItem(std::string_view name, const Rate& rate, int start, int length,
                         const std::function<void()>& sequence);

    DocumentOptions options_;
    Dice dice_;
    XmlText xml_;
    int nextClip_ = 1;
    int nextItem_ = 1;
};

std::string Generator::Run()
{
    xml_.Raw("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xmeml>\n");
    xml_.Block("xmeml", "version", "4", [&] {
        xml_.Block("project", [&] {
            xml_.Leaf("name", "Harbour Stories");
            xml_.Block("children", [&] {
                switch (options_.shape) {
                case Shape::Mix:
                    return WriteMix();
                case Shape::WideBin:
                    return WriteWideBin();
                case Shape::LongTrack:
                    return WriteLongTrack();
                case Shape::NestedSequences:
                    return WriteNestedSequences();
                case Shape::SequenceChain:
                    return WriteSequenceChain();
                case Shape::MergedClips:
                    return WriteMergedClips();
                }
            });
        });
    });
    return xml_.Take();
}

MasterClip Generator::MakeClip(const std::string& reel, const Rate& rate)
{
    const int number = nextClip_++;
    MasterClip clip;
    clip.name = fmt::format("{} {}", Pick(dice_, kSubjects), number);
    clip.id = clip.name + " ";
    clip.uuid = dice_.Uuid();
    clip.scene = fmt::format("{}", number / 8 + 1);
    clip.shot = fmt::format("{}{}", number % 8 + 1, Pick(dice_, kTake));
    clip.label = Pick(dice_, kLabels);
    clip.file.id = fmt::format("{}_{}", clip.name, number);
    clip.file.name = fmt::format("{}_{:06}.mov", reel, number);
    clip.file.rate = rate;
    clip.file.duration = dice_.Between(30, 600) * rate.timebase;
    clip.file.firstFrame = dice_.Between(1, 20) * 3600 * rate.timebase + dice_.Below(100000);
    clip.file.reel = reel;
    return clip;
}

std::vector<MasterClip> Generator::MakeClips(int count, const std::string& reel, const Rate& rate)
{
    std::vector<MasterClip> clips(static_cast<std::size_t>(count));
    for (MasterClip& clip : clips)
        clip = MakeClip(reel, rate);
    return clips;
}

void Generator::WriteBin(std::string_view name, const std::function<void()>& children)
{
    xml_.Block("bin", [&] {
        xml_.Leaf("uuid", dice_.Uuid());
        xml_.Leaf("updatebehavior", "add");
        xml_.Leaf("name", name);
        xml_.Block("children", children);
    });
}

void Generator::WriteClipHead(const MasterClip& clip)
{
    xml_.Leaf("uuid", clip.uuid);
    xml_.Leaf("updatebehavior", "add");
    xml_.Leaf("name", clip.name);
    xml_.Leaf("duration", clip.file.duration);
    WriteRate(xml_, clip.file.rate);
    xml_.Leaf("in", -1);
    xml_.Leaf("out", -1);
    xml_.Leaf("masterclipid", clip.id);
    xml_.Flag("ismasterclip", true);
    WriteLogging(xml_, clip);
    WriteLabelsAndComments(xml_, clip);
}

void Generator::WriteClipTrackItem(MasterClip& clip, MediaFile& file, bool isVideo, int trackIndex)
{
    xml_.Block("track", [&] {
        const std::string id = fmt::format("{}_{}", clip.name, nextItem_++);
        xml_.Block("clipitem", "id", id, [&] {
            xml_.Leaf("name", clip.name);
            xml_.Leaf("duration", file.duration);
            WriteRate(xml_, file.rate);
            xml_.Flag("enabled", true);
            if (isVideo) {
                xml_.Leaf("pixelaspectratio", "Square");
                xml_.Flag("anamorphic", false);
                xml_.Leaf("alphatype", "none");
            }
            xml_.Leaf("masterclipid", clip.id);
            WriteFile(xml_, file, dice_);
            WriteSourceTrack(xml_, isVideo, trackIndex);
        });
        WriteTrackEnd(xml_);
    });
}

void Generator::WriteClip(MasterClip& clip)
{
    xml_.Block("clip", "id", clip.id, [&] {
        WriteClipHead(clip);
        xml_.Block("media", [&] {
            xml_.Block("video", [&] { WriteClipTrackItem(clip, clip.file, true, 1); });
            xml_.Block("audio", [&] {
                for (int channel = 1; channel <= clip.file.audioChannels; ++channel)
                    WriteClipTrackItem(clip, clip.file, false, channel);
            });
        });
        for (int i = dice_.Below(3); i > 0; --i) {
            const int at = dice_.Below(clip.file.duration);
            WriteMarker(xml_, fmt::format("Marker {}", i), "pick up from here", at, -1);
        }
    });
}

std::vector<Cut> Generator::PlanCuts(std::vector<MasterClip>& clips, int count)
{
    std::vector<Cut> cuts;
    int at = 0;
    int position = 1;
    bool dissolvesIn = false;
    for (int i = 0; i < count; ++i) {
        MasterClip& clip =
            clips[static_cast<std::size_t>(dice_.Below(static_cast<int>(clips.size())))];
        const int length = dice_.Between(2, 12) * clip.file.rate.timebase + dice_.Below(20);
        const int in = dice_.Between(30, clip.file.duration - length - 30);
        const bool dissolvesOut = i + 1 < count && dice_.OneIn(8);
        cuts.push_back({&clip, in, at, length, dissolvesIn, dissolvesOut, position});
        position += dissolvesOut ? 2 : 1;
        dissolvesIn = dissolvesOut;
        at += length;
    }
    return cuts;
}

// track: 0 is video, 1 and 2 are the two channels of its audio.
void Generator::WriteCut(const Cut& cut, int firstItem, int index, int track)
{
    LinkedItems links;
    for (int i = 0; i < 3; ++i)
        links.ids[i] = fmt::format("{}_{}", cut.clip->name, firstItem + index * 3 + i);
    links.position = cut.position;
    // Under a dissolve the edge is not stated, and the source reaches half its length further.
    Item item{links.ids[track], cut.in, cut.in + cut.length, cut.start, cut.start + cut.length};
    if (cut.dissolvesIn) {
        item.start = -1;
        item.in -= kHalfDissolve;
    }
    if (cut.dissolvesOut) {
        item.end = -1;
        item.out += kHalfDissolve;
    }
    const bool isVideo = track == 0;
    xml_.Block("clipitem", "id", item.id, [&] {
        WriteItemHead(xml_, *cut.clip, item);
        if (isVideo) {
            xml_.Leaf("pixelaspectratio", "Square");
            xml_.Flag("anamorphic", false);
            xml_.Leaf("alphatype", "none");
            xml_.Leaf("compositemode", "normal");
        }
        WriteLogging(xml_, *cut.clip);
        WriteLabelsAndComments(xml_, *cut.clip);
        WriteFile(xml_, cut.clip->file, dice_);
        if (isVideo)
            WriteVideoFilters(xml_, dice_, cut.length);
        else
            WriteAudioFilters(xml_, dice_, cut.length, track);
        WriteSourceTrack(xml_, isVideo, track);
        if (isVideo && dice_.OneIn(10))
            WriteMarker(xml_, "check focus", "", cut.in + cut.length / 2, -1);
        WriteLinks(xml_, links);
        if (isVideo)
            xml_.Leaf("fielddominance", "none");
        xml_.Block("itemhistory", [&] { xml_.Leaf("uuid", dice_.Uuid()); });
    });
}

void Generator::WriteCutTrack(const std::vector<Cut>& cuts, const Rate& rate, int firstItem,
                              int track)
{
    xml_.Block("track", [&] {
        int index = 0;
        for (const Cut& cut : cuts) {
            WriteCut(cut, firstItem, index++, track);
            const int end = cut.start + cut.length;
            if (cut.dissolvesOut)
                WriteTransition(xml_, rate, track == 0, end - kHalfDissolve, end + kHalfDissolve);
        }
        WriteTrackEnd(xml_);
        if (track > 0)
            xml_.Leaf("outputchannelindex", track);
    });
}

void Generator::WriteTitles(const std::vector<Cut>& cuts, const Rate& rate)
{
    xml_.Block("track", [&] {
        for (const Cut& cut : cuts)
            if (dice_.OneIn(20))
                WriteTitle(xml_, rate, cut.clip->name, cut.start, cut.start + rate.timebase);
        WriteTrackEnd(xml_);
    });
}

void Generator::WriteSequence(const std::string& id, const Rate& rate, int duration,
                              const std::function<void()>& videoTracks,
                              const std::function<void()>& audioTracks)
{
    xml_.Block("sequence", "id", id, [&] {
        xml_.Leaf("uuid", dice_.Uuid());
        xml_.Leaf("updatebehavior", "add");
        xml_.Leaf("name", id);
        xml_.Leaf("duration", duration);
        WriteRate(xml_, rate);
        WriteTimecode(xml_, rate, 3600 * rate.timebase, "");
        xml_.Leaf("in", -1);
        xml_.Leaf("out", -1);
        xml_.Block("media", [&] {
            xml_.Block("video", [&] {
                WriteVideoFormat(xml_, rate);
                videoTracks();
            });
            xml_.Block("audio", [&] {
                WriteAudioFormat(xml_);
                xml_.Leaf("in", -1);
                xml_.Leaf("out", -1);
                audioTracks();
            });
        });
        xml_.Flag("ismasterclip", false);
    });
}

void Generator::WriteReel(int number)
{
    const Rate rate = kRates[number % static_cast<int>(std::size(kRates))];
    const std::size_t room = options_.bytes > xml_.Size() ? options_.bytes - xml_.Size() : 0;
    const int cutCount = std::clamp(static_cast<int>(room / kBytesPerCut), 3, kCutsPerSequence);
    const std::string reel = fmt::format("R{:04}", number);
    std::vector<MasterClip> clips = MakeClips(cutCount / kCutsPerClip + 1, reel, rate);
    WriteBin(reel, [&] {
        WriteBin("Rushes", [&] {
            for (MasterClip& clip : clips)
                WriteClip(clip);
        });
        const std::vector<Cut> cuts = PlanCuts(clips, cutCount);
        const int firstItem = nextItem_;
        nextItem_ += 3 * cutCount;
        const int duration = cuts.back().start + cuts.back().length;
        WriteSequence(
            reel + " assembly", rate, duration,
            [&] {
                WriteCutTrack(cuts, rate, firstItem, 0);
                WriteTitles(cuts, rate);
            },
            [&] {
                WriteCutTrack(cuts, rate, firstItem, 1);
                WriteCutTrack(cuts, rate, firstItem, 2);
            });
    });
}

void Generator::WriteMix()
{
    int number = 1;
    do
        WriteReel(number++);
    while (xml_.Size() + 3 * kBytesPerCut < options_.bytes);
}

void Generator::WriteWideBin()
{
    WriteBin("Everything", [&] {
        for (int i = 0; i < options_.count; ++i) {
            MasterClip clip = MakeClip("R0001", kRates[0]);
            WriteClip(clip);
        }
    });
}

void Generator::WriteLongTrack()
{
    std::vector<MasterClip> clips = MakeClips(200, "R0001", kRates[0]);
    WriteBin("Rushes", [&] {
        for (MasterClip& clip : clips)
            WriteClip(clip);
    });
    const std::vector<Cut> cuts = PlanCuts(clips, options_.count);
    const int duration = cuts.empty() ? 0 : cuts.back().start + cuts.back().length;
    WriteSequence(
        "One long track", kRates[0], duration,
        [&] { WriteCutTrack(cuts, kRates[0], nextItem_, 0); }, [] {});
}

void Generator::WriteNestedItem(std::string_view name, const Rate& rate, int start, int length,
                                const std::function<void()>& sequence)
{
    const std::string id = fmt::format("{} item {}", name, nextItem_++);
    xml_.Block("clipitem", "id", id, [&] {
        xml_.Leaf("name", name);
        xml_.Leaf("duration", length);
        WriteRate(xml_, rate);
        xml_.Leaf("in", 0);
        xml_.Leaf("out", length);
        xml_.Leaf("start", start);
        xml_.Leaf("end", start + length);
        xml_.Flag("enabled", true);
        sequence();
        WriteSourceTrack(xml_, true, 1);
    });
}

void Generator::WriteNestedSequences()
{
    constexpr int kLength = 100;
    const Rate rate = kRates[0];
    std::vector<MasterClip> clips = {MakeClip("R0001", rate)};
    const auto inner = [&](int number) {
        const std::vector<Cut> cuts = PlanCuts(clips, 1);
        const int firstItem = nextItem_;
        nextItem_ += 3;
        WriteSequence(
            fmt::format("Scene {}", number), rate, kLength,
            [&] { WriteCutTrack(cuts, rate, firstItem, 0); }, [] {});
    };
    const auto outer = [&] {
        xml_.Block("track", [&] {
            for (int i = 0; i < options_.count; ++i)
                WriteNestedItem(fmt::format("Scene {}", i), rate, i * kLength, kLength,
                                [&] { inner(i); });
            WriteTrackEnd(xml_);
        });
    };
    WriteClip(clips.front());
    WriteSequence("All scenes", rate, options_.count * kLength, outer, [] {});
}

void Generator::WriteSequenceChain()
{
    constexpr int kLength = 100;
    const Rate rate = kRates[0];
    for (int i = 0; i < options_.count; ++i) {
        const auto track = [&] {
            xml_.Block("track", [&] {
                const std::string next = fmt::format("Level {}", i + 1);
                if (i + 1 < options_.count)
                    WriteNestedItem(next, rate, 0, kLength,
                                    [&] { xml_.Reference("sequence", next); });
                WriteTrackEnd(xml_);
            });
        };
        WriteSequence(fmt::format("Level {}", i), rate, kLength, track, [] {});
    }
}

void Generator::WriteMergedClips()
{
    WriteBin("Dual system sound", [&] {
        for (int i = 0; i < options_.count; ++i) {
            MasterClip clip = MakeClip("R0001", kRates[0]);
            clip.file.audioChannels = 0;
            MediaFile sounds[2] = {clip.file, clip.file};
            for (int side = 0; side < 2; ++side) {
                sounds[side].id += side == 0 ? " left" : " right";
                sounds[side].name = sounds[side].id + ".wav";
                sounds[side].hasVideo = false;
                sounds[side].audioChannels = 1;
            }
            xml_.Block("clip", "id", clip.id, [&] {
                WriteClipHead(clip);
                xml_.Block("media", [&] {
                    xml_.Block("video", [&] { WriteClipTrackItem(clip, clip.file, true, 1); });
                    xml_.Block("audio", [&] {
                        WriteClipTrackItem(clip, sounds[0], false, 1);
                        WriteClipTrackItem(clip, sounds[1], false, 1);
                    });
                });
            });
        }
    });
}

} // namespace

std::string MakeDocument(const DocumentOptions& options)
{
    return Generator(options).Run();
}

} // namespace XPJ::Bench
