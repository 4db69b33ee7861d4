#include "xpjconvert/conversion.h"
#include "platform/platform.h"
#include "xpjconvert/interrupt.h"
#include "xpjconvert/progress_display.h"

namespace XPJ {

FileConversion RunConversion(Direction direction, const ToolOptions& options)
{
    ProgressDisplay display(options.quiet);
    const ProgressWatch watch{[&display](double progress) { display.Show(progress); },
                              IsInterrupted};
    if (direction == Direction::Import)
        return ImportFile({options.input, options.output}, watch);

    ExportFileJob job;
    job.inputPath = options.input;
    job.outputPath = options.output;
    job.vl2snMode = options.handoff;
    job.sequenceGuid = options.sequenceGuid;
    if (!options.reportFolder.empty())
        job.reportFolder = GetPlatform().DocumentsFolder(); // that folder, with its separator
    return ExportFile(job, watch);
}

} // namespace XPJ
