#include "dialects/reading_names.h"

#include "core/text.h"

namespace XPJ {

namespace {

void ReadLabel(ObjectHandle owner)
{
    const ObjectHandle labels = owner.GetChild("labels");
    if (HasValue(labels, "label") && Trimmed(labels.GetProperty("label2")).empty())
        labels.SetPropertyShared("label2", labels.GetProperty("label"));
}

} // namespace

void ReadFinalCutLabels(DialectPass& pass)
{
    const TreeParts& parts = pass.Parts();
    for (const std::vector<ObjectHandle>* const owners :
         {&parts.bins, &parts.clips, &parts.sequences})
        for (const ObjectHandle& owner : *owners)
            ReadLabel(owner);
    for (const ItemPart& part : parts.items)
        if (part.hasLabels)
            ReadLabel(part.item);
}

void NameTracks(DialectPass& pass)
{
    for (const ObjectHandle& track : pass.Parts().tracks)
        if (const std::string_view name = Trimmed(track.GetProperty("name"));
            !name.empty() && !HasValue(track, "MZ.TrackName"))
            track.SetPropertyShared("MZ.TrackName", name);
}

} // namespace XPJ
