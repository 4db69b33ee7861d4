// A document converted back and forth: XML, project, XML, project, XML.
#pragma once

#include "inspect/timeline.h"

#include <filesystem>
#include <string>
#include <vector>

namespace XPJ {

struct Passes {
    std::string document; // file name without extension
    Inspection::Project project;
    Inspection::Project xmeml;
    Inspection::Project returnedProject;
    Inspection::Project returnedXmeml;
};

// The samples, the inputs of the import's golden cases, and the documents made for this test, but
// for those that the import refuses.
std::vector<Passes> PassesOfAllDocuments();

} // namespace XPJ
