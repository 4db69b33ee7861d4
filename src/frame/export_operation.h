// Project text to `xmeml` text.
#pragma once

#include "core/guid.h"
#include "frame/operation.h"
#include "report/report.h"

#include <iosfwd>
#include <string>

namespace XPJ {

// What an export run is told.
struct ExportJob {
    std::string projectTitle;
    std::string outputPath;
    bool vl2snMode = false;        // the audio hand-off form
    Guid sequenceGuid = kZeroGuid; // zero: the whole project
    std::string reportFolder{};    // with its last separator; empty: beside the output
    bool needsSequence = false;    // a sequence that isn't there ends the run
    NameForm reportNames = NameForm::AsInDocument;
};

class VelaToFCPXOperation final : public Operation {
public:
    // Both streams must outlive the operation.
    VelaToFCPXOperation(std::istream& input, ExportJob job, std::ostream& output);
    ~VelaToFCPXOperation() override;

private:
    int Convert(Findings& findings) override;
    std::string Report(const IssueSet& issues) const;

    std::istream& input_;
    ExportJob job_;
    std::ostream& output_;
};

using FCPXWriteOperation = OwnedOperation<VelaToFCPXOperation>;

} // namespace XPJ
