#include "project/panners.h"

#include "core/numbers.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kPannerId = "4294967040";
constexpr int kTypes = 4;
constexpr int kChannelCounts[kTypes] = {1, 2, 6, kMaxAdaptiveChannels};

// clang-format off
constexpr Name kPannerClasses[kTypes][kTypes] = { // track type down, group type across
    {"DefaultPanProcessor", "MonoToStereoPanProcessor",
     "MonoTo51PanProcessor", "MonoTo16ChannelPanProcessor"},
    {"StereoToMonoPanProcessor", "StereoToStereoPanProcessor",
     "StereoTo51PanProcessor", "StereoTo16ChannelPanProcessor"},
    {"S51ToMonoPanProcessor", "S51ToStereoPanProcessor",
     "DefaultPanProcessor", "S51To16ChannelPanProcessor"},
    {"AdaptiveDownmixPanProcessor", "AdaptiveDownmixPanProcessor",
     "AdaptiveDownmixPanProcessor", "AdaptiveToAdaptivePanProcessor"},
};
// clang-format on

int Index(int channelType)
{
    return std::clamp(channelType, 0, kTypes - 1);
}

// A mono track in a mono group can be panned all the same, but not in a hand-off document.
Name PannerClassOf(const PannerForm& form)
{
    if (form.trackType == kMonoType && form.groupType == kMonoType && !form.handoff)
        return "MonoToStereoPanProcessor";
    return kPannerClasses[Index(form.trackType)][Index(form.groupType)];
}

ObjectHandle MakePanner(Document& document, Name className, Ticks sampleTicks)
{
    const ObjectHandle panner = document.NewObject(className);
    panner.SetPropertyShared("ID", kPannerId);
    panner.SetProperty("FrameRate", TickText(sampleTicks));
    return panner;
}

void AddDefaultTypes(int inputType, int outputType, ObjectHandle panner)
{
    panner.SetProperty("DefaultPannerOutputChannelType", IntToString(outputType));
    panner.SetProperty("DefaultPannerInputChannelType", IntToString(inputType));
    panner.SetProperty("ChannelType", IntToString(inputType));
}

void AddAdaptiveTypes(int groupType, ObjectHandle panner)
{
    panner.SetProperty("ChannelType", IntToString(kAdaptiveType));
    panner.SetProperty("NumChannels", IntToString(kMaxAdaptiveChannels));
    panner.SetProperty("OutputChannelType", IntToString(groupType));
    const bool isFixed = groupType >= kMonoType && groupType <= kSurroundType;
    panner.SetProperty("NumOutputChannels", isFixed ? IntToString(kChannelCounts[groupType]) : "0");
}

// Channels are assigned in pairs: the left one of the pair that the track is sent to.
void AddMatrix(const PannerForm& form, ObjectHandle panner)
{
    const int channel = std::max(form.outputChannel, 1) - 1;
    const std::string left = IntToString(channel - channel % 2);
    if (form.trackType == kMonoType) {
        panner.SetProperty("Matrix", "{\"SerializerWrappedObject\":[[0,[" + left + "]]]}");
        panner.SetProperty("AssignedChannel0", left);
    } else if (form.trackType == kStereoType) {
        const std::string right = IntToString(channel - channel % 2 + 1);
        panner.SetProperty("Matrix", "{\"SerializerWrappedObject\":[[0,[" + left + "]],[1,[" +
                                         right + "]]]}");
    }
}

} // namespace

int ChannelCountOf(int channelType)
{
    return kChannelCounts[Index(channelType)];
}

ObjectHandle MakeTrackPanner(Document& document, const PannerForm& form)
{
    const Name className = PannerClassOf(form);
    const ObjectHandle panner = MakePanner(document, className, form.sampleTicks);
    if (className == "DefaultPanProcessor")
        AddDefaultTypes(form.trackType, form.groupType, panner);
    else if (form.trackType == kAdaptiveType)
        AddAdaptiveTypes(form.groupType, panner);
    else if (form.groupType == kAdaptiveType)
        AddMatrix(form, panner);
    return panner;
}

ObjectHandle MakeItemPanner(Document& document, ObjectHandle pan, Ticks sampleTicks)
{
    if (!pan)
        return {};
    const ObjectHandle panner = MakePanner(document, "MonoToStereoPanProcessor", sampleTicks);
    panner.AddChild("Param", pan);
    return panner;
}

ObjectHandle MakeDefaultPanner(Document& document, int inputType, int outputType, Ticks sampleTicks)
{
    const ObjectHandle panner = MakePanner(document, "DefaultPanProcessor", sampleTicks);
    AddDefaultTypes(inputType, outputType, panner);
    return panner;
}

} // namespace XPJ
