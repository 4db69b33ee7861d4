// Text and shape effects of graphics: `effect`s whose parameters carry the project's own fields,
// written by an export or rewritten from a title.
#pragma once

#include "tree/object.h"

namespace XPJ {

// The component of an `effect` "GraphicAndType" or "GraphicAndShape". Blobs go through byte for
// byte and are not looked into; an empty one, or one that is the base64 form of a mere byte order
// mark, gives no parameter. Of two parameters with one id the later counts.
ObjectHandle MakeTextComponent(Document& document, ObjectHandle effect);
ObjectHandle MakeShapeComponent(Document& document, ObjectHandle effect);

} // namespace XPJ
