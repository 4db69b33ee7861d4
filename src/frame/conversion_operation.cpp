#include "frame/conversion_operation.h"
#include "frame/release.h"
#include "frame/report.h"
#include "import/import_driver.h"
#include "model/reader.h"
#include "model/writer.h"
#include "platform/settings.h"

namespace XPJ {

ConversionOperation::ConversionOperation(std::string inputPath, std::ostream& output,
                                         bool sn2vlMode, bool aafSupport)
    : inputPath_(std::move(inputPath)), output_(output), sn2vlMode_(sn2vlMode),
      aafSupport_(aafSupport)
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
    const ImportOptions options{inputPath_, sn2vlMode_, aafSupport_, ReadSettings()};

    StageScope road(*this, 1, 8);
    int result = RunStep(road, 2, [&] {
        return ResultOfRead(ReadFCPXML(inputPath_, *this, source, xmeml, &findings.stop));
    });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            return ImportDocument(xmeml, options, *this, translation, findings.issues, project,
                                  &findings.leftOut);
        });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            findings.reportPath = Report(findings.issues, project);
            return ResultOfWrite(WriteProjectDocument(project, *this, output_, sn2vlMode_));
        });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(project, *this); });
    if (result == kSuccess)
        result = RunStep(road, 1, [&] { return ReleaseTree(xmeml, *this); });
    return result;
}

std::string ConversionOperation::Report(const IssueSet& issues, ObjectHandle project) const
{
    if (issues.empty() || sn2vlMode_)
        return {};
    const std::string folder = GetPlatform().DocumentsFolder();
    if (folder.empty())
        return {};
    std::string path = WriteReport(folder, issues, Direction::Import);
    if (!path.empty())
        AddReportItem(project, path);
    return path;
}

} // namespace XPJ
