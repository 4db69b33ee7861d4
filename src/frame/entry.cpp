#include "frame/entry.h"
#include "core/text.h"
#include "frame/export_target.h"
#include "frame/operation.h"
#include "frame/stream_buffers.h"
#include "frame/user_messages.h"
#include "platform/atomic_file.h"
#include "text/text_services.h"
#include "xmeml/sniff.h"

#include <istream>
#include <ostream>

namespace XPJ {

namespace {

using namespace std::chrono_literals;

constexpr auto kImportInterval = 100ms;
constexpr auto kExportInterval = 250ms;

// The host's stream functions, acquired for the scope's life.
class ProjectSuite {
public:
    explicit ProjectSuite(const BasicSuiteSource* source) : result_(Acquire(source)) {}
    ~ProjectSuite()
    {
        if (suite_ && basic_->ReleaseSuite)
            basic_->ReleaseSuite(VELA_PROJECT_CONVERTER_SUITE,
                                 VELA_PROJECT_CONVERTER_SUITE_VERSION);
    }
    ProjectSuite(const ProjectSuite&) = delete;
    ProjectSuite& operator=(const ProjectSuite&) = delete;

    // kVelaDone, or why there is no suite.
    std::int32_t Result() const { return result_; }
    const VelaProjectConverterSuite& Functions() const { return *suite_; }

private:
    std::int32_t Acquire(const BasicSuiteSource* source)
    {
        if (!source)
            return kVelaNoSuiteSource;
        basic_ = source->GetBasicSuite ? source->GetBasicSuite() : nullptr;
        if (!basic_)
            return kVelaNoBasicSuite;
        const void* suite = nullptr;
        if (!basic_->AcquireSuite ||
            basic_->AcquireSuite(VELA_PROJECT_CONVERTER_SUITE, VELA_PROJECT_CONVERTER_SUITE_VERSION,
                                 &suite) != 0)
            return kVelaSuiteRefused;
        suite_ = static_cast<const VelaProjectConverterSuite*>(suite);
        return suite_ ? kVelaDone : kVelaSuiteMissing;
    }

    const HSBasicSuite* basic_ = nullptr;
    const VelaProjectConverterSuite* suite_ = nullptr;
    std::int32_t result_;
};

std::string PathOf(const ConverterContext& context)
{
    return context.path ? ToUTF8(context.path) : std::string();
}

template <std::size_t N>
void SetField(char16_t (&field)[N], std::string_view text)
{
    ToUTF16(text, field, N);
}

void FillTable(VelaFileTypeTable& table)
{
    FileTypeRecord& import = table.records[0];
    import.canImport = 1;
    SetField(import.filterName, GetMessage(Message::kFCPXML));
    SetField(import.extension, "*.xml");
    SetField(import.description, GetMessage(Message::kFCPXMLInterchangeFormat));

    FileTypeRecord& exportType = table.records[1];
    exportType.canImport = 0;
    exportType.canExport = 1;
    SetField(exportType.filterName, GetMessage(Message::kFinalCutProXML));
    SetField(exportType.extension, "*.xml");
    SetField(exportType.description, GetMessage(Message::kFinalCutProXML));

    table.records[2].canImport = 0;
}

std::int32_t StartUp(VelaFileTypeTable* table)
{
    if (!table)
        return kVelaNoTable;
    FillTable(*table);
    try {
        GetPlatform().StartServices();
        GVE::StartTextServices();
    } catch (...) { // NOLINT(bugprone-empty-catch): most conversions need none of the services
    }
    return kVelaDone;
}

// The host's code for an operation that has ended, or that could not be started.
std::int32_t HostResult(std::int32_t streamStatus, int result)
{
    if (streamStatus != 0)
        return kVelaStreamFailed;
    switch (result) {
    case kSuccess:
        return kVelaDone;
    case kAborted:
        return kVelaAborted;
    default:
        return kVelaConversionFailed;
    }
}

void RunToEnd(ProgressOperation& operation, std::chrono::milliseconds interval)
{
    if (!operation.Start())
        return;
    while (!operation.WaitFor(interval)) {
    }
}

// A cancelled worker is waited for, too.
void RunUnderDialog(ProgressOperation& operation)
{
    if (!operation.Start())
        return;
    GetPlatform().RunProgressDialog(operation, GetMessage(Message::kExportingFCPXML),
                                    GetMessage(Message::kCancel));
    while (!operation.WaitFor(kExportInterval)) {
    }
}

// Also one that could not be written, so that the user learns of the issues.
bool HasReport(const ConversionOutcome& outcome)
{
    return !outcome.account.issues.empty() || !outcome.reportPath.empty();
}

std::int32_t Import(ConverterContext& context, bool supportsAAF)
{
    const std::string path = PathOf(context);
    const FileKind kind = SniffFile(path);
    if (!kind.isFCPXML)
        return kVelaConversionFailed;
    const bool showUI = context.showUI != 0;
    const ProjectSuite suite(context.basicSuiteSource);
    if (suite.Result() != kVelaDone)
        return suite.Result();

    SuiteWriterBuf buffer(context, suite.Functions());
    std::ostream output(&buffer);
    Operation operation({.inputPath = path, .handOff = kind.sn2vlMode, .aafSupport = supportsAAF},
                        {.input = nullptr, .output = output});
    RunToEnd(operation, kImportInterval);

    const ConversionOutcome outcome = operation.TakeOutcome();
    const std::int32_t result = HostResult(buffer.Status(), outcome.result);
    if (result == kVelaDone && HasReport(outcome) && !kind.sn2vlMode)
        ShowMessage(Message::kTranslationReport, GetMessage(Message::kTranslationResultsReport),
                    showUI);
    else if (result == kVelaConversionFailed)
        ReportConversionResult(kNoXMELM, showUI); // a failed import ends silently
    return result;
}

std::int32_t Export(ConverterContext& context)
{
    const bool showUI = context.showUI != 0;
    const ProjectSuite suite(context.basicSuiteSource);
    if (suite.Result() != kVelaDone)
        return suite.Result();

    SuiteReaderBuf inputBuffer(context, suite.Functions());
    std::istream input(&inputBuffer);
    const ExportTarget target = ExportTargetOf(PathOf(context));
    AtomicFile file(target.path);
    if (!file.IsOpen()) {
        ShowMessage(Message::kCannotCreateFileTitle,
                    GetMessage(Message::kCannotCreateFile, {target.path}), showUI);
        return kVelaFileNotCreated;
    }
    FileWriterBuf outputBuffer(file.File());
    std::ostream output(&outputBuffer);
    Operation operation(
        {.from = &FormatOf(TreeKind::Project),
         .to = &FormatOf(TreeKind::Xmeml),
         .outputPath = target.path,
         .handOff = target.isHandOff,
         .projectTitle = target.title,
         .sequenceGuid = StringToGUID({context.sequenceGuid, sizeof(context.sequenceGuid)}),
         .needsSequence = false},
        {.input = &input, .output = output});
    if (!target.isHandOff && showUI && GetPlatform().HasUserInterface())
        RunUnderDialog(operation);
    else
        RunToEnd(operation, kExportInterval);

    const ConversionOutcome outcome = operation.TakeOutcome();
    std::int32_t result = HostResult(inputBuffer.Status(), outcome.result);
    if (result == kVelaDone && !file.Commit())
        result = kVelaConversionFailed;
    if (result == kVelaDone && HasReport(outcome) && !target.isHandOff)
        ShowMessage(Message::kTranslationReport, GetMessage(Message::kTranslationResultsXML),
                    showUI);
    return result;
}

} // namespace

std::int32_t RunSelector(std::int32_t selector, void* record, bool supportsAAF)
{
    const auto context = static_cast<ConverterContext*>(record);
    switch (selector) {
    case kVelaSelectorStartUp:
        return StartUp(static_cast<VelaFileTypeTable*>(record));
    case kVelaSelectorImport:
        return context ? Import(*context, supportsAAF) : std::int32_t{kVelaNoContext};
    case kVelaSelectorExport:
        return context ? Export(*context) : std::int32_t{kVelaNoContext};
    case kVelaSelectorShutDown:
        GVE::StopTextServices();
        GetPlatform().StopServices();
        return kVelaDone;
    default:
        return kVelaUnknownSelector;
    }
}

std::int32_t ImportWithTemplate(const char* input, const ConverterContext& contextTemplate)
{
    const std::u16string path = ToUTF16(input ? input : "");
    ConverterContext context = contextTemplate;
    context.path = path.c_str();
    return RunSelector(kVelaSelectorImport, &context, true);
}

} // namespace XPJ
