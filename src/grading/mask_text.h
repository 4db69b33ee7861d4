// Shading masks in the text of a look.
#pragma once

#include "grading/element_writer.h"
#include "grading/shading_mask.h"
#include "grading/xml_file.h"

#include <cstddef>

namespace XPJ {

// Behind the StartTag of a `mask`, `shadermask`, `data` or `Mask`, which may be nested: the mask
// has the outermost name. Fails at a point without its coordinates.
CZvShadingMask ReadMask(CZvXMLFile& file);

void WriteMask(ElementWriter& writer, std::size_t indent, const CZvShadingMask& mask);

} // namespace XPJ
