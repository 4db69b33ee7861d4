#include "dialects/reading_names.h"

#include "core/text.h"

namespace XPJ {

void ReadFinalCutLabels(DialectPass& pass)
{
    for (const ObjectHandle& labels : pass.Parts().unnamedLabels)
        labels.SetPropertyShared("label2", labels.GetProperty("label"));
}

void NameTracks(DialectPass& pass)
{
    for (const ObjectHandle& track : pass.Parts().tracks)
        if (const std::string_view name = Trimmed(track.GetProperty("name"));
            !name.empty() && !HasValue(track, "MZ.TrackName"))
            track.SetPropertyShared("MZ.TrackName", name);
}

} // namespace XPJ
