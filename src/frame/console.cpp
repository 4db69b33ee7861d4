#include "frame/console.h"

#include "core/numbers.h"
#include "core/paths.h"
#include "frame/file_conversion.h"

#include <iterator>
#include <ostream>

namespace XPJ {

namespace {

// By ConversionResult.
constexpr std::string_view kResultLines[] = {
    "",
    "The operation was aborted.",
    "No FCP data found in input file.",
    "The converter ran out of memory.",
    "No xmeml data found in input file.",
    "The input file could not be opened.",
    "An unexpected error occurred.",
};
static_assert(std::size(kResultLines) == kUnexpectedError + 1);

void PrintResult(int result, std::ostream& out)
{
    if (result > kSuccess && result <= kUnexpectedError)
        out << "XPJConvert: " << kResultLines[result] << "\n" << std::flush;
}

} // namespace

int ConvertFile(ConversionRequest request, std::ostream& out)
{
    if (request.outputPath.empty())
        request.outputPath = DefaultOutputName(request);
    const ConversionOutcome outcome =
        ConvertFiles(request, {.show = [&out](double progress) {
                         out << "Progress: " << DoubleToString(progress * 100) << "%\n"
                             << std::flush;
                     }});
    out << IssueReportText(outcome.account.issues, DirectionOf(request)) << std::flush;
    return outcome.result;
}

int ConvertByExtension(ConversionRequest request, std::ostream& out)
{
    const std::string_view extension = ExtensionOf(request.inputPath);
    if (extension.empty()) {
        out << "XPJConvert: Input file " << request.inputPath
            << " appears to lack a file extension, unable to determine file type.\n";
        return kInputCouldNotBeOpened;
    }
    if (!SetFormatsByExtension(request)) {
        out << "XPJConvert: Unrecognized file extension: " << extension
            << " (.xml or .vlproj expected).\n";
        return kInputCouldNotBeOpened;
    }
    if (request.handOff.value_or(false) && DirectionOf(request) == Direction::Export)
        out << "Processing for Sonara consumption...\n";
    const int result = ConvertFile(std::move(request), out);
    PrintResult(result, out);
    return result;
}

} // namespace XPJ
