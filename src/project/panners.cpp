#include "project/panners.h"

#include "core/numbers.h"

#include <algorithm>
#include <string>

namespace XPJ {

namespace {

constexpr std::string_view kPannerId = "4294967040";
constexpr int kTypes = 4;

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
Name PannerClassOf(const PannerFields& fields)
{
    if (fields.trackType == kMonoType && fields.groupType == kMonoType && !fields.handoff)
        return "MonoToStereoPanProcessor";
    return kPannerClasses[Index(fields.trackType)][Index(fields.groupType)];
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
    panner.SetProperty("NumChannels", IntToString(kMaxTrackChannels));
    panner.SetProperty("OutputChannelType", IntToString(groupType));
    const bool isFixed = groupType >= kMonoType && groupType <= kSurroundType;
    panner.SetProperty("NumOutputChannels", isFixed ? IntToString(ChannelCountOf(groupType)) : "0");
}

// Channels are assigned in pairs: the left one of the pair that the track is sent to.
void AddMatrix(const PannerFields& fields, ObjectHandle panner)
{
    const int channel = std::max(fields.outputChannel, 1) - 1;
    const std::string left = IntToString(channel - channel % 2);
    if (fields.trackType == kMonoType) {
        panner.SetProperty("Matrix", "{\"SerializerWrappedObject\":[[0,[" + left + "]]]}");
        panner.SetProperty("AssignedChannel0", left);
    } else if (fields.trackType == kStereoType) {
        const std::string right = IntToString(channel - channel % 2 + 1);
        panner.SetProperty("Matrix", "{\"SerializerWrappedObject\":[[0,[" + left + "]],[1,[" +
                                         right + "]]]}");
    }
}

} // namespace

ObjectHandle MakeTrackPanner(Document& document, const PannerFields& fields)
{
    const Name className = PannerClassOf(fields);
    const ObjectHandle panner = MakePanner(document, className, fields.sampleTicks);
    if (className == "DefaultPanProcessor")
        AddDefaultTypes(fields.trackType, fields.groupType, panner);
    else if (fields.trackType == kAdaptiveType)
        AddAdaptiveTypes(fields.groupType, panner);
    else if (fields.groupType == kAdaptiveType)
        AddMatrix(fields, panner);
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
