// Levels, filters and pan of sound items, and the faders of their tracks.
#pragma once

#include "export/items.h"

namespace XPJ::RVX {

// The `Gain` of a sound item's clip. A clip that states one gets a `filter` even where the gain
// changes nothing; its effect is then without a name.
void TranslateGain(ExportContext& context, const ItemRecord& record, ObjectHandle element);

// The components of a sound item in the order of its chain. What documents have no word for is
// reported.
void TranslateAudioComponents(ExportContext& context, const TrackContext& track,
                              const ItemRecord& record, ObjectHandle element);

// The pan of a sound item: a `filter`, and the project's own words as attributes.
void TranslatePan(ExportContext& context, const ItemRecord& record, ObjectHandle element);

// The fader of a track or of a group's master track, unless it is at rest.
void TranslateTrackVolume(ExportContext& context, ConstHandle audioTrack, ObjectHandle element);

// Reports the effects of a master's sound that documents have no word for. A `file` has no place
// for any effect of its sound.
void ReportMasterAudioEffects(ExportContext& context, MasterClip masterClip);

} // namespace XPJ::RVX
