// The paths of media files, changed to where the files are on this machine.
#pragma once

#include "core/account.h"
#include "core/progress.h"
#include "inspect/timeline.h"
#include "media/media_paths.h"
#include "tree/object.h"

#include <string_view>

namespace XPJ {

// Of the files in an `xmeml` tree, of the look files that its effects name and of what these depend
// on. Relative paths count from `folder`, which has its last separator. Each change and each file
// that is looked for in vain is a remark. Ends early when the progress is cancelled.
void ChangeMediaPaths(MediaPaths& paths, std::string_view folder, ObjectHandle xmeml,
                      Progress& progress, Account& account);

// The same changes in the timelines of a document: for what is compared with its conversion.
void ChangeMediaPaths(MediaPaths& paths, Inspection::Project& project);

} // namespace XPJ
