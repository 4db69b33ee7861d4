#include "core/media_type.h"
#include "import/timeline.h"

namespace XPJ {
namespace {

// A `transitionitem`; `more` holds its alignment and whatever else.
std::string Transition(int start, int end, const std::string& more,
                       const std::string& effect = "Cross Dissolve")
{
    return "<transitionitem><start>" + std::to_string(start) + "</start><end>" +
           std::to_string(end) + "</end>" + more + "<effect><name>" + effect + "</name><effectid>" +
           effect + "</effectid></effect></transitionitem>";
}

std::string Aligned(const std::string& alignment)
{
    return "<alignment>" + alignment + "</alignment>";
}

// Name of the item on `track` that has the transition under `key`, empty if none has.
std::string NeighbourText(ObjectHandle track, ObjectHandle transition, Name key, const char* flag)
{
    std::string name;
    for (const ObjectHandle& item : track.GetChildren("TrackItem"))
        for (const ObjectHandle& edge : item.GetChildren(key))
            if (edge == transition)
                name += item.GetChild("SubClip").GetProperty("Name");
    EXPECT_EQ(transition.GetProperty(flag), name.empty() ? "false" : "true");
    return name;
}

// "; A>B 90-110 cut 10": neighbours, place and cut of each, in frames.
std::string TransitionsText(ObjectHandle track)
{
    std::string text;
    for (const ObjectHandle& transition : track.GetChildren("TransitionTrackItem"))
        text += "; " + NeighbourText(track, transition, "TailTransition", "HasOutgoingClip") + ">" +
                NeighbourText(track, transition, "HeadTransition", "HasIncomingClip") + " " +
                FramesText(transition, "Start", "End") + " cut " +
                std::to_string(Int64Property(transition, "Alignment") / kPalFrameTicks);
    return text;
}

class TrackTransitionsTest : public TimelineTest {
protected:
    static std::string TrackText(ObjectHandle track)
    {
        std::string text;
        for (const ObjectHandle& item : track.GetChildren("TrackItem"))
            text += (text.empty() ? "" : ", ") + ItemText(item);
        return text + TransitionsText(track);
    }
    ObjectHandle FirstTrack(Name groupName) const
    {
        for (const ObjectHandle& group : SequenceNamed("Cut").GetChildren("TrackGroup"))
            if (group.GetName() == groupName)
                return group.GetChild("Track");
        return {};
    }
};

struct PlaceRow {
    const char* what;
    std::string items;
    const char* expected;
    const char* issues = "";
};

class TransitionPlaceTest : public TrackTransitionsTest,
                            public testing::WithParamInterface<PlaceRow> {};

TEST_P(TransitionPlaceTest, IsBetweenItsNeighbours)
{
    ImportSequence(Track(GetParam().items), "");
    EXPECT_EQ(TrackText(FirstTrack("VideoTrackGroup")), GetParam().expected);
    EXPECT_EQ(Issues(), GetParam().issues);
}

std::string Around(const std::string& transition)
{
    return ClipItem("A", {0, -1, 10, 120}) + transition + ClipItem("B", {-1, 200, 20, 130});
}

const PlaceRow kPlaces[] = {
    // Edges left to the transition. The cut takes from both clips what lies behind it.
    {"Center", Around(Transition(90, 110, Aligned("center"))),
     "A 0-100 [10-110], B 100-200 [30-130]; A>B 90-110 cut 10"},
    {"NoAlignment", Around(Transition(90, 110, "")),
     "A 0-100 [10-110], B 100-200 [30-130]; A>B 90-110 cut 10"},
    {"Start", Around(Transition(90, 110, Aligned("start"))),
     "A 0-90 [10-100], B 90-200 [20-130]; A>B 90-110 cut 0"},
    {"End", Around(Transition(90, 110, Aligned("end"))),
     "A 0-110 [10-120], B 110-200 [40-130]; A>B 90-110 cut 20"},
    {"CutPointTicks",
     Around(Transition(90, 110,
                       Aligned("center") + "<cutPointTicks>" + TickText(5 * kPalFrameTicks) +
                           "</cutPointTicks><cutPoint>8</cutPoint>")),
     "A 0-95 [10-115], B 95-200 [25-130]; A>B 90-110 cut 5"},
    {"CutPointOutside", // stays the transition's cut, but edges don't follow it
     Around(Transition(90, 110, "<cutPoint>20</cutPoint>")),
     "A 0-100 [10-110], B 100-200 [30-130]; A>B 90-110 cut 0"},
    {"TwoInARow",
     ClipItem("A", {0, -1, 0, 110}) + Transition(90, 110, Aligned("center")) +
         ClipItem("B", {-1, -1, 0, 40}) + Transition(110, 130, Aligned("center")) +
         ClipItem("C", {-1, 200, 0, 90}),
     "A 0-100 [0-100], B 100-120 [10-30], C 120-200 [10-90]; "
     "A>B 90-110 cut 10; B>C 110-130 cut 10"},
    {"ClipOfItsLengthBehindStart",
     ClipItem("A", {0, 90, 0, 90}) + Transition(90, 110, Aligned("start")) +
         ClipItem("B", {90, 110, 0, 20}) + ClipItem("C", {110, 200, 0, 90}),
     "A 0-90 [0-90], B 90-110 [0-20], C 110-200 [0-90]; A>B 90-110 cut 0"},
    {"ClipOfItsLengthBeforeEnd",
     ClipItem("A", {0, 90, 0, 90}) + ClipItem("B", {90, 110, 0, 20}) +
         Transition(90, 110, Aligned("end")) + ClipItem("C", {110, 200, 0, 90}),
     "A 0-90 [0-90], B 90-110 [0-20], C 110-200 [0-90]; B>C 90-110 cut 20"},
    // One side or none.
    {"FadeIn",
     ClipItem("A", {0, 90, 0, 90}) + Transition(90, 110, Aligned("start-black")) +
         ClipItem("B", {-1, 200, 20, 130}),
     "A 0-90 [0-90], B 90-200 [20-130]; >B 90-110 cut 0"},
    {"FadeOut",
     ClipItem("A", {0, -1, 0, 110}) + Transition(90, 110, Aligned("end-black")) +
         ClipItem("B", {110, 200, 0, 90}),
     "A 0-110 [0-110], B 110-200 [0-90]; A> 90-110 cut 20"},
    {"HeadOfAStatedClip", Transition(0, 20, Aligned("center")) + ClipItem("B", {0, 100, 0, 100}),
     "B 0-100 [0-100]; >B 0-20 cut 0"},
    {"Nobody", ClipItem("A", {0, 90, 0, 90}) + Transition(300, 320, Aligned("center")),
     "A 0-90 [0-90]; > 300-320 cut 0"},
    // Clips that are too short.
    {"ExtendedHead", Transition(0, 20, Aligned("center")) + ClipItem("B", {-1, 100, 20, 110}),
     "B 0-100 [20-110]; >B 0-20 cut 0",
     "StartOfClipExtended sequence=\"Cut\" clip=\"B\" subject=\"Cross Dissolve\" "
     "time=\"00:00:00:00\" track=V1\n"},
    {"ExtendedTail", ClipItem("A", {0, -1, 10, 120}) + Transition(90, 110, Aligned("center")),
     "A 0-110 [10-120]; A> 90-110 cut 20",
     "EndOfClipExtended sequence=\"Cut\" clip=\"A\" subject=\"Cross Dissolve\" "
     "time=\"00:00:04:10\" track=V1\n"},
    {"ExtendedToTheNextClip",
     ClipItem("A", {0, 95, 0, 95}) + Transition(90, 110, Aligned("center")) +
         ClipItem("B", {105, 200, 0, 95}),
     "A 0-105 [0-105], B 105-200 [0-95]; A>B 90-110 cut 10",
     "EndOfClipExtended sequence=\"Cut\" clip=\"A\" subject=\"Cross Dissolve\" "
     "time=\"00:00:04:05\" track=V1\n"},
    // No transition.
    {"NoPlace", ClipItem("A", {0, 90, 0, 90}) + Transition(80, -1, ""), "A 0-90 [0-90]",
     "InvalidStartEnd sequence=\"Cut\" clip=\"transitionitem\" time=\"00:00:03:05\" track=V1\n"},
    {"NoEffect", ClipItem("A", {0, 90, 0, 90}) + Transition(80, 100, "", ""), "A 0-90 [0-90]"},
};

INSTANTIATE_TEST_SUITE_P(Places, TransitionPlaceTest, testing::ValuesIn(kPlaces),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(TrackTransitionsTest, CrossFadesCountInSamplesOnTheirTracksChannels)
{
    const std::string audio = ClipItem("A", {0, -1, 10, 120}) +
                              Transition(90, 110, Aligned("center"), "KGAudioTransCrossFade0dB") +
                              ClipItem("B", {-1, 200, 20, 130});
    ImportSequence("", Track(audio));
    const ObjectHandle track = FirstTrack("AudioTrackGroup");
    EXPECT_EQ(TrackText(track),
              "A 0-100 [10-110] ch 0, B 100-200 [30-130] ch 0; A>B 90-110 cut 10");
    const ObjectHandle fade = track.GetChild("TransitionTrackItem");
    EXPECT_EQ(fade.GetProperty("MatchName"), "Constant Gain");
    EXPECT_EQ(fade.GetProperty("ChannelType"), "1");
    EXPECT_EQ(fade.GetProperty("FrameRate"), "5292000");
    EXPECT_EQ(fade.GetProperty("MediaType"), MediaTypeText(MediaType::Audio));
}

} // namespace
} // namespace XPJ
