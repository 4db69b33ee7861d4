// The medium behind a master clip, and the part of it that a subclip shows.
#pragma once

#include "export/export_context.h"

namespace XPJ::RVX {

// What a master shows, read once: a master may have many clips, and many items show it.
const MasterMedia& MediaOfMaster(ExportContext& context, ConstHandle masterClip);
// The medium of the first AudioClip that has one.
ConstHandle AudioMediumOfMaster(ConstHandle masterClip);

// What stands behind a medium.
enum class MediumKind {
    File,
    ColourMatte,
    Graphic,
    BarsAndTone,
    Title,     // a legacy title document
    Synthetic, // a generator without a counterpart
};

MediumKind MediumKindOf(ConstHandle medium);
// The path of a medium, a code in digits for one that is made by the host.
std::string_view MediumPath(ConstHandle medium);

// The id under which `clip` and track items name the master, made on first demand. Empty for a
// master that no `clip` is written for: one of a sequence, a colour matte or a graphic.
std::string_view MasterClipId(ExportContext& context, ConstHandle masterClip);

// The rate in which ranges, markers and boundaries of a medium's `clip` count.
Ticks ClipRate(ConstHandle medium);

// Tells of an item that it shows a part of its medium: `subclipinfo`, or the two attributes of
// boundaries that the host doesn't hold hard.
void ApplySubclipOffsets(ExportContext& context, const ClipBoundaries& boundaries,
                         ObjectHandle element);

} // namespace XPJ::RVX
