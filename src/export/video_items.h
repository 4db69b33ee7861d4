// The effects and the speed of picture items; the speed of sound items.
#pragma once

#include "export/items.h"

namespace XPJ::RVX {

// Motion, opacity and the other effects of a picture item, in the order of the document.
void ExportVideoEffects(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                        ObjectHandle element);
// The Time Remap of an item that doesn't play its source plainly (see ItemTiming).
void ExportSpeed(ExportContext& context, const TrackPlace& track, const ItemRecord& record,
                 ObjectHandle element);
// The stretch between the pixel aspects of a picture and its sequence.
void ExportAspectCompensation(ExportContext& context, const TrackPlace& track,
                              const ItemRecord& record, ObjectHandle element);

} // namespace XPJ::RVX
