// `xmeml` file to project text.
#pragma once

#include "frame/operation.h"
#include "report/report.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace XPJ {

// What an import run is told.
struct ImportJob {
    std::string inputPath;
    // A hand-off of the audio editor; nothing: if the document's head says so.
    std::optional<bool> sn2vlMode = false;
    bool aafSupport = false;
    bool listsReport = true; // the project's main bin shows the report
    NameForm reportNames = NameForm::AsInDocument;
};

class ConversionOperation final : public Operation {
public:
    // `output` must outlive the operation.
    ConversionOperation(ImportJob job, std::ostream& output);
    ~ConversionOperation() override;

private:
    int Convert(Findings& findings) override;
    std::string Report(const IssueSet& issues, ObjectHandle project) const;

    ImportJob job_;
    std::ostream& output_;
};

using FCPXReadOperation = OwnedOperation<ConversionOperation>;

} // namespace XPJ
