#include "support/import_text.h"

#include "project/writer.h"
#include "support/golden.h"
#include "xmeml/reader.h"

#include <sstream>

namespace XPJ {

Imported ImportText(std::string_view xmeml, const ImportOptions& options, Progress* progress)
{
    Document document;
    ObjectHandle root;
    if (const int read = ParseFCPXML(xmeml, document, root); read != kReadDone)
        return {.read = read};
    return ImportTree(root, options, progress);
}

Imported ImportTree(ConstHandle root, const ImportOptions& options, Progress* progress)
{
    SilentProgress silent;
    Document document;
    ObjectHandle project;
    Account account;
    Imported imported;
    imported.result =
        ImportDocument(root, options, progress ? *progress : silent, document, account, project);
    imported.issues = IssueText(account.issues, Direction::Import);
    imported.skipped = SkippedLines(account);
    imported.remarks = RemarkLines(account);
    if (!project)
        return imported;
    std::ostringstream text;
    EXPECT_EQ(WriteProjectDocument(project, silent, text, options.sn2vlMode), kWriteDone);
    imported.project = text.str();
    return imported;
}

} // namespace XPJ
