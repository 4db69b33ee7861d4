// Where the outputs of a batch go. No two documents share an output, and what a document's is
// called doesn't depend on the order of the inputs, so that a second run finds the outputs of the
// first:
//
//   archive (a folder) with day1/cut.xml, day2/cut.xml     day1/cut.vlproj, day2/cut.vlproj
//   day1/a.xml, day2/b.xml                                 a.vlproj, b.vlproj
//   day1/cut.xml, day2/cut.xml: one name twice, so all     day1/cut.vlproj, day2/cut.vlproj
//     are named below the folder that they have in common
//   cut.xml, cut.XML: still one name twice                 cut.xml.vlproj, cut.XML.vlproj
#pragma once

#include "xpjconvert/documents.h"

#include <string>
#include <vector>

namespace XPJ {

struct PlannedDocument {
    InputDocument document;
    // Below the folder for the outputs, without the extension of the output.
    std::string outputStem;
};

// The documents of all parts. One that is named twice is there once, and a folder for the outputs
// that is below an input is no input.
std::vector<PlannedDocument> PlanBatch(const ToolOptions& options,
                                       std::vector<InputDocument> documents);

// True for a document that is in part `part.number` of `part.count`. That depends on its own name
// only: other documents may come and go while the parts are converted elsewhere.
bool IsInPart(const PlannedDocument& planned, const BatchPart& part);

// By which two paths are compared: absolute, without ".", ".." and a last "/".
std::string NormalPath(const std::string& path);
// The same with links followed, as far as there are files.
std::string RealPath(const std::string& path);

} // namespace XPJ
