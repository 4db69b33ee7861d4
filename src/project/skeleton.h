// The settings objects that every imported project starts with. The host wants them complete; none
// follows from the input.
#pragma once

#include "tree/object.h"

namespace XPJ {

// Adds `ProjectSettings`, `ScratchDiskSettings` and the five compile settings to `project`.
void AddProjectSettings(Document& document, ObjectHandle project);

} // namespace XPJ
