// xpjconvert INPUT [-o OUTPUT]: converts documents, in the direction that their content shows.
#include "platform/platform.h"
#include "xpjconvert/convert_document.h"
#include "xpjconvert/documents.h"
#include "xpjconvert/inspection.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/options.h"
#include "xpjconvert/print.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <new>
#include <system_error>

#include <fmt/format.h>

namespace {

using namespace XPJ;

// `xpjconvert a.xml b.xml` is hardly meant to write over the second.
bool IsOutputAnInput(const ToolOptions& options, const std::vector<InputDocument>& documents)
{
    if (options.outputIsNamed || options.output.empty() || documents.size() != 1)
        return false;
    const Format& from = FormatOfDocument(options, documents[0].path, documents[0].path);
    if (!IsDocumentOf(from, options.output))
        return false;
    std::error_code error;
    if (std::filesystem::equivalent(documents[0].path, options.output, error))
        return false; // an error of its own
    PrintError(fmt::format("XPJConvert: {}: it is a {} as the first; with -o it is written all "
                           "the same.\n",
                           options.output, from.name));
    return true;
}

int Run(int argc, char** argv)
{
    ToolOptions options;
    if (const std::optional<int> status = ParseOptions(argc, argv, options))
        return *status;
    if (!options.seed)
        UseInstalledCatalog();
    if (options.mode != ToolMode::Convert)
        return RunInspection(options);
    // The readers' diagnostics for developers.
    if (options.quiet || options.output == kStandardStream)
        std::cout.setstate(std::ios::failbit);
    std::string problems;
    const std::vector<InputDocument> documents = ExpandInputs(options, problems);
    PrintError(problems);
    if (IsOutputAnInput(options, documents))
        return kWrongUsage;
    int status = problems.empty() ? kSuccess : kInputCouldNotBeOpened;
    for (const InputDocument& document : documents)
        if (const int one = ConvertDocument(options, document).status; one != kSuccess)
            status = one;
    // The conversion itself has succeeded or not, whatever becomes of this output.
    if (const std::string loss = FlushPrinted(); !loss.empty())
        PrintError(
            fmt::format("XPJConvert: the standard output could not be written: {}.\n", loss));
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    HoldStandardStreams();
    int status = kUnexpectedError;
    try {
        status = Run(argc, argv);
    } catch (const std::bad_alloc&) {
        PrintError("XPJConvert: The converter ran out of memory.\n");
        status = kOutOfMemory;
    } catch (const std::exception& error) {
        PrintError("XPJConvert: An unexpected error occurred. (");
        PrintError(error.what());
        PrintError(")\n");
    }
    EndByInterrupt();
    return status;
}
