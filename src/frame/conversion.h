// One conversion: what is requested, its outcome, and the pipeline from bytes to bytes.
//
// The plug-in entry, the console and the tool all fill in a request and read an outcome.
#pragma once

#include "core/account.h"
#include "core/conversion_result.h"
#include "core/guid.h"
#include "core/progress.h"
#include "frame/formats.h"
#include "report/report.h"
#include "tree/reading.h"

#include <array>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace XPJ {

class MediaPaths;

struct ConversionRequest {
    const Format* from = &FormatOf(TreeKind::Xmeml);
    const Format* to = &FormatOf(TreeKind::Project);
    std::string inputPath{};
    std::string outputPath{};
    // Opened in place of the two, which then are names alone; empty: they themselves.
    std::string readFrom{};
    std::string writeTo{};
    // A document of the audio hand-off; nothing: if the input states it.
    std::optional<bool> handOff = false;

    // Of a document with several sequences, the one to convert: its name, id or number, see
    // `ChooseSequence`. Empty: all of the document.
    std::string sequence{};

    // To a project
    bool aafSupport = false;
    bool listsReport = true; // the project's main bin shows the report

    // From a project
    std::string projectTitle{};    // empty: a default
    Guid sequenceGuid = kZeroGuid; // zero: the whole project
    bool needsSequence = true;     // a sequence that is missing ends the conversion
    bool additions = true;         // also what the document type doesn't have

    // Where media files are on this machine; null: as documents state. Many requests may share
    // one.
    std::shared_ptr<MediaPaths> mediaPaths{};

    bool markLosses = false; // a marker in the output where something did not arrive

    // The report
    // Called when something did not arrive, before the output is written; gives the path of a
    // report that the caller writes itself. Empty: the host's report is written.
    std::function<std::string()> reserveReport{};
};

// Sets both formats from the extension of the input: a document becomes one of the other kind.
// False for an extension of no format.
bool SetFormatsByExtension(ConversionRequest& request);

// An import makes a project, an export is made from one.
Direction DirectionOf(const ConversionRequest& request);

// How a conversion ended, and what it reports beside its output.
struct ConversionOutcome {
    int result = kUnexpectedError; // a ConversionResult
    Account account;
    ReadStop stop;               // where reading stopped early, or why the input can't be used
    std::string reportPath;      // empty: no report was written
    bool lacksSequence = false;  // the document doesn't have the requested sequence
    std::string sequenceProblem; // of that, "it holds no sequence Cut"
    bool outputLost = false;     // the output could not be created, or not all of it be kept
    std::string lossReason;      // of that, as the system puts it
};

// The stages of a conversion, in order, with the share of the progress that each fills.
struct ConversionStage {
    std::string_view name; // for people
    unsigned steps;
};
inline constexpr std::array kConversionStages = {
    ConversionStage{"reading", 2}, ConversionStage{"translating", 2}, ConversionStage{"writing", 2},
    ConversionStage{"closing", 1}, ConversionStage{"closing", 1}};
// The stage that is at work at a progress from 0 to 1.
std::string_view StageAt(double progress);

struct ConversionStreams {
    std::istream* input; // a project from a host; null: the request's input file
    std::ostream& output;
};

// Reads, translates, writes the report and the document. Gives the result; all else goes into
// `outcome`. May throw.
int Convert(const ConversionRequest& request, const ConversionStreams& streams, Progress& progress,
            ConversionOutcome& outcome);

} // namespace XPJ
