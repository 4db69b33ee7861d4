// What a media file's own header states: QuickTime and MP4, WAV and BWF, AIFF.
#pragma once

#include "core/media_facts.h"

#include <istream>
#include <string>

namespace XPJ {

// A file of another format states nothing, and a damaged one no more than what can be read.
MediaFacts ReadMediaHeader(std::istream& file);
MediaFacts ReadMediaHeaderOfFile(const std::string& path);

} // namespace XPJ
