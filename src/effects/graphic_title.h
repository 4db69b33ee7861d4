// Titles and shapes of generators as effects of a graphic.
//
// A generator becomes the `effect` that an export would have written for a graphic: the text or the
// outline as a blob, and a group of parameters for position and size. The chain then translates it
// like any other effect.
#pragma once

#include "effects/effect_context.h"
#include "effects/title_reader.h"
#include "tree/object.h"

#include <string>

namespace XPJ {

// The text document of a title: a run for each of its texts, lines joined by carriage returns.
std::string TextBlob(const Title& title);
// Outline and appearance of a shape.
std::string PathBlob(const Shape& shape);
std::string AppearanceBlob(const Shape& shape);

// A new `effect` "GraphicAndType" or "GraphicAndShape" for a generator that IsTextTitle or IsShape.
// `frame` is that of the sequence or clip around it.
ObjectHandle MakeGraphicEffect(Document& document, ConstHandle generator, const FrameSize& frame);

} // namespace XPJ
