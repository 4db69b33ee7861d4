#include "effects/audio_chain.h"

#include "core/numbers.h"
#include "effects/effect_walk.h"

#include <vector>

namespace XPJ {

namespace {

// What the filters of an item come to, in the order of the chain.
std::vector<ObjectHandle> ComponentsOf(const EffectContext& context, const ItemAudio& audio,
                                       ConstHandle item)
{
    ObjectHandle volume;
    std::vector<ObjectHandle> components(1);
    // The first Gain filter of an item that states its gain is that gain, which its clip has.
    const ConstHandle gain =
        HasValue(item, "velaGain") ? FindAudioEffect(item, kAudioGain.xmeml.id) : ConstHandle();
    ForEachEffect(item, [&](ConstHandle effect) {
        if (effect == gain)
            return;
        const ObjectHandle component = TranslateAudioFilter(context, audio, effect);
        if (!component)
            return;
        if (!volume && AudioEffectId(effect) == kAudioLevels.xmeml.id)
            volume = component;
        else
            components.push_back(component);
    });
    components.front() = volume ? volume : MakeNeutralVolume(context, audio);
    components.front().SetPropertyShared("Intrinsic", "true");
    return components;
}

} // namespace

ObjectHandle BuildAudioChain(const EffectContext& context, const ItemAudio& audio, ConstHandle item)
{
    const ObjectHandle chain = context.document.NewObject("AudioComponentChain");
    chain.SetProperty("FrameRate", TickText(context.sampleTicks));
    chain.SetProperty("ChannelType", IntToString(audio.channelType));
    int id = 1;
    for (const ObjectHandle component : ComponentsOf(context, audio, item)) {
        component.SetProperty("ID", IntToString(id++));
        chain.AddChild("Component", component);
    }
    chain.SetProperty("NextComponentID", IntToString(id));
    return chain;
}

} // namespace XPJ
