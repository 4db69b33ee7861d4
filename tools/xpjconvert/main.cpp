// xpjconvert INPUT [-o OUTPUT]: converts documents, in the direction that their content shows.
#include "platform/platform.h"
#include "xpjconvert/batch.h"
#include "xpjconvert/convert_document.h"
#include "xpjconvert/documents.h"
#include "xpjconvert/guard.h"
#include "xpjconvert/inspection.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/options.h"
#include "xpjconvert/print.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include <fmt/format.h>

namespace {

using namespace XPJ;

// `xpjconvert a.xml b.xml` is hardly meant to write over the second.
bool IsOutputAnInput(const ToolOptions& options, const InputDocument& document)
{
    if (options.outputIsNamed || options.output.empty())
        return false;
    const Format& from = FormatOfDocument(options, document.path, document.path);
    if (!IsDocumentOf(from, options.output))
        return false;
    std::error_code error;
    if (std::filesystem::equivalent(document.path, options.output, error))
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
    const InputDocument document{options.inputs.front()};
    const bool isBatch = IsBatch(options);
    if (!isBatch && IsOutputAnInput(options, document))
        return kWrongUsage;
    const int status = isBatch ? ConvertBatch(options) : ConvertDocument(options, document).status;
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
    const int status = RunGuarded([&] { return Run(argc, argv); });
    EndByInterrupt();
    return status;
}
