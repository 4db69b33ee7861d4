#include "core/numbers.h"
#include "effects/audio_chain.h"
#include "effects/audio_fader.h"
#include "effects/audio_pan.h"
#include "effects/effect_fixture.h"
#include "effects/effect_text.h"
#include "support/golden.h"

#include <string>
#include <vector>

namespace XPJ {
namespace {

const std::string kGain = "{61756678, 4761696e, 4b657947}";
const std::string kLowPass = "{61756678, 4c506173, 4b657947}";
const std::string kHighPass = "{61756678, 48506173, 4b657947}";
const std::string kBandPass = "{61756678, 42506173, 4b657947}";

std::string Text(ObjectHandle node, Name key)
{
    return std::string(node.GetProperty(key));
}

// "Level=0.5dB {0,0.25..;100,1.;}"; the reals of ordinary records shortened to "~", the long ones
// of levels to "...".
std::string ParamText(ObjectHandle param)
{
    if (!param)
        return "none";
    std::string text =
        Text(param, "Name") + "=" + Text(param, "CurrentValue") + Text(param, "UnitsString");
    const std::string start =
        "-91445760000000000," + Text(param, "CurrentValue") + ",0,0,0.,0.,0.,0.";
    if (param.GetProperty("StartKeyframe") != start)
        text += " from " + Text(param, "StartKeyframe");
    const std::string keyframes = Text(param, "Keyframes");
    EXPECT_EQ(param.GetProperty("IsTimeVarying"), keyframes.empty() ? "false" : "true");
    if (keyframes.empty())
        return text;
    std::string shortened = keyframes;
    const struct {
        std::string reals;
        std::string sign;
    } forms[] = {
        {",0,0,0,0.166667,0,0.166667;", "~;"},
        {",0,0,0.0,0.166666666666666657414808,0.0,0.166666666666666657414808;", "...;"},
    };
    for (const auto& form : forms)
        for (std::size_t at; (at = shortened.find(form.reals)) != shortened.npos;)
            shortened.replace(at, form.reals.size(), form.sign);
    return text + " {" + shortened + "}";
}

// "1 Internal Volume Mono*: Level=0.5dB", the star for an intrinsic component.
std::string ComponentText(ObjectHandle component)
{
    std::string text = Text(component, "ID") + " " + Text(component, "FilterMatchName");
    text += component.GetProperty("Intrinsic") == "true" ? "*" : "";
    text += component.GetProperty("Bypass") == "true" ? " bypassed" : "";
    std::string separator = ": ";
    bool first = true;
    for (const ObjectHandle& param : component.GetChildren("Param")) {
        if (first)
            EXPECT_EQ(ParamText(param), "Bypass=false");
        else
            text += separator + ParamText(param);
        separator = first ? separator : ", ";
        first = false;
    }
    return text;
}

std::string ChainText(ObjectHandle chain)
{
    std::string text;
    for (const ObjectHandle& component : chain.GetChildren("Component"))
        text += ComponentText(component) + "\n";
    return text;
}

std::string Named(const std::string& name, const std::string& parameters = {})
{
    return "<filter><effect><name>" + name + "</name>" + parameters + "</effect></filter>";
}

class AudioEffectsTest : public EffectTest {
protected:
    ObjectHandle Chain(const std::string& filters, const ItemSound& sound = {})
    {
        return BuildAudioChain(context_, sound, ReadClipItem(document_, filters));
    }
    static std::string Issue(const std::string& kind, const std::string& subject)
    {
        return kind + " sequence=\"Cut\" clip=\"A\" subject=\"" + subject +
               "\" time=\"01:00:00:00\" track=A3\n";
    }

    // Frames of 10 ticks, sound of 48 kHz.
    EffectContext context_{.document = document_,
                           .issues = issues_,
                           .place = {.sequence = "Cut",
                                     .clip = "A",
                                     .trackKind = 2,
                                     .trackIndex = 2,
                                     .time = "01:00:00:00"},
                           .frameTicks = 10};
};

TEST_F(AudioEffectsTest, EveryFilterHasItsComponent)
{
    const std::string volume = "1 Internal Volume Mono*: Level=0.5dB\n";
    const std::string twoFrames = Keyframe(0, "0.5") + Keyframe(10, "1.5");
    const std::string cutoffFrames = Keyframe(0, "1000") + Keyframe(10, "24000");
    const std::string qFrames = Keyframe(0, "0.5") + Keyframe(10, "25");
    const std::string specified = "<parameter><parameterspecifier>";
    const std::string specifiedValue = "</parameterspecifier><value>";
    const std::string end = "</value></parameter>";
    const struct {
        std::string filters;
        std::string chain;
        std::string issues = {};
    } cases[] = {
        {"", volume},
        // The level of the clip.
        {Filter("audiolevels", Parameter("level", "0.75")),
         "1 Internal Volume Mono*: Level=0.375dB\n"},
        {Filter("audiolevels", Parameter("level", "-1")), "1 Internal Volume Mono*: Level=0dB\n"},
        {Filter("audiolevels", Parameter("level", "0.75", twoFrames)),
         "1 Internal Volume Mono*: Level=0.375dB {0,0.25...;100,0.75...;}\n"},
        {Filter("audiolevels",
                "<parameter><parameterid>level</parameterid>" + twoFrames + "</parameter>"),
         "1 Internal Volume Mono*: Level=0.25dB {0,0.25...;100,0.75...;}\n"},
        {Filter("audiolevels"), volume},
        {Filter("audiolevels", Parameter("level", "")), volume},
        // By name, where there is no id; then it takes the parameter, too.
        {Named("Audio Levels", Parameter("level", "0.75")),
         "1 Internal Volume Mono*: Level=0.375dB\n"},
        {Named("Gain", Parameter("Gain(dB)", "0.5")),
         volume + "2 Internal Volume Mono: Level=0.25dB\n"},
        {Named("Audio Pan"), volume},
        {Named("Gain"), volume, Issue("EffectNotTranslated", "Gain")},
        {Named("Reverb"), volume, Issue("EffectNotTranslated", "Reverb")},
        {Filter("audiolevels", Parameter("level", "2")), "1 Internal Volume Mono*: Level=1dB\n"},
        {Filter("audiolevels",
                Parameter("level", "3", Keyframe(0, "3.5") + Keyframe(1, "1") + Keyframe(2, "4"))),
         "1 Internal Volume Mono*: Level=1dB {0,1....;10,0.5...;20,1....;}\n",
         Issue("AudioLevelClamped", "My audiolevels")},
        {Filter("audiolevels", Parameter("level", "1", Keyframe(0, "2.5"))),
         "1 Internal Volume Mono*: Level=0.5dB {0,1....;}\n",
         Issue("AudioLevelClamped", "My audiolevels")},
        // Further levels follow it, wherever they stand.
        {Filter(kGain, Parameter("Gain(dB)", "0.5", twoFrames)) +
             Filter("audiolevels", Parameter("level", "1.5")) +
             Filter("audiolevels", Parameter("level", "0.5")),
         "1 Internal Volume Mono*: Level=0.75dB\n"
         "2 Internal Volume Mono: Level=0.25dB {0,0.25...;100,0.75...;}\n"
         "3 Internal Volume Mono: Level=0.25dB\n"},
        {Filter(kGain, Parameter("Gain(dB)", "6")), volume + "2 Internal Volume Mono: Level=1dB\n",
         Issue("AudioLevelClamped", "My " + kGain)},
        {Filter(kGain), volume + "2 Internal Volume Mono: Level=0.5dB\n"},
        // Passes.
        {Filter(kLowPass, Parameter("Frequency", "1000")),
         volume + "2 Internal Lowpass Mono: Cutoff=0.204124Hz\n"},
        {Filter(kLowPass, Parameter("Frequency", "99999", cutoffFrames)),
         volume + "2 Internal Lowpass Mono: Cutoff=1Hz {0,0.204124~;100,1.~;}\n"},
        {Filter(kLowPass, specified + "0:0:0" + specifiedValue + "0" + end),
         volume + "2 Internal Lowpass Mono: Cutoff=0Hz\n"},
        {Filter(kLowPass), volume, Issue("InvalidLowPassFilterParameters", "My " + kLowPass)},
        {Filter(kHighPass, Parameter("Frequency", "20000", cutoffFrames)),
         volume + "2 Internal Highpass Mono: Cutoff=0.91724Hz {0,0.204124~;100,1.~;}\n"},
        {Filter(kHighPass, Parameter("Q", "1")), volume,
         Issue("InvalidHighPassFilterParameters", "My " + kHighPass)},
        {Filter(kBandPass, Parameter("Q", "2") + Parameter("Frequency", "1000", cutoffFrames)),
         volume +
             "2 Internal Bandpass Mono: Center=0.204124Hz {0,0.204124~;100,1.~;}, Q=0.229416\n"},
        {Filter(kBandPass, specified + "0:0:0" + specifiedValue + "1000" + end + specified +
                               "1:0:0" + specifiedValue + "10.5" + end),
         volume + "2 Internal Bandpass Mono: Center=0.204124Hz, Q=0.707107\n"},
        {Filter(kBandPass, Parameter("Frequency", "1000") + Parameter("Q", "0.5", qFrames)),
         volume + "2 Internal Bandpass Mono: Center=0.204124Hz, Q=0 {0,0.~;100,1.~;}\n"},
        {Filter(kBandPass, Parameter("Frequency", "1000")), volume,
         Issue("InvalidBandPassFilterParameters", "My " + kBandPass)},
        {Filter(kBandPass, Parameter("Q", "2")), volume,
         Issue("InvalidBandPassFilterParameters", "My " + kBandPass)},
        // What is no part of the chain.
        {Filter("audiopan", Parameter("pan", "0.5")) + Filter("timeremap"), volume},
        {Filter("Reverberation"), volume, Issue("EffectNotTranslated", "My Reverberation")},
        {"<filter><effect><effectid>Hum</effectid></effect></filter>", volume,
         Issue("EffectNotTranslated", "Hum")},
        {"<filter/><filter><effect><mediatype>audio</mediatype></effect></filter>", volume},
        {Filter("audiolevels", Parameter("level", "9"), "<enabled>FALSE</enabled>") +
             Filter("Hum", "", "<enabled>false</enabled>"),
         volume},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.filters);
        const ObjectHandle chain = Chain(row.filters);
        EXPECT_EQ(ChainText(chain), row.chain);
        EXPECT_EQ(TakeIssues(), row.issues);
        int next = 1;
        for (const ObjectHandle& component : chain.GetChildren("Component"))
            next += component ? 1 : 0;
        EXPECT_EQ(Text(chain, "NextComponentID"), IntToString(next));
    }
}

TEST_F(AudioEffectsTest, ComponentsAreThoseOfTheChannelType)
{
    const std::string filters =
        Filter(kLowPass, Parameter("Frequency", "0")) +
        Filter(kHighPass, Parameter("Frequency", "0")) +
        Filter(kBandPass, Parameter("Frequency", "0") + Parameter("Q", "0"));
    const char* const types[] = {"Mono", "Stereo", "5.1", "Mono"};
    context_.sampleTicks = 5760000;
    for (int type = 0; type < 4; ++type) {
        const ObjectHandle chain = Chain(filters, {.channelType = type});
        std::string expected;
        for (const char* const filter : {"Volume ", "Lowpass ", "Highpass ", "Bandpass "})
            expected += std::string("Internal ") + filter + types[type] + "\n";
        std::string names;
        for (const ObjectHandle& component : chain.GetChildren("Component")) {
            names += Text(component, "FilterMatchName") + "\n";
            for (const ObjectHandle& node : {chain, component}) {
                EXPECT_EQ(Text(node, "ChannelType"), IntToString(type));
                EXPECT_EQ(Text(node, "FrameRate"), "5760000");
            }
        }
        EXPECT_EQ(names, expected);
    }
}

TEST_F(AudioEffectsTest, MarksOfTheEffectAndTheItemAreKept)
{
    const std::string marks = "<velaBypass>TRUE</velaBypass><velaExpanded>true</velaExpanded>";
    const ObjectHandle chain =
        Chain(Filter("audiolevels", marks + Parameter("level", "1", Keyframe(2, "1"))) +
                  Filter(kLowPass, Parameter("Frequency", "1000", Keyframe(2, "1000"))),
              {.delayFrames = 3});
    // Levels move with the delay of their item, filters do not.
    EXPECT_EQ(ChainText(chain), "1 Internal Volume Mono* bypassed: Level=0.5dB {50,0.5...;}\n"
                                "2 Internal Lowpass Mono: Cutoff=0.204124Hz {20,0.204124~;}\n");
    const ObjectHandle volume = chain.GetChild("Component");
    EXPECT_EQ(Text(volume, "ECP.Filter.Expanded"), "true");
    EXPECT_EQ(Text(volume, "FilterPreset") + Text(volume, "FilterIndex") +
                  Text(volume, "AudioComponentType"),
              "0-10");
    EXPECT_FALSE(chain.HasProperty("DefaultVol"));

    // Frequencies are those of the source's sample rate.
    context_.sampleTicks = 5760000;
    EXPECT_EQ(ChainText(Chain(Filter(kLowPass, Parameter("Frequency", "1000")))),
              "1 Internal Volume Mono*: Level=0.5dB\n"
              "2 Internal Lowpass Mono: Cutoff=0.213046Hz\n");
}

TEST_F(AudioEffectsTest, PanBecomesAParameter)
{
    const auto pan = [](const std::string& parameter, const std::string& marks = {}) {
        return Filter("audiopan", parameter, marks);
    };
    const std::string range = "<valuemin>-1</valuemin><valuemax>1</valuemax>";
    const std::string frames = Keyframe(0, "0.117647") + Keyframe(1, "-5");
    const std::string own =
        "<parameter authoringApp=\"VelaPro\"><parameterid>level</parameterid><value>0.5</value>";
    const std::string invalid = Issue("InvalidPanFilterParameters", "My audiopan");
    const struct {
        std::string filters;
        std::string param;
        std::string issues = {};
        ItemSound sound = {};
    } cases[] = {
        {"", "none"},
        {pan(Parameter("pan", "0.117647", range)), "Pan=0.558824"},
        {pan(Parameter("pan", "0.117647", range + frames)),
         "Pan=0.558824 {0,0.441176...;10,1....;}"},
        {pan("<parameter><parameterid>pan</parameterid>" + frames + "</parameter>"),
         "Pan=0.558824 {20,0.441176...;30,1....;}",
         "",
         {.delayFrames = 2}},
        {pan(Parameter("pan", "5")), "Pan=1"},
        {pan(Parameter("pan", "25", "<valuemin>-50</valuemin><valuemax>50</valuemax>")),
         "Pan=0.75"},
        {pan(Parameter("pan", "1", "<valuemin>1</valuemin><valuemax>1</valuemax>")), "Pan=0"},
        {pan(own + frames + "</parameter>"), "Pan=0.75 {0,0.558824...;10,0....;}"},
        {pan(Parameter("level", "-1") + Parameter("pan", "1")), "Pan=1"},
        {pan(Parameter("pan", "")), "Pan=0"},
        {pan(Parameter("pan", "")), "Pan=0.5", "", {.stereoSource = true}},
        {pan(Parameter("balance", "0.5")), "none", invalid},
        {pan(""), "none", invalid},
        {pan(Parameter("pan", "1"), "<enabled>FALSE</enabled>"), "none"},
        {pan(Parameter("pan", "1"), "<enabled>FALSE</enabled>") + pan(Parameter("pan", "-1")) +
             pan(Parameter("pan", "0")),
         "Pan=0"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.filters);
        const ObjectHandle item = ReadClipItem(document_, row.filters);
        EXPECT_EQ(ParamText(TranslatePan(context_, row.sound, item)), row.param);
        EXPECT_EQ(TakeIssues(), row.issues);
    }

    // An item that carries the project's own values; a part of them counts for nothing.
    const ObjectHandle item = ReadClipItem(document_, pan(Parameter("pan", "1")));
    item.SetProperty("PannerCurrentValue", "0.25");
    item.SetProperty("PannerStartKeyframe", "-91445760000000000,0.125,0,0,0.,0.,0.,0.");
    item.SetProperty("PannerKeyframes", "5,0.5~;");
    EXPECT_EQ(ParamText(TranslatePan(context_, {}, item)), "Pan=1");
    item.SetProperty("PannerIsInverted", "true");
    const ObjectHandle carried = TranslatePan(context_, {}, item);
    EXPECT_EQ(ParamText(carried),
              "Pan=0.25 from -91445760000000000,0.125,0,0,0.,0.,0.,0. {5,0.5~;}");
    EXPECT_EQ(Text(carried, "IsInverted"), "true");
}

TEST_F(AudioEffectsTest, LevelOfATrackMovesItsFader)
{
    const std::string range = "<valuemin>0</valuemin><valuemax>3.98109</valuemax>";
    const auto levels = [](const std::string& parameter, const std::string& marks = {}) {
        return Filter("audiolevels", parameter, marks);
    };
    const struct {
        std::string filters;
        std::string volume;
        std::string issues = {};
    } cases[] = {
        {"", "Volume=1.dB"},
        {levels(Parameter("level", "1", range)), "Volume=1.dB"},
        {levels(Parameter("level", "1.0")), "Volume=1.dB"},
        {levels(Parameter("level", "")), "Volume=1.dB"},
        {levels(Parameter("gain", "0.5")), "Volume=1.dB"},
        {levels(Parameter("level", "0.5", range)), "Volume=0.251187dB"},
        {levels(Parameter("level", "2")), "Volume=1.00475dB"},
        {levels(Parameter("level", "1", range + Keyframe(0, "1") + Keyframe(5, "3.98109"))),
         "Volume=0.502375dB {0,0.502375...;50,2....;}"},
        {levels(Parameter("level", "3", "<valuemin>1</valuemin><valuemax>5</valuemax>")),
         "Volume=1dB"},
        {levels(Parameter("level", "0.5", range + Keyframe(0, "9") + Keyframe(1, "-9"))),
         "Volume=0.251187dB {0,2....;10,0....;}", Issue("AudioLevelClamped", "My audiolevels")},
        {levels(Parameter("level", "0.5"), "<enabled>FALSE</enabled>") + Filter("Hum"),
         "Volume=1.dB"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.filters);
        const ObjectHandle chain = MakeFaderChain(document_, {.channelType = 1, .channels = 2});
        ApplyFaderLevel(context_, ReadClipItem(document_, row.filters), chain);
        EXPECT_EQ(ParamText(FindPath(chain, {"Component", "Param"})), row.volume);
        EXPECT_EQ(TakeIssues(), row.issues);
    }
}

TEST_F(AudioEffectsTest, FaderChainHoldsFaderAndMeter)
{
    const ObjectHandle chain =
        MakeFaderChain(document_, {.channelType = 2, .channels = 6, .sampleTicks = 5760000});
    EXPECT_EQ(Text(chain, "NextComponentID"), "3");
    EXPECT_FALSE(chain.HasProperty("DefaultVol"));
    std::string text;
    std::vector<ObjectHandle> nodes = {chain};
    for (const ObjectHandle& component : chain.GetChildren("Component")) {
        nodes.push_back(component);
        text += std::string(component.GetName().View()) + " " + Text(component, "ID") + " " +
                Text(component, "Bypass");
        for (const ObjectHandle& param : component.GetChildren("Param"))
            text += " " + ParamText(param) + Text(param, "UpperBound");
        text += "\n";
    }
    EXPECT_EQ(text, "AudioFader 1 false Volume=1.dB2. Mute=false\nAudioMeter 2 false\n");
    for (const ObjectHandle& node : nodes)
        EXPECT_EQ(Text(node, "ChannelType") + " " + Text(node, "NumChannels") + " " +
                      Text(node, "FrameRate"),
                  "2 6 5760000");
}

} // namespace
} // namespace XPJ
