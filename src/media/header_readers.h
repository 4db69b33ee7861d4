// One reader a format, in a file of its own. Called for a file that begins as the format does.
#pragma once

#include "core/media_facts.h"
#include "media/header_bytes.h"

namespace XPJ {

MediaFacts ReadQuickTimeHeader(HeaderBytes& bytes);
MediaFacts ReadWaveHeader(HeaderBytes& bytes);
MediaFacts ReadAiffHeader(HeaderBytes& bytes);

} // namespace XPJ
