#include "frame/conversion_operation.h"
#include "report/encoding_issues.h"
#include "frame/release.h"
#include "import/import_driver.h"
#include "platform/settings.h"
#include "project/writer.h"
#include "xmeml/reader.h"

namespace XPJ {

ConversionOperation::ConversionOperation(ImportJob job, std::ostream& output)
    : job_(std::move(job)), output_(output)
{
}

ConversionOperation::~ConversionOperation()
{
    Join();
}

int ConversionOperation::Convert(Findings& findings)
{
    // Nodes of the one may hang in the other, so both live to the end of the road.
    Document source;
    Document translation;
    ObjectHandle xmeml;
    ObjectHandle project;
    ImportOptions options{job_.inputPath, job_.sn2vlMode.value_or(false), job_.aafSupport,
                          ReadSettings()};

    StageScope road(*this, 1, 8);
    int result = RunStep(road, 2, [&] {
        XmemlReadNotes notes;
        const int read = ReadFCPXML(job_.inputPath, *this, source, xmeml, &notes);
        options.sn2vlMode = job_.sn2vlMode.value_or(notes.kind.sn2vlMode);
        AddEncodingIssues(notes.encoding, Direction::Import, findings.issues);
        findings.stop = std::move(notes.stop);
        return ResultOfRead(read);
    });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            return ImportDocument(xmeml, options, *this, translation, findings.issues, project,
                                  &findings.skipped);
        });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            if (!options.sn2vlMode)
                findings.reportPath = Report(findings.issues, project);
            return ResultOfWrite(WriteProjectDocument(project, *this, output_, options.sn2vlMode));
        });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(project, *this); });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(xmeml, *this); });
    return result;
}

std::string ConversionOperation::Report(const IssueSet& issues, ObjectHandle project) const
{
    if (issues.empty())
        return {};
    const std::string folder = GetPlatform().DocumentsFolder();
    if (folder.empty())
        return {};
    std::string path = WriteReport(folder, issues, Direction::Import, job_.reportNames);
    if (!path.empty() && job_.listsReport)
        AddReportItem(project, path);
    return path;
}

} // namespace XPJ
