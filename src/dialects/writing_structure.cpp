#include "dialects/writing_structure.h"

#include "core/channel_types.h"
#include "core/numbers.h"

namespace XPJ {

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

void LabelMonoAudio(DialectPass& pass)
{
    for (const ObjectHandle& file : pass.Parts().files)
        if (const ObjectHandle audio = FindPath(file, {"media", "audio"});
            HasValue(audio, "channeltype") && IntProperty(audio, "channeltype") == kMono)
            audio.SetPropertyShared("layout", "mono");
}

} // namespace XPJ
