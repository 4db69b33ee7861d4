#include "dialects/writing_structure.h"

#include "core/channel_types.h"
#include "core/numbers.h"

#include <vector>

namespace XPJ {

namespace {

void RemoveNamelessFilters(ObjectHandle owner)
{
    std::vector<ObjectHandle> nameless;
    for (const ObjectHandle& filter : owner.GetChildren("filter")) {
        const ConstHandle effect = filter.GetChild("effect");
        if (!HasValue(effect, "name") && !HasValue(effect, "effectid"))
            nameless.push_back(filter);
    }
    for (const ObjectHandle& filter : nameless)
        owner.RemoveChild(filter);
}

} // namespace

void RemoveNamelessEffects(DialectPass& pass)
{
    for (const ItemPart& part : pass.Parts().items)
        RemoveNamelessFilters(part.item);
    for (const ObjectHandle& file : pass.Parts().files)
        RemoveNamelessFilters(file);
}

void LabelMonoAudio(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files)
        if (const ObjectHandle audio = FindPath(file, {"media", "audio"});
            HasValue(audio, "channeltype") && IntProperty(audio, "channeltype") == kMono)
            audio.SetPropertyShared("layout", "mono");
}

} // namespace XPJ
