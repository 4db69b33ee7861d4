#include "export/export_fixture.h"
#include "export/sequences.h"

#include "core/numbers.h"
#include "export/color_matte.h"
#include "export/item_place.h"
#include "export/item_times.h"
#include "export/output_channels.h"
#include "export/transitions.h"

#include <set>
#include <stdexcept>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

// A project sequence of one track, and the masters that show sequences.
class Sequences : public ExportTest {
protected:
    ObjectHandle MakeSequence(std::string_view frameRate)
    {
        const ObjectHandle sequence = project_.NewObject("Sequence");
        const ObjectHandle entry = Add(Add(sequence, "TrackGroups"), "TrackGroup");
        entry.SetProperty("First", "228cda18-3625-4d2d-951e-348879e4ed93");
        const ObjectHandle group = Add(Add(entry, "Second", "VideoTrackGroup"), "TrackGroup");
        group.SetProperty("FrameRate", frameRate);
        Add(Add(group, "Tracks"), "Track", "VideoClipTrack");
        return sequence;
    }

    // Puts an item that shows `shown` on the track of `sequence`.
    void Show(ObjectHandle sequence, ObjectHandle shown)
    {
        const ObjectHandle track = FindPath(
            sequence, {"TrackGroups", "TrackGroup", "Second", "TrackGroup", "Tracks", "Track"});
        const ObjectHandle items = Add(Add(Add(track, "ClipTrack"), "ClipItems"), "TrackItems");
        const ObjectHandle item = Add(items, "TrackItem", "VideoClipTrackItem");
        const ObjectHandle subClip = Add(Add(item, "ClipTrackItem"), "SubClip");
        const ObjectHandle masterClip = Add(subClip, "MasterClip");
        const ObjectHandle clip = Add(Add(masterClip, "Clips"), "Clip", "VideoClip");
        const ObjectHandle source = Add(Add(clip, "Clip"), "Source");
        Add(source, "SequenceSource").AddChild(shown);
    }

    // Ids of the `sequence`s below a node, and how deep they stand in each other.
    int CollectIds(ObjectHandle node, std::multiset<std::string_view>& ids)
    {
        int depth = 0;
        for (const ObjectHandle child : node.GetChildren())
            depth = std::max(depth, CollectIds(child, ids));
        if (node.GetName() != "sequence")
            return depth;
        ids.insert(node.GetProperty("id"));
        return depth + 1;
    }
};

TEST_F(Sequences, DeepNestingIsWrittenOnceEachAndSideBySide)
{
    constexpr int kCount = 500;
    std::vector<ObjectHandle> sequences;
    for (int i = 0; i < kCount; ++i)
        sequences.push_back(MakeSequence("10160640000"));
    for (std::size_t i = 0; i < kCount; ++i)
        Show(sequences[i], sequences[(i + 1) % kCount]);

    const ObjectHandle children = result_.NewObject("children");
    children.AddChild(TranslateSequence(context_, sequences[0], {}));
    TranslatePostponedSequences(context_, children);

    std::multiset<std::string_view> ids;
    EXPECT_LT(CollectIds(children, ids), 50);
    EXPECT_EQ(ids.size(), kCount);
    EXPECT_EQ(std::set(ids.begin(), ids.end()).size(), kCount);
}

TEST_F(Sequences, AFrameOfNoLengthIsAFaultOfTheDocument)
{
    EXPECT_NO_THROW(TranslateSequence(context_, MakeSequence("9223372036854775807"), {}));
    const ObjectHandle sequence = MakeSequence("0");
    sequence.SetPropertyShared("Name", "Cut");
    try {
        TranslateSequence(context_, sequence, {});
        FAIL();
    } catch (const DocumentFault& fault) {
        EXPECT_STREQ(fault.what(), "sequence <Cut> has a frame length of 0");
    }
    EXPECT_EQ(context_.sequenceDepth, 0);
}

TEST_F(Sequences, WhatShowsNothingIsNoMulticam)
{
    const ObjectHandle sequence = MakeSequence("10160640000");
    sequence.SetPropertyShared("Name", "Cut");
    Show(sequence, {});
    const ObjectHandle written = TranslateSequence(context_, sequence, {});
    EXPECT_TRUE(FindPath(written, {"media", "video", "track", "clipitem"}));
    EXPECT_TRUE(issues_.empty());
    ASSERT_EQ(context_.skipped.size(), 1U);
    EXPECT_EQ(context_.skipped.front().sequence, "Cut");
}

// A transition stands at an edge whether or not it states where; a time that is not stated is 0.
TEST_F(Sequences, AnEdgeInATransitionIsOpen)
{
    const ObjectHandle item = project_.NewObject("VideoClipTrackItem");
    const ObjectHandle core = Add(item, "ClipTrackItem");
    const ObjectHandle edges = Add(core, "TrackItem");
    edges.SetPropertyShared("Start", "100");
    edges.SetPropertyShared("End", "900");
    const ObjectHandle head = Add(core, "HeadTransition", "VideoTransitionTrackItem");
    Add(Add(head, "TransitionTrackItem"), "TrackItem").SetPropertyShared("End", "200");
    Add(core, "TailTransition", "VideoTransitionTrackItem"); // damaged: it is not written
    const ObjectHandle element = result_.NewObject("clipitem");
    ItemTiming timing{.rate = 10, .sequenceRate = 10};
    WriteEdges(context_, item, timing, element);
    EXPECT_EQ(element.GetProperty("start"), "-1");
    EXPECT_EQ(timing.startDelta, -100);
    EXPECT_EQ(element.GetProperty("end"), "90");
    EXPECT_EQ(timing.endDelta, 0);
}

TEST_F(Sequences, AlignmentFollowsTheCutByThirds)
{
    struct Case {
        const char* outgoing;
        const char* incoming;
        int cut; // in a transition of 30
        const char* alignment;
    };
    for (const Case& row : {Case{"true", "true", 0, "start"},
                            {"true", "true", 9, "start"},
                            {"true", "true", 10, "center"},
                            {"true", "true", 20, "center"},
                            {"true", "true", 21, "end"},
                            {"TRUE", "", 15, "end-black"},
                            {"false", "true", 15, "start-black"},
                            {"", "", 15, "start-black"}}) {
        const ObjectHandle transition = project_.NewObject("VideoTransitionTrackItem");
        const ObjectHandle core = Add(transition, "TransitionTrackItem");
        core.SetProperty("HasOutgoingClip", row.outgoing);
        core.SetProperty("HasIncomingClip", row.incoming);
        core.SetProperty("Alignment", IntToString(row.cut));
        core.SetPropertyShared("MatchName", "ORRN Cross Dissolve");
        const ObjectHandle edges = Add(core, "TrackItem");
        edges.SetPropertyShared("Start", "100");
        edges.SetPropertyShared("End", "130");

        TrackPlace track{.sequence = {.sequence = {}, .frameTicks = 1},
                         .track = result_.NewObject("track")};
        TranslateTransition(context_, track, transition);
        EXPECT_EQ(track.track.GetChild("transitionitem").GetProperty("alignment"), row.alignment)
            << row.outgoing << " " << row.incoming << " " << row.cut;
    }
    EXPECT_TRUE(issues_.empty());
}

TEST(MatteColour, IsDigitsOrPackedBytes)
{
    struct Case {
        const char* prefs;
        Colour colour;
    };
    for (const Case& row : {Case{"/wAA/wEAAAA=", {255, 0, 0, 255}},
                            {"4278190335", {255, 0, 0, 255}},
                            {"2147549440", {0, 1, 1, 128}},
                            {"/wA=", {0, 0, 0, 255}},
                            {"", {0, 0, 0, 255}}}) {
        const Colour colour = MatteColour(row.prefs);
        EXPECT_EQ(colour.red, row.colour.red) << row.prefs;
        EXPECT_EQ(colour.green, row.colour.green) << row.prefs;
        EXPECT_EQ(colour.blue, row.colour.blue) << row.prefs;
        EXPECT_EQ(colour.alpha, row.colour.alpha) << row.prefs;
    }
}

TEST(OutputChannels, AssignmentsKeepClearOfAnEvenOneBefore)
{
    OutputChannels outputs(4);
    for (const auto& [channel, expected] :
         {std::pair{0, 1}, {1, 2}, {1, 3}, {2, 3}, {3, 4}, {3, 5}})
        EXPECT_EQ(outputs.Assigned(channel, true), expected);
    EXPECT_EQ(outputs.Unassigned(4, true), 1);
    EXPECT_EQ(outputs.Unassigned(4, false), 1);
    EXPECT_EQ(outputs.Unassigned(3, false), 2);
}

TEST(OutputChannels, ReadsMatrixThenAssignments)
{
    Document document;
    const ObjectHandle panner = document.NewObject("DirectPanProcessor");
    panner.SetPropertyShared("NumInputChannels", "999999999999");
    panner.SetPropertyShared("AssignedChannel0", "5");
    panner.SetPropertyShared("AssignedChannel1", "4294967295");
    EXPECT_EQ(AssignedChannels(panner, 3), (std::vector{5, kUnassigned, kUnassigned}));

    struct Case {
        const char* matrix;
        std::vector<int> channels;
    };
    for (const Case& row : {Case{"[[0,[2]],[1,[3,4]]]", {2, 3}},
                            {R"({"SerializerWrappedObject":[[1,[7]]]})", {kUnassigned, 7}},
                            {"{&quot;SerializerWrappedObject&quot;:[[0,[1]]]}", {1, kUnassigned}},
                            {"[[0,[]],[-1,[2]],[9,[2]],[1],7]", {kUnassigned, kUnassigned}},
                            {"[[0,[18446744073709551615]]", {kUnassigned, kUnassigned}}}) {
        panner.SetProperty("Matrix", row.matrix);
        EXPECT_EQ(AssignedChannels(panner, 2), row.channels) << row.matrix;
    }
    EXPECT_EQ(AssignedChannels({}, 1), std::vector{kUnassigned});
}

} // namespace
} // namespace XPJ::RVX
