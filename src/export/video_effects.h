// Video effects of items and of files.
#pragma once

#include "export/items.h"

#include <string_view>

namespace XPJ::RVX {

// Components of a track item that its own writer handles.
inline constexpr std::string_view kMotionMatch = "KX.ORRN Motion";
inline constexpr std::string_view kOpacityMatch = "KX.ORRN Opacity";

// Whose effects are written, for the findings.
struct EffectOwner {
    const TrackContext* track = nullptr; // null: the effects are those of a file
    Ticks start = 0;                     // of the item in its sequence
    std::string_view clipName = {};
};

// Puts a `filter` on `element` for every component that documents have a counterpart for, and
// reports the others.
void TranslateVideoComponents(ExportContext& context, const EffectOwner& owner, ConstHandle chain,
                              Ticks frameTicks, ObjectHandle element);

} // namespace XPJ::RVX
