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

void PutSequenceFirst(DialectPass& pass)
{
    const ObjectHandle project = pass.Root().GetChild("project");
    const ObjectHandle children = project.GetChild("children");
    if (!pass.Request().oneSequence || !children.HasChild("sequence"))
        return;
    // Those that are nested too deep in the sequence follow it.
    for (const ObjectHandle& sequence : children.GetChildren("sequence"))
        pass.Root().AddChild(sequence);
    pass.Root().RemoveChild(project);
    pass.PartsChanged();
}

void RemoveNamelessEffects(DialectPass& pass)
{
    for (const ItemPart& part : pass.Parts().items)
        RemoveNamelessFilters(part.item);
    for (const ObjectHandle& file : pass.Parts().files)
        RemoveNamelessFilters(file);
    for (const ObjectHandle& sequence : pass.Parts().sequences)
        for (const ObjectHandle& group : sequence.GetChild("media").GetChildren()) {
            RemoveNamelessFilters(group);
            for (const ObjectHandle& track : group.GetChildren("track"))
                RemoveNamelessFilters(track);
        }
}

void LabelMonoAudio(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files)
        if (const ObjectHandle audio = FindPath(file, {"media", "audio"});
            HasValue(audio, "channeltype") && IntProperty(audio, "channeltype") == kMono)
            audio.SetPropertyShared("layout", "mono");
}

} // namespace XPJ
