// Documents of either family as the model of timeline.h.
#pragma once

#include "inspect/timeline.h"
#include "tree/object.h"
#include "tree/reading.h"

#include <string>
#include <string_view>

namespace XPJ::Inspection {

// The model of a tree that was read, or that a translation made in the reader's form: `root` is an
// `xmeml` or a `VelaData` node. Relative paths of media count from `folder`, which has its last
// separator. `isHandOff`: the audio editor wrote it, as its head says. Takes any tree: what leads
// nowhere, or back to itself, is left out.
//
// Edges that an XML document leaves to its transitions are written into its tree: to be called once
// for a tree, and not before an import of it.
Project ReadTimelines(ObjectHandle root, std::string_view folder = {}, bool isHandOff = false);

struct ReadOutcome {
    int result = kReadDone; // a ReadResult
    ReadStop stop;          // where reading stopped early
    EncodingFaults encoding;
    Project project;
};

// The same for a whole document of any encoding; the family is that of its document element.
ReadOutcome ReadTimelines(std::string_view bytes, std::string_view folder = {});

// The same for a file.
ReadOutcome ReadTimelinesOfFile(const std::string& path);

// ---- The two families

Project ReadXmemlTimelines(ObjectHandle xmeml, std::string_view folder, bool isHandOff);
Project ReadProjectTimelines(ConstHandle velaData);

} // namespace XPJ::Inspection
