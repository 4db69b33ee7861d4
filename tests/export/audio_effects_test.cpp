#include "export/audio_effects.h"
#include "export/export_fixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace XPJ::RVX {
namespace {

const std::string kGainId = "{61756678, 4761696e, 4b657947}";
const std::string kLowPassId = "{61756678, 4c506173, 4b657947}";
const std::string kHighPassId = "{61756678, 48506173, 4b657947}";
const std::string kBandPassId = "{61756678, 42506173, 4b657947}";

std::string Text(ObjectHandle node, Name key)
{
    return std::string(node.GetProperty(key));
}

// " level=0.5 of 0..3.98109 {0:0.5 25:2}"
std::string ParameterText(ObjectHandle parameter)
{
    std::string text = " " + Text(parameter, "parameterid") + "=" + Text(parameter, "value") +
                       " of " + Text(parameter, "valuemin") + ".." + Text(parameter, "valuemax");
    std::string separator = " {";
    for (const ObjectHandle keyframe : parameter.GetChildren("keyframe")) {
        text += separator + Text(keyframe, "when") + ":" + Text(keyframe, "value");
        separator = " ";
    }
    return separator == " " ? text + "}" : text;
}

// The effects of an element: id, parameters, ";".
std::string EffectsText(ObjectHandle element)
{
    std::string text;
    for (const ObjectHandle filter : element.GetChildren("filter")) {
        const ObjectHandle effect = filter.GetChild("effect");
        EXPECT_EQ(effect.GetProperty("mediatype"), "audio");
        text += Text(effect, "effectid");
        if (effect.GetProperty("velaBypass") == "true")
            text += " bypassed";
        for (const ObjectHandle parameter : effect.GetChildren("parameter"))
            text += ParameterText(parameter);
        text += ";";
    }
    return text;
}

struct ParamText {
    std::string current;
    std::string start = {};
    std::string keyframes = {};
};

// A sound item at 25 frames a second, and what becomes of it.
class AudioEffects : public ExportTest {
protected:
    AudioEffects()
    {
        record_.item = project_.NewObject("AudioClipTrackItem");
        record_.subClip = project_.NewObject("SubClip");
        record_.subClip.SetProperty("Name", "Boom");
        record_.clip = project_.NewObject("AudioClip");
        record_.medium = project_.NewObject("Media");
        record_.medium.SetProperty("FilePath", "/m/boom.wav");
        record_.timing.rate = kPalFrameTicks;
        const ObjectHandle core = Add(record_.item, "ClipTrackItem");
        const ObjectHandle edges = Add(core, "TrackItem");
        edges.SetProperty("Start", "254016000000");
        chain_ = MakeChain(core);
        sequence_ = project_.NewObject("Sequence");
        sequence_.SetProperty("Name", "Cut");
        track_ = {.sequence = {sequence_, kPalFrameTicks},
                  .kind = MediaType::Audio,
                  .index = 2,
                  .track = {}};
    }

    ObjectHandle MakeChain(ObjectHandle owner)
    {
        return Add(Add(owner, "ComponentOwner"), "Components", "AudioComponentChain");
    }

    void AddParams(ObjectHandle audioComponentOwner, const std::vector<ParamText>& params)
    {
        const ObjectHandle component = Add(Add(audioComponentOwner, "AudioComponent"), "Component");
        const ObjectHandle list = Add(component, "Params");
        for (const ParamText& text : params) {
            const ObjectHandle param = Add(list, "Param", "AudioComponentParam");
            const struct {
                Name key;
                const std::string& value;
            } fields[] = {{"CurrentValue", text.current},
                          {"StartKeyframe", text.start},
                          {"Keyframes", text.keyframes}};
            for (const auto& [key, value] : fields)
                if (!value.empty())
                    param.SetProperty(key, value);
        }
    }

    void AddComponent(ObjectHandle chain, Name className, std::string_view matchName,
                      const std::vector<ParamText>& params)
    {
        const ObjectHandle found = FindPath(chain, {"ComponentChain", "Components"});
        const ObjectHandle list = found ? found : Add(Add(chain, "ComponentChain"), "Components");
        component_ = Add(list, "Component", className);
        component_.SetProperty("FilterMatchName", matchName);
        AddParams(component_, params);
    }

    std::string ExportItem()
    {
        const ObjectHandle element = result_.NewObject("clipitem");
        TranslateAudioComponents(context_, track_, record_, element);
        TranslatePan(context_, record_, element);
        return EffectsText(element);
    }

    std::string ExportGainOf(std::string_view gain)
    {
        record_.clip.SetProperty("Gain", gain);
        const ObjectHandle element = result_.NewObject("clipitem");
        TranslateGain(context_, record_, element);
        return EffectsText(element);
    }

    ObjectHandle sequence_;
    ObjectHandle chain_;
    ObjectHandle component_;
    ItemRecord record_;
    TrackPlace track_;
};

TEST_F(AudioEffects, ComponentsBecomeFilters)
{
    const std::string level = "audiolevels level=", levelRange = " of 0..3.98109";
    const std::string gain = kGainId + " Gain(dB)=", gainRange = " of -96..96";
    const ParamText bypass{"false"};
    const struct {
        std::string_view matchName;
        std::vector<ParamText> params;
        std::string plain;
        std::string handOff;
    } cases[] = {
        {"Internal Volume Mono",
         {bypass, {"0.25"}},
         level + "0.5" + levelRange + ";",
         gain + "-6.0206" + gainRange + ";"},
        {"Internal Volume Stereo",
         {bypass, {"3", "-1,0.1,0,0", "0,0,0,0;10160640001,0.5,0,0;-5,1e999;"}},
         level + "3.98109" + levelRange + " {0:0 1:1 0:3.98109};",
         gain + "15.563" + gainRange + " {0:-96 10160640001:0 -5:96};"},
        {"Internal Volume 5.1",
         {bypass, {"", "-1,0.05,0"}},
         level + "0.1" + levelRange + ";",
         gain + "-20" + gainRange + ";"},
        {"Internal Volume", {}, level + "1" + levelRange + ";", gain + "0" + gainRange + ";"},
        {"Internal Volume Mono",
         {bypass, {"-1e999"}},
         level + "0" + levelRange + ";",
         gain + "-96" + gainRange + ";"},
        {"Internal Lowpass Mono",
         {bypass, {"0.5", "", "10160640000,0.2,0;"}},
         kLowPassId + " Frequency=5950 of 0..20000 {1:960.4};",
         kLowPassId + " Frequency=5950 of 0..20000 {10160640000:960.4};"},
        {"Internal Highpass 5.1",
         {bypass, {"1"}},
         kHighPassId + " Frequency=20000 of 0..20000;",
         kHighPassId + " Frequency=20000 of 0..20000;"},
        {"Internal Bandpass Stereo",
         {bypass, {"0"}, {"0.5"}},
         kBandPassId + " Frequency=9.99998 of 0..20000 Q=5.75 of 0.7071..20;",
         kBandPassId + " Frequency=9.99998 of 0..20000 Q=5.75 of 0.7071..20;"},
        {"Internal Bandpass Mono",
         {bypass, {"nan"}},
         kBandPassId + " Frequency=9.99998 of 0..20000;",
         kBandPassId + " Frequency=9.99998 of 0..20000;"},
        {"Internal Lowpass Mono", {bypass}, kLowPassId + ";", kLowPassId + ";"},
    };
    for (const auto& c : cases) {
        record_.item = project_.NewObject("AudioClipTrackItem");
        chain_ = MakeChain(Add(record_.item, "ClipTrackItem"));
        AddComponent(chain_, "AudioFilterComponent", c.matchName, c.params);
        context_.vl2snMode = context_.inTicks = false;
        EXPECT_EQ(ExportItem(), c.plain) << c.matchName;
        context_.vl2snMode = context_.inTicks = true;
        EXPECT_EQ(ExportItem(), c.handOff) << c.matchName;
    }
    EXPECT_TRUE(issues_.empty());
}

TEST_F(AudioEffects, SwitchesAndSampleRateAreThoseOfTheChain)
{
    chain_.SetProperty("FrameRate", "2646000"); // 96 kHz
    AddComponent(chain_, "AudioFilterComponent", "Internal Lowpass Mono", {{"false"}, {"0.2"}});
    FindPath(component_, {"AudioComponent", "Component"}).SetProperty("Bypass", "true");
    AddComponent(chain_, "AudioFilterComponent", "Internal Volume Mono", {{"false"}, {"0.5"}});
    EXPECT_EQ(ExportItem(), kLowPassId + " bypassed Frequency=1920.8 of 0..20000;"
                                         "audiolevels level=1 of 0..3.98109;");
    chain_.SetProperty("FrameRate", "-7");
    EXPECT_NE(ExportItem().find("Frequency=960.4"), std::string::npos);
}

TEST_F(AudioEffects, WhatDocumentsHaveNoWordForIsReportedOnce)
{
    AddComponent(chain_, "AudioFilterComponent", "Internal Reverb Mono", {{"false"}});
    EXPECT_EQ(ExportItem(), "");
    EXPECT_EQ(ExportItem(), ""); // its second channel
    ASSERT_EQ(issues_.size(), 1U);
    const TranslationIssue& issue = *issues_.begin();
    EXPECT_EQ(issue.kind, static_cast<int>(ExportIssue::EffectNotTranslated));
    EXPECT_EQ(issue.sequence, "Cut");
    EXPECT_EQ(issue.clip, "Boom");
    EXPECT_EQ(issue.subject, "Internal Reverb Mono");
    EXPECT_EQ(issue.trackKind, 2);
    EXPECT_EQ(issue.trackIndex, 2);
    EXPECT_EQ(issue.time, "00:00:01:00");
}

TEST_F(AudioEffects, EffectsOfAMasterAreReportedWithoutASequence)
{
    const ObjectHandle master = project_.NewObject("MasterClip");
    master.SetProperty("Name", "Mix");
    const ObjectHandle chain = Add(master, "AudioComponentChain");
    AddComponent(chain, "AudioFilterComponent", "Internal Volume Mono", {{"false"}});
    AddComponent(chain, "AudioFilterComponent", "Internal Reverb Mono", {{"false"}});
    ReportMasterAudioEffects(context_, master);
    ASSERT_EQ(issues_.size(), 1U);
    const TranslationIssue& issue = *issues_.begin();
    EXPECT_EQ(issue.kind, static_cast<int>(ExportIssue::EffectNotTranslatedHeadless));
    EXPECT_EQ(issue.sequence, "");
    EXPECT_EQ(issue.clip, "Mix");
    EXPECT_EQ(issue.subject, "Internal Reverb Mono");
}

TEST_F(AudioEffects, GainOfAClip)
{
    constexpr std::string_view kBarsAndTone = "1111577171";
    const struct {
        std::string_view gain;
        std::string_view path;
        std::string plain;
        std::string handOff;
    } cases[] = {
        {"1", "/m/boom.wav", "", ""},
        {"1.0", kBarsAndTone, "-11.9962", "0.5026"},
        {"2", kBarsAndTone, "6.0206", "3.98109"},
        {"0.5", "/m/boom.wav", "-6.0206", "1"},
        {"0", "/m/boom.wav", "-96", "0"},
        {"-3", "/m/boom.wav", "-96", "0"},
        {"1e999", "/m/boom.wav", "96", "3.98109"},
    };
    for (const auto& c : cases) {
        record_.medium.SetProperty("FilePath", c.path);
        const bool isBare = c.plain.empty();
        context_.vl2snMode = false;
        EXPECT_EQ(ExportGainOf(c.gain),
                  isBare ? ";" : kGainId + " Gain(dB)=" + c.plain + " of -96..96;")
            << c.gain;
        context_.vl2snMode = true;
        EXPECT_EQ(ExportGainOf(c.gain),
                  isBare ? ";" : "audiolevels level=" + c.handOff + " of 0..3.98109;")
            << c.gain;
    }
    record_.clip = project_.NewObject("AudioClip");
    const ObjectHandle element = result_.NewObject("clipitem");
    TranslateGain(context_, record_, element);
    EXPECT_EQ(EffectsText(element), "");
}

TEST_F(AudioEffects, PanOfAnItem)
{
    const struct {
        ParamText param;
        std::string expected;
    } cases[] = {
        {{"0.5"}, "audiopan level=0 of -1..1;"},
        {{"0"}, "audiopan level=-1 of -1..1;"},
        {{"7e300"}, "audiopan level=1 of -1..1;"},
        {{"", "-1,0.75,0", "0,1,0;254016000000,0.25,0;"},
         "audiopan level=0.5 of -1..1 {0:1 25:-0.5};"},
        {{""}, ""},
    };
    for (const bool isDirect : {false, true})
        for (const auto& c : cases) {
            record_.item = project_.NewObject("AudioClipTrackItem");
            const ObjectHandle panner = Add(record_.item, "Panner");
            AddParams(Add(isDirect ? Add(panner, "DirectPanProcessor") : panner, "PanProcessor"),
                      {c.param});
            EXPECT_EQ(ExportItem(), c.expected) << c.param.current;
        }
}

TEST_F(AudioEffects, FaderOfATrack)
{
    const struct {
        std::string_view name;
        std::string_view value;
        std::string expected;
    } cases[] = {
        {"Volume", "0.5", "audiolevels level=0.995273 of 0..3.98109;"},
        {"Volume", "2", "audiolevels level=3.98109 of 0..3.98109;"},
        {"Volume", "-1", "audiolevels level=0 of 0..3.98109;"},
        {"Volume", "1e999", "audiolevels level=3.98109 of 0..3.98109;"},
        {"Volume", "1.", ""},
        {"Mute", "0.5", ""},
    };
    for (const auto& c : cases) {
        const ObjectHandle audioTrack = project_.NewObject("AudioTrack");
        AddComponent(MakeChain(audioTrack), "AudioFader", "", {{std::string(c.value)}});
        (*ParamsOf(component_).begin()).SetProperty("Name", c.name);
        const ObjectHandle element = result_.NewObject("track");
        TranslateTrackVolume(context_, audioTrack, element);
        EXPECT_EQ(EffectsText(element), c.expected) << c.value;
    }
}

} // namespace
} // namespace XPJ::RVX
