// `xmeml` file to project text.
#pragma once

#include "frame/operation.h"

#include <iosfwd>
#include <string>

namespace XPJ {

class ConversionOperation final : public Operation {
public:
    // `output` must outlive the operation.
    ConversionOperation(std::string inputPath, std::ostream& output, bool sn2vlMode,
                        bool aafSupport);
    ~ConversionOperation() override;

    const std::string& InputPath() const { return inputPath_; }

private:
    int Convert(Findings& findings) override;
    std::string Report(const IssueSet& issues, ObjectHandle project) const;

    std::string inputPath_;
    std::ostream& output_;
    bool sn2vlMode_; // the document holds the import option of the audio hand-off
    bool aafSupport_;
};

using FCPXReadOperation = OwnedOperation<ConversionOperation>;

} // namespace XPJ
