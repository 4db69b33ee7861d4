#include "core/numbers.h"
#include "export/aspect.h"
#include "export/export_fixture.h"
#include "export/item_effects.h"
#include "export/video_effects.h"
#include "support/golden.h"

#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

constexpr Ticks kFrame = kPalFrameTicks;

// A picture item of 25 frames a second, 640 by 480 in 1280 by 720, and its component chain.
class VideoEffects : public ExportTest {
protected:
    VideoEffects()
    {
        const ObjectHandle entry = Add(Add(sequence_, "TrackGroups"), "TrackGroup");
        entry.SetProperty("First", "228cda18-3625-4d2d-951e-348879e4ed93");
        group_ = Add(entry, "Second", "VideoTrackGroup");
        group_.SetProperty("FrameRect", "0,0,1280,720");
        group_.SetProperty("PixelAspectRatio", "1,1");
        track_.sequence = {sequence_, kFrame};
        sequence_.SetProperty("Name", "Cut");

        stream_ = Add(record_.medium, "VideoStream");
        stream_.SetProperty("FrameRect", "0,0,640,480");
        record_.timing.rate = kFrame;
        record_.subClip.SetProperty("Name", "Shot");
        const ObjectHandle core = Add(record_.item, "ClipTrackItem");
        Add(core, "TrackItem").SetProperty("Start", TickText(25 * kFrame));
        components_ = Add(Add(Add(Add(core, "ComponentOwner"), "Components"), "ComponentChain"),
                          "Components");
    }

    // `params` are lines "ID VALUE FRAME=VALUE ...".
    ObjectHandle AddComponent(std::string_view matchName, const std::string& params)
    {
        const ObjectHandle component = Add(components_, "Component", "VideoFilterComponent");
        component.SetProperty("MatchName", matchName);
        const ObjectHandle core = Add(component, "Component");
        core.SetProperty("DisplayName", "Display");
        const ObjectHandle list = Add(core, "Params");
        std::istringstream lines(params);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string id, value, keyframes;
            words >> id >> value;
            for (std::string word; words >> word;) {
                const std::size_t split = word.find('=');
                keyframes += TickText(ParseInt(word) * kFrame) + "," + word.substr(split + 1) +
                             ",0,0,0,0.166667,0,0.166667;";
            }
            const ObjectHandle param = Add(list, "Param", "VideoComponentParam");
            param.SetProperty("ParameterID", id);
            param.SetProperty("Name", "Name " + id);
            param.SetProperty("StartKeyframe", "-91445760000000000," + value + ",0,0,0.,0.,0.,0.");
            if (!keyframes.empty())
                param.SetProperty("Keyframes", keyframes);
        }
        return component;
    }

    void Export()
    {
        element_ = result_.NewObject("clipitem");
        ExportVideoEffects(context_, track_, record_, element_);
        ExportAspectCompensation(context_, track_, record_, element_);
    }

    std::string ExportOne(std::string_view matchName, const std::string& params)
    {
        components_.ClearChildren();
        AddComponent(matchName, params);
        Export();
        return Told();
    }

    static std::string ValueText(ObjectHandle node)
    {
        const ObjectHandle value = node.GetChild("value");
        return value ? std::string(value.GetProperty("horiz")) + ":" +
                           std::string(value.GetProperty("vert"))
                     : std::string(node.GetProperty("value"));
    }

    // Each effect as "[id]", then its parameters as lines "id value frame=value ..."; those of a
    // constant value are left out.
    std::string Told(std::string_view constants = "keymode channel dispmode")
    {
        std::string text;
        for (const ObjectHandle filter : element_.GetChildren("filter")) {
            const ObjectHandle effect = filter.GetChild("effect");
            text += "[" + std::string(effect.GetProperty("effectid")) + "]\n";
            for (const ObjectHandle parameter : effect.GetChildren("parameter")) {
                const std::string_view id = parameter.GetProperty("parameterid");
                if (constants.find(id) != constants.npos)
                    continue;
                text += std::string(id) + " " + ValueText(parameter);
                for (const ObjectHandle keyframe : parameter.GetChildren("keyframe"))
                    text +=
                        " " + std::string(keyframe.GetProperty("when")) + "=" + ValueText(keyframe);
                text += "\n";
            }
        }
        return text;
    }

    ObjectHandle sequence_ = project_.NewObject("Sequence");
    ObjectHandle group_;
    ObjectHandle stream_;
    ObjectHandle components_;
    ObjectHandle element_;
    TrackPlace track_;
    ItemRecord record_{.item = project_.NewObject("VideoClipTrackItem"),
                       .subClip = project_.NewObject("SubClip"),
                       .clip = {},
                       .masterClip = {},
                       .medium = project_.NewObject("Media"),
                       .sequence = {},
                       .boundaries = {},
                       .timing = {}};
};

struct EffectCase {
    const char* what;
    const char* matchName;
    const char* params;
    const char* expected;
};

constexpr EffectCase kEffectCases[] = {
    {"motion without parameters", "KX.ORRN Motion", "",
     "[basic]\nscale 100\nrotation 0\ncenterOffset 0:0\ncenter 0:0\nantiflicker 0\n"},
    {"motion still", "KX.ORRN Motion",
     "1 0.75:0.25\n2 50.\n3 80\n4 true\n5 -90\n6 0.6:0.5\n7 0.5\n",
     "[basic]\nscale 50\nrotation -90\ncenterOffset 0.1:0\ncenter 0.4:-0.375\nantiflicker 0.5\n"},
    {"motion in motion: the anchor moves in step", "KX.ORRN Motion",
     "1 0.5:0.5 0=0.5:0.5 10=1:0.5\n2 50 0=50 10=60\n5 0 5=45\n6 0.5:0.5 0=0.5:0.5 10=0.75:0.5\n"
     "7 0 0=1\n",
     "[basic]\nscale 50 0=50 10=60\nrotation 0 5=45\ncenterOffset 0:0 0=0:0 10=0.25:0\n"
     "center 0:0 0=0:0 10=0.75:0\nantiflicker 0 0=1\n"},
    {"the anchor stands still, or out of step", "KX.ORRN Motion",
     "1 0.5:0.5 0=0.5:0.5 10=1:0.5\n6 0.75:0.5 3=0:0\n",
     "[basic]\nscale 100\nrotation 0\ncenterOffset 0.25:0 3=-0.5:-0.5\n"
     "center -0.25:0 0=-0.25:0 10=0.75:0\nantiflicker 0\n"},
    {"widened: the larger scale with its keyframes", "KX.ORRN Motion",
     "2 100 0=1\n3 200 0=200 10=250\n4 false\n",
     "[basic]\nscale 200 0=200 10=250\nrotation 0\ncenterOffset 0:0\ncenter 0:0\nantiflicker 0\n"
     "[deformation]\naspect -100\n"},
    {"heightened", "KX.ORRN Motion", "2 150\n3 100\n4 false\n",
     "[basic]\nscale 150\nrotation 0\ncenterOffset 0:0\ncenter 0:0\nantiflicker 0\n"
     "[deformation]\naspect 50\n"},
    {"equal scales: the width's keyframes where they are the only ones", "KX.ORRN Motion",
     "2 90\n3 90 5=80\n4 false\n",
     "[basic]\nscale 90 5=80\nrotation 0\ncenterOffset 0:0\ncenter 0:0\nantiflicker 0\n"},
    {"no scale at all stretches nothing", "KX.ORRN Motion", "2 0\n3 100\n4 false\n",
     "[basic]\nscale 100\nrotation 0\ncenterOffset 0:0\ncenter 0:0\nantiflicker 0\n"},
    {"opacity absent", "KX.ORRN Opacity", "", "[opacity]\nopacity 100\n"},
    {"opacity", "KX.ORRN Opacity", "1 100. 0=100. 25=0.\n2 18\n",
     "[opacity]\nopacity 100 0=100 25=0\n"},
    {"crop absent", "KX.ORRN AECrop", "", "[crop]\nleft 0\nright 0\ntop 0\nbottom 0\n"},
    {"crop: left, right, top, bottom, all digits kept", "KX.ORRN AECrop",
     "1 1.23456789 0=1 9=2.5\n2 20.\n3 30\n4 40\n",
     "[crop]\nleft 1.23456789 0=1 9=2.5\nright 30\ntop 20.\nbottom 40\n"},
    {"blur absent", "KX.ORRN Gaussian Blur 2", "", "[Gaussian Blur]\nradius 1\n"},
    {"blur", "KX.ORRN Gaussian Blur 2", "1 12.5 0=0 25=12.5\n2 1\n",
     "[Gaussian Blur]\nradius 12.5 0=0 25=12.5\n"},
    {"luma key absent", "KX.ORRN Legacy Key Luma", "", "[Luma Key]\nthreshold -100\ntolerance 0\n"},
    {"luma key on a bent scale", "KX.ORRN Legacy Key Luma",
     "1 100 0=100 1=0 2=50 3=-5\n2 7.5 0=7.5\n",
     "[Luma Key]\nthreshold 100 0=100 1=-100 2=18.9207 3=-100\ntolerance 7.5 0=7.5\n"},
    {"four points absent", "KX.ORRN Garbage Matte", "",
     "[Four-Point Garbage Matte]\np0 0:0\np1 0:0\np2 0:0\np3 0:0\n"},
    {"four points", "KX.ORRN Garbage Matte", "1 0:0\n2 1:0 0=1:0 5=0.5:0.25\n3 1,1\n4 0:1\n5 9:9\n",
     "[Four-Point Garbage Matte]\np0 -0.5:-0.5\np1 0.5:-0.5 0=0.5:-0.5 5=0:-0.25\np2 0.5:0.5\n"
     "p3 -0.5:0.5\n"},
    {"eight points", "KX.ORRN Garbage Matte 8", "5 1:1\n8 0:0.5 7=0:0\n",
     "[Eight-Point Garbage Matte]\np0 0:0\np1 0:0\np2 0:0\np3 0:0\np4 0.5:0.5\np5 0:0\np6 0:0\n"
     "p7 -0.5:0 7=-0.5:-0.5\n"},
};

TEST_F(VideoEffects, ValuesAndKeyframesByTheirRows)
{
    stream_.SetProperty("FrameRect", "0,0,960,480");
    for (const EffectCase& row : kEffectCases) {
        if (std::string_view(row.matchName) == "KX.ORRN Motion")
            group_.SetProperty("FrameRect", "0,0,1920,720");
        context_.sequenceFrames.clear();
        EXPECT_EQ(ExportOne(row.matchName, row.params), row.expected) << row.what;
    }
    EXPECT_EQ(IssueText(issues_, Direction::Export), "");
}

TEST_F(VideoEffects, CorrectorMeetsTheNeutralOfTheOtherSide)
{
    struct Case {
        const char* params;
        const char* blacks; // level, angle, magnitude
        const char* mids;
        const char* highlights;
        const char* chroma;
    };
    for (const Case& row :
         {Case{"", "0.863636 -33 0", "100.384 -33 0", "255.854 -33 0", "100"},
          {"25 50\n26 1\n27 -270\n29 100\n30 100\n31 45\n33 -1\n34 1000\n35 400\n37 400\n",
           "-85.5 -123 50", "200 12 200", "509 7 0", "200"}}) {
        ExportOne("KX.ORRN Three-Way Color Corrector", row.params);
        const ObjectHandle effect = FindEffect(element_, "Color Corrector 3-way");
        const auto triple = [effect](std::string_view level, std::string_view hue,
                                     std::string_view magnitude) {
            const auto value = [effect](std::string_view id) {
                return std::string(FindParameter(effect, id).GetProperty("value"));
            };
            return value(level) + " " + value(hue) + " " + value(magnitude);
        };
        EXPECT_EQ(triple("blacklevel", "b_hue", "b_mag"), row.blacks);
        EXPECT_EQ(triple("mids", "m_hue", "m_mag"), row.mids);
        EXPECT_EQ(triple("highlights", "h_hue", "h_mag"), row.highlights);
        EXPECT_EQ(FindParameter(effect, "chroma").GetProperty("value"), row.chroma);
    }
    // One line for a clip, however often it is corrected.
    EXPECT_EQ(issues_.size(), 1U);
}

TEST_F(VideoEffects, CompositeModes)
{
    struct Case {
        const char* mode;
        const char* name;
    };
    constexpr const char* kAbsent = "absent";
    for (const Case& row : {Case{"3", "darken"},
                            {"5", "difference"},
                            {"8", "hardlight"},
                            {"11", "lighten"},
                            {"14", "add"},
                            {"17", "multiply"},
                            {"18", kAbsent},
                            {"", kAbsent},
                            {"19", "texturize"},
                            {"22", "screen"},
                            {"23.", "softlight"},
                            {"12", ""},
                            {"99999999999", ""}}) {
        issues_.clear();
        ExportOne("KX.ORRN Opacity", std::string("2 ") + row.mode + "\n");
        const std::string_view name = row.name;
        EXPECT_EQ(element_.HasProperty("compositemode"), name != kAbsent) << row.mode;
        EXPECT_EQ(element_.GetProperty("compositemode"), name == kAbsent ? "" : name) << row.mode;
        EXPECT_EQ(issues_.size(), name.empty() ? 1U : 0U) << row.mode;
    }
}

TEST_F(VideoEffects, StretchIsTheRatioOfWidthToHeight)
{
    for (const double aspect : {-10000.0, -100.0, -0.5, 0.0, 10.0, 100.0, 10000.0})
        EXPECT_NEAR(AspectOfRatio(RatioOfAspect(aspect)), aspect, 1e-6);

    struct Case {
        const char* clipAspect;
        const char* motion; // its parameters
        const char* expected;
    };
    for (const Case& row :
         {Case{"10,11", nullptr, "[deformation]\naspect 10\n"},
          {"4,3", nullptr, "[deformation]\naspect -33.3333\n[basic]\nscale 133.333\n"},
          {"4,3", "2 60 0=60 5=90\n",
           "[basic]\nscale 80 0=80 5=120\n[deformation]\naspect -33.3333\n"},
          {"4,3", "2 50\n3 100\n4 false\n",
           "[basic]\nscale 133.333\n[deformation]\naspect -166.667\n"},
          {"4,3", "2 120\n3 90\n4 false\n", "[basic]\nscale 120\n"}, // they cancel out
          {"4,3", "2 100\n3 50\n4 false\n", "[basic]\nscale 100\n[deformation]\naspect 50\n"},
          {"3,4", "2 60\n3 100 0=50\n4 false\n",
           "[basic]\nscale 75 0=37.5\n[deformation]\naspect -25\n"},
          {"10001,10000", nullptr, ""},
          {"none", nullptr, ""}}) {
        components_.ClearChildren();
        stream_.SetProperty("OriginalPAR", row.clipAspect);
        if (row.motion)
            AddComponent("KX.ORRN Motion", row.motion);
        Export();
        EXPECT_EQ(Told("rotation centerOffset center antiflicker"), row.expected)
            << row.clipAspect << " " << (row.motion ? row.motion : "");
    }
}

TEST_F(VideoEffects, KeptEffectsCarryTheProjectsOwnFields)
{
    context_.exportTransformEffect = true;
    struct Case {
        const char* matchName;
        const char* head; // name, id, category, type
    };
    for (const Case& row : {Case{"KX.ORRN Text", "Mine|GraphicAndType|graphic|filter"},
                            {"KX.ORRN Shape", "Shape|GraphicAndShape|graphic|filter"},
                            {"KX.ORRN Gradiva", "Mine|Gradiva||filter"},
                            {"KX.ORRN Geometry", "Display|Transform||filter"}}) {
        components_.ClearChildren();
        const ObjectHandle component = AddComponent(row.matchName, "5 nan 0=inf\n");
        const ObjectHandle core = component.GetChild("Component");
        core.SetProperty("InstanceName", "Mine");
        core.SetProperty("Bypass", "True");
        Add(Add(core, "Node"), "Properties").SetProperty("ECP.Filter.Expanded", "true");
        const ObjectHandle blob = Add(core.GetChild("Params"), "Param", "ArbVideoComponentParam");
        blob.SetProperty("ParameterID", "1");
        blob.SetProperty("ParameterControlType", "10");
        const ObjectHandle value = Add(blob, "StartKeyframeValue");
        value.SetProperty("value", "QUJD");
        value.SetProperty("BinaryHash", "hash");
        const ObjectHandle map = Add(component, "PluginDependencyMap");
        Add(map, "Dependency").SetProperty("Tag", "without a path");
        const ObjectHandle dependency = Add(map, "Dependency");
        dependency.SetProperty("Tag", "lut");
        dependency.SetProperty("Path", "/looks/a.cube");

        Export();
        const ObjectHandle effect = FindPath(element_, {"filter", "effect"});
        std::string head;
        for (const Name key :
             {Name("name"), Name("effectid"), Name("effectcategory"), Name("effecttype")})
            head += (head.empty() ? "" : "|") + std::string(effect.GetProperty(key));
        EXPECT_EQ(head, row.head);
        EXPECT_EQ(effect.GetProperty("velaBypass"), "true");
        EXPECT_EQ(effect.GetProperty("velaExpanded"), "true");
        // Texts of the project, untouched and in its order.
        EXPECT_EQ(Told("").substr(Told("").find('\n') + 1),
                  "5 -91445760000000000,nan,0,0,0.,0.,0.,0.\n1 QUJD\n");
        EXPECT_EQ(FindParameter(effect, "1").GetProperty("hash"), "hash");
        EXPECT_EQ(FindParameter(effect, "1").GetProperty("ParameterControlType"), "10");
        EXPECT_EQ(FindParameter(effect, "5").GetProperty("Keyframes"),
                  "0,inf,0,0,0,0.166667,0,0.166667;");
        int dependencies = 0;
        for (const ObjectHandle stated : effect.GetChildren("dependency")) {
            EXPECT_EQ(stated.GetProperty("tag"), "lut");
            EXPECT_EQ(stated.GetProperty("path"), "/looks/a.cube");
            ++dependencies;
        }
        EXPECT_EQ(dependencies, std::string_view(row.matchName) == "KX.ORRN Gradiva" ? 1 : 0);
    }
    EXPECT_TRUE(issues_.empty());
}

TEST_F(VideoEffects, WhatDocumentsDoNotKnowIsReportedOnce)
{
    AddComponent("KX.ORRN Geometry", "");
    AddComponent("Sepia", "");
    AddComponent("Sepia", "");
    components_.GetChild("Component").GetChild("Component").RemoveProperty("DisplayName");
    Export();
    EXPECT_FALSE(element_.HasChildren());

    const ObjectHandle chain =
        FindPath(record_.item, {"ClipTrackItem", "ComponentOwner", "Components"});
    const ObjectHandle file = result_.NewObject("file");
    TranslateVideoComponents(context_, {.clipName = "Master"}, chain, kFrame, file);
    EXPECT_FALSE(file.HasChildren());
    EXPECT_EQ(IssueText(issues_, Direction::Export),
              R"(EffectNotTranslatedHeadless clip="Master" subject="Display" time="00:00" track=V1
EffectNotTranslatedHeadless clip="Master" subject="KX.ORRN Geometry" time="00:00" track=V1
EffectNotTranslated sequence="Cut" clip="Shot" subject="Display" time="00:00:01:00" track=V1
EffectNotTranslated sequence="Cut" clip="Shot" subject="KX.ORRN Geometry" time="00:00:01:00" track=V1
)");
}

TEST_F(VideoEffects, ACorrectorOfAFileStandsInNoSequence)
{
    AddComponent("KX.ORRN Three-Way Color Corrector", "");
    const ObjectHandle chain =
        FindPath(record_.item, {"ClipTrackItem", "ComponentOwner", "Components"});
    TranslateVideoComponents(context_, {.clipName = "Master"}, chain, kFrame, element_);
    EXPECT_EQ(IssueText(issues_, Direction::Export),
              "ThreeWayApproximation clip=\"Master\" subject=\"Display\" time=\"00:00\"\n");
}

// Numbers that no host writes, in every place that is read as one.
TEST_F(VideoEffects, DamagedNumbersStayNumbers)
{
    constexpr const char* kDamaged[] = {"nan",    "-inf", "1e999", "-1e308",
                                        "1e-320", "",     ":",     "1e308:-1e308"};
    for (const char* number : kDamaged) {
        for (const EffectCase& row : kEffectCases) {
            std::string params = "4 false\n";
            for (int id = 1; id <= 8; ++id)
                if (id != 4)
                    params += IntToString(id) + " " + number + " 3=" + number + "\n";
            stream_.SetProperty("OriginalPAR", "1e308,1e-308");
            stream_.SetProperty("FrameRect", "0,0,99999999999,-1");
            const std::string text = ExportOne(row.matchName, params);
            EXPECT_EQ(text.find("nan"), text.npos) << row.matchName << " " << number;
            EXPECT_EQ(text.find("inf"), text.npos) << row.matchName << " " << number;
        }
    }
}

} // namespace
} // namespace XPJ::RVX
