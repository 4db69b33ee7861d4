// The sound of a `clip`: a track for each channel of its file.
#pragma once

#include "export/export_context.h"

#include <cstdint>

namespace XPJ::RVX {

// An `audio`, null for a master without sound. Its items show the `file` of `medium`; the first of
// them carries it where nothing did before.
ObjectHandle TranslateMasterAudio(ExportContext& context, ConstHandle masterClip,
                                  ConstHandle medium);

// Attaches the `sourcetrack` of a sound item: which channel it plays, from 1.
void WriteSourceTrack(ExportContext& context, std::int64_t number, ObjectHandle element);

} // namespace XPJ::RVX
