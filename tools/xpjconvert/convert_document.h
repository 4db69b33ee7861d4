// The conversion of one document, with its reports and what the tool prints about it.
#pragma once

#include "xpjconvert/documents.h"

namespace XPJ {

// How a document was converted.
struct ConvertedDocument {
    int status = kUnexpectedError; // as the tool's exit status
    std::string outputPath;
    ConversionOutcome outcome;
};

// Converts it, into `outputPath` or, if that is empty, where the options say. May throw.
ConvertedDocument ConvertDocument(const ToolOptions& options, const InputDocument& document,
                                  const std::string& outputPath = {});

} // namespace XPJ
