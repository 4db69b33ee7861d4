// Titles of a project as generators that other programs know: the inverse of title_reader.h.
#pragma once

#include "effects/legacy_title_reader.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// The title as a frame of another size shows it: neither it nor its distance from the center is
// scaled. In a frame of no size it stays as it is.
LegacyTitle TitleInFrame(LegacyTitle title, const FrameSize& frame);

// The `effect` of a `generatoritem` that states a title with at least one text.
ObjectHandle MakeTitleEffect(Document& document, const LegacyTitle& title);

// False if the parameters of a generator can't state all of a title: texts of more than two looks,
// two of them in motion or differing in style or alignment.
bool IsStatedInFull(const LegacyTitle& title);

// The text of a graphic: the first text effect in the component chain. Without texts if there is
// none. `frame` is that of the graphic.
LegacyTitle ReadGraphicTitle(ConstHandle chain, const FrameSize& frame);

} // namespace XPJ
