#include "frame/otio_conversion.h"

#include "core/paths.h"
#include "frame/sequence_choice.h"
#include "inspect/otio_json.h"
#include "platform/atomic_file.h"

#include <utility>

namespace XPJ {

namespace {

DocumentTimelines ReadRequested(const ConversionRequest& request, DocumentReading reading)
{
    const std::string& path = request.readFrom.empty() ? request.inputPath : request.readFrom;
    return ReadTimelinesOfFile({path, FolderOf(request.inputPath)}, reading);
}

// False after a reason in `outcome`.
bool WriteFile(const ConversionRequest& request, const std::string& text,
               const StopCheck& wantsStop, ConversionOutcome& outcome)
{
    AtomicFile output(request.writeTo.empty() ? request.outputPath : request.writeTo, wantsStop);
    std::size_t written = 0;
    if (output.IsOpen() && output.File().Write(text.data(), text.size(), written) &&
        output.Commit())
        return true;
    outcome.result = wantsStop && wantsStop() ? kAborted : kUnexpectedError;
    outcome.outputLost = outcome.result != kAborted;
    outcome.lossReason = output.Reason();
    return false;
}

} // namespace

OtioOutcome ConvertToOtio(const ConversionRequest& request, DocumentReading reading,
                          const StopCheck& wantsStop)
{
    OtioOutcome result;
    ConversionOutcome& outcome = result.conversion;
    DocumentTimelines document = ReadRequested(request, reading);
    result.encoding = std::move(document.encoding);
    outcome.result = document.result;
    outcome.stop = std::move(document.stop);
    if (outcome.result != kSuccess)
        return result;
    ListedChoice choice;
    if (!request.sequence.empty()) {
        choice = ChooseListed(document.project.sequences, request.sequence);
        if (choice.index == Inspection::kNothing) {
            outcome.result = kNoFCPDataFound;
            outcome.lacksSequence = true;
            outcome.sequenceProblem = std::move(choice.problem);
            return result;
        }
    }
    const Inspection::OtioText text = Inspection::WriteOtio(document.project, choice.index);
    if (wantsStop && wantsStop())
        outcome.result = kAborted;
    else if (WriteFile(request, text.json, wantsStop, outcome)) {
        result.sequences = text.sequences;
        result.items = text.items;
    }
    return result;
}

} // namespace XPJ
