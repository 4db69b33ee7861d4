// What is in a document, on a screen: its sequences, its media and its effects.
#pragma once

#include "inspect/timeline_text.h"

#include <string>

namespace XPJ::Inspection {

// A line for each sequence: number, name, length, rate, frame, tracks, clips, id. Numbers and ids
// are those that choose a sequence.
std::string SequenceListText(const Project& project);
std::string SequenceListJson(const Project& project);

// The document, its sequences, how many media files there are and which effects are used how often.
std::string SummaryText(const Project& project, const IsOnline& isOnline);

} // namespace XPJ::Inspection
