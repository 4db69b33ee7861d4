// The text of a look as a grading.
#pragma once

#include "grading/grading.h"

#include "core/guid.h"

#include <string_view>

namespace XPJ {

// The grading as the document states it, under the GUID of its bytes if it states none. Throws
// CZvError.
CGrading ReadGrading(std::string_view text);

// The GUID of a grading whose file has none of its own: the same file always has the same one.
Guid GuidOfBytes(std::string_view bytes);

} // namespace XPJ
