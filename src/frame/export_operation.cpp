#include "frame/export_operation.h"
#include "core/paths.h"
#include "export/export_driver.h"
#include "report/encoding_issues.h"
#include "frame/release.h"
#include "platform/settings.h"
#include "project/reader.h"
#include "xmeml/writer.h"

namespace XPJ {

VelaToFCPXOperation::VelaToFCPXOperation(std::istream& input, ExportJob job, std::ostream& output)
    : input_(input), job_(std::move(job)), output_(output)
{
}

VelaToFCPXOperation::~VelaToFCPXOperation()
{
    Join();
}

int VelaToFCPXOperation::Convert(Findings& findings)
{
    // Nodes of the one may hang in the other, so both live to the end of the road.
    Document source;
    Document translation;
    ObjectHandle velaData;
    ObjectHandle xmeml;
    RVX::ExportOptions options{job_.projectTitle, job_.outputPath, job_.vl2snMode,
                               job_.sequenceGuid};
    options.exportTransformEffect = ReadSettings().exportTransform;

    StageScope road(*this, 1, 8);
    int result = RunStep(road, 2, [&] {
        ReadNotes notes;
        const int read = ReadProjectDocument(input_, source, velaData, &notes);
        AddEncodingIssues(notes.encoding, Direction::Export, findings.issues);
        findings.stop = std::move(notes.stop);
        return ResultOfRead(read);
    });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            const int translated = RVX::TranslateProjectDocument(
                velaData, options, *this, translation, findings.issues, xmeml, &findings.skipped);
            // The one chosen sequence is all that a project then holds.
            findings.lacksSequence = translated == kSuccess && job_.needsSequence &&
                                     !xmeml.GetChild("project").HasChild("children");
            return findings.lacksSequence ? kNoFCPDataFound : translated;
        });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            findings.reportPath = Report(findings.issues);
            return ResultOfWrite(WriteFCPXML(xmeml, *this, job_.vl2snMode, output_));
        });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(xmeml, *this); });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(velaData, *this); });
    return result;
}

std::string VelaToFCPXOperation::Report(const IssueSet& issues) const
{
    if (issues.empty() || job_.vl2snMode)
        return {};
    const std::string folder =
        job_.reportFolder.empty() ? std::string(FolderOf(job_.outputPath)) : job_.reportFolder;
    return WriteReport(folder, issues, Direction::Export, job_.reportNames);
}

} // namespace XPJ
