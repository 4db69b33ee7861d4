// Conversions from file to file, without a host.
#pragma once

#include "core/conversion_result.h"
#include "core/guid.h"
#include "core/translation_issue.h"
#include "report/report.h"
#include "tree/reading.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace XPJ {

// How a conversion from file to file ended. The output file is there, and whole, only when `result`
// is kSuccess; what stood under its name before stays otherwise.
struct FileConversion {
    int result = kUnexpectedError;
    IssueSet issues;
    SkippedList skipped;
    ReadStop stop;              // where reading the input stopped early
    std::string reportPath;     // empty: no report was written
    bool lacksSequence = false; // the project doesn't hold the sequence asked for
    bool outputLost = false;    // the output could not be created, or not all of it be kept
    std::string lossReason;     // of that, in the system's words
};

// Who watches a conversion; either may be empty.
struct ProgressWatch {
    std::function<void(double)> show{}; // told the progress, 0 to 1, each 250 ms
    std::function<bool()> wantsStop{};  // asked each 50 ms; true cancels the conversion
};

struct ImportFileJob {
    std::string inputPath;
    std::string outputPath;
    // The audio hand-off; nothing: where the document's head says so.
    std::optional<bool> sn2vlMode = false;
    bool aafSupport = false;
    bool listsReport = true; // the project's main bin shows the report
    NameForm reportNames = NameForm::AsInDocument;
};

// An output that can't be created doesn't stop the conversion: its findings are of use all the
// same.
FileConversion ImportFile(const ImportFileJob& job, const ProgressWatch& watch = {});

struct ExportFileJob {
    std::string inputPath;
    std::string outputPath;
    std::string projectTitle = "Vela Project";
    bool vl2snMode = false;
    Guid sequenceGuid = kZeroGuid;
    std::string reportFolder{}; // with its last separator; empty: beside the output
    NameForm reportNames = NameForm::AsInDocument;
};

// A sequence asked for that the project doesn't hold is kNoFCPDataFound.

FileConversion ExportFile(const ExportFileJob& job, const ProgressWatch& watch = {});

// The input's name in the current directory, cut at the first `extension`, with `newExtension`.
//   OutputNameOf("/p/a.xml", ".xml", ".vlproj") == "a.vlproj"
std::string OutputNameOf(std::string_view inputPath, std::string_view extension,
                         std::string_view newExtension);

// Imports a file; an empty output path means `OutputNameOf`. Progress and findings go to `out`.
// Gives a ConversionResult.
int ConvertFile(const std::string& inputPath, const std::string& outputPath, bool aafSupport,
                std::ostream& out);

struct ConsoleArguments {
    std::string inputPath;
    std::string outputPath; // may be empty
    bool aafSupport = false;
    bool vl2snMode = false;
    Guid sequenceGuid = kZeroGuid;
};

// Converts in the direction that the input's extension says, "xml" or "vlproj", and says on `out`
// what went wrong. Gives a ConversionResult; kInputCouldNotBeOpened for any other extension.
int ConvertByExtension(const ConsoleArguments& arguments, std::ostream& out);

} // namespace XPJ
