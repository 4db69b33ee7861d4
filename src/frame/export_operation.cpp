#include "frame/export_operation.h"
#include "core/paths.h"
#include "export/export_driver.h"
#include "frame/release.h"
#include "frame/report.h"
#include "model/reader.h"
#include "model/writer.h"
#include "platform/settings.h"

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
        return ResultOfRead(ReadProjectDocument(input_, source, velaData, &findings.stop));
    });
    if (result == kSuccess)
        result = RunStep(road, 2, [&] {
            return RVX::TranslateProjectDocument(velaData, options, *this, translation,
                                                 findings.issues, xmeml);
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
    return WriteReport(folder, issues, Direction::Export);
}

} // namespace XPJ
