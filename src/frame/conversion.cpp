#include "frame/conversion.h"

#include "core/paths.h"
#include "dialects/dialects.h"
#include "export/export_driver.h"
#include "export/unread_objects.h"
#include "frame/loss_markers.h"
#include "frame/media_path_changes.h"
#include "frame/release.h"
#include "frame/sequence_choice.h"
#include "import/import_driver.h"
#include "import/unread_elements.h"
#include "platform/platform.h"
#include "platform/settings.h"
#include "project/accessors.h"
#include "report/encoding_issues.h"
#include "xmeml/lost_additions.h"

namespace XPJ {

namespace {

constexpr std::string_view kDefaultTitle = "Vela Project";

unsigned AllSteps()
{
    unsigned steps = 0;
    for (const ConversionStage& stage : kConversionStages)
        steps += stage.steps;
    return steps;
}

// Runs one stage after the other until one fails.
class Stages {
public:
    explicit Stages(Progress& progress) : progress_(progress), all_(progress, 1, AllSteps()) {}

    // `stage` gives a ConversionResult.
    template <class Stage>
    void Run(Stage stage)
    {
        if (result_ != kSuccess)
            return;
        const unsigned steps = next_->steps;
        ++next_;
        {
            const StageScope scope(progress_, steps, 1);
            result_ = stage();
        }
        if (result_ == kSuccess && !all_.Step(steps))
            result_ = kAborted;
    }
    int Result() const { return result_; }

private:
    Progress& progress_;
    StageScope all_;
    const ConversionStage* next_ = kConversionStages.begin();
    int result_ = kSuccess;
};

class Pipeline {
public:
    Pipeline(const ConversionRequest& request, const ConversionStreams& streams, Progress& progress,
             ConversionOutcome& outcome)
        : request_(request), streams_(streams), progress_(progress), outcome_(outcome)
    {
    }

    // bytes -> tree -> dialects -> translated tree -> dialects -> bytes
    int Run()
    {
        Stages stages(progress_);
        stages.Run([this] { return Read(); });
        stages.Run([this] { return IsImport() ? Import() : Export(); });
        stages.Run([this] { return Write(); });
        stages.Run([this] { return ReleaseTree(translatedDocument_, progress_); });
        stages.Run([this] { return ReleaseTree(sourceDocument_, progress_); });
        return stages.Result();
    }

private:
    bool IsImport() const { return DirectionOf(request_) == Direction::Import; }

    int Read()
    {
        DocumentDetails details;
        int result = request_.from->read(
            {.path = request_.readFrom.empty() ? request_.inputPath : request_.readFrom,
             .stream = streams_.input,
             .isOpen = settings_.openInterchange},
            progress_, sourceDocument_, source_, details);
        AddEncodingIssues(details.encoding, DirectionOf(request_), outcome_.account);
        isHandOff_ = request_.handOff.value_or(details.isHandOff);
        outcome_.stop = std::move(details.stop);
        if (result == kSuccess && !outcome_.stop.reason.empty())
            AddRemark(outcome_.account, RemarkKind::DocumentCutOff, {},
                      {.path = outcome_.stop.path});
        if (result == kSuccess && UsesDialects(*request_.from)) {
            AssumptionList assumptions;
            RestateAsMeant(sourceDocument_, source_, assumptions);
            AddAssumptions(assumptions);
        }
        if (result == kSuccess)
            result = Choose();
        if (result == kSuccess)
            AddIgnored(details.ignored);
        if (result == kSuccess && IsImport())
            FindMedia(source_);
        return result;
    }

    // Of other sequences than the chosen one nothing counts.
    void AddIgnored(const std::vector<IgnoredElements>& ignored)
    {
        const bool isPart = static_cast<bool>(chosen_);
        if (IsImport())
            AddIgnoredElements(source_, ignored, isPart, outcome_.account);
        else
            RVX::AddIgnoredObjects(isPart ? chosen_ : source_, ignored, isPart, outcome_.account);
    }

    // In both directions of the `xmeml` tree, which states each path once.
    void FindMedia(ObjectHandle xmeml)
    {
        if (request_.mediaPaths)
            ChangeMediaPaths(*request_.mediaPaths, FolderOf(request_.inputPath), xmeml, progress_,
                             outcome_.account);
    }

    // The sequence that the request names.
    int Choose()
    {
        chosenGuid_ = request_.sequenceGuid;
        if (request_.sequence.empty())
            return kSuccess;
        SequenceChoice choice = ChooseSequence(source_, request_.sequence);
        if (!choice.sequence) {
            outcome_.lacksSequence = true;
            outcome_.sequenceProblem = std::move(choice.problem);
            return kNoFCPDataFound;
        }
        chosen_ = choice.sequence;
        if (IsImport())
            KeepOnlySequence(source_, choice.sequence);
        else
            chosenGuid_ = StringToGUID(ObjectGuid(choice.sequence));
        return kSuccess;
    }

    // The audio hand-off is a contract of two programs.
    Settings SettingsOfTranslation() const
    {
        Settings settings = settings_;
        settings.openInterchange = settings_.openInterchange && !isHandOff_;
        return settings;
    }

    bool UsesDialects(const Format& format) const
    {
        return SettingsOfTranslation().openInterchange && format.kind == TreeKind::Xmeml;
    }

    void AddAssumptions(const AssumptionList& assumptions)
    {
        for (const Assumption& assumption : assumptions)
            AddRemark(outcome_.account, {.kind = RemarkKind::DialectAssumed,
                                         .clip = assumption.subject,
                                         .subject = assumption.rule->name,
                                         .detail = assumption.rule->does});
    }

    int Import()
    {
        const ImportOptions options{.inputPath = request_.inputPath,
                                    .sn2vlMode = isHandOff_,
                                    .aafSupport = request_.aafSupport,
                                    .settings = SettingsOfTranslation()};
        sourceDocument_.MarkReads();
        translatedDocument_.Expect(sourceDocument_.Expected());
        const int result = ImportDocument(source_, options, progress_, translatedDocument_,
                                          outcome_.account, translated_);
        if (result == kSuccess)
            AddUnreadElements(source_, outcome_.account);
        FreeSource();
        return result;
    }

    // The input's own name, for programs that show it.
    std::string ProjectTitle() const
    {
        if (!request_.projectTitle.empty())
            return request_.projectTitle;
        std::string_view name = FileNameOf(request_.inputPath);
        name = name.substr(0, name.rfind('.'));
        return std::string(settings_.openInterchange && !name.empty() ? name : kDefaultTitle);
    }

    int Export()
    {
        const RVX::ExportOptions options{.projectTitle = ProjectTitle(),
                                         .vl2snMode = isHandOff_,
                                         .sequenceGuid = chosenGuid_,
                                         .exportTransformEffect = settings_.exportTransform,
                                         .settings = SettingsOfTranslation()};
        sourceDocument_.MarkReads();
        translatedDocument_.Expect(sourceDocument_.Expected());
        const int result = RVX::TranslateProjectDocument(
            source_, options, progress_, translatedDocument_, outcome_.account, translated_);
        if (result == kSuccess && chosenGuid_ == kZeroGuid)
            RVX::AddUnreadObjects(source_, outcome_.account);
        FreeSource();
        // The one chosen sequence is all that the project then holds.
        outcome_.lacksSequence = result == kSuccess && request_.needsSequence &&
                                 chosenGuid_ != kZeroGuid &&
                                 !translated_.GetChild("project").HasChild("children");
        if (outcome_.lacksSequence)
            outcome_.sequenceProblem = "it holds no sequence " + AsString(chosenGuid_);
        return outcome_.lacksSequence ? kNoFCPDataFound : result;
    }

    // Before the writer needs memory. Values of the translated tree are texts of the source.
    void FreeSource()
    {
        sourceDocument_.FreeNodes();
        source_ = {};
    }

    int Write()
    {
        if (!IsImport())
            FindMedia(translated_);
        if (UsesDialects(*request_.to)) {
            AssumptionList assumptions;
            RestateForOthers(translatedDocument_, translated_,
                             {.oneSequence = chosenGuid_ != kZeroGuid}, assumptions);
            AddAssumptions(assumptions);
        }
        const bool additions = request_.additions || isHandOff_;
        if (!IsImport() && !additions)
            AddLostAdditions(translated_, outcome_.account);
        if (request_.markLosses)
            MarkLosses(outcome_.account, request_.to->kind, translatedDocument_, translated_);
        Report();
        const WriteOptions options{.handOff = isHandOff_, .additions = additions};
        return request_.to->write(translated_, options, progress_, streams_.output);
    }

    // First, since a project lists its report.
    void Report()
    {
        if (isHandOff_)
            return;
        if (request_.reserveReport) {
            if (!outcome_.account.remarks.empty())
                ListReport(request_.reserveReport());
            return;
        }
        const std::string text = HostReportText();
        if (text.empty())
            return;
        const std::string folder(IsImport() ? GetPlatform().DocumentsFolder()
                                            : std::string(FolderOf(request_.outputPath)));
        if (IsImport() && folder.empty())
            return;
        ListReport(WriteReport(folder, text));
    }

    std::string HostReportText() const
    {
        std::string text = IssueReportText(outcome_.account.issues, DirectionOf(request_));
        if (settings_.openInterchange)
            text += RemarkReportText(outcome_.account);
        return text;
    }

    void ListReport(std::string path)
    {
        outcome_.reportPath = std::move(path);
        if (IsImport() && request_.listsReport && !outcome_.reportPath.empty())
            AddReportItem(translated_, outcome_.reportPath);
    }

    const ConversionRequest& request_;
    const ConversionStreams& streams_;
    Progress& progress_;
    ConversionOutcome& outcome_;
    const Settings settings_ = ReadSettings();
    bool isHandOff_ = false;
    ConstHandle chosen_;          // the sequence that the request names
    Guid chosenGuid_ = kZeroGuid; // of a project's sequence
    Document sourceDocument_;
    Document translatedDocument_;
    ObjectHandle source_;
    ObjectHandle translated_;
};

} // namespace

bool SetFormatsByExtension(ConversionRequest& request)
{
    const Format* const format = FormatOfExtension(ExtensionOf(request.inputPath));
    if (!format)
        return false;
    request.from = format;
    request.to = &FormatOf(format->kind == TreeKind::Xmeml ? TreeKind::Project : TreeKind::Xmeml);
    return true;
}

Direction DirectionOf(const ConversionRequest& request)
{
    return request.to->kind == TreeKind::Project ? Direction::Import : Direction::Export;
}

std::string_view StageAt(double progress)
{
    double end = 0;
    for (const ConversionStage& stage : kConversionStages) {
        end += static_cast<double>(stage.steps) / AllSteps();
        if (progress < end)
            return stage.name;
    }
    return kConversionStages.back().name;
}

int Convert(const ConversionRequest& request, const ConversionStreams& streams, Progress& progress,
            ConversionOutcome& outcome)
{
    return Pipeline(request, streams, progress, outcome).Run();
}

} // namespace XPJ
