// What a `file` states of its media: by this it is known again among files of its name.
#pragma once

#include "core/media_facts.h"
#include "xmeml/files.h"

namespace XPJ {

MediaFacts FactsOfFile(FileElement file);

} // namespace XPJ
