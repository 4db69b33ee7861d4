// Links between items: a project states them as groups, documents item by item.
#pragma once

#include "export/track_context.h"

namespace XPJ::RVX {

// Opens a link group for each link of a sequence, before its items are written.
void OpenLinkGroups(ExportContext& context, ConstHandle sequence);

// True for a project item (ItemCore) that has a link group.
bool HasLinkGroup(const ExportContext& context, ConstHandle itemCore);
// A group for an item that the project links to nothing, so that its written channels find each
// other.
void OpenLinkGroup(ExportContext& context, ConstHandle itemCore);

// The `link` that names an element, the `position`th on the `track`th written track of its kind.
ObjectHandle NewLink(ExportContext& context, ObjectHandle element, MediaType kind, int track,
                     int position, bool grouped);

// Enters an element, the next on its track, in the group of the project item that it is made from.
// `grouped` marks the two channels of a stereo item.
void RegisterLink(ExportContext& context, ConstHandle itemCore, ObjectHandle element,
                  const TrackPlace& track, bool grouped = false);

// The last pass: gives every registered element a `link` to each one of its group that shows the
// same source, itself included, in the order of the group.
void ResolveLinks(const ExportContext& context);

} // namespace XPJ::RVX
