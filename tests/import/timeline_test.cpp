#include "import/timeline.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "import/neighbours.h"
#include "import/panners.h"
#include "import/sequences.h"
#include "import/xmeml_fixture.h"
#include "support/tree.h"

#include <filesystem>
#include <vector>

namespace XPJ {
namespace {

std::string Link(const std::string& id)
{
    return "<link><linkclipref>" + id + "</linkclipref></link>";
}

std::string SourceTrack(int index)
{
    return "<sourcetrack><mediatype>audio</mediatype><trackindex>" + std::to_string(index) +
           "</trackindex></sourcetrack>";
}

// A sequence that holds an item of another one in its picture and its sound.
std::string Nesting(const std::string& id, const std::string& inner)
{
    const auto item = [&](const std::string& prefix) {
        return Track(ClipItem(prefix + id, {0, 50, 5, 55}, "<sequence id=\"" + inner + "\"/>"));
    };
    return "<sequence id=\"" + id + "\"><name>" + id + "</name>" + kRate25 + "<media><video>" +
           item("v") + "</video><audio>" + item("a") + "</audio></media></sequence>";
}

TEST_F(TimelineTest, ABareSequenceWithInlineFiles)
{
    const std::string links = Link("A") + Link("B") + Link("C");
    ImportSequence(Track(ClipItem("A", {0, 100, 10, 110}, FileElement() + links) +
                         ClipItem("A2", {100, 200, 0, 100})) +
                       Track(ClipItem("V2", {50, 80, 0, 30})),
                   Track(ClipItem("B", {0, 100, 10, 110}, FileElement() + links)) +
                       Track(ClipItem("C", {0, 100, 10, 110}, FileElement() + links)) +
                       Track(ClipItem("D", {0, 100, 10, 110})));
    EXPECT_EQ(Timeline(), "V0: A 0-100 [10-110], A2 100-200 [0-100]\n"
                          "V1: V2 50-80 [0-30]\n"
                          "A0: B 0-100 [10-110] ch 0\n"
                          "A1: C 0-100 [10-110] ch 1\n"
                          "A2: D 0-100 [10-110] ch 0\n"); // a file has two channels
    EXPECT_EQ(Issues(), "");
    const ObjectHandle sequence = SequenceNamed("Cut");
    const ObjectHandle container = sequence.GetChild("PersistentGroupContainer");
    EXPECT_EQ(ChildCount(container, "Link"), 1);
    EXPECT_EQ(ChildCount(container.GetChild("Link"), "TrackItem"), 3);
    for (const ObjectHandle& group : sequence.GetChildren("TrackGroup"))
        EXPECT_EQ(group.GetProperty("NextTrackID"),
                  group.GetName() == "VideoTrackGroup" ? "3" : "5");
}

// A program that writes no `children`, a file without `media`, a clip of nothing.
TEST_F(TimelineTest, WhatHasNoMediaIsTold)
{
    const std::string video = Track(
        ClipItem("A", {0, 10, 0, 10}, "<file id=\"none\"><pathurl>file:///a.mov</pathurl></file>") +
        ClipItem("B", {10, 20, 0, 10}));
    Import("<project><sequence id=\"s\"><name>Cut</name>" + std::string(kRate25) +
           "<media><video>" + video + "</video></media></sequence>" +
           "<clip id=\"c\"><name>C</name></clip></project>");
    EXPECT_EQ(Timeline(), "V0: B 10-20 [0-10]\nA0:\n");
    EXPECT_EQ(Issues(), "");
    std::string skipped;
    for (const TranslationIssue& record : skipped_)
        skipped += record.sequence + " " + record.clip + " " + record.time + "\n";
    EXPECT_EQ(skipped, "Cut A 00:00:00:00\n C 00:00\n");
}

TEST_F(TimelineTest, ItemsWithoutATimeAreReportedAndSkipped)
{
    ImportSequence(Track(ClipItem("gone", {10, -1, 0, 0}) + ClipItem("early", {20, 30, -4, 6}) +
                         ClipItem("fine", {30, 40, 0, 10})),
                   Track(ClipItem("empty", {0, 10, 7, 7}) + ClipItem("fine2", {10, 20, 0, 10})));
    EXPECT_EQ(Timeline(), "V0: early 20-30 [0-6], fine 30-40 [0-10]\n"
                          "A0: fine2 10-20 [0-10] ch 0\n");
    EXPECT_EQ(Issues(),
              "InvalidStartEnd sequence=\"Cut\" clip=\"empty\" time=\"00:00:00:00\" track=A1\n"
              "InvalidStartEnd sequence=\"Cut\" clip=\"gone\" time=\"00:00:00:10\" track=V1\n"
              "InvalidInPoint sequence=\"Cut\" clip=\"early\" time=\"00:00:00:20\" track=V1\n");
}

TEST_F(TimelineTest, NestedSequencesAreFilledFirst)
{
    Import("<project><children>" + Nesting("outer", "middle") + Nesting("middle", "inner") +
           Nesting("inner", "nobody") + "</children></project>");
    std::string names;
    for (const ObjectHandle& item : rootItem_.GetChildren("ProjectItem"))
        names.append(item.GetProperty("Name")).append(" ");
    EXPECT_EQ(names, "inner middle outer ");
    EXPECT_EQ(TimelineText(SequenceNamed("outer")), "V0: vouter 0-50 [5-55]\n"
                                                    "A0: aouter 0-50 [5-55] ch 0\n");
    EXPECT_EQ(TimelineText(SequenceNamed("inner")), "V0:\nA0:\n"); // what it shows is nowhere
    const ObjectHandle track =
        FindPath(SequenceNamed("outer"), {"TrackGroup", "Track", "TrackItem"});
    const ObjectHandle source = FindPath(track, {"SubClip", "Clip", "Source"});
    EXPECT_EQ(source.GetChild("Sequence"), SequenceNamed("middle"));
    EXPECT_EQ(Int64Property(source, "OriginalDuration"), 50 * kPalFrameTicks); // of its content
    EXPECT_EQ(Int64Property(source, "StartBoundary"), kNoTime);
}

TEST_F(TimelineTest, SequencesInACircleAreTranslatedOnce)
{
    constexpr int kCount = 3000; // deeper than a call stack
    std::string sequences;
    for (int i = 0; i < kCount; ++i)
        sequences += Nesting("s" + std::to_string(i), "s" + std::to_string((i + 1) % kCount));
    Import("<project><children>" + sequences + "</children></project>");
    EXPECT_EQ(ChildCount(rootItem_, "ProjectItem"), kCount);
    EXPECT_EQ(TimelineText(SequenceNamed("s7")), "V0: vs7 0-50 [5-55]\nA0: as7 0-50 [5-55] ch 0\n");
}

TEST_F(TimelineTest, ExplodedTracksBecomeOneWithTheChannelsOfItsLinks)
{
    const auto track = [](int index, const std::string& item) {
        return "<track velaTrackType=\"Stereo\" totalExplodedTrackCount=\"2\" "
               "currentExplodedTrackIndex=\"" +
               std::to_string(index) + "\">" + item + "</track>";
    };
    const auto item = [](const std::string& name, int channel) {
        std::string text = ClipItem(name, {0, 10, 0, 10},
                                    FileElement() + SourceTrack(channel) + Link("L") + Link("R"));
        return text.insert(text.find(' '), " velaChannelType=\"stereo\"");
    };
    const std::string audio = track(0, item("L", 2)) + track(1, item("R", 1));
    ImportSequence("", audio, "explodedTracks=\"true\"");
    EXPECT_EQ(Timeline(), "V0:\nA0: L 0-10 [0-10] ch 1 0\n");
    ObjectHandle sound;
    for (const ObjectHandle& group : SequenceNamed("Cut").GetChildren("TrackGroup"))
        sound = group;
    EXPECT_EQ(sound.GetProperty("NextTrackID"), "3");
}

TEST_F(TimelineTest, HandOffTracksHaveNamesOfTheirOwn)
{
    const std::string named = "<track><name>Mix</name></track>";
    ImportSequence("", named + "<track><name>Mix-1</name></track>" + named, {},
                   {.inputPath = {}, .sn2vlMode = true});
    std::string names;
    for (const ObjectHandle& group : SequenceNamed("Cut").GetChildren("TrackGroup"))
        for (const ObjectHandle& track : group.GetChildren("Track"))
            names.append(track.GetProperty("MZ.TrackName")).append(" ");
    EXPECT_EQ(names, " Mix Mix-1 Mix-2 ");
}

TEST_F(TimelineTest, GeneratorsStandAtTheirCut)
{
    const auto generator = [](const std::string& id, const std::string& effect) {
        return "<generatoritem id=\"" + id + "\"><name>" + id + "</name>" + kRate25 +
               "<duration>3000</duration><start>10</start><end>60</end><in>750</in><out>800</out>"
               "<effect><name>" +
               effect + "</name><effectid>" + effect +
               "</effectid>"
               "<parameter><parameterid>fillcolor</parameterid><value><alpha>255</alpha>"
               "<red>255</red><green>0</green><blue>0</blue></value></parameter>"
               "</effect></generatoritem>";
    };
    ImportSequence(Track(generator("Matte", "Color")) + Track(generator("Stars", "Starfield")), "");
    EXPECT_EQ(Timeline(), "V0: Matte 10-60 [750-800]\nV1: Stars 10-60 [750-800]\nA0:\n");
    EXPECT_EQ(Issues(), "GeneratorNotTranslated2 sequence=\"Cut\" clip=\"Stars\" "
                        "subject=\"Starfield\" time=\"00:00:00:10\" track=V2\n");
}

TEST_F(TimelineTest, SlugsAreClipsOfBlack)
{
    const std::string slug = std::string("<file id=\"Slug1\"><name>Slug</name>") + kRate25 +
                             "<mediaSource>Slug</mediaSource></file>";
    ImportSequence(Track(ClipItem("One", {0, 50, 0, 50}, slug) +
                         ClipItem("Two", {50, 75, 10, 35}, "<file id=\"Slug1\"/>")),
                   Track(ClipItem("Three", {0, 50, 0, 50}, "<file id=\"Slug1\"/>")));
    EXPECT_EQ(Timeline(), "V0: One 0-50 [0-50], Two 50-75 [10-35]\nA0: Three 0-50 [0-50] ch 0\n");
    EXPECT_EQ(TimelineText(SequenceNamed("One")), "V0: Black Video 0-360000 [0-360000]\nA0:\n");
}

TEST_F(TimelineTest, AStillIsAClipThatIsHeld)
{
    const std::string still =
        "<sequence id=\"still\"><name>still</name>" + std::string(kRate25) + "<media><video>" +
        Track(ClipItem("Held", {0, 250, 0, 250},
                       "<stillframeoffset>40</stillframeoffset>" + FileElement())) +
        "</video></media></sequence>";
    ImportSequence(Track(ClipItem("Still", {0, 50, 0, 50}, still)), "");
    EXPECT_EQ(Timeline(), "V0: Still 0-50 [0-50]\nA0:\n");
    EXPECT_FALSE(SequenceNamed("still"));
    const ObjectHandle clip =
        FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track", "TrackItem", "SubClip", "Clip"});
    EXPECT_EQ(clip.GetProperty("FrameHold"), "1");
    EXPECT_EQ(Int64Property(clip, "FrameHoldStart"), 40 * kPalFrameTicks);
}

TEST_F(TimelineTest, SpeedScalesThePointsButNotExactOnes)
{
    const std::string slow =
        FileElement() + "<filter><effect><effectid>timeremap</effectid><parameter><parameterid>"
                        "speed</parameterid><value>50</value></parameter></effect></filter>";
    ImportSequence(Track(ClipItem("Slow", {0, 100, 21, 121}, slow)),
                   Track(ClipItem("Slow2", {0, 100, 21, 121}, slow)) +
                       Track(ClipItem("Exact", {0, 100, 21, 121},
                                      slow + "<velaTicksIn>123456</velaTicksIn>")));
    EXPECT_EQ(Timeline(), "V0: Slow 0-100 [11-61]\n"
                          "A0: Slow2 0-100 [11-61] ch 0\n"
                          "A1: Exact 0-100 [0-61] ch 1\n");
    const ObjectHandle clip =
        FindPath(SequenceNamed("Cut"), {"TrackGroup", "Track", "TrackItem", "SubClip", "Clip"});
    EXPECT_EQ(clip.GetProperty("PlaybackSpeed"), "0.5");
}

// Before its source nothing plays: the item begins with it and keeps its length, as a picture does.
TEST_F(TimelineTest, AnItemBeforeItsSourcePlaysFromItsStart)
{
    const std::string sound = "<sourcetrack><mediatype>audio</mediatype><trackindex>1</trackindex>"
                              "</sourcetrack>" +
                              FileElement();
    const std::string exact = "<velaTicksIn>-203212800000</velaTicksIn>"
                              "<velaTicksOut>-101606400000</velaTicksOut>";
    ImportSequence("<track>" + ClipItem("A", {0, 10, -20, -10}, FileElement()) + "</track>",
                   "<track>" + ClipItem("B", {0, 10, -20, -10}, sound) +
                       ClipItem("C", {20, 30, -20, -10}, exact + sound) +
                       ClipItem("D", {40, 50, 5, 15}, "<mediadelay>-20</mediadelay>" + sound) +
                       "</track>");
    EXPECT_EQ(Timeline(), "V0: A 0-10 [0-10]\n"
                          "A0: B 0-10 [0-10] ch 0, C 20-30 [0-10] ch 0, D 40-50 [0-10] ch 0\n");
}

// Meters and faders have as many channels as the group says.
TEST_F(TimelineTest, AdaptiveTracksHaveTheChannelsOfTheirGroup)
{
    ImportSequence("", "<numOutputChannels>8</numOutputChannels>"
                       "<track velaTrackType=\"SixteenChannel\" currentExplodedTrackIndex=\"0\"/>"
                       "<track/>");
    ObjectHandle group;
    for (const ObjectHandle& entry : SequenceNamed("Cut").GetChildren("TrackGroup"))
        group = entry;
    EXPECT_EQ(group.GetProperty("NumAdaptiveChannels"), "8");
    std::vector<ObjectHandle> tracks{group.GetChild("MasterTrack")};
    for (const ObjectHandle& track : group.GetChildren("Track"))
        tracks.push_back(track);
    ASSERT_EQ(tracks.size(), 3U);
    const char* const expected[] = {"8", "8", "2"};
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const ObjectHandle chain = tracks[i].GetChild("Components");
        EXPECT_EQ(chain.GetProperty("NumChannels"), expected[i]) << i;
        for (const ObjectHandle& component : chain.GetChildren("Component"))
            EXPECT_EQ(component.GetProperty("NumChannels"), expected[i]) << i;
    }
}

// A media path in a document that was named without its folder is absolute all the same.
TEST_F(TimelineTest, MediaPathsAreAbsolute)
{
    const std::string current = std::filesystem::current_path().string();
    const std::string item = ClipItem("A", {0, 10, 0, 10},
                                      "<file id=\"f\"><name>a.mov</name><pathurl>a.mov</pathurl>" +
                                          std::string(kRate25) + "<media><video/></media></file>");
    for (const char* const input : {"cut.xml", "sub/cut.xml"}) {
        ImportSequence("<track>" + item + "</track>", "", {}, {.inputPath = input});
        const ObjectHandle source =
            FindPath(rootItem_, {"ProjectItem", "MasterClip", "Clip", "Source", "Media"});
        const std::string folder(FolderOf(input));
        EXPECT_EQ(source.GetProperty("FilePath"), current + "/" + folder + "a.mov");
    }
}

// Tracks have a number, where they have no name; the master is the sequence's.
TEST_F(TimelineTest, AClampedFaderIsToldByItsTrack)
{
    const std::string loud = "<filter><effect><name>Audio Levels</name><effectid>audiolevels"
                             "</effectid><parameter><parameterid>level</parameterid><valuemin>0"
                             "</valuemin><valuemax>3.98109</valuemax><value>9</value></parameter>"
                             "</effect></filter>";
    ImportSequence("", loud + "<track/><track>" + loud + "</track>");
    EXPECT_EQ(Issues(), "AudioLevelClamped sequence=\"Cut\" clip=\"audio track 2\" "
                        "subject=\"Audio Levels\" time=\"00:00:00:00\" track=A2\n"
                        "AudioLevelClamped sequence=\"Cut\" clip=\"Cut\" "
                        "subject=\"Audio Levels\" time=\"00:00:00:00\"\n");
}

using NeighboursTest = XmemlTest;

TEST_F(NeighboursTest, AreExtendedToTheEndsOfTheTransition)
{
    SequenceContext sequence{.state = state_,
                             .sequence = ParseSequence("<name>Cut</name>" + std::string(kRate25)),
                             .rates = {.video = kPalFrameTicks, .edges = kPalFrameTicks}};
    sequence.clock = ClockOf(state_, sequence.sequence);
    const TrackContext context{.sequence = sequence};
    const auto item = [](const char* start, const char* end, const char* in, const char* out) {
        const auto ticks = [](const char* frames) {
            return TickText(ParseInt(frames) * kPalFrameTicks);
        };
        return Tree{"VideoClipTrackItem",
                    {{"Start", ticks(start)}, {"End", ticks(end)}},
                    {{"SubClip",
                      {{"Name", "A"}},
                      {{"Clip", {{"InPoint", ticks(in)}, {"OutPoint", ticks(out)}}}}}}};
    };
    const ObjectHandle track = document_.NewObject("VideoClipTrack");
    const ObjectHandle before = Build(document_, item("0", "90", "5", "95"));
    const ObjectHandle after = Build(document_, item("100", "200", "7", "107"));
    track.AddChild("TrackItem", after);
    track.AddChild("TrackItem", before);
    ItemsByStart items = ItemsOfTrack(track);
    EXPECT_EQ(items.begin()->second, before);

    ExtendNeighbour(context, items, before, 10 * kPalFrameTicks, "Wipe");
    ExtendNeighbour(context, items, after, -10 * kPalFrameTicks, "Wipe");
    ExtendNeighbour(context, items, after, 0, "Wipe");
    EXPECT_EQ(ItemText(before), "A 0-100 [5-105]");
    // There are seven frames before it: no more are shown, so that each stays where it was.
    EXPECT_EQ(ItemText(after), "A 93-200 [0-107]");
    EXPECT_EQ(items.rbegin()->first.first, 93 * kPalFrameTicks);
    EXPECT_EQ(IssueText(issues_, Direction::Import),
              "StartOfClipExtended sequence=\"Cut\" clip=\"A\" subject=\"Wipe\" "
              "time=\"00:00:03:18\" track=V1\n"
              "EndOfClipExtended sequence=\"Cut\" clip=\"A\" subject=\"Wipe\" "
              "time=\"00:00:04:00\" track=V1\n");
}

using SequenceRatesTest = XmemlTest;

TEST_F(SequenceRatesTest, AreReadFromTheSequence)
{
    const auto rate = [](const std::string& timebase, const std::string& ntsc) {
        return "<rate><timebase>" + timebase + "</timebase><ntsc>" + ntsc + "</ntsc></rate>";
    };
    EXPECT_EQ(RatesOfSequence(state_, ParseSequence(rate("48", "true"))).video, 5297407770);
    EXPECT_EQ(RatesOfSequence(state_, ParseSequence(rate("0", "TRUE"))).video, kNtscFrameTicks);
    EXPECT_EQ(RatesOfSequence(state_, ParseSequence(rate("-5", ""))).video, kNtscFrameTicks);
    const std::string sound = "<media><audio><format><samplecharacteristics><samplerate>44100"
                              "</samplerate></samplecharacteristics></format></audio></media>";
    EXPECT_EQ(RatesOfSequence(state_, ParseSequence(sound)).audio, 5760000);

    state_.sn2vlMode = true;
    const ObjectHandle handoff = ParseSequence(rate("254016000000", "") + "<timecode>" +
                                               rate("25", "FALSE") + "</timecode>");
    EXPECT_EQ(RatesOfSequence(state_, handoff).video, kPalFrameTicks);
    EXPECT_EQ(RatesOfSequence(state_, handoff).edges, 1);
}

TEST(TrackPanner, LeadsFromTheTracksTypeToTheGroups)
{
    Document document;
    const auto panner = [&](int trackType, int groupType, int channel = -1, bool handoff = false) {
        return MakeTrackPanner(document, {.trackType = trackType,
                                          .groupType = groupType,
                                          .outputChannel = channel,
                                          .handoff = handoff});
    };
    EXPECT_EQ(panner(kMonoType, kMonoType).GetName(), "MonoToStereoPanProcessor");
    EXPECT_EQ(panner(kMonoType, kMonoType, -1, true).GetName(), "DefaultPanProcessor");
    EXPECT_EQ(panner(kSurroundType, kMonoType).GetName(), "S51ToMonoPanProcessor");
    EXPECT_EQ(panner(kAdaptiveType, kSurroundType).GetProperty("NumOutputChannels"), "6");
    EXPECT_EQ(panner(kAdaptiveType, kAdaptiveType).GetName(), "AdaptiveToAdaptivePanProcessor");

    const ObjectHandle mono = panner(kMonoType, kAdaptiveType, 4);
    EXPECT_EQ(mono.GetProperty("Matrix"), "{\"SerializerWrappedObject\":[[0,[2]]]}");
    EXPECT_EQ(mono.GetProperty("AssignedChannel0"), "2");
    EXPECT_EQ(panner(kMonoType, kAdaptiveType).GetProperty("AssignedChannel0"), "0");
    EXPECT_EQ(panner(kStereoType, kAdaptiveType, 3).GetProperty("Matrix"),
              "{\"SerializerWrappedObject\":[[0,[2]],[1,[3]]]}");
}

} // namespace
} // namespace XPJ
