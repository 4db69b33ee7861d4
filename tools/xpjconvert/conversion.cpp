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
    if (direction == Direction::Import) {
        ImportFileJob job;
        job.inputPath = options.input;
        job.outputPath = options.output;
        job.sn2vlMode = std::nullopt;
        job.listsReport = !options.seed; // its name and folder don't follow from the input
        job.reportNames = NameForm::Plain;
        return ImportFile(job, watch);
    }
    ExportFileJob job;
    job.inputPath = options.input;
    job.outputPath = options.output;
    job.vl2snMode = options.handoff;
    job.sequenceGuid = options.sequenceGuid;
    job.reportNames = NameForm::Plain;
    if (!options.reportFolder.empty())
        job.reportFolder = GetPlatform().DocumentsFolder(); // that folder, with its separator
    return ExportFile(job, watch);
}

} // namespace XPJ
