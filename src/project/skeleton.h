// The settings objects that every new project starts with. The host requires all of them; none
// depends on the input.
#pragma once

#include "tree/object.h"

namespace XPJ {

// Adds `ProjectSettings`, `ScratchDiskSettings` and the five compile settings to `project`.
void AddProjectSettings(Document& document, ObjectHandle project);

} // namespace XPJ
