#include "support/export_text.h"

#include "project/reader.h"
#include "support/golden.h"
#include "xmeml/writer.h"

#include <sstream>

namespace XPJ::RVX {

Exported ExportText(const std::string& project, const ExportOptions& options, Progress* progress)
{
    SilentProgress silent;
    Document input;
    Document document;
    ObjectHandle root;
    ObjectHandle xmeml;
    Account account;
    Exported exported;
    std::istringstream stream(project);
    if (exported.read = ReadProjectDocument(stream, input, root); exported.read != kReadDone)
        return exported;
    exported.result = TranslateProjectDocument(root, options, progress ? *progress : silent,
                                               document, account, xmeml);
    exported.issues = IssueText(account.issues, Direction::Export);
    exported.skipped = SkippedLines(account);
    exported.remarks = RemarkLines(account);
    if (exported.result != kSuccess)
        return exported;
    std::ostringstream text;
    EXPECT_EQ(WriteFCPXML(xmeml, silent, options.vl2snMode, text), kWriteDone);
    exported.xmeml = text.str();
    return exported;
}

} // namespace XPJ::RVX
